#pragma once

// Small wrappers over the platform: per-user settings values, folder and file name handling.
// Paths accept both "\" and "/" as separators; folders this module builds end in the
// platform's own separator. Nothing here raises: failures give "" and false.

#include <string>

namespace corvane {

// Settings values (the registry of Windows stations) through the installed settings store.
bool CreateRegistryKey(const std::string& key);
bool SetRegistryValue(const std::string& key, const std::string& name, const std::string& value,
                      bool createKey);
// Gives the value with trailing blanks and anything behind a NUL removed; "" when missing.
bool GetRegistryValue(const std::string& key, const std::string& name, std::string& value);
std::string GetRegistryValue(const std::string& key, const std::string& name);
bool DeleteRegistryValue(const std::string& key, const std::string& name);
// Machine-wide values live under the "Machine" root of the same store.
bool GetMachineRegistryValue(const std::string& key, const std::string& name, std::string& value);

// Folders of the environment, each with a trailing separator, "" when unknown.
std::string GetDesktopFolder();
std::string GetAppDataFolder();
std::string GetTempFolder(bool longForm = true);
std::string GetModulePath();

bool IsSeparator(char c);
std::string AddFolderSeparator(const std::string& folder);
bool FindFileInFolder(const std::string& name, const std::string& folder, std::string& path);
std::string FileNameOf(const std::string& path);
std::string FileExtensionOf(const std::string& path);
std::string FolderOf(const std::string& path);
std::string BaseNameOf(const std::string& path);

bool DriveOrShareExists(const std::string& path);
// True when the folder exists or, with create, was made. One level only: a missing parent fails.
bool EnsureFolder(const std::string& path, bool create);
// Makes a folder and every missing parent; true when it exists afterwards.
bool EnsureFolderTree(const std::string& path);
// True when a file can be created in the folder (the write-permission test of the library).
bool IsFolderWritable(const std::string& folder);
bool IsFileReadOnly(const std::string& path);

} // namespace corvane
