#include "acquisition/modDevice.h"

#include "model/Globals.h"
#include "model/clsUnits.h"

#include <cmath>
#include <limits>

namespace corvane {
namespace {

constexpr int kMillimetres = 3;

// The turn a probe aside of the radial line sees at this slide position, in degrees.
double SideTurnDeg(double armRadial, const StationSettings& station) {
    return std::atan(station.activeProbeOffsetSide / armRadial) / kDeviceDegToRad;
}

bool AngleDefined(double armRadial, const StationSettings& station) {
    return station.radiusCalibration != 0 && station.angleCalibration != 0 && armRadial != 0;
}

} // namespace

double ArmRadialMM(double radiusCount, const StationSettings& station) {
    return (radiusCount - station.calibrationPulse) / station.radiusCalibration + station.calibrationRadius +
           station.activeProbeOffsetRadial;
}

double CountToRadius(double radiusCount, int unit, const StationSettings& station, const clsUnits& units) {
    if (station.radiusCalibration == 0)
        return 0;
    const double radial = ArmRadialMM(radiusCount, station);
    const double side = station.activeProbeOffsetSide;
    return units.ConvertUnitPropLength(std::sqrt(side * side + radial * radial), unit, kMillimetres);
}

double CountsToAngleDeg(double angleCount, double radiusCount, const StationSettings& station) {
    if (station.radiusCalibration == 0 || station.angleCalibration == 0)
        return 0;
    const double radial = ArmRadialMM(radiusCount, station);
    if (!AngleDefined(radial, station))
        return 0;
    return 360.0 * angleCount / station.angleCalibration + SideTurnDeg(radial, station);
}

double AngleDegToCount(double angleDeg, double radiusCount, const StationSettings& station) {
    if (station.radiusCalibration == 0 || station.angleCalibration == 0)
        return 0;
    const double radial = ArmRadialMM(radiusCount, station);
    if (!AngleDefined(radial, station))
        return 0;
    return (angleDeg - SideTurnDeg(radial, station)) * station.angleCalibration / 360.0;
}

double CountToDrop(double dropCount, int unit, const StationSettings& station, const clsUnits& units) {
    if (station.dropCalibration == 0)
        return 0;
    return units.ConvertUnitPropLength(dropCount / station.dropCalibration, unit, kMillimetres);
}

double AnglePreset(const StationSettings& station) {
    return station.angleCalibration > 1 ? station.angleCalibration - 1 : 7999;
}

double RadiusPreset(const StationSettings& station) {
    return station.radiusCalibration > 1 ? station.radiusCalibration * 25.4 - 1 : 5079;
}

double DropPreset(const StationSettings& station) {
    return station.dropCalibration > 1 ? station.dropCalibration * 25.4 - 1 : 5079;
}

std::int32_t ToBoxCount(double value) {
    if (!std::isfinite(value))
        return 0;
    const double rounded = std::nearbyint(value);
    if (rounded >= static_cast<double>(std::numeric_limits<std::int32_t>::max()))
        return std::numeric_limits<std::int32_t>::max();
    if (rounded <= static_cast<double>(std::numeric_limits<std::int32_t>::min()))
        return std::numeric_limits<std::int32_t>::min();
    return static_cast<std::int32_t>(rounded);
}

std::int32_t ToAngleCounterRange(double angleCount, const StationSettings& station) {
    const std::int64_t n = std::int64_t{ToBoxCount(AnglePreset(station))} + 1;
    if (n <= 0 || !std::isfinite(angleCount))
        return 0;
    const auto count =
        static_cast<std::int64_t>(std::nearbyint(std::fmod(angleCount, static_cast<double>(n))));
    return static_cast<std::int32_t>(((count % n) + n) % n);
}

} // namespace corvane
