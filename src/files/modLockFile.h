#pragma once

// Lock files tell other stations that a project is open. The lock of a project is the project's
// path plus ".lck", three lines of text:
//
//   UserName=<user>         "User" when the environment has no user name
//   ComputerName=<station>  "MyPC" when it has no computer name
//   Date=<yyyy-mm-dd hh:mm:ss>
//
// Locks are advisory and not synchronised: two stations opening a project in the same instant
// can both get it. A lock counts whoever holds it, the station's own included, so a project left
// open by a crash stays in use until its lock is deleted. Nothing here raises.

#include <string>

namespace corvane {

// Replaces any old lock of the project with one naming this station: 1, or 0 when it cannot.
int WriteLockFile(const std::string& projectPath);

// Deletes the project's lock when there is one: 1, or 0 when it exists and cannot be deleted.
int RemoveLockFile(const std::string& projectPath);

// The holder named in the first two lines. `user` and `computer` start as "User" and "MyPC";
// 0 when the lock cannot be read or has fewer than two lines.
int ReadLockFile(const std::string& projectPath, std::string& user, std::string& computer);

// True when the project has a lock (then the holder is read as ReadLockFile does); false when
// it has none or on any error.
bool IsFileLocked(const std::string& projectPath, std::string& user, std::string& computer);

// The lock file's own path.
std::string LockFilePath(const std::string& projectPath);

} // namespace corvane
