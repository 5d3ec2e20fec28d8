#include "files/clsFileINI.h"
#include "files/BlockFileReader.h"
#include "files/ChunkedOutput.h"
#include "files/FileAccess.h"
#include "files/TextEncoding.h"

#include "model/CorvaneError.h"
#include "model/NumberText.h"
#include "model/modUtilities.h"

#include <algorithm>
#include <chrono>
#include <functional>
#include <unordered_map>

namespace corvane {

namespace fs = std::filesystem;

namespace {

// A file changed within this span of the moment it was last verified may have changed again
// without a new size or time stamp (time stamps are coarse); its content is checked instead.
constexpr auto kRacyWindow = std::chrono::seconds(3);

// Files with an open batch, by normalized path. Readers of these files see the batch.
std::unordered_map<std::string, std::shared_ptr<BlockDocument>>& OpenBatches() {
    static std::unordered_map<std::string, std::shared_ptr<BlockDocument>> batches;
    return batches;
}

BlockDocument* OpenBatchFor(const std::string& key) {
    auto& batches = OpenBatches();
    const auto found = batches.find(key);
    return found == batches.end() ? nullptr : found->second.get();
}

// A batch starts out sharing the parsed file with the cache, so a reader's snapshot costs no
// copy of a large project; the first block written into it gets the batch its own copy.
BlockDocument* WritableBatchFor(const std::string& key) {
    auto& batches = OpenBatches();
    const auto found = batches.find(key);
    if (found == batches.end()) {
        return nullptr;
    }
    if (found->second.use_count() > 1) {
        found->second = std::make_shared<BlockDocument>(*found->second);
    }
    return found->second.get();
}

// Writes the document straight from its lines, hashing it on the way; `hash` gets the hash of
// the file as it will be read back.
bool WriteDocument(const std::string& key, const BlockDocument& document, std::size_t& hash) {
    return WriteFileAtomically(key, [&](const ByteSink& sink) {
        ChunkedOutput output(sink);
        document.WriteTo([&output](std::string_view piece) { output.Append(piece); });
        const bool ok = output.Finish();
        hash = output.Hash();
        return ok;
    });
}

// The historic Trim: blanks only.
std::string_view TrimSpaces(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; };
        if (lower(a[i]) != lower(b[i])) {
            return false;
        }
    }
    return true;
}

bool IsBlankLine(const std::string& line) {
    return line.find_first_not_of(" \t") == std::string::npos;
}

// A name that can stand between the brackets of a header and be found again.
bool IsValidBlockName(const std::string& name) {
    return !TrimSpaces(name).empty() && name.find_first_of("[]\r\n") == std::string::npos;
}

void AddError(bool& errorFlag, std::string& errorText, const std::string& message) {
    errorFlag = true;
    errorText += message;
}

std::string PipeToLineBreaks(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        if (c == '|') {
            out += "\r\n";
        } else {
            out.push_back(c);
        }
    }
    return out;
}

// CR LF becomes "|"; a lone LF is replaced together with the character behind it, as it always
// was (no caller passes lone line feeds).
std::string LineBreaksToPipe(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            out.push_back('|');
            ++i;
        } else if (text[i] == '\n') {
            out.push_back('|');
            ++i;
        } else {
            out.push_back(text[i]);
        }
    }
    return out;
}

} // namespace

clsFileINI::~clsFileINI() {
    DiscardBatch();
}

void clsFileINI::ResetArrayIndex() {
    lines_.clear();
    tagIndex_.Clear();
}

clsFileINI::LoadResult clsFileINI::LoadDocument(const std::string& key, const fs::path& path) {
    const auto now = fs::file_time_type::clock::now();
    const FileStamp stamp = StampOf(path);
    if (!stamp.exists) {
        return LoadResult::Missing;
    }
    if (!stamp.regular) {
        return LoadResult::Unreadable;
    }
    const bool sameFile = cache_.document && cache_.key == key;
    if (sameFile && snapshotRead_) {
        return LoadResult::Loaded;
    }
    if (sameFile && cache_.stamp == stamp && stamp.modified + kRacyWindow < cache_.verifiedAt) {
        return LoadResult::Loaded;
    }
    // A file we hold parsed may be unchanged though its time stamp cannot prove it: a first pass
    // that only hashes spares the parse when the bytes are the same.
    BlockFileReader reader;
    std::size_t hash = 0;
    if (sameFile) {
        if (!reader.Read(path, false)) {
            return LoadResult::Unreadable;
        }
        hash = reader.Hash();
    }
    if (!(sameFile && cache_.contentHash == hash)) {
        if (!reader.Read(path, true)) {
            return LoadResult::Unreadable;
        }
        hash = reader.Hash();
        cache_.document = reader.Document();
    }
    cache_.key = key;
    cache_.stamp = stamp;
    cache_.contentHash = hash;
    cache_.verifiedAt = now;
    return LoadResult::Loaded;
}

