#pragma once

// Opening a project from the library or the archive, and the folder checks that come before it
// and before a move. Messages go through the installed prompts.

#include <string>

namespace corvane {

// True when gRootDirectory can be found; otherwise says so under "Project Library".
bool ProjectLibraryFound();
// True when gArchiveDirectory can be found; otherwise says so under "Archive".
bool ArchiveFound();

// True when a file can be created in the folder; otherwise "Access Error".
bool CheckLibraryFolderWritable(const std::string& folder);

// Opens a project file as the library does. An empty path does nothing. From the Archive
// (fromArchive) the Project Library must exist and the technician must agree to the move;
// after the project is read the file moves into the Library, and a lock this station holds
// moves with it. When the move fails the file stays in the Archive ("File Move") and the
// project stays open. projectID is the one the list shows, for the messages. 1 when the
// project was read.
int OpenLibraryProject(const std::string& path, const std::string& projectID, bool fromArchive);

// What opening a file named outside the library dialog did.
struct NamedFileOpen {
    int opened = 0;         // 1 when the project was read
    bool copied = false;    // the file was copied into the Project Library to be opened
    std::string openedPath; // the file the project was read from; "" when none was
};

// Opens a project file named outside the library dialog (on the command line, by a file
// manager). A project lives in the Project Library: its lock, its saves and its closing all
// look for it there. So a file in the Library opens in place, and any other file is copied into
// the Library under its own name and the copy opens; the original is never written. When the
// Library already holds the same bytes under that name, that file opens and no copy is made.
// Nothing opens when the Library is missing, when it holds a different file of that name
// (never overwritten), or when the copy fails; "File Copy" says why. A copy that cannot be read
// is taken back. A locked file outside the Library is in use at a station whose Library it lies
// in: it opens where it lies, read-only as any locked project, and is not copied.
NamedFileOpen OpenNamedProjectFile(const std::string& path);

} // namespace corvane
