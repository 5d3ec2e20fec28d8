#include "platform/frmNVCriticalErrorHandler.h"

#include "model/Globals.h"
#include "platform/QtPrompts.h"

#include "shell/QtTestApp.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>

namespace corvane {
namespace {

const std::string kReport = "A file error has occurred reading the cvpj file from disk.\r\n\r\n"
                            "Corvane 1.00.0000\r\nError number: 53\r\n";

using test::Child;

class frmNVCriticalErrorHandlerTest : public ::testing::Test {
protected:
    QApplication& app = test::TestApp();
};

TEST_F(frmNVCriticalErrorHandlerTest, ShowsTheReportReadOnlyOnTopWithTheOptions) {
    frmNVCriticalErrorHandler dialog(kReport, true, true);
    auto* report = Child<QPlainTextEdit>(dialog, "txtErrorMsg");
    EXPECT_EQ(report->toPlainText(), QString::fromStdString(kReport).replace(QStringLiteral("\r\n"), "\n"));
    auto* email = Child<QPushButton>(dialog, "cmdEmail");
    EXPECT_FALSE(email->isHidden());
    EXPECT_FALSE(email->isEnabled()); // sending waits for the mail client
    EXPECT_TRUE(Child<QCheckBox>(dialog, "chkIncludeData")->isEnabled());
    EXPECT_GT(dialog.height(), 185);
}

TEST_F(frmNVCriticalErrorHandlerTest, WithoutTheOptionsHidesThemAndShrinks) {
    frmNVCriticalErrorHandler dialog(kReport, false, false);
    for (const char* name : {"chkAbortAndClose", "chkIncludeData", "cmdEmail", "lblEmailNV"}) {
        auto* control = Child<QWidget>(dialog, name);
        EXPECT_TRUE(control->isHidden()) << name;
    }
    EXPECT_FALSE(Child<QCheckBox>(dialog, "chkAbortAndClose")->isEnabled());
    EXPECT_FALSE(Child<QCheckBox>(dialog, "chkIncludeData")->isEnabled());
    EXPECT_LT(dialog.height(), 230); // 2775 twips unless the font needs more
    // Even a ticked (hidden) abort box cannot end the program.
    Child<QCheckBox>(dialog, "chkAbortAndClose")->setChecked(true);
    Child<QPushButton>(dialog, "cmdOK")->click();
    EXPECT_EQ(dialog.Answer(), Answer::Ignore);
    frmNVCriticalErrorHandler closed(kReport, true, true);
    closed.reject(); // the window's close button or Escape
    EXPECT_EQ(closed.Answer(), Answer::Ignore);
}

// Runs the action on the critical error dialog once it is up and modal.
void WhenDialogShown(std::function<void(frmNVCriticalErrorHandler&)> action) {
    QTimer::singleShot(0, [action] {
        auto* dialog = qobject_cast<frmNVCriticalErrorHandler*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        action(*dialog);
    });
}

TEST_F(frmNVCriticalErrorHandlerTest, PromptsRunItModallyWithTheArrowAndPutTheCursorBack) {
    QtPrompts prompts;
    QApplication::setOverrideCursor(Qt::WaitCursor); // a long operation was running
    Qt::CursorShape whileOpen = Qt::WaitCursor;
    WhenDialogShown([&](frmNVCriticalErrorHandler& dialog) {
        whileOpen = QApplication::overrideCursor()->shape();
        QTest::mouseDClick(dialog.findChild<QPlainTextEdit*>()->viewport(), Qt::LeftButton);
    });
    EXPECT_EQ(prompts.ShowCriticalError(kReport, false, true), Answer::Retry);
    EXPECT_EQ(whileOpen, Qt::ArrowCursor);
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    QApplication::restoreOverrideCursor();

    WhenDialogShown([](frmNVCriticalErrorHandler& dialog) {
        dialog.findChild<QCheckBox*>(QStringLiteral("chkAbortAndClose"))->setChecked(true);
        dialog.findChild<QPushButton*>(QStringLiteral("cmdOK"))->click();
    });
    EXPECT_EQ(prompts.ShowCriticalError(kReport, true, true), Answer::Abort);
}

} // namespace
} // namespace corvane