int clsFileINI::ReadBlock(const std::string& block, const std::string& filePath) {
    ResetArrayIndex();
    if (!IsValidBlockName(block) || filePath.empty()) {
        return 0;
    }
    const std::string key = NormalizedPath(filePath);
    const BlockDocument* document = OpenBatchFor(key);
    if (document == nullptr) {
        if (LoadDocument(key, key) != LoadResult::Loaded) {
            return 0;
        }
        document = cache_.document.get();
    }
    const std::vector<std::string>* lines = document->FindBlock(block);
    if (lines == nullptr) {
        return 0;
    }
    lines_.reserve(lines->size());
    for (const std::string& line : *lines) {
        if (!IsBlankLine(line)) {
            lines_.push_back(line);
        }
    }
    return lines_.empty() ? 0 : 1;
}

std::shared_ptr<BlockDocument> clsFileINI::DocumentToChange(const std::string& key) {
    switch (LoadDocument(key, key)) {
    case LoadResult::Unreadable:
        return nullptr;
    case LoadResult::Missing:
        return std::make_shared<BlockDocument>();
    case LoadResult::Loaded:
        break;
    }
    return cache_.document;
}

int clsFileINI::WriteBlock(const std::string& block, const std::string& filePath) {
    std::vector<std::string> lines = std::move(lines_);
    ResetArrayIndex();
    if (!IsValidBlockName(block) || filePath.empty()) {
        return 0;
    }
    const std::string key = NormalizedPath(filePath);
    if (BlockDocument* batch = WritableBatchFor(key)) {
        batch->ReplaceBlock(block, std::move(lines));
        return 1;
    }
    std::shared_ptr<BlockDocument> document = DocumentToChange(key);
    if (!document) {
        return 0;
    }
    document->ReplaceBlock(block, std::move(lines));
    const auto before = fs::file_time_type::clock::now();
    std::size_t hash = 0;
    if (!WriteDocument(key, *document, hash)) {
        cache_ = CachedFile{}; // the parsed copy holds the block the file did not get
        return 0;
    }
    cache_ = CachedFile{key, StampOf(key), hash, before, std::move(document)};
    return 1;
}

int clsFileINI::BeginBatch(const std::string& filePath) {
    if (InBatch() || filePath.empty()) {
        return 0;
    }
    const std::string key = NormalizedPath(filePath);
    if (OpenBatchFor(key) != nullptr) {
        return 0;
    }
    std::shared_ptr<BlockDocument> document = DocumentToChange(key);
    if (!document) {
        return 0;
    }
    OpenBatches().emplace(key, std::move(document));
    batchKey_ = key;
    return 1;
}

int clsFileINI::CommitBatch() {
    if (!InBatch()) {
        return 0;
    }
    auto& batches = OpenBatches();
    const auto found = batches.find(batchKey_);
    const auto before = fs::file_time_type::clock::now();
    std::size_t hash = 0;
    if (!WriteDocument(batchKey_, *found->second, hash)) {
        return 0;
    }
    cache_ = CachedFile{batchKey_, StampOf(batchKey_), hash, before, std::move(found->second)};
    batches.erase(found);
    batchKey_.clear();
    return 1;
}

void clsFileINI::DiscardBatch() {
    if (InBatch()) {
        OpenBatches().erase(batchKey_);
        batchKey_.clear();
    }
}

void clsFileINI::DiscardAllBatches() {
    OpenBatches().clear();
}

std::string_view clsFileINI::TagValueView(const std::string& tag) {
    tagIndex_.Extend(lines_);
    const std::size_t found = tagIndex_.Find(lines_, tag);
    if (found == TagIndex::npos) {
        return {}; // a missing tag reads as empty
    }
    const std::string_view line = lines_[found];
    return TrimSpaces(line.substr(line.find('=') + 1));
}

