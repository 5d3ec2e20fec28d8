#pragma once

// The pipeline from the raw sweeps of a propeller (a scan or the reference) to every derived
// value of its blades and sections.

#include "model/clsPropeller.h"

#include <cstdint>

namespace corvane {

// Fills `propeller` from its raw offsets, using gProject (MarkedDiameter, MarkedPitch, the
// exclusion distances, RotationIndex) and gISO484 (panel counts). In order:
//  1. Diameter and PitchOfRecord from the project.
//  2. With setSegmentLimits: the raw ends and raw mid-points of every section with at least two
//     offsets, and the segment common to all blades of each row (less the cup and leading edge
//     exclusion distances), relative to each blade's GL.
//  3. The drops at the segment ends and mid-point, RadialPos where it is still 0, SegmentChord.
//  4. Per blade: the section measures (RadialPos, Pitch, RakeAft, Chord), ISOBladePitch,
//     EffectivePitch, ISOEffectiveBladeAngleDeg, ISOLEArcLengthPerSection, and SkewHelix taken
//     from the effective angle (from the GL in panelMode); a section without segment gets skew 0.
//  5. The local pitch panels of every section with a segment (48 per section's blade-0 panel
//     count in panelMode). The count of a row comes from the chords of `panelGrid` when one is
//     given: a reference is cut on the grid of the scan it is compared with, panel j of one
//     against panel j of the other.
//  6. ISOTotalThetaDegToBCL / ISOTotalAxialRakeToBCL at each section's raw mid-angle.
//  7. ISOPropellerPitch.
// PitchMean is not set here; CalcIntegratedPropellerPitch does that.
//
// Returns 1, or 0 after the first failure, leaving the propeller partly updated. A failure of a
// section or blade step is told under "Scan Data Error" (a resampling failure under "Error
// calculating propeller properties"); a bad radius or nose-tail pitch met while trimming by the
// exclusion distances, and a failure of the arc length or skew, end it without a message.
std::int32_t CalculatePropellerProperties(clsPropeller& propeller, bool panelMode, bool setSegmentLimits,
                                          clsPropeller* panelGrid = nullptr);

} // namespace corvane
