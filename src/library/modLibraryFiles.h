#pragma once

// Moving project files between the Project Library and the Archive. The folders can lie on a
// shared network drive, where a copy can stop half-way; so a move copies, checks the copy
// byte for byte, puts it on the disk, and only then deletes the original. Whatever fails, the
// original stays as it was and no partial copy is left behind.

#include "model/DateTime.h"

#include <functional>
#include <string>

namespace corvane {

// Copies source to target, which does not exist yet; true when the copy reports success. The
// move never trusts that answer alone: it compares the bytes after.
using FileCopier = std::function<bool(const std::string& source, const std::string& target)>;

// The station's copier: the file's bytes and its modification time (the library falls back on
// that time for files without a stamp). The copy appears under the target's name whole or not
// at all, and never over an existing file: it is written beside the target under a name of its
// own and then linked into place, which fails when the target exists.
bool CopyFileKeepingDate(const std::string& source, const std::string& target);

// Installs the copier that moves use (an empty one puts the station's back) and returns the one
// installed before.
FileCopier SetFileCopier(FileCopier copier);

// True when both are readable plain files of the same size and the same bytes.
bool SameFileContent(const std::string& first, const std::string& second);

// What copying a project file into a folder found.
enum class ProjectCopy {
    Copied,        // a new file, byte for byte the original
    SameFileThere, // the folder already held the same bytes under that name (or the file itself)
    NameTaken,     // the folder holds a different file of that name, which was left alone
    Failed,        // no copy; the folder is as it was
};

// Copies the file into the folder under its own name with the installed copier, and checks the
// copy byte for byte. A file of that name already in the folder is never overwritten. The
// original is only read.
ProjectCopy CopyProjectFile(const std::string& sourcePath, const std::string& targetFolder);

// Deletes a file; true when it is gone. The station's own deletes the file from the disk.
using FileRemover = bool (*)(const std::string& path);
bool RemoveFileFromDisk(const std::string& path);

// Moves the file into the folder under its own name. A file of that name already in the folder
// is never overwritten: when it holds the same bytes (a move that stopped before deleting) the
// original is deleted and the move counts as done, otherwise the move fails. False leaves the
// original untouched and the folder without a new file: a copy whose original `removeOriginal`
// could not delete is taken back.
bool MoveProjectFile(const std::string& sourcePath, const std::string& targetFolder,
                     FileRemover removeOriginal = RemoveFileFromDisk);

// The file's modification time in local time; the zero date DateTime{} when it cannot be read.
DateTime FileModifiedDate(const std::string& path);

} // namespace corvane
