#include "files/FileAccess.h"

#include <cstdio>
#include <memory>
#include <system_error>

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

} // namespace

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
    static unsigned long counter = 0;
    const fs::path folder = path.parent_path().empty() ? fs::path(".") : path.parent_path();
    fs::path temporary;
    FilePtr file;
    std::error_code ec;
    for (int attempt = 0; attempt < 100 && !file; ++attempt) {
        temporary = folder / (path.filename().string() + ".~" + std::to_string(++counter) + ".tmp");
        file = CreateNewFile(temporary);
        if (!file && !fs::exists(temporary, ec)) {
            return false; // the folder is missing or not writable, or the name too long
        }
    }
    if (!file) {
        return false;
    }
    std::FILE* stream = file.get();
    const ByteSink sink = [stream](std::string_view piece) {
        return std::fwrite(piece.data(), 1, piece.size(), stream) == piece.size();
    };
    const bool written = produce(sink) && std::fflush(stream) == 0;
    const bool closed = std::fclose(file.release()) == 0;
    if (!written || !closed) {
        fs::remove(temporary, ec);
        return false;
    }
    const fs::file_status target = fs::status(path, ec);
    if (!ec && fs::exists(target)) {
        fs::permissions(temporary, target.permissions(), ec);
    }
    fs::rename(temporary, path, ec);
    if (ec) {
        fs::remove(temporary, ec);
        return false;
    }
    return true;
}

} // namespace corvane
