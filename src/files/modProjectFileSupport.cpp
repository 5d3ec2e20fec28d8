#include "files/modProjectFileSupport.h"

#include "iso484/clsISO484.h"
#include "model/AppVersion.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "support/Services.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <filesystem>

namespace corvane::projectfile {

namespace {

// Blades any file may give its scans up front, however small it is.
constexpr std::int64_t kMinBladeSlots = 4096;
// Bytes of a file for each blade slot: a blade block alone takes more than 60.
constexpr std::int64_t kBytesPerBladeSlot = 8;
// Zero records any file may create, however small it is (about 10 MB of points).
constexpr std::int64_t kMinUnbacked = 262144;
// Zero records for each byte of a file: a filed point takes more than 6 bytes.
constexpr std::int64_t kUnbackedPerByte = 2;

std::string Pad(int value, std::size_t width) {
    std::string text = std::to_string(value);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

template <class Get> std::vector<std::string> Words(int count, Get get) {
    std::vector<std::string> words;
    words.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        words.push_back(get(i));
    }
    return words;
}

} // namespace

void AddMissingBlock(bool& errorFlag, std::string& errorText, const std::string& block) {
    errorFlag = true;
    errorText += kCrLf + "Block " + block + " not found.";
}

void AddReadNotice(std::vector<Notice>& notices, bool success, bool errorFlag, const std::string& errorText) {
    if (!errorFlag) {
        return;
    }
    if (success) {
        notices.push_back(
            {kNoticeTitle, kNoticeHeading + kCrLf + errorText, MsgBox::OKOnly | MsgBox::Exclamation});
    } else {
        notices.push_back({kNoticeTitle, errorText, MsgBox::OKOnly | MsgBox::Critical});
    }
}

std::int16_t CountFromFloat(double value) {
    if (!std::isfinite(value)) {
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    const double rounded = std::nearbyint(value); // the default mode: half to even
    if (rounded < INT16_MIN || rounded > INT16_MAX) {
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    return static_cast<std::int16_t>(rounded);
}

std::string LineBreaksToPipes(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' || text[i] == '\n') {
            if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
                ++i;
            }
            out.push_back('|');
        } else {
            out.push_back(text[i]);
        }
    }
    return out;
}

std::string PipesToLineBreaks(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        if (c == '|') {
            out += kCrLf;
        } else {
            out.push_back(c);
        }
    }
    return out;
}

