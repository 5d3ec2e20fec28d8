#pragma once

// What the ISO 484 evaluation leaves behind for the screens, the reports and the command line:
// the window of every criterion that EvaluateISOCriteria walked, and the class codes that
// GetBestISOClass found per blade. The evaluators themselves only hand back their bounds; these
// records keep them so that nobody has to run the evaluators again to show them.

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

namespace corvane {

// One criterion at one place: the allowed window and the measured value, bounds inclusive.
// Pass is false as well when the evaluator itself failed; the numbers are then whatever the
// evaluator had reached.
struct ISOWindow {
    double Lower = 0;
    double Upper = 0;
    double Value = 0;
    bool Pass = false;
};

// Rake progression from one section to a later one of the same blade. Position is the mean r/R
// of the two sections.
struct ISODeltaRake {
    int ToSection = 0;
    double Position = 0;
    ISOWindow Window;
};

// One section of one blade. Only a measured section (more than one raw offset) is evaluated;
// the others keep empty records.
struct ISOSectionResults {
    bool Measured = false;
    ISOWindow NoseTailPitch;
    std::vector<ISOWindow> LocalPitch;          // one per panel
    std::vector<ISOWindow> PitchContinuitySum;  // one per station: +/- LocalPitchPercent
    std::vector<ISOWindow> PitchContinuityDiff; // one per station
    ISOWindow ChordLength;
    ISOWindow LEPosition;      // arc lengths on the cylinder
    ISOWindow LEPositionHelix; // the same along the pitch helix (divided by cos of its angle)
    ISOWindow RakePosition;
    std::vector<ISODeltaRake> DeltaRake; // to each later measured section
    // Rake of this blade minus that of the neighbour, around 0; none when the neighbour has no
    // such section.
    std::optional<ISOWindow> RakeToPrevBlade;
    std::optional<ISOWindow> RakeToNextBlade;
};

struct ISOBladeResults {
    bool Evaluated = false; // the blade was enabled
    ISOWindow MaxDiameter;  // shown only; it never decides a class
    ISOWindow BladeMeanPitch;
    // Degrees: (SpacingToPrev - SpacingToNext) / 2 within +/- AngDeviationTol; none for a blade
    // that was never swept and so stands nowhere.
    std::optional<ISOWindow> BladeSpacing;
    double SpacingToPrev = 0;
    double SpacingToNext = 0;
    std::vector<ISOSectionResults> Sections;
};

// What the user looks at: the blades shown (a blade beyond the seven buttons counts as shown)
// and the radial rows shown. The per-blade class search judges the blades shown, and the 0.4 row
// beside the inner radius only when it is shown. An input of the evaluation, never read from
// the screen behind the caller's back.
struct ISOSelection {
    std::array<bool, 7> blades{true, true, true, true, true, true, true};
    std::array<bool, 8> radii{true, true, true, true, true, true, true, true};
};

// Rows of the per-blade class tables of EvaluateClassPerBlade and GetBestISOClass. Row 0 holds
// the coverage code of GetCoverageClass; the per-blade evaluation never writes it. Row 1 is the
// blade as a whole and is never failed.
enum ISOClassRow : int {
    kISORowCoverage = 0,
    kISORowOverall,
    kISORowMaxDiameter,
    kISORowBladeMeanPitch,
    kISORowNoseTailPitch,
    kISORowLocalPitch,
    kISORowChordLength,
    kISORowLEPosition,
    kISORowRakePosition,
    kISORowBladeSpacing,
    kISORowPitchContinuitySum,
    kISORowPitchContinuityDiff,
    kISORowRakeBetweenBlades,
    kISORowDeltaRake,
};
inline constexpr int kISOClassRows = 14;
inline constexpr std::array<const char*, kISOClassRows> kISOClassRowNames = {
    "Coverage",          "Overall",      "MaxDiameter",        "BladeMeanPitch",
    "NoseTailPitch",     "LocalPitch",   "ChordLength",        "LEPosition",
    "RakePosition",      "BladeSpacing", "PitchContinuitySum", "PitchContinuityDiff",
    "RakeBetweenBlades", "DeltaRake"};

// Per row, one entry per blade.
using ISOClassFlags = std::array<std::vector<bool>, kISOClassRows>;
using ISOClassCodes = std::array<std::vector<std::int16_t>, kISOClassRows>;

// Class codes: 0 S, 1 "1", 2 "1a", 3 "2", 4 "3" (the class index reached), 5 not applicable,
// 6 missing data, 7 not evaluated.
inline constexpr std::int16_t kISOCodeNotApplicable = 5;
inline constexpr std::int16_t kISOCodeMissing = 6;
inline constexpr std::array<const char*, 8> kISOClassCellTexts = {"S", "1", "1a",  "2",
                                                                  "3", "-", "[M]", "N/A"};
inline constexpr const char* kISOFailMark = " [X]";

// Verdict codes of EvaluateClassStatus and GetBestISOClass index these words.
inline constexpr std::array<const char*, 5> kISOStatusWords = {"N/A", "PASS", "FAIL", "INCOMPLETE", "REJECT"};

// Everything the last evaluation of one clsISO484 found. EvaluateISOCriteria starts it afresh;
// GetBestISOClass then adds the class codes, so it runs after the chain.
struct ISOResults {
    std::int16_t ReferenceSourceIndex = 0; // the source the windows were taken against
    ISOWindow PropellerMeanPitch;
    std::vector<ISOBladeResults> Blades;

    // Filled by GetBestISOClass on the project's instance.
    bool ClassCodesFound = false;
    ISOClassCodes ClassCodes;
    std::int16_t PropellerCode = 4;
    std::int16_t CoverageCode = kISOCodeMissing;
    std::int16_t BestClassResult = 0; // verdict code: 0 not evaluated, 1 meets, 2 fails, 3 partial
};

} // namespace corvane
