#include "files/modPPPFile.h"

#include "files/FileAccess.h"
#include "files/TextEncoding.h"
#include "model/NumberText.h"
#include "model/clsBlades.h"
#include "support/ErrorTail.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace corvane {

namespace {

const char* const kContext = "importing the PPP file while ";

enum Block : int { kNone = -1, kDescription, kRadii, kSectors, kPitchTable, kChord, kRake, kSkew, kDiameter };

struct Header {
    const char* text; // lower case: lines are matched without regard to case
    const char* step;
};

// In the order of the Block values.
constexpr std::array<Header, 8> kHeaders = {{
    {"[prop description]", "processing [Prop Description] section"},
    {"[number of radii + 1]", "processing [Number of Radii + 1] section"},
    {"[number of sectors per radius + 2]", "processing [Number of Sectors per Radius + 2] section"},
    {"[pitch progression table by row]", "processing [Pitch Progression Table by Row] section"},
    {"[chord lengths]", "processing [Chord]"},
    {"[rake]", "processing [Rake]"},
    {"[skew]", "processing [Skew]"},
    {"[diameter]", "processing [Diameter]"},
}};

std::string Lower(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return out;
}

int HeaderOf(std::string_view line) {
    const std::string lower = Lower(line);
    for (std::size_t b = 0; b < kHeaders.size(); ++b) {
        if (lower.find(kHeaders[b].text) != std::string::npos) {
            return static_cast<int>(b);
        }
    }
    return kNone;
}

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsBlankLine(std::string_view line) {
    for (const char c : line) {
        if (!IsBlank(c)) {
            return false;
        }
    }
    return true;
}

// The row split on runs of blanks. Tabs count as blanks: the lenient number reading skips
// blanks inside a token, so "1<tab>2" must never reach it as one token.
std::vector<std::string_view> Tokens(std::string_view line) {
    std::vector<std::string_view> out;
    std::size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && IsBlank(line[i])) {
            ++i;
        }
        const std::size_t start = i;
        while (i < line.size() && !IsBlank(line[i])) {
            ++i;
        }
        if (i > start) {
            out.push_back(line.substr(start, i - start));
        }
    }
    return out;
}

// A count as the file writes it; anything that is not a whole number within reach reads as -1,
// which the limits turn away.
int CountOf(std::string_view line) {
    const double value = std::nearbyint(ParseLeadingNumber(line));
    if (!std::isfinite(value) || value < -1e6 || value > 1e6) {
        return -1;
    }
    return static_cast<int>(value);
}

// Reads the blocks line by line into the propeller. The counts arrive in their own blocks and
// each later block is read against the counts known when it comes.
class PPPReader {
public:
    PPPReader(clsPropeller& propeller, std::int16_t bladeCount)
        : propeller_(propeller), bladeCount_(bladeCount) {}

    // False when the reading must end here; Refusal() says why.
    bool Line(std::string_view line) {
        const int header = HeaderOf(line);
        if (header != kNone) {
            block_ = header;
            seen_[static_cast<std::size_t>(header)] = true;
            row_ = 0;
            return true;
        }
        if (block_ == kNone || IsBlankLine(line)) {
            return true;
        }
        const int row = row_++;
        switch (block_) {
        case kDescription:
            if (row == 0) {
                propeller_.SetDescription(TrimRight(line));
            }
            return true;
        case kRadii:
            return row == 0 ? Radii(line) : true;
        case kSectors:
            return row == 0 ? Sectors(line) : true;
        case kPitchTable:
            PitchRow(row, Tokens(line));
            return true;
        case kDiameter:
            if (row == 0) {
                propeller_.SetDiameter(ParseLeadingNumber(line));
            }
            return true;
        default:
            if (row == 0) {
                SectionRow(Tokens(line));
            }
            return true;
        }
    }

    const std::string& Refusal() const { return refusal_; }
    const char* Step() const { return block_ == kNone ? "opening the file" : kHeaders[block_].step; }
    bool Complete() const {
        for (const bool seen : seen_) {
            if (!seen) {
                return false;
            }
        }
        return true;
    }

private:
    static std::string TrimRight(std::string_view line) {
        std::size_t end = line.size();
        while (end > 0 && IsBlank(line[end - 1])) {
            --end;
        }
        return std::string(line.substr(0, end));
    }

    clsBlades& Blade0() { return *propeller_.Blades(0); }
    void Refuse(std::string text) { refusal_ = std::move(text); }

