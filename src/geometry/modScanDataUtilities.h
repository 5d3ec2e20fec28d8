#pragma once

// Section measures from the 3D surfaces: one section of one blade against its blade's generator
// line (axial x0, angle t0). A section is a list of points on cylinders (Radius, ThetaDeg,
// AxialDropX), offset 0 at the trailing edge and the last offset at the leading edge.
//
// Lengths in the propeller's unit, angles in degrees. rotation is the project's RotationIndex:
// 0 right hand (theta grows from trailing to leading edge), any other value left hand. Each
// routine returns 1 for success and 0 for failure and writes its value through `result`,
// which failure leaves as it was.

#include "model/clsPropeller.h"
#include "model/clsSection.h"

#include <cstdint>

namespace corvane {

// Mean of the offsets' radii. No offsets fails.
std::int32_t CalcRadius(const clsSection& section, double& result);

// Pitch of the straight helix through the segment ends (SegmentThetaTE/LE, relative to the GL,
// and SegmentAxialXTE/LE). Equal end angles succeed and leave `result` as it was.
std::int32_t CalcPitch(std::int16_t rotation, const clsSection& section, double& result);
// The same through the raw ends (RawThetaTE/LE, RawAxialXTE/LE).
std::int32_t CalcNoseTailPitch(std::int16_t rotation, const clsSection& section, double& result);

// Axial position at the generator line of the helix of `pitch` through the leading edge point.
std::int32_t CalcRake(std::int16_t rotation, double pitch, const clsSection& section, double x0, double t0,
                      double& result);

// Length along the helix of `pitch` (at the radius of offset 0) between the two end angles.
// With zero pitch the flat arc between the ends, without a rotation sign.
std::int32_t CalcChord(std::int16_t rotation, double rake, double pitch, const clsSection& section, double x0,
                       double t0, double& result);

// Negated mean helical distance of the two ends from t0 at `radius`: a mid-chord on the
// trailing edge side of t0 is a positive skew. With zero pitch the plain mean arc, not negated
// and without a rotation sign.
std::int32_t CalcSkew(std::int16_t rotation, double radius, double rake, double pitch,
                      const clsSection& section, double x0, double t0, double& result);

// Wraps the flat offsets (RawOffsetX along the pitch line from the trailing edge, RawOffsetY
// above it) round the cylinder of `radius`, mid-chord `skew` along the helix from t0 and the
// helix through the generator line at axial `rake`: fills Radius, ThetaDeg and AxialDropX.
std::int32_t Offsets2DToSurface3D(std::int16_t rotation, clsSection& section, double radius, double pitch,
                                  double chord, double rake, double skew, double x0, double t0);

// The inverse, along the helix of `pitch` through the generator line at axial `rake`: fills
// RawOffsetX (0 at the trailing edge) and RawOffsetY (height above the pitch line; all 0 when
// useDrop is 0). Zero pitch or no offsets fails.
std::int32_t Surface3DToOffsets2D(std::int16_t rotation, clsSection& section, double pitch, double rake,
                                  double x0, double t0, std::int16_t useDrop);

// Axial drop of the section at absolute angle `theta`, read off the spline of drop over the
// angle relative to the blade's GL. Fails outside the measured angles (no extrapolation) and
// with fewer than 2 offsets.
std::int32_t CalcSectionAxialDrop(clsPropeller& propeller, int blade, int section, double theta,
                                  double& result);

// Stores RadialPos, Pitch, RakeAft, Chord and SkewHelix of one section of one blade, using the
// blade's GL and the project's RotationIndex. The segment ends must be set beforehand. A
// section without offsets succeeds without change; indices out of range fail.
std::int32_t ProcessSectionMeasures(clsPropeller& propeller, int blade, int section);

} // namespace corvane
