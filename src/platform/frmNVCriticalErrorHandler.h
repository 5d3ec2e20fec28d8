#pragma once

#include <QDialog>

#include <functional>
#include <string>

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace corvane {

// The critical error dialog: the error report, OK, the choice to abort and close the program,
// and the e-mail part for sending the report to support. Its answers are the error handler's:
// 3 Abort (OK with "Abort and close application" ticked), 4 Retry (a double click in the report,
// the hidden retry for support staff), 5 Ignore (OK, or the window closed).
class frmNVCriticalErrorHandler : public QDialog {
    Q_OBJECT

public:
    // Saves a copy of the open project to a path (the ProjectCopy of the error report).
    using ProjectCopy = std::function<bool(const std::string& path)>;

    // projectCopy saves the copy of the open project that "Include current project data"
    // sends; by default the open project, when there is one.
    frmNVCriticalErrorHandler(const std::string& report, bool showEmail, bool showAbort,
                              QWidget* parent = nullptr, ProjectCopy projectCopy = OpenProjectCopy());

    static ProjectCopy OpenProjectCopy();

    // Runs the dialog modally with the default mouse pointer, puts the previous pointer back and
    // gives the answer.
    int ShowModal();
    // The answer so far: 5 until a control closes the dialog.
    int Answer() const { return answer_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void cmdOK_Click();
    void cmdEmail_Click();
    void CloseWith(int answer);

    QPlainTextEdit* txtErrorMsg_;
    QCheckBox* chkAbortAndClose_;
    QPushButton* cmdOK_;
    QLabel* lblEmailNV_;
    QCheckBox* chkIncludeData_;
    QPushButton* cmdEmail_;
    int answer_;
    std::string report_;
    ProjectCopy projectCopy_;
};

} // namespace corvane
