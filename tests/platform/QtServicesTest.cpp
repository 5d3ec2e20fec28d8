#include "files/modSettings.h"
#include "platform/QtEnvironment.h"
#include "platform/QtPrompts.h"
#include "platform/QtSettingsStore.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLocale>
#include <QMessageBox>
#include <QSettings>
#include <QStandardPaths>
#include <QTimer>

namespace corvane {
namespace {

QApplication& App() {
    static int argc = 1;
    static char name[] = "corvane_platform_tests";
    static char* argv[] = {name, nullptr};
    static QApplication* app = [] {
        auto* a = new QApplication(argc, argv);
        QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
        QStandardPaths::setTestModeEnabled(true); // keep the developer's own settings untouched
        return a;
    }();
    return *app;
}

TEST(QtServicesTest, SettingsStoreKeepsRegistryKeyPathsUnderTheOrganisation) {
    App();
    EXPECT_EQ(QtSettingsStore::GroupOf("Software\\Corvane\\Report\\"), QStringLiteral("Report"));
    EXPECT_EQ(QtSettingsStore::GroupOf("Software\\Corvane"), QString());
    QtSettingsStore store;
    const std::string key = "Software\\Corvane\\TestOptions";
    EXPECT_FALSE(store.KeyExists("Software\\Corvane\\NeverMade"));
    store.CreateKey("Software\\Corvane\\Made");
    EXPECT_TRUE(store.KeyExists("Software\\Corvane\\Made"));
    EXPECT_TRUE(store.SetValue(key, "RootDirectory", "/srv/propellers/Library"));
    // The same value is visible to plain QSettings of the organisation, under the key's group.
    QSettings settings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Corvane"));
    EXPECT_EQ(settings.value(QStringLiteral("TestOptions/RootDirectory")).toString(),
              QStringLiteral("/srv/propellers/Library"));
    store.DeleteValue(key, "RootDirectory");
    EXPECT_EQ(store.GetValue(key, "RootDirectory"), "");
}

TEST(QtServicesTest, SettingsStoreMovesTheSettingsOfTheEarlierLocationFromWhereTheyReallyLive) {
    App();
    // On Windows the registry key Software\Norvelle\Corvane\DefaultOptions.
    QSettings old(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Norvelle"),
                  QStringLiteral("Corvane"));
    old.setValue(QStringLiteral("DefaultOptions/RepairShopName"), QStringLiteral("Old Shop"));
    QSettings own(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Corvane"));
    own.remove(QStringLiteral("DefaultOptions"));
    QtSettingsStore store;
    const ServiceScope scope(Services{nullptr, &store, nullptr, nullptr, nullptr, nullptr});
    DefaultOptions values;
    ReadDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, values, kOldDefaultOptionsRootKey);
    EXPECT_EQ(values.repairShopName, "Old Shop");
    EXPECT_EQ(store.GetValue("Software\\Corvane\\DefaultOptions", "RepairShopName"), "Old Shop");
    old.remove(QStringLiteral("DefaultOptions"));
    own.remove(QStringLiteral("DefaultOptions"));
}

TEST(QtServicesTest, EnvironmentReportsTheLocaleDecimalSeparatorAndFolders) {
    App();
    QtEnvironment environment;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    EXPECT_EQ(environment.DecimalSeparator(), ',');
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
    EXPECT_EQ(environment.DecimalSeparator(), '.');
    EXPECT_EQ(environment.TempFolder().back(), '/');
    EXPECT_FALSE(environment.ProgramFilePath().empty());
    qputenv("USERNAME", "");
    qputenv("USER", "tech");
    EXPECT_EQ(environment.UserName(), "tech");
    qputenv("COMPUTERNAME", "");
    qputenv("HOSTNAME", "STATION7");
    EXPECT_EQ(environment.ComputerName(), "STATION7");
}

// Clicks the button with the given text in the next modal box that opens.
void ClickWhenShown(const QString& text) {
    QTimer::singleShot(0, [text] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* button : box->buttons()) {
            if (button->text().remove('&') == text) {
                button->click();
                return;
            }
        }
        ADD_FAILURE() << "no button " << text.toStdString();
        box->reject();
    });
}

TEST(QtServicesTest, PromptsMapsButtonsToAnswerCodes) {
    App();
    QtPrompts prompts;
    ClickWhenShown(QStringLiteral("Retry"));
    EXPECT_EQ(
        prompts.MessageBox("File already in use.", MsgBox::RetryCancel | MsgBox::Exclamation, "Corvane"),
        Answer::Retry);
    ClickWhenShown(QStringLiteral("No"));
    EXPECT_EQ(prompts.MessageBox("Save changes?", MsgBox::YesNoCancel | MsgBox::Question, "Corvane"),
              Answer::No);
    ClickWhenShown(QStringLiteral("Ignore"));
    EXPECT_EQ(prompts.MessageBox("x", MsgBox::AbortRetryIgnore, "Corvane"), Answer::Ignore);
}

} // namespace
} // namespace corvane