    bool Radii(std::string_view line) {
        const int count = CountOf(line);
        propeller_.SetBladeCount(bladeCount_);
        if (count <= 2) {
            Refuse("The PPP file requires a minimum of 3 sections. The reading of the PPP file will abort.");
            return false;
        }
        if (count > kMaxPPPSections) {
            Refuse("The PPP file holds more than " + std::to_string(kMaxPPPSections) +
                   " sections. The reading of the PPP file will abort.");
            return false;
        }
        clsBlades& blade = Blade0();
        blade.SetSectionCount(static_cast<std::int16_t>(count));
        // New sections: a propeller read again keeps nothing of what it held before.
        for (int k = 0; k < count; ++k) {
            blade.SetSection(k, std::make_shared<clsSection>());
        }
        sections_ = count;
        ApplyPanelCount();
        return true;
    }

    bool Sectors(std::string_view line) {
        const int count = CountOf(line);
        if (count < 1 || count > kMaxPPPPanels) {
            Refuse("The PPP file requires from 1 to " + std::to_string(kMaxPPPPanels) +
                   " sectors per radius. The reading of the PPP file will abort.");
            return false;
        }
        panels_ = count;
        ApplyPanelCount();
        return true;
    }

    void ApplyPanelCount() {
        if (sections_ <= 0 || panels_ <= 0) {
            return;
        }
        for (int k = 0; k < sections_; ++k) {
            Blade0().Section(k)->SetSegmentPanelCount(panels_);
        }
    }

    // Token c + 1 of a row belongs to section SectionCount - 1 - c: the file runs hub first.
    template <typename F>
    void ForSections(const std::vector<std::string_view>& tokens, std::size_t first, F&& f) {
        for (std::size_t t = first; t < tokens.size(); ++t) {
            const int c = static_cast<int>(t - first);
            if (c >= sections_) {
                return;
            }
            f(sections_ - 1 - c, ParseLeadingNumber(tokens[t]));
        }
    }

    // Row 0: propeller pitch and r/R * 100; rows 1 to n: panel pitches, the LE row on panel
    // n - 1 and the TE row on panel 0; row n + 1: the section pitches. Token 0 of the later rows
    // is the row's label.
    void PitchRow(int row, const std::vector<std::string_view>& tokens) {
        if (tokens.empty()) {
            return;
        }
        clsBlades& blade = Blade0();
        if (row == 0) {
            blade.SetISOBladePitch(ParseLeadingNumber(tokens[0]));
            ForSections(tokens, 1, [&](int k, double v) { blade.SetRadialPos(k, v / 100.0); });
        } else if (row <= panels_) {
            const int panel = panels_ - row;
            ForSections(tokens, 1,
                        [&](int k, double v) { blade.Section(k)->SetSegmentPanelPitch(panel, v); });
        } else if (row == panels_ + 1) {
            ForSections(tokens, 1, [&](int k, double v) { blade.SetPitch(k, v); });
        }
    }

    void SectionRow(const std::vector<std::string_view>& tokens) {
        clsBlades& blade = Blade0();
        ForSections(tokens, 0, [&](int k, double v) {
            if (block_ == kChord) {
                blade.SetChord(k, v);
            } else if (block_ == kRake) {
                blade.SetRakeAft(k, v);
            } else {
                blade.SetSkewHelix(k, v);
            }
        });
    }

    clsPropeller& propeller_;
    std::int16_t bladeCount_;
    std::array<bool, 8> seen_{};
    int block_ = kNone;
    int row_ = 0;
    int sections_ = 0;
    int panels_ = 0;
    std::string refusal_;
};

} // namespace

PPPRead ReadPPPFile(const std::string& path, clsPropeller& propeller, std::int16_t bladeCount) {
    PPPRead result;
    PPPReader reader(propeller, bladeCount);
    std::string text;
    {
        ErrorTail tail(std::string(kContext) + reader.Step());
        if (!tail.Step([&] { text = ReadFileText(path); })) {
            result.status = PPPReadStatus::Failed;
            return result;
        }
    }
    for (const std::string_view line : SplitFileLines(text)) {
        bool goOn = true;
        ErrorTail tail(std::string(kContext) + reader.Step());
        if (!tail.Step([&] { goOn = reader.Line(line); })) {
            result.status = PPPReadStatus::Failed;
            return result;
        }
        if (!goOn) {
            result.status = PPPReadStatus::Refused;
            result.refusal = reader.Refusal();
            return result;
        }
    }
    result.status = reader.Complete() ? PPPReadStatus::Read : PPPReadStatus::Incomplete;
    return result;
}

} // namespace corvane
