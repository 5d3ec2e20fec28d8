#pragma once

// The recalculation the Check page runs after its reference, class or comparison scan changed:
// the reference is checked, the scan evaluated against it (or alone when it cannot be had), and
// the comparison scan brought up to date against the same reference.

#include <cstdint>

namespace corvane {

class clsCorvane;
class clsISO484;

struct ReferenceUpdateRequest {
    // The scan picked in the comparison combo, -1 for none.
    int compareScanIndex = -1;
    // An unusable reference is told and dropped; without, nothing changes and nothing is said.
    bool showErrors = true;
};

struct [[nodiscard]] ReferenceUpdate {
    bool referenceInForce = false; // a reference is set, usable, and was evaluated against
    bool referenceDropped = false; // the reference was set to None on the way
    int compareScanIndex = -1;     // -1 when the comparison could not be calculated
    std::int16_t verdict = 0;      // EvaluateClassStatus of the user's class (1 meets, 2 fails)
    bool calculated = false;       // the scan's ISO data could be calculated
};

// In this order: an unusable reference ("Reference file is invalid or incompatable with scan.")
// goes to None when errors are shown; the evaluation chain runs on the active scan, and again
// without the reference when it fails with one; the comparison scan is checked and, with a
// reference, its local pitch deviations and its drop at the reference's blade centre line are
// worked out. A comparison that fails is told once ("An error occurred calculating previous scan
// data.") and switched off. The active scan stays the active scan.
ReferenceUpdate UpdateCheckReference(clsCorvane& project, clsISO484& iso,
                                     const ReferenceUpdateRequest& request);

} // namespace corvane
