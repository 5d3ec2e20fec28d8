#include "shell/FileCommands.h"

#include "files/modHaleMRIFile.h"
#include "files/modProjectFile.h"
#include "files/modTesselbyFile.h"
#include "library/modLibraryOpen.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "reference/modImportFile.h"
#include "shell/PageNavigator.h"
#include "shell/ProjectPageController.h"
#include "shell/UnavailablePage.h"
#include "shell/frmCorvane.h"
#include "shell/frmLibProject.h"
#include "shell/frmProjectID.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <QApplication>
#include <QStatusBar>

namespace corvane {
namespace {

// Positions of the types in the import and export lists.
constexpr int kImportProject = 0;
constexpr int kImportTesselby = 1;
constexpr int kImportHaleMRI = 2;
constexpr int kExportProject = 0;

bool OfficeMode() {
    return gOfficeMode == 1;
}

} // namespace

FileCommands::FileCommands(frmCorvane& window) : window_(window) {}

std::vector<FileFilter> FileCommands::ImportFilters() {
    std::vector<FileFilter> filters = {{" Norvelle Corvane (*.cvpj) ", "*.cvpj"}};
    if (!OfficeMode()) {
        filters.push_back({"Tesselby Propeller Scan File (*.tbsc) ", "*.tbsc"});
        filters.push_back({"Hale MRI (*.txt, *.dat)", "*.txt;*.dat"});
    }
    return filters;
}

std::vector<FileFilter> FileCommands::ExportFilters() {
    std::vector<FileFilter> filters = {{"Norvelle Corvane (*.cvpj)", "*.cvpj"}};
    if (!OfficeMode()) {
        filters.push_back({"Propeller Pitch Progression (*.ppp)", "*.ppp"});
    }
    return filters;
}

void FileCommands::mnuFileNew_Click() {
    if (window_.QuerySave() == Answer::Cancel) {
        return;
    }
    SetWaitCursor(true);
    window_.ctlProjButton_Click();
    CreateNewProject();
    ShowNewProject();
    window_.ProjectPage().CheckProjectData(true);
    SetWaitCursor(false);
}

void FileCommands::mnuFileOpen_Click() {
    OpenLibrary(false);
}

void FileCommands::mnuFileViewArchive_Click() {
    OpenLibrary(true);
}

void FileCommands::OpenLibrary(bool archive) {
    if (!EnsureFolder(archive ? gArchiveDirectory : gRootDirectory, false)) {
        Prompts().MessageBox(archive
                                 ? "Archive Library filepath cannot be found. Please review Archive Library "
                                   "filepath settings."
                                 : "Active Library filepath cannot be found. Please review Active Library "
                                   "filepath settings.",
                             MsgBox::Exclamation, gAppTitle);
        return;
    }
    if (window_.QuerySave() == Answer::Cancel) {
        return;
    }
    window_.ctlProjButton_Click();
    ShowLibraryDialog(archive);
    ShowNewProject();
    SetWaitCursor(false);
}

void FileCommands::ShowLibraryDialog(bool archive) {
    if (libraryDialog_) {
        libraryDialog_(archive);
        return;
    }
    frmLibProject dialog(&window_);
    dialog.SetArchiveMode(archive);
    // A file that cannot be read leaves a new project behind while the dialog stays open.
    QObject::connect(&dialog, &frmLibProject::newProjectStarted, &dialog, [this] { ShowNewProject(); });
    dialog.exec();
}

void FileCommands::OpenNamedFile(const std::string& path) {
    window_.ctlProjButton_Click();
    SetWaitCursor(true);
    const NamedFileOpen result = OpenNamedProjectFile(path);
    ShowNewProject();
    SetWaitCursor(false);
    if (result.copied) {
        // Saves go to the copy, never to the original: the technician must know which is which.
        window_.statusBar()->showMessage(
            QString::fromStdString("\"" + path + "\" was copied into the Project Library as \"" +
                                   result.openedPath + "\"; changes are saved there."));
    } else {
        window_.statusBar()->clearMessage();
    }
}

int FileCommands::mnuFileSave_Click() {
    const int result = SaveProject(*this);
    window_.UpdateTitlebarCaption();
    return result;
}

int FileCommands::mnuFileSaveAs_Click() {
    const int result = SaveProjectAs(*this);
    window_.ProjectPage().RefreshProjectFormData();
    window_.UpdateTitlebarCaption();
    return result;
}

void FileCommands::mnuFileImport_Click() {
    if (window_.QuerySave() == Answer::Cancel) {
        return;
    }
    window_.ctlProjButton_Click();
    clsFileDialog dialog;
    dialog.DialogTitle = "Open file...";
    dialog.Filters = ImportFilters();
    dialog.InitDir = gRootDirectory;
    dialog.Parent = &window_;
    if (!dialog.ShowOpen()) {
        return;
    }
    const int type = dialog.FilterIndex;
    SetWaitCursor(true);
    CreateNewProject();
    window_.ProjectPage().CheckProjectData(true);
    FileReadResult read;
    if (type == kImportProject) {
        read = ReadProjectFile(dialog.FileName);
    } else if (type == kImportTesselby && !OfficeMode()) {
        read = ReadTesselbyFile(dialog.FileName);
    } else if (type == kImportHaleMRI && !OfficeMode()) {
        read = ImportHaleMRIFile(dialog.FileName, *gProject, *gISO484);
    }
    ShowNotices(read.notices);
    if (!read.Usable()) {
        Prompts().MessageBox("An error occurred reading the file. All the data was read, but some data is "
                             "missing. Please review "
                             "the file.",
                             MsgBox::Critical, gAppTitle);
    }
    window_.ctlProjButton_Click();
    ShowNewProject();
    SetWaitCursor(false);
}

void FileCommands::mnuFileExport_Click() {
    clsFileDialog dialog;
    dialog.DialogTitle = "Save file...";
    dialog.Filters = ExportFilters();
    dialog.InitDir = gRootDirectory;
    dialog.FileName = gProjectFileName;
    dialog.Parent = &window_;
    if (!dialog.ShowSave()) {
        return;
    }
    if (!IsFolderWritable(FolderOf(dialog.FileName))) {
        Prompts().MessageBox("The current project directory does not have write permissions. Please select a "
                             "different location to save the File/Project.",
                             MsgBox::Critical, "Access Error");
    }
    SetWaitCursor(true);
    if (dialog.FilterIndex == kExportProject) {
        WriteProjectFile(dialog.FileName);
    } else {
        // The reference as the project defines it; its own messages say why when it cannot be.
        (void)ExportPPPFile(dialog.FileName);
    }
    SetWaitCursor(false);
}

void FileCommands::ShowNewProject() {
    window_.ProjectPage().RefreshProjectFormData();
    window_.UpdateTitlebarCaption();
    window_.SetBladeButtonState(0);
    window_.Navigator().NotifyStateChanged();
}

void FileCommands::MarkSaveAsFields(bool diameterMissing, bool customerMissing) {
    window_.ProjectPage().MarkSaveAsFields(diameterMissing, customerMissing);
}

void FileCommands::ShowProjectPage() {
    window_.ctlProjButton_Click();
}

void FileCommands::AskNewProjectID() {
    if (projectIDDialog_) {
        projectIDDialog_();
        return;
    }
    ShowProjectIDDialog();
}

void FileCommands::ShowProjectIDDialog() {
    if (frmProjectID::AskNewProjectID(&window_)) {
        window_.ProjectPage().RefreshProjectFormData();
    }
}

void FileCommands::SetWaitCursor(bool wait) {
    if (wait == waitCursor_) {
        return;
    }
    waitCursor_ = wait;
    if (wait) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

} // namespace corvane
