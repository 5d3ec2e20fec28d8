#include "library/modLibraryOpen.h"

#include "files/modLockFile.h"
#include "files/modProjectCommands.h"
#include "library/modLibraryFiles.h"
#include "model/Globals.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <filesystem>

namespace corvane {

namespace fs = std::filesystem;

namespace {

bool InFolder(const std::string& path, const std::string& folder) {
    std::error_code ec;
    const fs::path parent = fs::absolute(path, ec).parent_path();
    return !ec && fs::equivalent(parent, folder, ec) && !ec;
}

} // namespace

bool ProjectLibraryFound() {
    if (EnsureFolder(gRootDirectory, false))
        return true;
    Prompts().MessageBox(
        "Project Library filepath \"" + gRootDirectory +
            "\" cannot be found. Please review Project Library filepath in Program Settings.",
        MsgBox::Critical, "Project Library");
    return false;
}

bool ArchiveFound() {
    if (EnsureFolder(gArchiveDirectory, false))
        return true;
    Prompts().MessageBox("Archive filepath \"" + gArchiveDirectory +
                             "\" cannot be found. Please review Archive filepath in Program Settings.",
                         MsgBox::Critical, "Archive");
    return false;
}

bool CheckLibraryFolderWritable(const std::string& folder) {
    if (IsFolderWritable(folder))
        return true;
    Prompts().MessageBox("The current project directory does not have write permissions. Please set the "
                         "File/Project directory using Tools > Settings from ...",
                         MsgBox::Critical, "Access Error");
    return false;
}

int OpenLibraryProject(const std::string& path, const std::string& projectID, bool fromArchive) {
    if (path.empty())
        return 0;
    if (fromArchive) {
        if (!ProjectLibraryFound())
            return 0;
        const int answer =
            Prompts().MessageBox("Opening \"" + projectID +
                                     "\" will move it into the Project Library. Do you wish to "
                                     "continue",
                                 MsgBox::YesNo | MsgBox::Question, "Open and Move");
        if (answer != Answer::Yes)
            return 0;
    }
    if (OpenProjectFile(path) != 1)
        return 0;
    if (!fromArchive)
        return 1;

    const bool lockHeld = gProjectFileName != kReadOnlyUntitledFileName;
    if (!MoveProjectFile(path, gRootDirectory)) {
        Prompts().MessageBox("\"" + projectID +
                                 "\" could not be moved into the Project Library. The file remains in the "
                                 "Archive and has not been modified.",
                             MsgBox::Exclamation, "File Move");
        return 1;
    }
    // The project now lives in the Library, where saving and closing look for its lock: the
    // lock goes there too, or other stations would see the moved file as free.
    if (lockHeld) {
        WriteLockFile(AddFolderSeparator(gRootDirectory) + FileNameOf(path));
        RemoveLockFile(path);
    }
    return 1;
}

NamedFileOpen OpenNamedProjectFile(const std::string& path) {
    NamedFileOpen result;
    if (path.empty() || !ProjectLibraryFound())
        return result;
    std::error_code ec;
    std::string user, computer;
    // What cannot be copied is opened where it is: the library's own file, a file in use at
    // another station, and a path that is no file (the read says so).
    if (InFolder(path, gRootDirectory) || IsFileLocked(path, user, computer) ||
        !fs::is_regular_file(path, ec)) {
        result.opened = OpenProjectFile(path);
        result.openedPath = result.opened == 1 ? path : std::string();
        return result;
    }

    const std::string name = FileNameOf(path);
    const std::string target = AddFolderSeparator(gRootDirectory) + name;
    const ProjectCopy copy = CopyProjectFile(path, gRootDirectory);
    if (copy == ProjectCopy::NameTaken || copy == ProjectCopy::Failed) {
        Prompts().MessageBox(
            copy == ProjectCopy::NameTaken
                ? "\"" + name +
                      "\" was not opened: the Project Library already holds a different project file "
                      "named \"" +
                      name + "\", and it is never overwritten. Rename the file to open it."
                : "\"" + name + "\" was not opened: it could not be copied into the Project Library \"" +
                      gRootDirectory + "\". The file has not been modified.",
            MsgBox::Exclamation, "File Copy");
        return result;
    }
    result.copied = copy == ProjectCopy::Copied;
    result.opened = OpenProjectFile(target);
    if (result.opened != 1) {
        // A file the program cannot read does not stay in the library it just came into.
        if (result.copied)
            fs::remove(target, ec);
        result.copied = false;
        return result;
    }
    result.openedPath = target;
    return result;
}

} // namespace corvane
