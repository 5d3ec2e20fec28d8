#pragma once

#include "files/modProjectCommands.h"
#include "shell/clsFileDialog.h"

#include <functional>
#include <string>
#include <vector>

namespace corvane {

class frmCorvane;

// The File menu of the main window: new, open (library and archive), save, save as, import and
// export. Every command that replaces the project asks to save the old one first and goes to
// the Project page. The rules of saving live in the core (modProjectCommands); this class lends
// them the window's marks, page, Project ID dialog and cursor.
class FileCommands : public ProjectCommandHost {
public:
    explicit FileCommands(frmCorvane& window);

    void mnuFileNew_Click();
    void mnuFileOpen_Click();
    void mnuFileViewArchive_Click();
    // The result of the save: 1 written, 0 refused or failed.
    int mnuFileSave_Click();
    int mnuFileSaveAs_Click();
    void mnuFileImport_Click();
    void mnuFileExport_Click();

    // The types the import and export dialogs offer: every type in Shop mode, the project
    // type alone in Office mode.
    static std::vector<FileFilter> ImportFilters();
    static std::vector<FileFilter> ExportFilters();

    // ProjectCommandHost
    void MarkSaveAsFields(bool diameterMissing, bool customerMissing) override;
    void ShowProjectPage() override;
    void AskNewProjectID() override;
    void SetWaitCursor(bool wait) override;

    // The project library dialog, shown modally over the library (false) or the archive
    // (true); it opens the project the user picks. Tests put a stand-in of their own.
    using LibraryDialog = std::function<void(bool archive)>;
    void SetLibraryDialog(LibraryDialog dialog) { libraryDialog_ = std::move(dialog); }
    // The dialog that asks Save as for a new Project ID and stores it in the project.
    using ProjectIDDialog = std::function<void()>;
    void SetProjectIDDialog(ProjectIDDialog dialog) { projectIDDialog_ = std::move(dialog); }

    // Opens a project file named outside the library dialog, as on the command line: a file
    // from elsewhere is copied into the Project Library first, and the status bar says where
    // it went (the rule is OpenNamedProjectFile's).
    void OpenNamedFile(const std::string& path);

    // After the project was replaced (also from outside the window, as at start-up): the
    // Project page, refreshed, the title and the blade buttons.
    void ShowNewProject();

private:
    void OpenLibrary(bool archive);
    void ShowLibraryDialog(bool archive);
    void ShowProjectIDDialog();

    frmCorvane& window_;
    LibraryDialog libraryDialog_;
    ProjectIDDialog projectIDDialog_;
    bool waitCursor_ = false;
};

} // namespace corvane
