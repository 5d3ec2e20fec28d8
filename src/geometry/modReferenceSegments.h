#pragma once

// Segment limits and panel surfaces of a reference propeller, which is compared with the
// active scan on the same segment and panel grid.

#include "model/clsPropeller.h"
#include "model/clsSection.h"

#include <cstdint>

namespace corvane {

// Gives every blade of `reference` the segment of the active scan of gProject, row by row: the
// common part of the segments of the scan's blades that have offsets in the row (right hand the
// largest trailing edge and the smallest leading edge angle, left hand the other way round),
// with SegmentThetaBCL halfway. Rows without offsets on any scan blade are left alone. Angles
// relative to each blade's GL. Returns 1, or 0 after an error (no project or active scan).
std::int32_t CopySegmentLimitsToReference(clsPropeller& reference);

// Rebuilds a reference section from its panel pitches: the helix of each panel is marched from
// the trailing edge over the segment's projected span, the segment ends are placed about
// SegmentAxialXBCL / SegmentThetaBCL from that march, and the raw offsets become the n+1
// stations (SegmentPanelCount = n), starting at the segment ends (useSegmentEnds) or at the raw
// ends, theta relative to t0 and drop relative to x0. Only the first offset's RawOffsetX/Y are
// reset (to 0); Radius is left as it was. chord, rake and skew are not used. A section without
// panels, or a radius of 0, fails (0).
std::int32_t RebuildSectionFromPanels(std::int16_t rotation, clsSection& section, double radius, double pitch,
                                      double chord, double rake, double skew, double x0, double t0,
                                      bool useSegmentEnds);

} // namespace corvane
