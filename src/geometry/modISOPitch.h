#pragma once

// Blade and propeller pitches as ISO 484 takes them, the effective axial position of a blade,
// and the pitch integrated over the radius (weighted by chord and radius). Lengths in the
// project unit, angles in degrees. Each routine returns 1 for success and 0 for failure and
// shows no message; the caller does.

#include "model/clsPropeller.h"

#include <cstdint>
#include <vector>

namespace corvane {

// ISOBladePitch: plain mean of Pitch over the blade's sections that have offsets and a
// SegmentChord above 0. A sum of exactly 0 leaves ISOBladePitch as it was. Fails on a propeller
// without diameter or blades, a blade out of range, or a blade of at most one section.
std::int32_t CalcISOBladePitch(clsPropeller& propeller, int blade);

// ISOPropellerPitch: mean of the blades' non-zero ISOBladePitch, 0 when there is none. Fails on a
// propeller without diameter or blades.
std::int32_t CalcISOPropellerPitch(clsPropeller& propeller);

// Mean axial drop of the blade at the raw mid-angles (RawThetaBCL) of its sections that have
// offsets and a SegmentChord above 0, stored in ISOEffectiveBladeAxialPosition. A blade without
// such a section gives its GLPositionAxialX and stores nothing; a drop that cannot be read
// (fewer than 2 offsets, angle outside the sweep) fails.
std::int32_t CalcISOEffectiveBladeAxialDrop(double& result, clsPropeller& propeller, int blade);

// EffectivePitch: the integral of pitch * chord * r/R over the radius divided by that of
// chord * r/R, both over the sections with offsets (trapezoids from tip to hub). A zero
// denominator (no chord, or fewer than two sections) leaves EffectivePitch as it was and still
// succeeds. Fails on a propeller without diameter or blades, or a blade out of range.
std::int32_t CalcIntegratedBladePitch(clsPropeller& propeller, int blade);

// PitchMean: mean EffectivePitch of the blades with offsets whose integration succeeded, 0 when
// none did.
// Fails on a propeller without diameter or blades.
std::int32_t CalcIntegratedPropellerPitch(clsPropeller& propeller);

// Trapezoid integral of y over x (x in fractions of the radius, running from the tip down to
// the hub) scaled by R, down to lowerLimit: the strips stop at the first x at or below the limit,
// and a limit above 0 adds a last partial strip down to it with y there interpolated (or
// extrapolated past the last value). Fewer than 2 values give 0.
double IntegrateRadialValues(const std::vector<double>& x, const std::vector<double>& y, int count, double R,
                             double lowerLimit);

} // namespace corvane
