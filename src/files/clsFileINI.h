#pragma once

// Reads and writes the system's data files (project, reference, calibration): plain text of
// named blocks of Tag=Value lines.
//
//   [Name]          a block header; names compare without regard to case
//   Tag=Value       up to the next header; no comments, quoting or continuation lines
//
// Lines end in CR LF. Writing a block replaces the first block of that name where it stands, or
// appends it at the end, so a file keeps its blocks in the order of their first writing and
// blocks a later save no longer writes stay in the file, unread.
//
// One object holds one block at a time: a reader loads a block and asks for tags; a writer sets
// tags, each appending a line, then writes the block in one go. A tag look-up takes the first
// line of that tag and never reports a tag as missing: a missing tag reads like an empty one
// ("", 0, or an array of one 0), except for index tags, which flag an unknown word.
//
// Each object keeps the file it last used parsed in memory and parses it again only when the
// file changed on disk. WriteBlock writes the whole file atomically; between BeginBatch and
// CommitBatch the blocks of that file collect in memory and the file is written once.
// All of it belongs to the user-interface thread.

#include "files/BlockDocument.h"
#include "files/FileAccess.h"
#include "files/TagIndex.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class clsFileINI {
public:
    clsFileINI() = default;
    ~clsFileINI();
    // An object may own an open batch, which is registered under its file; it is not copied.
    clsFileINI(const clsFileINI&) = delete;
    clsFileINI& operator=(const clsFileINI&) = delete;

    // Clears the current lines.
    void ResetArrayIndex();

    // Loads a block into the current lines; 0 when the file or the block is missing or holds no
    // lines (the old lines are erased all the same), else 1.
    int ReadBlock(const std::string& block, const std::string& filePath);

    // Puts the current lines in place of the block and clears them, whether or not it worked.
    // 1 on success; 0 when the file cannot be read or written, which leaves the file as it was.
    int WriteBlock(const std::string& block, const std::string& filePath);

    // Opens a batch on a file: until CommitBatch, WriteBlock to that file only changes its
    // content in memory, and every reader of the file sees that content. 0 when this object
    // has a batch open already, another object has one open on that file, or the file exists
    // but cannot be read.
    int BeginBatch(const std::string& filePath);
    // Writes the batch's content once, atomically, and closes the batch: 1. On failure the file
    // is unchanged and the batch stays open for a retry or DiscardBatch: 0. 0 without a batch.
    int CommitBatch();
    // Closes the batch without writing. The destructor does this for a batch left open.
    void DiscardBatch();
    // Forgets the batches of every object, without writing: the files read as they are on disk.
    // Tests call it between cases, when no object of theirs is left in a batch.
    static void DiscardAllBatches();
    bool InBatch() const { return !batchKey_.empty(); }

    // While on, a file this object has parsed is not looked at on disk again: every block comes
    // from the same parse. A reader that reads many blocks of one file in one go turns it on, so
    // it sees one consistent version of the file and parses it once, even right after a save
    // (when time stamps alone cannot prove the file unchanged and each look would read it whole).
    void SetSnapshotRead(bool on) { snapshotRead_ = on; }

    // Index tags: the position of the value in a table of words, compared without regard to
    // case. An unknown or missing word gives 0, sets the flag and adds
    // CR LF " [" tag "] tag [" value "] not recognized." to the text.
    std::int16_t GetIndexFromBlockTag(const std::string& tag, std::span<const std::string> words,
                                      bool& errorFlag, std::string& errorText);
    std::int16_t GetIndexFromBlockTag(const std::string& tag, std::initializer_list<std::string> words,
                                      bool& errorFlag, std::string& errorText);
    void SetIndexToBlockTag(int index, const std::string& tag, std::span<const std::string> words,
                            bool& errorFlag, std::string& errorText);
    void SetIndexToBlockTag(int index, const std::string& tag, std::initializer_list<std::string> words,
                            bool& errorFlag, std::string& errorText);

    std::string GetStringFromBlockTag(const std::string& tag, bool& errorFlag, std::string& errorText);
    // Leading blanks of the value are not written.
    void SetStringToBlockTag(const std::string& tag, const std::string& value, bool& errorFlag,
                             std::string& errorText);

    // The value split at the delimiter; returns the count (at least 1).
    int GetStringArrayFromBlockTag(const std::string& tag, std::vector<std::string>& values, bool& errorFlag,
                                   std::string& errorText, const std::string& delimiter = ",");
    // Elements 0 to `upper` joined by the delimiter.
    void SetStringArrayToBlockTag(const std::string& tag, int upper, const std::vector<std::string>& values,
                                  bool& errorFlag, std::string& errorText,
                                  const std::string& delimiter = ",");

    // The leading number of the value, "." as the separator; 0 when there is none.
    double GetFloatFromBlockTag(const std::string& tag, bool& errorFlag, std::string& errorText);
    void SetFloatToBlockTag(const std::string& tag, double value, bool& errorFlag, std::string& errorText);

    // Rounded half to even; a value outside 16 bits throws the Overflow CorvaneError.
    std::int16_t GetIntegerFromBlockTag(const std::string& tag, bool& errorFlag, std::string& errorText);
    void SetIntegerToBlockTag(const std::string& tag, std::int16_t value, bool& errorFlag,
                              std::string& errorText);

    // Elements split at ","; returns the count. Written rounded to 9 significant digits.
    int GetFloatArrayFromBlockTag(const std::string& tag, std::vector<double>& values, bool& errorFlag,
                                  std::string& errorText);
    void SetFloatArrayToBlockTag(const std::string& tag, int count, const std::vector<double>& values,
                                 bool& errorFlag, std::string& errorText);

    int GetIntegerArrayFromBlockTag(const std::string& tag, std::vector<std::int16_t>& values,
                                    bool& errorFlag, std::string& errorText);
    void SetIntegerArrayToBlockTag(const std::string& tag, int count, const std::vector<std::int16_t>& values,
                                   bool& errorFlag, std::string& errorText);

    // Text with line breaks, filed with "|" for each break.
    std::string GetMultiStringFromBlockTag(const std::string& tag, bool& errorFlag, std::string& errorText);
    void SetMultiStringToBlockTag(const std::string& tag, const std::string& value, bool& errorFlag,
                                  std::string& errorText);

    // The current lines, as read or as set so far.
    const std::vector<std::string>& Lines() const { return lines_; }

private:
    // What is known of the file this object used last.
    struct CachedFile {
        std::string key; // normalized path
        FileStamp stamp;
        std::size_t contentHash = 0;
        std::filesystem::file_time_type verifiedAt{};
        std::shared_ptr<BlockDocument> document;
    };
    enum class LoadResult { Loaded, Missing, Unreadable };

    // Value of the first line of the tag, trimmed, into `value` ("" when none); the result is
    // its length, but 1 for an empty value.
    std::size_t GetTagValue(const std::string& tag, std::string& value);
    bool SetTagValue(const std::string& tag, const std::string& value);
    // The trimmed value of the first line of that tag in the loaded block, empty when there is
    // none; valid until the lines change.
    std::string_view TagValueView(const std::string& tag);
    // The parsed file to change: the cached one, a new empty one for a missing file, nullptr
    // for a file that cannot be read.
    std::shared_ptr<BlockDocument> DocumentToChange(const std::string& key);

    LoadResult LoadDocument(const std::string& key, const std::filesystem::path& path);

    std::vector<std::string> lines_;
    TagIndex tagIndex_; // extended to new lines at each look-up

    CachedFile cache_;
    std::string batchKey_;
    bool snapshotRead_ = false;
};

} // namespace corvane
