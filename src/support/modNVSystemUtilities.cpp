#include "support/modNVSystemUtilities.h"

#include "support/Services.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

namespace corvane {
namespace fs = std::filesystem;

namespace {

// Paths the core builds use the platform's separator; paths it reads may use either.
constexpr char kNativeSeparator = static_cast<char>(fs::path::preferred_separator);

std::string CleanFolder(std::string folder) {
    while (!folder.empty() && static_cast<unsigned char>(folder.back()) < 32) {
        folder.pop_back();
    }
    return folder.empty() ? folder : AddFolderSeparator(folder);
}

// A path as the file system of this platform reads it: "\" becomes "/" on POSIX systems.
fs::path NativePath(const std::string& path) {
    std::string native = path;
    if (kNativeSeparator == '/') {
        for (char& c : native) {
            if (c == '\\') {
                c = '/';
            }
        }
    }
    return fs::path(native);
}

} // namespace

bool CreateRegistryKey(const std::string& key) {
    Settings().CreateKey(key);
    return Settings().KeyExists(key);
}

bool SetRegistryValue(const std::string& key, const std::string& name, const std::string& value,
                      bool createKey) {
    if (!Settings().KeyExists(key)) {
        if (!createKey) {
            return false;
        }
        Settings().CreateKey(key);
    }
    return Settings().SetValue(key, name, value);
}

bool GetRegistryValue(const std::string& key, const std::string& name, std::string& value) {
    value = Settings().GetValue(key, name);
    const auto nul = value.find('\0');
    if (nul != std::string::npos) {
        value.resize(nul);
    }
    while (!value.empty() && value.back() == ' ') {
        value.pop_back();
    }
    return !value.empty();
}

std::string GetRegistryValue(const std::string& key, const std::string& name) {
    std::string value;
    GetRegistryValue(key, name, value);
    return value;
}

bool DeleteRegistryValue(const std::string& key, const std::string& name) {
    Settings().DeleteValue(key, name);
    return true;
}

bool GetMachineRegistryValue(const std::string& key, const std::string& name, std::string& value) {
    return GetRegistryValue("Machine\\" + key, name, value);
}

std::string GetDesktopFolder() {
    return CleanFolder(Environment().DesktopFolder());
}
std::string GetAppDataFolder() {
    return CleanFolder(Environment().AppDataFolder());
}

std::string GetTempFolder(bool longForm) {
    std::string folder = Environment().TempFolder();
    if (folder.empty()) {
        std::error_code ec;
        folder = fs::temp_directory_path(ec).string();
    }
    if (longForm && !folder.empty()) {
        std::error_code ec;
        const auto canonical = fs::weakly_canonical(NativePath(folder), ec);
        if (!ec) {
            folder = canonical.string();
        }
    }
    return AddFolderSeparator(folder);
}

std::string GetModulePath() {
    return Environment().ProgramFilePath();
}

bool IsSeparator(char c) {
    return c == '\\' || c == '/';
}

std::string AddFolderSeparator(const std::string& folder) {
    if (!folder.empty() && IsSeparator(folder.back())) {
        return folder;
    }
    return folder + kNativeSeparator;
}

bool FindFileInFolder(const std::string& name, const std::string& folder, std::string& path) {
    const std::string candidate = AddFolderSeparator(folder) + name;
    std::error_code ec;
    if (!name.empty() && fs::is_regular_file(NativePath(candidate), ec)) {
        path = candidate;
        return true;
    }
    return false;
}

std::string FileNameOf(const std::string& path) {
    const auto pos = path.find_last_of("\\/");
    return pos == std::string::npos ? path : path.substr(pos + 1);
}

std::string FileExtensionOf(const std::string& path) {
    const std::string name = FileNameOf(path);
    const auto dot = name.rfind('.');
    return dot == std::string::npos ? std::string() : name.substr(dot + 1);
}

std::string FolderOf(const std::string& path) {
    const auto pos = path.find_last_of("\\/");
    return pos == std::string::npos ? std::string() : path.substr(0, pos + 1);
}

std::string BaseNameOf(const std::string& path) {
    const std::string name = FileNameOf(path);
    const auto dot = name.rfind('.');
    if (name.empty() || dot == 0) {
        return {};
    }
    return dot == std::string::npos ? name : name.substr(0, dot);
}

bool DriveOrShareExists(const std::string& path) {
    if (path.empty()) {
        return false;
    }
    std::error_code ec;
    if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) {
        return fs::is_directory(NativePath(path), ec); // a network share
    }
    if (path.size() >= 2 && path[1] == ':') {
        // A drive letter: only platforms with drives have them.
        if (kNativeSeparator != '\\') {
            return false;
        }
        return fs::exists(fs::path(path.substr(0, 3)), ec);
    }
    return true; // one root holds every absolute and relative path here
}

bool EnsureFolder(const std::string& path, bool create) {
    try {
        if (!DriveOrShareExists(path)) {
            return false;
        }
        const fs::path folder = NativePath(path);
        std::error_code ec;
        if (fs::is_directory(folder, ec)) {
            return true;
        }
        if (!create) {
            return false;
        }
        return fs::create_directory(folder, ec) && !ec;
    } catch (...) {
        return false;
    }
}

bool EnsureFolderTree(const std::string& path) {
    try {
        if (!DriveOrShareExists(path)) {
            return false;
        }
        std::error_code ec;
        fs::create_directories(NativePath(path), ec);
        return fs::is_directory(NativePath(path), ec);
    } catch (...) {
        return false;
    }
}

bool IsFolderWritable(const std::string& folder) {
    std::error_code ec;
    const fs::path dir = NativePath(folder);
    if (folder.empty() || !fs::is_directory(dir, ec)) {
        return false;
    }
    const fs::path probe = dir / (".corvane-write-test-" + std::to_string(::getpid()));
    {
        std::ofstream out(probe, std::ios::binary | std::ios::trunc);
        if (!out) {
            return false;
        }
    }
    fs::remove(probe, ec);
    return true;
}

bool IsFileReadOnly(const std::string& path) {
    std::error_code ec;
    const auto status = fs::status(NativePath(path), ec);
    if (ec || !fs::exists(status)) {
        return false;
    }
    const auto writeBits = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return (status.permissions() & writeBits) == fs::perms::none;
}

} // namespace corvane