std::string OneLine(std::string_view text) {
    std::string out(text);
    std::replace_if(
        out.begin(), out.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return out;
}

std::string FormatUserNumber(double value) {
    std::string text = FormatNumber(value, "");
    const char separator = gDecimalChar > 0 && gDecimalChar < 128 ? static_cast<char>(gDecimalChar) : '.';
    std::replace(text.begin(), text.end(), '.', separator);
    return text;
}

std::string SourceText() {
    std::string text = gAppTitle + " " + std::to_string(kVersionMajor) + "." + Pad(kVersionMinor, 2) + "." +
                       Pad(kVersionRevision, 4);
    if (!gBuildTag.empty()) {
        text += "." + gBuildTag;
    }
    return text;
}

std::string BareFileName(const std::string& path) {
    const std::size_t slash = path.find_last_of("\\/");
    return slash == std::string::npos ? path : path.substr(slash + 1);
}

std::string LowerExtension(const std::string& path) {
    const std::string name = BareFileName(path);
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos) {
        return {};
    }
    std::string extension = name.substr(dot + 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

std::vector<std::string> PropLengthWords() {
    const auto& tags = clsUnits::PropLengthFileTags();
    return {tags.begin(), tags.end()};
}

std::vector<std::string> RotationWords() {
    const clsCorvane project;
    return Words(2, [&](int i) { return project.RotationFileTag(i); });
}

std::vector<std::string> ScanDropWords() {
    return {"Off", "DualChannel", "SingleChannel"};
}

std::vector<std::string> OffOnWords() {
    return {"Off", "On"};
}

std::vector<std::string> ISOTaskWords(int count) {
    const clsISO484 iso;
    return Words(count, [&](int i) { return iso.ISOTaskFileTag(i); });
}

std::vector<std::string> ISOCriteriaWords() {
    const clsISO484 iso;
    return Words(2, [&](int i) { return iso.ISOCriteriaFileTag(i); });
}

std::vector<std::string> ISOClassWords() {
    const clsISO484 iso;
    return Words(6, [&](int i) { return iso.ISOClassFileTag(i); });
}

std::vector<std::string> ISOIncludeInnerRadiusWords() {
    const clsISO484 iso;
    return Words(2, [&](int i) { return iso.ISOIncludeInnerRadiusFileTag(i); });
}

std::vector<std::string> ReferenceSourceWords() {
    const clsCorvane project;
    return Words(4, [&](int i) { return project.ReferenceSourceFileTag(i); });
}

std::vector<std::string> ReferenceSectionPitchWords() {
    const clsCorvane project;
    return Words(2, [&](int i) { return project.ReferenceSectionPitchFileTag(i); });
}

std::vector<std::string> ReferenceLocalPitchWords() {
    const clsCorvane project;
    return Words(2, [&](int i) { return project.ReferenceLocalPitchFileTag(i); });
}

std::vector<std::string> ReferenceSectionPitchSourceWords() {
    const clsCorvane project;
    return Words(2, [&](int i) { return project.ReferenceSectionPitchSourceFileTag(i); });
}

std::vector<std::string> InternalScanSourceWords() {
    const clsCorvane project;
    return Words(2, [&](int i) { return project.InternalScanSourceFileTag(i); });
}

ReadLimits::ReadLimits(const std::string& path) {
    std::error_code ec;
    const std::uintmax_t size = path.empty() ? 0 : std::filesystem::file_size(path, ec);
    fileBytes_ = ec ? 0 : static_cast<std::int64_t>(std::min<std::uintmax_t>(size, INT64_MAX / 4));
    unbackedLeft_ = std::max(kMinUnbacked, fileBytes_ * kUnbackedPerByte);
}

std::int64_t ReadLimits::BladeSlots() const {
    return std::max(kMinBladeSlots, fileBytes_ / kBytesPerBladeSlot);
}

bool ReadLimits::TakeUnbacked(std::int64_t count) {
    if (count <= 0) {
        return true;
    }
    if (count > unbackedLeft_) {
        return false;
    }
    unbackedLeft_ -= count;
    return true;
}

FileReadResult RunFileRead(const std::string& path, const std::string& context,
                           const std::function<ReadOutcome(BlockReader&)>& readBlocks) {
    FileReadResult result;
    bool errorFlag = false;
    std::string& errorText = result.collected;
    if (path.empty()) {
        errorFlag = true;
        errorText += kNoFilepath;
        AddReadNotice(result.notices, false, errorFlag, errorText);
        return result;
    }
    clsFileINI file;
    const ReadSnapshot snapshot(file, path);
    ErrorTail tail(context);
    ReadLimits limits(path);
    BlockReader reader{file, path, errorFlag, errorText, tail, limits, result.notices};
    switch (readBlocks(reader)) {
    case ReadOutcome::Continue:
        AddReadNotice(result.notices, true, errorFlag, errorText);
        result.status = 1;
        break;
    case ReadOutcome::FailureExit:
        AddReadNotice(result.notices, false, errorFlag, errorText);
        break;
    case ReadOutcome::Abandoned:
        result.abandoned = true;
        break;
    }
    return result;
}

void ReadRawPoints(BlockReader& reader, const std::string& block, clsSection& section, int count) {
    std::vector<double> radius;
    std::vector<double> theta;
    std::vector<double> drop;
    const auto matches = [&](const char* tag, std::vector<double>& values) {
        return reader.file.GetFloatArrayFromBlockTag(tag, values, reader.errorFlag, reader.errorText) ==
               count;
    };
    const bool radiusFits = matches("Radius", radius);
    const bool thetaFits = matches("ThetaDeg", theta);
    const bool dropFits = matches("AxialDropX", drop);
    // With one array in step the count is backed by the points filed; with none it stands for
    // zeros alone.
    if (!radiusFits && !thetaFits && !dropFits && !reader.limits.TakeUnbacked(count)) {
        section.SetRawOffsetCount(0);
        reader.errorFlag = true;
        reader.errorText += kCrLf + " [RawOffsetCount] tag [" + std::to_string(count) +
                            "] does not match the points of block " + block + ".";
        return;
    }
    section.SetRawOffsetCount(count);
    if (radiusFits) {
        section.SetRadiusArray(radius);
    }
    if (thetaFits) {
        section.SetThetaDegArray(theta);
    }
    if (dropFits) {
        section.SetAxialDropXArray(drop);
    }
    if (!radiusFits || !thetaFits || !dropFits) {
        reader.errorFlag = true; // dropped without a word, as always
    }
}

} // namespace corvane::projectfile
