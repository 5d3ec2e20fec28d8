#include "platform/frmNVCriticalErrorHandler.h"

#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "platform/QtPrompts.h"
#include "support/Services.h"
#include "support/modErrorHandler.h"

#include "shell/QtTestApp.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <functional>

namespace corvane {
namespace {

const std::string kReport = "A file error has occurred reading the cvpj file from disk.\r\n\r\n"
                            "Corvane 1.00.0000\r\nError number: 53\r\n";

using test::Child;

class frmNVCriticalErrorHandlerTest : public test::ServicesTest {
protected:
    QApplication& app = test::TestApp();
};

TEST_F(frmNVCriticalErrorHandlerTest, ShowsTheReportReadOnlyOnTopWithTheOptions) {
    frmNVCriticalErrorHandler dialog(kReport, true, true);
    auto* report = Child<QPlainTextEdit>(dialog, "txtErrorMsg");
    EXPECT_EQ(report->toPlainText(), QString::fromStdString(kReport).replace(QStringLiteral("\r\n"), "\n"));
    auto* email = Child<QPushButton>(dialog, "cmdEmail");
    EXPECT_FALSE(email->isHidden());
    EXPECT_TRUE(email->isEnabled());
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

// The report goes to support with the log, and with a copy of the project only when asked; a
// mail program that refuses is told, and the dialog stays for another try.
TEST_F(frmNVCriticalErrorHandlerTest, EmailHandsTheReportLogAndProjectCopyOver) {
    gLogFolder = temp->Folder();
    std::ofstream(GetErrorLogPath()) << "Nov 22 2026, 09:05:07, 53, File not found\r\n";
    frmNVCriticalErrorHandler dialog(kReport, true, true, nullptr, [](const std::string& path) {
        return static_cast<bool>(std::ofstream(path) << "[Project]\r\n");
    });
    Child<QCheckBox>(dialog, "chkIncludeData")->setChecked(true);
    Child<QPushButton>(dialog, "cmdEmail")->click();
    Child<QCheckBox>(dialog, "chkIncludeData")->setChecked(false);
    Child<QPushButton>(dialog, "cmdEmail")->click();
    ASSERT_EQ(mail.sent.size(), 2u);
    const MailMessage& withData = mail.sent[0];
    EXPECT_EQ(withData.subject, "Corvane Error Report");
    EXPECT_EQ(withData.text.rfind(kReport, 0), 0u);
    EXPECT_NE(withData.text.find("\r\n\r\nBuild code: "), std::string::npos);
    EXPECT_NE(withData.text.find("Date: 22 Nov 2026 09:05"), std::string::npos);
    ASSERT_EQ(withData.attachments.size(), 2u);
    EXPECT_EQ(withData.attachments[0].name, "corvaneError.log");
    EXPECT_EQ(withData.attachments[1].name, "20261122-0905.cvpj");
    EXPECT_EQ(mail.attachmentsPresent[0], (std::vector<bool>{true, true}));
    EXPECT_EQ(mail.sent[1].attachments.size(), 1u);

    mail.status = -1;
    prompts.Expect(Answer::OK, "Cannot prepare the error notification email.");
    Child<QPushButton>(dialog, "cmdEmail")->click();
    EXPECT_EQ(dialog.Answer(), Answer::Ignore);
}

} // namespace
} // namespace corvane
