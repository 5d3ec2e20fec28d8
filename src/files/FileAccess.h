#pragma once

// Whole-file reads and atomic whole-file writes for the data files, and the stamp by which a
// parsed file is known to be unchanged.

#include <cstdint>
#include <cstdio>
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
// sees either the old file or the new one, never a half-written one. The new file's data is on
// the disk before the rename and the rename is on the disk before the result is true, so a
// power cut right after a save leaves the new file whole, never an empty or short one. The
// target's permissions are kept. On failure the old file is untouched, the new one removed, and
// the result false; only when the folder cannot be synced after the rename on a file system
// without hard links (which keep the old file until then) does the new file, whole, stay.
bool WriteFileAtomically(const std::filesystem::path& path, std::string_view bytes);

// The same, with the bytes handed over piece by piece: `produce` calls the sink with each
// piece and returns false to abandon the write (the sink's own result says whether the piece
// was written). A large file never has to stand whole in memory.
using ByteSink = std::function<bool(std::string_view)>;
using ByteProducer = std::function<bool(const ByteSink&)>;
bool WriteFileAtomically(const std::filesystem::path& path, const ByteProducer& produce);

// Puts a file that was written by other means (a copy) on the disk, with its name: true once
// both its data and the folder entry are durable.
bool SyncToDisk(const std::filesystem::path& path);

// The calls into the system that make a write durable, in the order a write makes them: the
// bytes into the new file, its data to the disk, the rename over the target, and the folder
// that holds the new name to the disk. These are the real calls; a test derives from it to
// record the order or to make one step fail, and puts it in place with ScopedFileWriteSteps.
class FileWriteSteps {
public:
    virtual ~FileWriteSteps() = default;
    virtual bool Write(std::FILE* file, std::string_view bytes);
    // Flushes the stream and asks the system to put the file's data on the disk.
    virtual bool SyncFile(std::FILE* file);
    virtual bool Rename(const std::filesystem::path& from, const std::filesystem::path& to);
    // A folder whose file system cannot be asked (it does not sync folders) counts as synced.
    virtual bool SyncFolder(const std::filesystem::path& folder);
};

// Makes every write on this thread go through `steps` for the life of the scope. For tests.
class ScopedFileWriteSteps {
public:
    explicit ScopedFileWriteSteps(FileWriteSteps& steps);
    ~ScopedFileWriteSteps();
    ScopedFileWriteSteps(const ScopedFileWriteSteps&) = delete;
    ScopedFileWriteSteps& operator=(const ScopedFileWriteSteps&) = delete;

private:
    FileWriteSteps* previous_;
};

// Puts the real steps back on this thread, whatever scopes were left behind. Tests call it
// between cases.
void ResetFileWriteSteps();

} // namespace corvane
