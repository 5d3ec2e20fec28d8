// The model comes before any Qt header: Qt's "slots" keyword macro would break its headers.
#include "library/LibraryTestProjects.h"

#include "shell/QtTestApp.h"
#include "shell/frmProjectID.h"

#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>

namespace corvane {
namespace {

using test::Child;

class frmProjectIDTest : public test::LibraryTest {
protected:
    QApplication& app = test::TestApp();
};

TEST_F(frmProjectIDTest, RefusesAnEmptyOrUnchangedIDAndStoresANewOne) {
    gProject->SetProjectID("TUG-1");
    frmProjectID dialog;
    QSignalSpy changed(&dialog, &frmProjectID::projectIDChanged);
    dialog.show();
    auto* text = Child<QLineEdit>(dialog, "txtProjectID");
    auto* ok = Child<QPushButton>(dialog, "cmdOK");

    text->setText(QStringLiteral("   "));
    prompts.Expect(Answer::OK, "New project ID can not be empty");
    ok->click();
    text->setText(QStringLiteral("TUG-1"));
    prompts.Expect(Answer::OK, "New project ID must be different from previous project ID ");
    ok->click();
    EXPECT_EQ(prompts.History().back().text, "New project ID must be different from previous project ID ");
    EXPECT_EQ(prompts.History().back().title, "Project ID");
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_EQ(changed.count(), 0);

    text->setText(QStringLiteral(" TUG-2 "));
    ok->click();
    EXPECT_EQ(gProject->ProjectID(), "TUG-2");
    EXPECT_EQ(changed.count(), 1);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_FALSE(dialog.isVisible());

    dialog.show();
    text->setText(QStringLiteral("TUG-3"));
    Child<QPushButton>(dialog, "cmdCancel")->click();
    EXPECT_TRUE(text->text().isEmpty());
    EXPECT_EQ(dialog.result(), QDialog::Rejected);
    EXPECT_EQ(gProject->ProjectID(), "TUG-2");
}

} // namespace
} // namespace corvane
