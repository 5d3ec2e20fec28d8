#include "shell/frmOptions.h"

#include "common/ServicesFixture.h"
#include "files/modSettings.h"
#include "model/Globals.h"
#include "shell/QtTestApp.h"
#include "shell/frmScanOptions.h"
#include "support/modNVSystemUtilities.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <cstdlib>

namespace corvane {
namespace {

using test::Child;

const char* const kKey = "Software\\Corvane\\DefaultOptions";

class frmOptionsTest : public test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        ReadDefaultOptions(); // a fresh station: the defaults are written
    }
    QApplication& app = test::TestApp();
};

// Cancel writes nothing, but a dog-leg offset typed is in force at once and stays.
TEST_F(frmOptionsTest, CancelLeavesTheStoreAsItWasAndTheDogLegLive) {
    const MemorySettingsStore::Contents before = settings.Snapshot();
    frmOptions dialog(nullptr);
    EXPECT_EQ(dialog.windowTitle(), QStringLiteral("Settings"));
    Child<QLineEdit>(dialog, "txtRepairShopName")->setText(QStringLiteral("Harbour Props"));
    auto* dogLeg = Child<QLineEdit>(dialog, "txtDogLegOffset");
    dogLeg->clear();
    QTest::keyClicks(dogLeg, QStringLiteral("7.5"));
    Child<QPushButton>(dialog, "staMenuBarCancel")->click();
    EXPECT_FALSE(dialog.Saved());
    EXPECT_EQ(settings.Snapshot(), before);
    EXPECT_EQ(gDogLegOffset, 7.5);
}

TEST_F(frmOptionsTest, OKWritesWhatTheFieldsShowAndTheEncoderChoicesSteerTheFields) {
    frmOptions dialog(nullptr);
    const QStringList tabs{QStringLiteral("Project"), QStringLiteral("Calibration"),
                           QStringLiteral("Administrator"), QStringLiteral("Interface")};
    auto* tabOptions = Child<QTabWidget>(dialog, "tabOptions");
    ASSERT_EQ(tabOptions->count(), 4);
    for (int i = 0; i < 4; ++i) {
        EXPECT_EQ(tabOptions->tabText(i), tabs[i]);
    }
    EXPECT_TRUE(Child<QLineEdit>(dialog, "txtCalibRad")->isReadOnly());

    Child<QComboBox>(dialog, "cboRadiusEncoderType")->setCurrentIndex(0);
    EXPECT_FALSE(Child<QPushButton>(dialog, "cmdCalibrate")->isEnabled());
    EXPECT_FALSE(Child<QPushButton>(dialog, "cmdModifyCalibration")->isEnabled());
    EXPECT_TRUE(Child<QComboBox>(dialog, "cboRulerDisplay")->isEnabled());
    EXPECT_TRUE(Child<QLineEdit>(dialog, "txtRadiusCalibMM")->isReadOnly());
    Child<QComboBox>(dialog, "cboDropEncoderType")->setCurrentIndex(2);
    EXPECT_FALSE(Child<QCheckBox>(dialog, "chkDropFlip")->isEnabled());

    auto* trigger = Child<QLineEdit>(dialog, "txtTriggerKey");
    prompts.Expect(Answer::OK, "This key is not a valid trigger key.");
    QTest::keyClick(trigger, Qt::Key_F5);
    EXPECT_EQ(trigger->text(), QString());
    QTest::keyClick(trigger, Qt::Key_Space);
    EXPECT_EQ(trigger->text(), QStringLiteral("<SPACE>"));

    Child<QLineEdit>(dialog, "txtRepairShopName")->setText(QStringLiteral("Harbour Props"));
    Child<QComboBox>(dialog, "cboEmailMessaging")->setCurrentIndex(1);
    Child<QPushButton>(dialog, "staMenuBarOK")->click();
    EXPECT_TRUE(dialog.Saved());
    EXPECT_EQ(GetRegistryValue(kKey, "RepairShopName"), "Harbour Props");
    EXPECT_EQ(GetRegistryValue(kKey, "RadiusEncoderType"), "Off");
    EXPECT_EQ(GetRegistryValue(kKey, "DropEncoderType"), "SingleChannel");
    EXPECT_EQ(GetRegistryValue(kKey, "KeyboardTrigger"), "32");
    EXPECT_EQ(GetRegistryValue("Software\\Corvane\\Email", "EmailMessaging"), "MAPIDirect");

    frmOptions again(nullptr);
    EXPECT_EQ(Child<QLineEdit>(again, "txtTriggerKey")->text(), QStringLiteral("<SPACE>"));
}

// Each tab as the user sees it; with CORVANE_SCREENSHOT_DIR set the pictures are kept there.
TEST_F(frmOptionsTest, EveryTabAndTheScanOptionsPaint) {
    frmOptions dialog(nullptr);
    dialog.show();
    auto* tabOptions = Child<QTabWidget>(dialog, "tabOptions");
    const char* folder = std::getenv("CORVANE_SCREENSHOT_DIR");
    for (int i = 0; i < tabOptions->count(); ++i) {
        tabOptions->setCurrentIndex(i);
        const QImage picture = test::Render(dialog);
        EXPECT_FALSE(picture.isNull());
        if (folder != nullptr) {
            picture.save(QStringLiteral("%1/settings-%2.png").arg(QString::fromLocal8Bit(folder)).arg(i));
        }
    }
    gScanOrderMode = 0;
    frmScanOptions scan;
    EXPECT_EQ(scan.windowTitle(), QStringLiteral("Scan Options"));
    Child<QComboBox>(scan, "cboScanMode")->setCurrentIndex(1);
    if (folder != nullptr) {
        scan.show();
        test::Render(scan).save(QStringLiteral("%1/scan-options.png").arg(QString::fromLocal8Bit(folder)));
    }
    Child<QPushButton>(scan, "staMenuBarOK")->click();
    EXPECT_EQ(gScanOrderMode, 1);
}

} // namespace
} // namespace corvane
