#pragma once

// What the Scan page shows, as the scan workflow decides it: captions, enables, the guidance
// line, the read-outs, the radius buttons and the scan letters. The page only copies it onto its
// controls (writing a control only when its value differs, so a 10 ms tick never repaints what
// did not change); the command line prints from it.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

// One of the page's panel buttons.
struct PanelView {
    std::string caption;
    bool visible = true;
    bool enabled = true;
    bool clickable = true; // false: enabled but a click does nothing
    bool pressed = false;
    bool operator==(const PanelView&) const = default;
};

struct ScanPageView {
    PanelView scanButton{"HOME"}; // ctlScanZeroGoStop, the one big button
    PanelView getButton{"GET"};   // cmdGet, the same press on the tip panel
    PanelView oops{"RE-SCAN LAST", false, false};
    PanelView add{"ADD"};
    PanelView tip{"TIP"};
    std::array<PanelView, 8> radius{};
    // The scan letters, one per scan of the set; three are shown from historyFirst on.
    std::vector<PanelView> history;
    int historyFirst = 0;
    PanelView prev{"PREV"};
    PanelView next{"NEXT"};

    // The guidance line. Status level 0 shows the guidance, black on white; levels 1, 2 and 4
    // show the status text instead, bold in red.
    std::string guidance;
    int statusLevel = 0;
    std::string statusText;
    std::string ShownGuidance() const { return statusLevel == 0 ? guidance : statusText; }

    // Read-outs: angle ("12.345 deg"), radius and drop in the project unit, the log's count.
    std::string angle;
    std::string radiusText;
    std::string drop;
    std::string fifoCount;
    // Where the arm stands, for the arm picture: degrees, project unit.
    double armAngleDeg = 0;
    double armRadius = 0;
    double armDrop = 0;

    // picZeroInstructions: shown exactly while the big button reads "HOME".
    bool zeroInstructions = true;
    std::array<std::string, 3> zeroLines{};
    // picDisplayRadialPos with lblDisplayRad, and the tolerance bar of the radius window.
    bool radialPos = false;
    std::string displayRad = "RAD";
    bool tolerance = false;
    double toleranceLo = 0;
    double toleranceHi = 0;
    double toleranceRadius = 0;
    bool toleranceLine = false;
    double toleranceLineHeight = 0; // of the bar, 0 bottom to 1 top
    // picDiameterCheck.
    std::string diamCheckBlade = "Touch off on tip of Blade 1";
    // The radius ruler, shown when the operator chooses a radius without a radial encoder.
    bool ruler = false;
    std::string rulerRadius;
    std::string rulerMeasurement;

    std::string description;   // txtScanDescription, the active scan's
    int bladeSelector = 0;     // the main window's blade buttons: 0 none chosen, 1 the active blade
    bool topBarEnabled = true; // false during a sweep: no page or menu change breaks into it
};

} // namespace corvane