std::size_t clsFileINI::GetTagValue(const std::string& tag, std::string& value) {
    value = TagValueView(tag);
    // Never 0: callers cannot tell a missing tag from an empty one, and old files without newer
    // tags read cleanly.
    return value.empty() ? 1 : value.size();
}

bool clsFileINI::SetTagValue(const std::string& tag, const std::string& value) {
    lines_.push_back(tag + "=" + value);
    return true;
}

// The "not found" branches below cannot run while GetTagValue never returns 0; they keep their
// messages should that rule ever change.

std::int16_t clsFileINI::GetIndexFromBlockTag(const std::string& tag, std::span<const std::string> words,
                                              bool& errorFlag, std::string& errorText) {
    std::string value;
    if (GetTagValue(tag, value) == 0) {
        AddError(errorFlag, errorText, "\r\n [" + tag + "] not found.");
        return 0;
    }
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (EqualsIgnoreCase(value, words[i])) {
            return CheckedInt16(static_cast<long long>(i));
        }
    }
    AddError(errorFlag, errorText, "\r\n [" + tag + "] tag [" + value + "] not recognized.");
    return 0;
}

std::int16_t clsFileINI::GetIndexFromBlockTag(const std::string& tag,
                                              std::initializer_list<std::string> words, bool& errorFlag,
                                              std::string& errorText) {
    return GetIndexFromBlockTag(tag, std::span<const std::string>(words.begin(), words.size()), errorFlag,
                                errorText);
}

void clsFileINI::SetIndexToBlockTag(int index, const std::string& tag, std::span<const std::string> words,
                                    bool& errorFlag, std::string& errorText) {
    if (index < 0 || static_cast<std::size_t>(index) >= words.size() ||
        !SetTagValue(tag, words[static_cast<std::size_t>(index)])) {
        AddError(errorFlag, errorText, "\r\n[" + tag + "] tag error.");
    }
}

void clsFileINI::SetIndexToBlockTag(int index, const std::string& tag,
                                    std::initializer_list<std::string> words, bool& errorFlag,
                                    std::string& errorText) {
    SetIndexToBlockTag(index, tag, std::span<const std::string>(words.begin(), words.size()), errorFlag,
                       errorText);
}

std::string clsFileINI::GetStringFromBlockTag(const std::string& tag, bool& /*errorFlag*/,
                                              std::string& /*errorText*/) {
    std::string value;
    GetTagValue(tag, value);
    return value;
}

void clsFileINI::SetStringToBlockTag(const std::string& tag, const std::string& value, bool& errorFlag,
                                     std::string& errorText) {
    const std::size_t first = value.find_first_not_of(' ');
    if (!SetTagValue(tag, first == std::string::npos ? std::string() : value.substr(first))) {
        AddError(errorFlag, errorText, "\r\n" + tag + " tag error.");
    }
}

int clsFileINI::GetStringArrayFromBlockTag(const std::string& tag, std::vector<std::string>& values,
                                           bool& errorFlag, std::string& errorText,
                                           const std::string& delimiter) {
    std::string value;
    if (GetTagValue(tag, value) == 0) {
        AddError(errorFlag, errorText, tag + " tag required but not found.");
    }
    return SplitList(values, value, delimiter);
}

void clsFileINI::SetStringArrayToBlockTag(const std::string& tag, int upper,
                                          const std::vector<std::string>& values, bool& errorFlag,
                                          std::string& errorText, const std::string& delimiter) {
    if (upper >= static_cast<int>(values.size())) {
        AddError(errorFlag, errorText, "\r\n" + tag + " tag error.");
        return;
    }
    std::string joined;
    for (int i = 0; i <= upper; ++i) {
        if (i > 0) {
            joined += delimiter;
        }
        joined += values[static_cast<std::size_t>(i)];
    }
    SetStringToBlockTag(tag, joined, errorFlag, errorText);
}

double clsFileINI::GetFloatFromBlockTag(const std::string& tag, bool& errorFlag, std::string& errorText) {
    std::string value;
    if (GetTagValue(tag, value) == 0) {
        AddError(errorFlag, errorText, tag + " not found.");
        return 0.0;
    }
    return ParseLeadingNumber(value);
}

