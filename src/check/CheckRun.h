#pragma once

// What pressing CHECK (or REPORT) runs, for every front end: the window's page buttons, the
// command line, the pages and reports to come. The front end shows the pages; this decides
// whether they may open and brings the data up to date.

#include "files/modProjectCommands.h"
#include "geometry/modScanAlignment.h"
#include "iso484/ISOResults.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class clsCorvane;
class clsISO484;
class clsPropeller;

// The gate a check stopped at.
enum class CheckStop {
    None,        // every gate passed
    ProjectData, // a required project field is missing: back to the Project page
    ScanData,    // the scan is not usable: back to the Scan page
    Calculation, // the geometry or the ISO data could not be calculated: back to the Scan page
};

struct CheckRequest {
    int scanIndex = 0;
    // The gates of REPORT: a calculation that fails drops the reference and the report opens
    // all the same.
    bool forReport = false;
    // False when the Check page was open and its results stand: the scan and the reference
    // settings are checked, nothing is calculated again.
    bool recalculate = true;
    // The arm while the encoder box runs, moved into the frame the check turns the scan to.
    ILiveArm* liveArm = nullptr;
};

struct [[nodiscard]] CheckOutcome {
    CheckStop stop = CheckStop::None;
    ProjectFieldCheck fields;      // which required project fields hold a value
    bool referenceDropped = false; // the scan is evaluated without the reference it had
    std::int16_t verdict = 0;      // the project class: 0 not evaluated, 1 meets, 2 fails
    std::vector<std::string> told; // every message and question shown on the way, in order
    bool Passed() const { return stop == CheckStop::None; }
};

// The gates, in order: the required project fields; the scan check and alignment of scan
// scanIndex (which becomes the active scan); the reference settings (unusable ones drop the
// reference, which is not a change of the user's: the project does not become dirty); the
// geometry of scan and reference and the ISO 484 data, criteria and class verdict, and the
// integrated mean pitch of the scan.
CheckOutcome RunCheck(clsCorvane& project, clsISO484& iso, const CheckRequest& request);

// The blades shown after a check: those with a measured section (BladeEnabled), one flag per
// blade button.
std::array<bool, 7> EnabledBlades(const clsPropeller& scan);

// The best class of the active scan for what the user looks at, and the words for it.
struct BestClass {
    std::int16_t code = 0; // 0 not evaluated, 1 meets, 2 fails, 3 partial scan meets
    ISOClassCodes codes;
    std::int16_t propellerCode = 0;
    std::string standardText;
    std::string sentence;
};
BestClass FindBestClass(clsCorvane& project, clsISO484& iso, const ISOSelection& selection);

} // namespace corvane
