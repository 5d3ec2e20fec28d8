#pragma once

#include <QDialog>

#include <memory>
#include <set>
#include <string>
#include <vector>

class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace corvane {

// Kept out of this header: moc cannot read the <compare> that the list's dates need.
class clsProjectLibrary;

// The project library dialog: the project files of the Project Library (or, in archive mode,
// of the Archive) in a list with a tick box per row; sorting by a click on a column head,
// search, opening a project, and moving the ticked files into the other folder. The list is
// read when the dialog is first shown; a folder that cannot be written closes it again.
//
// The caller shows it modally. exec() gives QDialog::Accepted when a project was opened into
// gProject (projectOpened() is emitted just before the dialog closes); the caller then goes to
// the Project page and refreshes it. newProjectStarted() tells that a file could not be read
// and the open project was replaced by a new, empty one; the dialog stays open then.
class frmLibProject : public QDialog {
    Q_OBJECT

public:
    explicit frmLibProject(QWidget* parent = nullptr);
    ~frmLibProject() override;

    // Library (false) or Archive (true); chosen before the dialog is shown.
    void SetArchiveMode(bool archive);
    bool ArchiveMode() const;

    // Reads the folder into the list; false, after "Access Error", when the folder cannot be
    // written. The first showing calls it; the dialog closes on false.
    bool LoadLibrary();

    bool ProjectOpened() const { return projectOpened_; }
    const clsProjectLibrary& Library() const { return *library_; }

signals:
    void projectOpened();
    void newProjectStarted();

protected:
    void showEvent(QShowEvent* event) override;

private:
    void cmdOpenFile_Click();
    void cmdArchive_Click();
    void cmdSearch_Click();
    void txtSearchProject_Change();
    void dtbLibProject_HeaderClick(int column);
    void dtbLibProject_ItemChanged(QTableWidgetItem* item);

    void OpenPath(const std::string& path);
    void FillRows();
    void ShowFound(int count);
    void TickAll();
    std::string PathOfRow(int row) const;
    std::vector<std::string> TickedPaths() const;

    std::unique_ptr<clsProjectLibrary> library_;
    std::set<std::string> ticked_;
    bool activated_ = false;
    bool projectOpened_ = false;

    QTableWidget* dtbLibProject_;
    QLineEdit* txtSearchProject_;
    QPushButton* cmdSearch_;
    QPushButton* cmdOpenFile_;
    QPushButton* cmdArchive_;
    QPushButton* cmdCancel_;
    QLabel* lblSearch_;
    QLabel* lblFoundItems_;
    QLabel* lblProgress_;
    QProgressBar* prgLoading_;
};

} // namespace corvane
