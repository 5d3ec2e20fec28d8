#include "cli/SimulatedArmStation.h"

#include "files/modCalibrationFile.h"
#include "files/modSettings.h"

#include <filesystem>
#include <ostream>

namespace corvane::cli {

bool SimulatedArmStation(const std::string& command, const std::string& calibrationPath, std::ostream& err,
                         StationSettings& station) {
    const DefaultOptions defaults;
    CalibrationValues values;
    values.device = defaults.scanSourceDevice;
    values.anglePulses = defaults.angleCalibration;
    values.radiusPulses = defaults.radiusCalibration;
    values.dropPulses = defaults.dropCalibration;
    values.angleType = defaults.angleEncoderType;
    values.radiusType = defaults.radiusEncoderType;
    values.dropType = defaults.dropEncoderType;
    values.angleFlip = defaults.angleEncoderFlip;
    values.radiusFlip = defaults.radiusEncoderFlip;
    values.dropFlip = defaults.dropEncoderFlip;
    if (!calibrationPath.empty()) {
        const std::string prefix = "corvane-cli " + command + ": cannot read " + calibrationPath + ": ";
        std::error_code error;
        if (!std::filesystem::is_regular_file(calibrationPath, error)) {
            err << prefix << "no such file\n";
            return false;
        }
        CalibrationLimits limits;
        if (ReadCalibrationFile(calibrationPath, values, limits) != 1) {
            err << prefix << "not a calibration file\n";
            return false;
        }
        if (!(values.anglePulses > 0) || !(values.radiusPulses > 0) || !(values.dropPulses > 0)) {
            err << prefix << "the pulses per turn and per millimetre must be above 0\n";
            return false;
        }
    }
    station = StationSettings{};
    station.scanSourceDevice = values.device;
    station.angleCalibration = values.anglePulses;
    station.radiusCalibration = values.radiusPulses;
    station.dropCalibration = values.dropPulses;
    station.angleEncoderType = values.angleType;
    station.radiusEncoderType = 1;
    station.dropEncoderType = values.dropType;
    station.angleEncoderFlip = values.angleFlip;
    station.radiusEncoderFlip = values.radiusFlip;
    station.dropEncoderFlip = values.dropFlip;
    station.standardOffset = values.standardOffset;
    station.dogLegOffset = values.dogLegOffset;
    station.calibrationRadius = values.calibrationRadius;
    station.calibrationPulse = values.calibrationPulse;
    station.activeProbeOffset = values.standardOffset;
    station.activeProbeOffsetSide = values.standardOffset;
    station.footPedal = true;
    station.audioFeedback = false;
    return true;
}

} // namespace corvane::cli
