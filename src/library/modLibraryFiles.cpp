#include "library/modLibraryFiles.h"

#include "files/FileAccess.h"
#include "support/modNVSystemUtilities.h"

#include <array>
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <unistd.h>

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
    if (fs::exists(target, ec) || ec)
        return false;
    std::string bytes;
    if (!ReadFileBytes(source, bytes))
        return false;
    // Named after this process, so that two stations copying the same file into a shared
    // folder never take each other's staged copy; it does not end in ".cvpj", so no list shows it.
    const fs::path staged = target + ".~" + std::to_string(::getpid()) + ".copy";
    if (!WriteFileAtomically(staged, bytes))
        return false;
    const auto modified = fs::last_write_time(source, ec);
    if (!ec)
        fs::last_write_time(staged, modified, ec); // a lost date is no reason to fail the copy
    // A link never replaces an existing name. A file system without links falls back on a
    // rename, with the name checked just before.
    std::error_code linkError;
    fs::create_hard_link(staged, target, linkError);
    if (!linkError) {
        RemoveCopy(staged);
        return true;
    }
    if (fs::exists(target, ec) || ec) {
        RemoveCopy(staged); // another station took the name meanwhile: theirs stays
        return false;
    }
    fs::rename(staged, target, ec);
    if (ec) {
        RemoveCopy(staged);
        return false;
    }
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

ProjectCopy CopyProjectFile(const std::string& sourcePath, const std::string& targetFolder) {
    try {
        std::error_code ec;
        if (sourcePath.empty() || targetFolder.empty() || !fs::is_regular_file(sourcePath, ec))
            return ProjectCopy::Failed;
        const fs::path target = AddFolderSeparator(targetFolder) + FileNameOf(sourcePath);
        const bool targetExists = fs::exists(target, ec);
        if (ec)
            return ProjectCopy::Failed;
        if (targetExists) {
            if (fs::equivalent(sourcePath, target, ec) && !ec)
                return ProjectCopy::SameFileThere;
            return SameFileContent(sourcePath, target.string()) ? ProjectCopy::SameFileThere
                                                                : ProjectCopy::NameTaken;
        }

        const FileCopier& copier = InstalledCopier();
        bool copied = false;
        try {
            copied = copier ? copier(sourcePath, target.string())
                            : CopyFileKeepingDate(sourcePath, target.string());
        } catch (...) {
            copied = false;
        }
        // The station's copier leaves nothing when it fails, and a file another station put
        // under the name meanwhile is theirs; what another copier left half-written goes.
        if (!copied) {
            if (copier)
                RemoveCopy(target);
            return ProjectCopy::Failed;
        }
        // Only a copy that is on the disk counts: after a power cut a move must not have left an
        // empty copy of a project that is gone from where it was.
        if (!SameFileContent(sourcePath, target.string()) || !SyncToDisk(target)) {
            RemoveCopy(target);
            return ProjectCopy::Failed;
        }
        return ProjectCopy::Copied;
    } catch (...) {
        return ProjectCopy::Failed;
    }
}

bool RemoveFileFromDisk(const std::string& path) {
    std::error_code ec;
    return fs::remove(path, ec) && !ec;
}

bool MoveProjectFile(const std::string& sourcePath, const std::string& targetFolder,
                     FileRemover removeOriginal) {
    try {
        std::error_code ec;
        if (sourcePath.empty() || targetFolder.empty())
            return false;
        // A move onto itself would delete the only file.
        const fs::path target = AddFolderSeparator(targetFolder) + FileNameOf(sourcePath);
        if (fs::equivalent(sourcePath, target, ec) && !ec)
            return false;
        switch (CopyProjectFile(sourcePath, targetFolder)) {
        case ProjectCopy::Copied:
            if (!removeOriginal(sourcePath)) {
                // The original stays where it was; so must the folders' content.
                RemoveCopy(target);
                return false;
            }
            return true;
        case ProjectCopy::SameFileThere:
            // Only a true copy of the original (a move cut short after the copy) lets the move
            // finish.
            return removeOriginal(sourcePath);
        case ProjectCopy::NameTaken:
        case ProjectCopy::Failed:
            break;
        }
        return false;
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
