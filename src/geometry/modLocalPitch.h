#pragma once

// Local pitch on the panels of a section, as ISO 484 measures it, and the leading edge arc.
//
// A section's segment (or its raw range) is cut into n equal slices, the panels; its n+1
// stations (station 0 at the trailing edge end, station n at the leading edge end) go to
// SegmentOffsetThetaDeg / SegmentOffsetAxialDropX, and the pitch of the helix through each
// pair of neighbouring stations to SegmentPanelPitch(0..n-1). Lengths in the project unit,
// angles in degrees; rotation 0 is right hand, any other value left hand. Each routine returns
// 1 for success and 0 for failure; failures show no message (the caller does).

#include "geometry/clsSectionDropCurve.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"

#include <cstdint>

namespace corvane {

// Local pitch of a measured section. The stations are spaced evenly along the nose-tail line
// between the ends (segment ends, or raw ends with useRawEnds) and each is carried round the
// cylinder by the circumferential share of the blade surface's offset from that line, measured
// along the line's normal; the drop is then read off the raw curve at the new angle. The
// unrolling radius is the standard radius of the row (gRadialPositions), not the measured one.
// Diameter or BladeCount not positive, or an index out of range, fail; fewer than 2 offsets or
// fewer than 1 panel succeed without change. A station that lies more than 5% of the span
// outside the raw curve fails.
std::int32_t CalcLocalPitchByNormal(std::int16_t rotation, clsPropeller& propeller, int blade, int section,
                                    int panels, bool useRawEnds);

// The same, with the section's raw curve already fitted (clsSectionDropCurve::Fit with the blade's
// GL angle): the drops at the moved stations are read off it instead of a fit of their own. The
// curve holds absolute drops, so it is used only while the blade's GL axial position is 0; null
// fits as above.
std::int32_t CalcLocalPitchByNormal(std::int16_t rotation, clsPropeller& propeller, int blade, int section,
                                    int panels, bool useRawEnds, clsSectionDropCurve* rawCurve);

// The plain form used for reference sections: stations evenly in angle between the ends (taken
// as relative to t0), drops read straight off the raw curve. Station angles are stored as
// relative angle + t0 (not wrapped), drops as x0 + the raw drop. radius, pitch, rake and chord
// are accepted for the callers' sake and not used.
std::int32_t CalcLocalPitchByDrop(std::int16_t rotation, clsSection& section, double radius, double pitch,
                                  double rake, double chord, int panels, double x0, double t0,
                                  bool useRawEnds);

// Relative deviations of the scan's panel pitches from the reference's, (s - f) / f (1000 when the
// reference panel is flat, f = 0), summed and differenced over the two panels beside each inner
// station into SegmentOffsetDeviationSum / SegmentOffsetDeviationDiff; the end stations get 0.
// Fails on a propeller without diameter or blades, an index out of range, a blade of at most one
// section, a scan section of fewer than 2 offsets, or a reference section with no panels (or
// fewer than the scan's). A scan section without panels succeeds untouched.
std::int32_t CalcLocalPitchDeviations(clsPropeller& scan, int blade, int section, clsPropeller& reference);

// Arc length at the section's radius from the reference angle `angleDeg` to the leading edge
// (the last offset), positive towards the leading edge in either hand. No offsets gives 0.
std::int32_t CalcLEArcLength(std::int16_t rotation, double& result, double angleDeg, double radius,
                             const clsSection& section);

} // namespace corvane
