#pragma once

// The radial stations of a scan as the Scan page handles them: their buttons, where the arm must
// stand to be "at" one, and the words for them.

#include "acquisition/ScanPageView.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class clsCorvane;
class clsISO484;

// What the radius buttons follow.
struct RadiusButtonRules {
    int scanState = 0;
    std::int32_t scanMode = 0;          // 1 manual entry, 2 digital acquisition
    std::int16_t radiusEncoderType = 1; // 0: no radial encoder, the operator chooses
    bool hasScans = false;
    int activeRadius = 0;
    std::int16_t isoClassIndex = 1;
    std::int16_t isoStandardIndex = 0;
    bool innerRadius = false; // ISOIncludeInnerRadiusIndex 1
};

// RefreshRadiusButtons: enables, clickables and the pressed one by the state, the mode and the
// ISO class, and the TIP button. Captions are "R" and the fraction x 100.
void RefreshRadiusButtons(const RadiusButtonRules& rules, const std::array<double, 8>& radialPositions,
                          std::array<PanelView, 8>& radius, PanelView& tip);
RadiusButtonRules RadiusRulesOf(const clsISO484& iso, int scanState, std::int32_t scanMode,
                                std::int16_t radiusEncoderType, bool hasScans, int activeRadius);

// "R95": the caption of a radius button. "95R": the station in messages.
std::string RadiusCaption(double fraction);
std::string RadiusPercentText(double fraction);

// Half the width of the window around a nominal radius in which the arm counts as at that
// radius: the screw radius tolerance of the class, at least the absolute one of ISO 484-2.
double RadiusWindowHalfWidth(const clsCorvane& project, const clsISO484& iso);
// MarkedDiameter / 2 x the fraction of each station, project unit.
std::array<double, 8> NominalRadii(const clsCorvane& project, const std::array<double, 8>& radialPositions);

// The last radius of a blade when all radii are scanned per blade: index 0 in classes S and I,
// index 1 in classes Ia, II and III.
int LastRadiusOfBlade(const clsISO484& iso);

// The stations an arm with a radial encoder can take during a scan of this ISO class, in the
// order an operator sweeps them: from the innermost up to the last radius of a blade.
std::vector<int> ScanRadiusOrder(const clsISO484& iso, const std::array<double, 8>& radialPositions);

} // namespace corvane
