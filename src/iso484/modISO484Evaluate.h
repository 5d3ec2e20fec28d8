#pragma once

// The ISO 484 criteria, one evaluator each. An evaluator finds the target the reference sets,
// opens the window the class of `iso` allows around it, and hands back lower bound, upper bound
// and the scan's value; the caller tests lower <= value <= upper, both bounds inclusive. It
// decides nothing itself.
//
// Targets by the project's ReferenceSourceIndex: 1 (another scan) takes the mean over the
// enabled blades of ReferenceScan, 2 and 3 (a file) the value of the reference blade of the same
// index (the blades of a file reference are one blade repeated, each without the rows its scan
// blade did not measure). With 0 (no reference) the value is the scan's
// own and lower = upper = value, so every criterion passes.
//
// Under ISO 484-2 (ISOStandardIndex 1) a window narrower than the class's absolute tolerance
// is widened to it; under ISO 484-1 the window stays as the percentage gives it.
//
// Lengths in the project unit, angles in degrees. Each returns 1 for success and 0 for failure;
// on failure the outputs keep what they held. Errors go to the common handler, whose context
// names the blade and section as the user counts them (index plus 1).

#include <cstdint>

namespace corvane {

class clsCorvane;
class clsISO484;

// Target: mean ISOBladePitch of the reference (source 1) or its ISOPropellerPitch; window
// MeanPitchOfPropPercent, floor MeanPitchOfPropTol. Value: the scan's ISOPropellerPitch.
std::int32_t EvaluatePropellerMeanPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex,
                                        double& lower, double& upper, double& value);

// Target: the reference blade's BladeDiameter (source 1) or the reference Diameter; window
// 2 * ScrewRadiusPercent, floor ScrewRadiusTol. Value: the blade's BladeDiameter. Shown only.
std::int32_t EvaluateMaxDiameter(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                 double& lower, double& upper, double& value);

// Window MeanPitchPerBladePercent, floor MeanPitchPerBladeTol. Value: the blade's ISOBladePitch.
std::int32_t EvaluateBladeMeanPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                    double& lower, double& upper, double& value);

// Target (source 1): the constant or variable reference pitch, by ReferenceSectionPitchIndex.
// Window MeanPitchPerRadPercent, half as wide again from section row 6 inwards; floor
// MeanPitchPerRadTol. Value: the section's Pitch.
std::int32_t EvaluateNoseTailPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                   int section, double& lower, double& upper, double& value);

// One panel (`segment`) of a section. Target (source 1): with a cambered face the mean panel
// pitch of the enabled reference blades measured there (0 if none), with a flat face the
// section pitch as above. Window LocalPitchPercent, 1.5 times from row 6 inwards; floor
// LocalPitchTol. Value: the panel's SegmentPanelPitch.
std::int32_t EvaluateLocalPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                int section, int segment, double& lower, double& upper, double& value);

// Window DZRatioPercent, floor DZRatioTol. Value: the section's Chord.
std::int32_t EvaluateChordLength(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                 int section, double& lower, double& upper, double& value);

// Target (source 1): mean ISOTotalAxialRakeToBCL of the enabled reference blades; otherwise
// that of the same reference blade. Window ReferenceDiameter * RakePercent, no floor.
std::int32_t EvaluateRakePosition(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                  int section, double& lower, double& upper, double& value);

// Angular spacing to the neighbouring blades by their effective angles, each less the nominal
// 360 / BladeCount. The window is +/- AngDeviationTol; the caller's value is
// (toPrev - toNext) / 2. Without a reference lower = upper = that value. A blade without an
// effective angle (never swept) is no neighbour: the spacing is taken to the next blade that was
// measured, less as many nominal spacings as it is slots away; with no other measured blade
// both are 0.
std::int32_t EvaluateBladeSpacing(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                  double& lower, double& upper, double& toPrev, double& toNext);

// Whether a blade of the scan has a spacing to judge: it has an effective angle. The others are
// left out of the spacing criterion, for themselves as for their neighbours.
bool TakesPartInSpacing(const clsCorvane& project, int scanIndex, int blade);

// Arc on the section's cylinder from the blade's effective angle to the leading edge (the last
// raw offset), against the reference's arc. The window is 2 * min(ReferenceDiameter /
// BladeCount * DZRatioPercent, DZRatioTol) wide on each side, in both standards. The ...Len
// triple is the same along the pitch helix. A section whose pitch angle is 0 gives 0.
std::int32_t EvaluateLEPosition(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                int section, double& lower, double& upper, double& value, double& lowerLen,
                                double& upperLen, double& valueLen);

// Rake from sectionA to sectionB: the difference of the two rake targets +/- ReferenceDiameter *
// RakePercent, against the difference of the scan's rakes. position is the mean r/R.
std::int32_t EvaluateDeltaRake(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                               int sectionA, int sectionB, double& lower, double& upper, double& value,
                               double& position);

// Deviation sum and difference at one station, each within +/- LocalPitchPercent (a fraction).
std::int32_t EvaluatePitchContinuity(const clsISO484& iso, const clsCorvane& project, int scanIndex,
                                     int blade, int section, int station, bool& bothOK, bool& sumOK,
                                     bool& diffOK);

// lower <= value <= upper.
inline bool InsideWindow(double lower, double upper, double value) {
    return lower <= value && value <= upper;
}

} // namespace corvane
