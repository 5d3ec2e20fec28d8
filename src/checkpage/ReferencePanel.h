#pragma once

// The reference panel of the Check page: what the scan is compared with. The panel edits a copy
// of the project's reference settings; every edit marks the panel pending (APPLY turns orange)
// until Apply writes the copy to the project. The widgets show this state and nothing else.

#include <array>
#include <cstdint>
#include <string>

namespace corvane {

class clsCorvane;
class clsISO484;

// The fields the panel shows for a source: None only the source; Scan the scan, the blades, the
// pitch definition and the section and local pitch; File the file and the exclusion zones;
// File (pitch only) the file, the exclusions and the pitch fields.
struct ReferencePanelFields {
    bool scan = false;
    bool blades = false;
    bool pitch = false; // pitch definition, section pitch (constant or variable), local pitch
    bool file = false;  // the file and the exclusion zones
};
ReferencePanelFields FieldsForSource(int source);

inline constexpr int kPanelRows = 8;   // the rows of the variable pitch table, one per section row
inline constexpr int kPanelBlades = 7; // the blade boxes of the average

struct ReferencePanelSettings {
    std::int16_t source = 0;                  // ReferenceSourceIndex
    std::int16_t internalScanSourceIndex = 0; // 0 follows the active scan, 1 locked
    std::int16_t internalScanIndex = 0;
    int bladeCount = 0;
    std::array<bool, kPanelBlades> averageBlades{};
    std::int16_t pitchDefinition = 0;   // 0 Manual, 1 Auto (estimated from the scan)
    std::int16_t sectionPitchIndex = 0; // 0 constant, 1 variable
    std::int16_t localPitchIndex = 0;   // 0 flat face, 1 cambered face
    double constantPitch = 0;           // project unit
    std::array<double, kPanelRows> variablePitch{};
    std::array<double, kPanelRows> radialPos{}; // r/R of each row
    std::string filePath;
    double cupExclusion = 0, leExclusion = 0; // project unit
};

class ReferencePanel {
public:
    // Takes the project's settings; nothing is pending afterwards. With no blade in the average
    // yet, the blades of the active scan that have a measured section are taken.
    void Load(const clsCorvane& project);
    // Writes the settings to the project and clears the pending state.
    void Apply(clsCorvane& project);

    const ReferencePanelSettings& Settings() const { return settings_; }
    bool Pending() const { return pending_; }

    void SetSource(std::int16_t source);
    // The scan the reference is made of; LOCK keeps it whatever scan is active.
    void ChooseScan(std::int16_t scanIndex);
    void LockScan(std::int16_t scanIndex);
    // A blade box of the average. Switching off the last blade switches blade 0 on again.
    void SetAverageBlade(int blade, bool on);
    void SetAllBlades();
    void SetPitchDefinition(std::int16_t definition);
    void SetSectionPitchIndex(std::int16_t index);
    void SetLocalPitchIndex(std::int16_t index);
    // Both ignored in Auto, where the pitch fields are locked.
    void SetConstantPitch(double pitch);
    void SetVariablePitch(int row, double pitch);
    // "text" as typed: a number at or above 0 is stored, anything else leaves the value. True
    // when it was stored.
    bool SetCupExclusion(const std::string& text);
    bool SetLEExclusion(const std::string& text);
    void SetFilePath(const std::string& path);

    // The estimate (the "..." button, and Auto): for each row that any blade of the active scan
    // measured, the mid-range (highest + lowest) / 2 of the nose-tail pitch of the blades in the
    // average, and the same of their mean pitch for the constant pitch. Pitches at or below the
    // display precision are left out. With a change pending the ISO data is calculated first;
    // when that fails the reference goes to None. Rows with no pitch keep their value.
    void EstimatePitch(clsCorvane& project, const clsISO484& iso);

private:
    ReferencePanelSettings settings_;
    bool pending_ = false;
};

// The rows of the variable pitch table stand at the project's section radii (gRadialPositions
// in the front ends): the table gets eight rows, keeping their pitches.
void SetVariablePitchRadii(clsCorvane& project, const std::array<double, kPanelRows>& radialPositions);

// The file field's text: the path as it is when it has at most maxChars characters, otherwise
// "...\" and as many of its last characters as fit, starting at a folder separator when one
// lies within them.
std::string ShortenedPath(const std::string& path, std::size_t maxChars);

// Reads the reference file chosen in the panel into the project's ReferenceSource: by the
// upper-cased extension, "CVRF" the reference blocks (then the sections resorted), "PPP" the
// Michigan Wheel import. Another type is told ("File type is not recognized.") and, like any
// failure, clears the path and sets the reference to None. On success the path is stored and
// the file's diameter and pitch come back for the panel to show.
struct ReferenceFileRead {
    bool read = false;
    double diameter = 0, pitch = 0;
};
ReferenceFileRead ReadReferenceFileIntoProject(clsCorvane& project, const std::string& path);

} // namespace corvane