void clsFileINI::SetFloatToBlockTag(const std::string& tag, double value, bool& errorFlag,
                                    std::string& errorText) {
    if (!SetTagValue(tag, FormatFileFloat(value))) {
        AddError(errorFlag, errorText, "\r\n" + tag + " tag error.");
    }
}

std::int16_t clsFileINI::GetIntegerFromBlockTag(const std::string& tag, bool& errorFlag,
                                                std::string& errorText) {
    std::string value;
    if (GetTagValue(tag, value) == 0) {
        AddError(errorFlag, errorText, tag + " not found.");
        return 0;
    }
    return StringToInteger(value);
}

void clsFileINI::SetIntegerToBlockTag(const std::string& tag, std::int16_t value, bool& errorFlag,
                                      std::string& errorText) {
    if (!SetTagValue(tag, FormatFileInteger(value))) {
        AddError(errorFlag, errorText, "\r\n" + tag + " tag error.");
    }
}

int clsFileINI::GetFloatArrayFromBlockTag(const std::string& tag, std::vector<double>& values,
                                          bool& errorFlag, std::string& errorText) {
    // GetTagValue never reports a missing tag, so neither does this. Split as SplitList splits,
    // without a string per element: a section holds thousands.
    (void)errorFlag;
    (void)errorText;
    const std::string_view text = TagValueView(tag);
    values.clear();
    values.reserve(static_cast<std::size_t>(std::count(text.begin(), text.end(), ',')) + 1);
    std::size_t start = 0;
    for (;;) {
        const std::size_t hit = text.find(',', start);
        values.push_back(
            ParseLeadingNumber(text.substr(start, hit == std::string_view::npos ? hit : hit - start)));
        if (hit == std::string_view::npos) {
            break;
        }
        start = hit + 1;
    }
    return static_cast<int>(values.size());
}

void clsFileINI::SetFloatArrayToBlockTag(const std::string& tag, int count, const std::vector<double>& values,
                                         bool& errorFlag, std::string& errorText) {
    if (count > static_cast<int>(values.size())) {
        AddError(errorFlag, errorText, "\r\n" + tag + " tag error.");
        return;
    }
    // The line is built in place: a section's arrays run to tens of kilobytes.
    std::string line;
    line.reserve(tag.size() + 1 + static_cast<std::size_t>(count) * 12);
    line += tag;
    line.push_back('=');
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            line.push_back(',');
        }
        AppendRoundedFileFloat(line, values[static_cast<std::size_t>(i)], 9);
    }
    lines_.push_back(std::move(line));
}

int clsFileINI::GetIntegerArrayFromBlockTag(const std::string& tag, std::vector<std::int16_t>& values,
                                            bool& errorFlag, std::string& errorText) {
    std::vector<std::string> parts;
    const int count = GetStringArrayFromBlockTag(tag, parts, errorFlag, errorText, ",");
    values.clear();
    values.reserve(parts.size());
    for (const std::string& part : parts) {
        values.push_back(StringToInteger(part));
    }
    return count;
}

void clsFileINI::SetIntegerArrayToBlockTag(const std::string& tag, int count,
                                           const std::vector<std::int16_t>& values, bool& errorFlag,
                                           std::string& errorText) {
    if (count > static_cast<int>(values.size())) {
        AddError(errorFlag, errorText, "\r\n" + tag + " tag error.");
        return;
    }
    std::string joined;
    for (int i = 0; i < count; ++i) {
        if (i > 0) {
            joined.push_back(',');
        }
        joined += FormatFileInteger(values[static_cast<std::size_t>(i)]);
    }
    if (!SetTagValue(tag, joined)) {
        AddError(errorFlag, errorText, "\r\n" + tag + " tag error.");
    }
}

std::string clsFileINI::GetMultiStringFromBlockTag(const std::string& tag, bool& errorFlag,
                                                   std::string& errorText) {
    return PipeToLineBreaks(GetStringFromBlockTag(tag, errorFlag, errorText));
}

void clsFileINI::SetMultiStringToBlockTag(const std::string& tag, const std::string& value, bool& errorFlag,
                                          std::string& errorText) {
    SetStringToBlockTag(tag, LineBreaksToPipe(value), errorFlag, errorText);
}

} // namespace corvane
