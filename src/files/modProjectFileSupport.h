#pragma once

// Pieces shared by the project, sibling-project and reference block readers and writers: the
// notice texts, the word tables of index tags, the text forms of a few odd fields, and the
// limits that keep a damaged file from making a reader allocate more than the file can fill.

#include "files/FileReadResult.h"
#include "files/clsFileINI.h"
#include "model/clsSection.h"
#include "support/ErrorTail.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::projectfile {

inline const std::string kCrLf = "\r\n";
inline const std::string kNoticeTitle = "File read notice";
inline const std::string kNoticeHeading = "Missing or updated data items:";
inline const std::string kNoFilepath = " No Filepath ";

// CR LF, "Block ", the name and " not found." added to the text; the flag set.
void AddMissingBlock(bool& errorFlag, std::string& errorText, const std::string& block);

// The end of a read that flagged something: a success tells the heading and the collected text
// with the exclamation icon, a failure the text alone with the stop icon, both under "File read
// notice".
void AddReadNotice(std::vector<Notice>& notices, bool success, bool errorFlag, const std::string& errorText);

// A count or index that a file holds as a float, converted as the historic integer assignment
// did: rounded half to even; not finite or beyond 16 bits throws the Overflow CorvaneError.
std::int16_t CountFromFloat(double value);

// Notes are filed on one line: every line break (CR LF, or a lone CR or LF as a text control
// may give) becomes "|", and each "|" reads back as CR LF.
std::string LineBreaksToPipes(std::string_view text);
std::string PipesToLineBreaks(std::string_view text);
// A one-line value with any line break turned into a blank: a break inside a value would
// start a new line of the block, and could pose as another tag.
std::string OneLine(std::string_view text);

// A number as the user's own locale prints it (general form, gDecimalChar as the separator):
// the form of InnerRadius and the exclusion distances, read back through StringToDouble.
std::string FormatUserNumber(double value);

// gAppTitle and the version, "Corvane 1.00.0000", with "." and gBuildTag when one is set.
std::string SourceText();

// The file name behind the last "\" or "/".
std::string BareFileName(const std::string& path);
// The extension without its dot, in lower case; "" when there is none.
std::string LowerExtension(const std::string& path);

// Word tables of index tags.
std::vector<std::string> PropLengthWords();            // "ft", "m", "in", "mm"
std::vector<std::string> RotationWords();              // "Right", "Left"
std::vector<std::string> ScanDropWords();              // "Off", "DualChannel", "SingleChannel"
std::vector<std::string> OffOnWords();                 // "Off", "On"
std::vector<std::string> ISOTaskWords(int count);      // the first `count` task file tags
std::vector<std::string> ISOCriteriaWords();           // "Primary", "Secondary"
std::vector<std::string> ISOClassWords();              // the 6 class file tags
std::vector<std::string> ISOIncludeInnerRadiusWords(); // "Off", "On"
std::vector<std::string> ReferenceSourceWords();       // "None" ... "ExternalFilePitch"
std::vector<std::string> ReferenceSectionPitchWords();
std::vector<std::string> ReferenceLocalPitchWords();
std::vector<std::string> ReferenceSectionPitchSourceWords(); // "Manual", "Auto"
std::vector<std::string> InternalScanSourceWords();          // "Active", "Locked"

// What one file can account for. Counts in a file are 16-bit, but a few bytes can claim
// thousands of scans of thousands of blades, or a point count far beyond the points filed.
// Records backed by data in the file cost nothing here; what a count would create without
// data behind it is charged against an allowance that grows with the file's size.
class ReadLimits {
public:
    explicit ReadLimits(const std::string& path);

    // Empty blades that a set of scans may be given before their blocks are read. A real file
    // has a block of its own for every blade of every scan, far more bytes than this allows.
    std::int64_t BladeSlots() const;
    // Takes `count` records that only zeros would fill (points of a dropped array, copies of a
    // blade); false, taking nothing, when the file cannot account for that many more.
    bool TakeUnbacked(std::int64_t count);

private:
    std::int64_t fileBytes_ = 0;
    std::int64_t unbackedLeft_ = 0;
};

// A reader's state across the blocks of one file. An error raised in a step goes to the
// handler with the reader's context: Retry runs the step again, Ignore abandons the read.
struct BlockReader {
    clsFileINI& file;
    const std::string& path;
    bool& errorFlag;
    std::string& errorText;
    ErrorTail& tail;
    ReadLimits& limits;
    std::vector<Notice>& notices; // told along the way, before the closing notice
};

// Holds one parsed copy of a file for the length of a read, so that every block of the read
// comes from memory and the file is read from disk once, however many blocks are asked for.
// It is a batch that is never committed: nothing may write to the file while it is held. When
// an outer read holds the file already, the blocks come from that one.
class ReadSnapshot {
public:
    ReadSnapshot(clsFileINI& file, const std::string& path) : file_(file) { file_.BeginBatch(path); }
    ~ReadSnapshot() { file_.DiscardBatch(); }
    ReadSnapshot(const ReadSnapshot&) = delete;
    ReadSnapshot& operator=(const ReadSnapshot&) = delete;

private:
    clsFileINI& file_;
};

// How a reader goes on after a group of blocks.
enum class ReadOutcome {
    Continue,    // read, with or without a notice
    FailureExit, // a block is missing: result 0, with the notice of what was collected
    Abandoned,   // the user ignored an error: result 0, nothing more shown
};

// The frame of a whole-file read: no path fails at once; otherwise one snapshot of the file, an
// error tail with the reader's context, `readBlocks` for the blocks, and the closing notice of
// what was collected.
FileReadResult RunFileRead(const std::string& path, const std::string& context,
                           const std::function<ReadOutcome(BlockReader&)>& readBlocks);

// Reads the raw points of a section whose block is loaded: `count` points in Radius, ThetaDeg
// and AxialDropX. The section gets RawOffsetCount `count`; an array whose element count
// differs is dropped, setting the flag without text, and the section keeps zeros in its
// place. When no array matches and the file cannot account for that many zeros, the section
// is read empty and the text says so.
void ReadRawPoints(BlockReader& reader, const std::string& block, clsSection& section, int count);

} // namespace corvane::projectfile
