#include "files/FileAccess.h"

#include <memory>
#include <system_error>

#ifdef _WIN32
#define NOMINMAX
#define WIN32_LEAN_AND_MEAN
#include <io.h>
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace corvane {

namespace fs = std::filesystem;

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using FilePtr = std::unique_ptr<std::FILE, FileCloser>;

// Creates a file that did not exist ("x": exclusive), so two writers never share a temporary.
FilePtr CreateNewFile(const fs::path& path) {
    return FilePtr(std::fopen(path.string().c_str(), "wbx"));
}

// A name beside the target for a file of this write; unique within the process, and the
// exclusive creation settles any clash with another process.
fs::path SpareName(const fs::path& folder, const fs::path& path) {
    static unsigned long counter = 0;
    return folder / (path.filename().string() + ".~" + std::to_string(++counter) + ".tmp");
}

fs::path FolderOf(const fs::path& path) {
    return path.parent_path().empty() ? fs::path(".") : path.parent_path();
}

thread_local FileWriteSteps* tInstalledSteps = nullptr;

FileWriteSteps& Steps() {
    static FileWriteSteps real;
    return tInstalledSteps != nullptr ? *tInstalledSteps : real;
}

#if defined(__linux__)
// Pieces this large (a project's are a megabyte each) are sent on to the disk as they come.
constexpr std::size_t kWriteBackPiece = std::size_t{256} << 10;
#endif

#ifndef _WIN32
// Answers of a file system that has no way to sync (some network and virtual ones): there is
// nothing more that can be asked of it, so the write stands as written.
bool CannotBeSynced(int error) {
    return error == EINVAL || error == ENOTSUP || error == EOPNOTSUPP;
}

bool SyncDescriptor(int descriptor, bool dataOnly) {
    for (;;) {
#if defined(__APPLE__)
        // fsync there leaves the data in the drive's own cache; F_FULLFSYNC empties it too.
        (void)dataOnly;
        if (::fcntl(descriptor, F_FULLFSYNC) == 0 || ::fsync(descriptor) == 0) {
            return true;
        }
#elif defined(__linux__)
        // fdatasync includes the size, which a reader needs to find the data.
        if ((dataOnly ? ::fdatasync(descriptor) : ::fsync(descriptor)) == 0) {
            return true;
        }
#else
        (void)dataOnly;
        if (::fsync(descriptor) == 0) {
            return true;
        }
#endif
        if (errno != EINTR) {
            return CannotBeSynced(errno);
        }
    }
}
#endif

} // namespace

bool FileWriteSteps::Write(std::FILE* file, std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), file) != bytes.size()) {
        return false;
    }
#if defined(__linux__)
    // What is written so far starts on its way to the disk while the rest is still being made,
    // so the sync at the end waits for the last stretch of a large project only. Merely a
    // head start: the sync decides, and a refusal here is no failure.
    if (bytes.size() >= kWriteBackPiece && std::fflush(file) == 0) {
        ::sync_file_range(::fileno(file), 0, 0, SYNC_FILE_RANGE_WRITE);
    }
#endif
    return true;
}

bool FileWriteSteps::SyncFile(std::FILE* file) {
    if (std::fflush(file) != 0) {
        return false;
    }
#ifdef _WIN32
    return ::FlushFileBuffers(reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(file)))) != 0;
#else
    return SyncDescriptor(::fileno(file), true);
#endif
}

bool FileWriteSteps::Rename(const fs::path& from, const fs::path& to) {
#ifdef _WIN32
    // Write-through: the call returns once the new name is on the disk, which is what the
    // folder sync gives elsewhere.
    return ::MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
#else
    std::error_code ec;
    fs::rename(from, to, ec);
    return !ec;
#endif
}

bool FileWriteSteps::SyncFolder(const fs::path& folder) {
#ifdef _WIN32
    (void)folder; // the rename wrote through
    return true;
#else
    const int descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0) {
        // A folder that may be written but not listed cannot be opened to sync; the save it
        // always allowed still goes ahead.
        return errno == EACCES;
    }
    const bool synced = SyncDescriptor(descriptor, false);
    ::close(descriptor);
    return synced;
#endif
}

ScopedFileWriteSteps::ScopedFileWriteSteps(FileWriteSteps& steps) : previous_(tInstalledSteps) {
    tInstalledSteps = &steps;
}

ScopedFileWriteSteps::~ScopedFileWriteSteps() {
    tInstalledSteps = previous_;
}

