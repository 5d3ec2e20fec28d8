#pragma once

#include <QDialog>

class QLineEdit;
class QPushButton;

namespace corvane {

// Asks for a new Project ID when a project is saved under a new name. OK refuses an empty ID
// and the present one; otherwise it stores the new ID in gProject, emits projectIDChanged()
// (the Project page shows it) and closes with Accepted. Cancel clears the text and closes with
// Rejected, and the project keeps its ID: the save's own checks then stop the save.
class frmProjectID : public QDialog {
    Q_OBJECT

public:
    explicit frmProjectID(QWidget* parent = nullptr);

    // Shows the dialog modally; true when a new ID was stored.
    static bool AskNewProjectID(QWidget* parent = nullptr);

    void reject() override;

signals:
    void projectIDChanged();

private:
    void cmdOK_Click();

    QLineEdit* txtProjectID_;
    QPushButton* cmdOK_;
    QPushButton* cmdCancel_;
};

} // namespace corvane
