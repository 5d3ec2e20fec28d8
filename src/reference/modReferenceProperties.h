#pragma once

// The reference propeller that the active scan is compared with, the project's ReferenceScan, built
// by ReferenceSourceIndex:
//   0 None       a plain copy of the internal scan (InternalScanIndex);
//   1 Scan       an ideal propeller made from the internal scan: the mean section of the blades
//                chosen for the reference (ReferenceScanBladesEnabled), at the constant or
//                variable reference pitch, with a flat face (every panel at the section pitch)
//                or a cambered one (the measured run of pitch along the chord, scaled to it);
//   2, 3 File    ReferenceSource (a cvrf or ppp file) resplined onto the standard radii, turned
//                and shifted onto the active scan's blade 0 and repeated on every blade.
// In every case it ends in the form of a scan: the rows of the standard radial table, segment
// limits common with the active scan, panels on the same grid, in the frame of the active scan.
// Lengths in the project unit, angles in degrees.

#include "model/clsCorvane.h"
#include "model/clsPropeller.h"

#include <cstdint>

namespace corvane {

// Builds the project's ReferenceScan. useRawEnds (any non-zero value is true) takes the raw ends of
// the sections instead of the segment ends for the chord, the panels and the rebuilt offsets:
// the "From scan" command of the reference editor and the ppp export pass it; every evaluation
// passes 0. Returns 1, or 0 after a failure that has been told under "Reference Data Error"
// (the scan's own BCL drop under "Scan Data Error") or through the error handler; the
// reference is then partly built and the caller goes on without it.
std::int32_t CalculateReferenceProperties(clsCorvane& project, std::int16_t& useRawEnds);

// Sorts the sections of a reference read from a file into the rows of the standard radial table
// (gRadialPositions): the propeller starts afresh with its Diameter, gProject's BladeCount and
// eight sections on blade 0, and each read section whose RadialPos is a table row within 0.01
// lands in the first such row with its Chord, Pitch, SkewHelix and panel pitches (its RakeAft is
// not carried over: the rows of a file reference start without rake). A section on no row is
// dropped. Returns 1, or 0 after an error.
std::int32_t ResortReferenceSections(clsPropeller& reference);

} // namespace corvane