void ResetFileWriteSteps() {
    tInstalledSteps = nullptr;
}

FileStamp StampOf(const fs::path& path) {
    FileStamp stamp;
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    if (ec || !fs::exists(status)) {
        return stamp;
    }
    stamp.exists = true;
    stamp.regular = fs::is_regular_file(status);
    if (stamp.regular) {
        stamp.size = fs::file_size(path, ec);
        stamp.modified = fs::last_write_time(path, ec);
    }
    return stamp;
}

std::string NormalizedPath(const std::string& path) {
    std::error_code ec;
    fs::path normal = fs::weakly_canonical(fs::path(path), ec);
    if (ec) {
        normal = fs::absolute(fs::path(path), ec).lexically_normal();
    }
    return normal.string();
}

bool ReadFileBytes(const fs::path& path, std::string& bytes) {
    bytes.clear();
    const FilePtr file(std::fopen(path.string().c_str(), "rb"));
    if (!file) {
        return false;
    }
    // Straight into the string at the size the file says it has; a file that grows meanwhile
    // is read on to its end.
    std::error_code ec;
    const std::uintmax_t expected = fs::file_size(path, ec);
    std::size_t filled = 0;
    if (!ec && expected > 0) {
        bytes.resize(static_cast<std::size_t>(expected));
        filled = std::fread(bytes.data(), 1, bytes.size(), file.get());
        bytes.resize(filled);
    }
    if (filled == static_cast<std::size_t>(expected)) {
        char buffer[1 << 16];
        for (;;) {
            const std::size_t got = std::fread(buffer, 1, sizeof buffer, file.get());
            bytes.append(buffer, got);
            if (got < sizeof buffer) {
                break;
            }
        }
    }
    return std::ferror(file.get()) == 0;
}

bool WriteFileAtomically(const fs::path& path, std::string_view bytes) {
    return WriteFileAtomically(path, [bytes](const ByteSink& sink) { return sink(bytes); });
}

bool WriteFileAtomically(const fs::path& path, const ByteProducer& produce) {
    FileWriteSteps& steps = Steps();
    const fs::path folder = FolderOf(path);
    fs::path temporary;
    FilePtr file;
    std::error_code ec;
    for (int attempt = 0; attempt < 100 && !file; ++attempt) {
        temporary = SpareName(folder, path);
        file = CreateNewFile(temporary);
        if (!file && !fs::exists(temporary, ec)) {
            return false; // the folder is missing or not writable, or the name too long
        }
    }
    if (!file) {
        return false;
    }
    std::FILE* stream = file.get();
    const ByteSink sink = [&steps, stream](std::string_view piece) { return steps.Write(stream, piece); };
    // The data reaches the disk before the rename does: otherwise a power cut can leave the
    // project's name on an empty or short file, with the old file gone.
    const bool written = produce(sink) && steps.SyncFile(stream);
    const bool closed = std::fclose(file.release()) == 0;
    if (!written || !closed) {
        fs::remove(temporary, ec);
        return false;
    }
    const fs::file_status target = fs::status(path, ec);
    const bool existed = !ec && fs::exists(target);
    fs::path keep; // a second name of the old file until the new name is durable
    if (existed) {
        fs::permissions(temporary, target.permissions(), ec);
        keep = SpareName(folder, path);
        fs::create_hard_link(path, keep, ec);
        if (ec) {
            keep.clear(); // a file system without links: a failed folder sync cannot undo then
        }
    }
    if (!steps.Rename(temporary, path)) {
        fs::remove(temporary, ec);
        if (!keep.empty()) {
            fs::remove(keep, ec);
        }
        return false;
    }
    if (!steps.SyncFolder(folder)) {
        // The new name may not survive a power cut: the save failed, and the folder goes back
        // to what it held before (the new file stays only when the old one cannot come back).
        if (!keep.empty()) {
            fs::rename(keep, path, ec);
        } else if (!existed) {
            fs::remove(path, ec);
        }
        return false;
    }
    if (!keep.empty()) {
        fs::remove(keep, ec);
    }
    return true;
}

bool SyncToDisk(const fs::path& path) {
    FileWriteSteps& steps = Steps();
#ifdef _WIN32
    const FilePtr file(::_wfopen(path.c_str(), L"r+b")); // FlushFileBuffers needs write access
#else
    const FilePtr file(std::fopen(path.string().c_str(), "rb"));
#endif
    return file && steps.SyncFile(file.get()) && steps.SyncFolder(FolderOf(path));
}

} // namespace corvane
