#pragma once

// Counts of the arm's encoders to engineering values and back: plain arithmetic on the station's
// calibration (StationSettings), no box involved.
//
// The radial slide reads ArmRadial(c) = (c - CalibrationPulse) / RadiusCalibration +
// CalibrationRadius + ActiveProbeOffsetRadial millimetres at count c. A probe that stands
// ActiveProbeOffsetSide mm aside of the arm's radial line touches the blade at the radius
// sqrt(side^2 + ArmRadial^2) and sees the angle turned by atan(side / ArmRadial), with the side's
// sign. Lengths come out in the unit index asked for (-1 the project's own) through clsUnits.

#include <cstdint>

namespace corvane {

class clsUnits;
struct StationSettings;

// The station's own degree factor (gDegToRad), not pi / 180.
inline constexpr double kDeviceDegToRad = 0.01745329252;

double ArmRadialMM(double radiusCount, const StationSettings& station);
// 0 when the radius calibration is 0.
double CountToRadius(double radiusCount, int unit, const StationSettings& station, const clsUnits& units);
// 0 when the radius or angle calibration is 0 or the arm stands on the axis.
double CountsToAngleDeg(double angleCount, double radiusCount, const StationSettings& station);
double AngleDegToCount(double angleDeg, double radiusCount, const StationSettings& station);
// Signed; a single-channel drop counter does not know its direction and the caller takes the
// absolute value (DropEncoderType 2).
double CountToDrop(double dropCount, int unit, const StationSettings& station, const clsUnits& units);

// The presets the counters are programmed with: the angle counter's N - 1 (the counter wraps at
// one turn), and the stored presets of the plain radius and drop counters (an inch of counts).
// A calibration of 1 or less programs the default 7999 or 5079.
double AnglePreset(const StationSettings& station);
double RadiusPreset(const StationSettings& station);
double DropPreset(const StationSettings& station);

// A count for the box: rounded half to even into 32 bits (a preset of 49.8 becomes 50), the
// 32-bit limits where the value lies beyond them.
std::int32_t ToBoxCount(double value);
// An angle count brought into the modulo counter's range 0..N-1 (N = AnglePreset + 1).
std::int32_t ToAngleCounterRange(double angleCount, const StationSettings& station);

} // namespace corvane
