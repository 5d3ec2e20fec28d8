#pragma once

// The calibration of the measuring arm outside the settings: exported to and imported from a
// calibration file (block "Calibration" of a block and tag file, extension cvst), or imported
// from the calibration text file of a Hale MRI measuring machine.

#include <cstdint>
#include <string>

namespace corvane {

// One calibration of the arm. Encoder types: 0 off, 1 dual channel, 2 single channel.
// Pulses are per rotation (angle) and per millimetre (radius, drop); offsets and the
// calibration radius are in millimetres.
struct CalibrationValues {
    std::string device; // the name of the measuring device
    double anglePulses = 0;
    double radiusPulses = 0;
    double dropPulses = 0;
    std::int16_t angleType = 0;
    std::int16_t radiusType = 0;
    std::int16_t dropType = 0;
    bool radiusFlip = false;
    bool dropFlip = false;
    bool angleFlip = false;
    double standardOffset = 0;
    double dogLegOffset = 0;
    double calibrationRadius = 0;
    double calibrationPulse = 0;

    bool operator==(const CalibrationValues&) const = default;
};

// The travel of the arm in millimetres. Calibration files never write them; they read 0 unless
// the file was made by other means.
struct CalibrationLimits {
    double radiusMinMM = 0;
    double radiusMaxMM = 0;
    double dropMinMM = 0;
    double dropMaxMM = 0;

    bool operator==(const CalibrationLimits&) const = default;
};

// Writes the block "Calibration" into the file (other blocks of the file stay). 1 on success;
// 0 after a failure, which went to the error handler ("writing calibration file to disk").
int WriteCalibrationFile(const std::string& path, const CalibrationValues& values);

// Reads the block "Calibration". The values are in and out: an unknown encoder word leaves its
// type as it was. A file without the block shows "An error occurred reading the calibration
// file. Check the file format." Returns 1, or 0 with the values and limits untouched.
int ReadCalibrationFile(const std::string& path, CalibrationValues& values, CalibrationLimits& limits);

// Reads a Hale MRI calibration text file: lines such as "AngleResolution = ",8000 with the
// resolutions in pulses per inch. Values the file does not name stay as they were; the device,
// the offsets and the limits are those of that machine. Returns 1, or 0 with the values and
// limits untouched after a failure (error context "reading HaleMRI calibration file from disk").
int ReadHaleMRICalibrationFile(const std::string& path, CalibrationValues& values, CalibrationLimits& limits);

} // namespace corvane
