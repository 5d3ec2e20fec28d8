#include "library/modLibraryFiles.h"

#include "files/FileAccess.h"
#include "support/modNVSystemUtilities.h"

#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>

namespace corvane {

namespace fs = std::filesystem;

namespace {

FileCopier& InstalledCopier() {
    static FileCopier copier;
    return copier;
}

// Deletes a copy this move made; an error leaves nothing more to do.
void RemoveCopy(const fs::path& target) {
    std::error_code ec;
    fs::remove(target, ec);
}

} // namespace

bool CopyFileKeepingDate(const std::string& source, const std::string& target) {
    std::error_code ec;
    if (!fs::copy_file(source, target, fs::copy_options::none, ec) || ec)
        return false;
    const auto modified = fs::last_write_time(source, ec);
    if (!ec)
        fs::last_write_time(target, modified, ec); // a lost date is no reason to fail the copy
    return true;
}

FileCopier SetFileCopier(FileCopier copier) {
    FileCopier previous = std::move(InstalledCopier());
    InstalledCopier() = std::move(copier);
    return previous;
}

bool SameFileContent(const std::string& first, const std::string& second) {
    try {
        std::error_code ec;
        if (!fs::is_regular_file(first, ec) || !fs::is_regular_file(second, ec))
            return false;
        const auto size = fs::file_size(first, ec);
        if (ec || fs::file_size(second, ec) != size || ec)
            return false;
        std::ifstream a(first, std::ios::binary);
        std::ifstream b(second, std::ios::binary);
        if (!a || !b)
            return false;
        std::array<char, 64 * 1024> bufferA{};
        std::array<char, 64 * 1024> bufferB{};
        std::uintmax_t compared = 0;
        while (compared < size) {
            a.read(bufferA.data(), static_cast<std::streamsize>(bufferA.size()));
            b.read(bufferB.data(), static_cast<std::streamsize>(bufferB.size()));
            const auto gotA = a.gcount();
            if (gotA <= 0 || gotA != b.gcount() ||
                !std::equal(bufferA.begin(), bufferA.begin() + gotA, bufferB.begin()))
                return false;
            compared += static_cast<std::uintmax_t>(gotA);
        }
        // The sizes were equal when asked; a file that grew since is not the same file.
        return a.peek() == std::ifstream::traits_type::eof() && b.peek() == std::ifstream::traits_type::eof();
    } catch (...) {
        return false;
    }
}

bool MoveProjectFile(const std::string& sourcePath, const std::string& targetFolder) {
    try {
        std::error_code ec;
        if (sourcePath.empty() || targetFolder.empty() || !fs::is_regular_file(sourcePath, ec))
            return false;
        const fs::path target = AddFolderSeparator(targetFolder) + FileNameOf(sourcePath);
        const bool targetExists = fs::exists(target, ec);
        if (ec)
            return false;
        if (targetExists) {
            // Never overwrite: only a true copy of the original (a move cut short after the
            // copy) lets the move finish.
            if (fs::equivalent(sourcePath, target, ec) || ec || !SameFileContent(sourcePath, target.string()))
                return false;
            return fs::remove(sourcePath, ec) && !ec;
        }

        bool copied = false;
        try {
            const FileCopier& copier = InstalledCopier();
            copied = copier ? copier(sourcePath, target.string())
                            : CopyFileKeepingDate(sourcePath, target.string());
        } catch (...) {
            copied = false;
        }
        // The original goes only once the copy is on the disk: after a power cut the archive
        // must not hold an empty copy of a project that is gone from the library.
        if (!copied || !SameFileContent(sourcePath, target.string()) || !SyncToDisk(target)) {
            RemoveCopy(target);
            return false;
        }
        if (!fs::remove(sourcePath, ec) || ec) {
            // The original stays where it was; so must the folders' content.
            RemoveCopy(target);
            return false;
        }
        return true;
    } catch (...) {
        return false;
    }
}

DateTime FileModifiedDate(const std::string& path) {
    try {
        std::error_code ec;
        const auto modified = fs::last_write_time(path, ec);
        if (ec)
            return {};
        const auto system = std::chrono::file_clock::to_sys(modified);
        const std::time_t seconds = std::chrono::system_clock::to_time_t(system);
        std::tm local{};
        if (::localtime_r(&seconds, &local) == nullptr)
            return {};
        DateTime date{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday,
                      local.tm_hour,        local.tm_min,     local.tm_sec};
        return date.IsValid() ? date : DateTime{};
    } catch (...) {
        return {};
    }
}

} // namespace corvane
