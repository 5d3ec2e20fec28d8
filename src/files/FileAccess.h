#pragma once

// Whole-file reads and atomic whole-file writes for the data files, and the stamp by which a
// parsed file is known to be unchanged.

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace corvane {

struct FileStamp {
    bool exists = false;
    bool regular = false; // a plain file, not a folder or device
    std::uintmax_t size = 0;
    std::filesystem::file_time_type modified{};

    bool operator==(const FileStamp&) const = default;
};

FileStamp StampOf(const std::filesystem::path& path);

// The absolute, normal form of a path, so that two spellings of one file share a key.
std::string NormalizedPath(const std::string& path);

// The whole file; false when it cannot be opened or read.
bool ReadFileBytes(const std::filesystem::path& path, std::string& bytes);

// Writes the bytes to a new file beside the target and renames it over the target, so a reader
// sees either the old file or the new one, never a half-written one. The target's permissions
// are kept. On failure the old file is untouched, the new one removed, and the result false.
bool WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// The same, with the bytes handed over piece by piece: `produce` calls the sink with each
// piece and returns false to abandon the write (the sink's own result says whether the piece
// was written). A large file never has to stand whole in memory.
using ByteSink = std::function<bool(std::string_view)>;
using ByteProducer = std::function<bool(const ByteSink&)>;
bool WriteFileAtomically(const std::filesystem::path& path, const ByteProducer& produce);

} // namespace corvane
