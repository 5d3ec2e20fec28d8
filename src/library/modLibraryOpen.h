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

} // namespace corvane
