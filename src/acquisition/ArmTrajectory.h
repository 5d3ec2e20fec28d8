#pragma once

// How the measuring arm moved over time: the encoder positions and the foot pedal, sample by
// sample. A trajectory is what the simulated arm plays, what a test or the scripted operator
// writes, and what recording a session with the real box produces, so a shop can send a session
// for support and have it replayed.
//
// The file (extension cvarm) is CSV text with the header line
//     time_ms,angle,radius,drop,pedal
// and one row per sample in increasing time. angle, radius and drop are the encoder positions in
// counts since power-on, counting in each encoder's forward direction (integers, unbounded);
// pedal is the 0..4095 value of analogue input 0. Lines starting with "#" are comments, blank
// lines are skipped. Between rows the positions move linearly and the pedal holds the value of
// the earlier row; before the first row and after the last everything holds.

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

inline constexpr const char* kArmTrajectoryHeader = "time_ms,angle,radius,drop,pedal";
inline constexpr int kPedalMaximum = 4095;

// Where the arm stands at one moment: positions in counts (fractional between samples).
struct ArmPosition {
    double angle = 0;
    double radius = 0;
    double drop = 0;
    int pedal = 0;
    bool operator==(const ArmPosition&) const = default;
};

struct ArmSample {
    double timeMs = 0;
    std::int64_t angle = 0;
    std::int64_t radius = 0;
    std::int64_t drop = 0;
    int pedal = 0;
    bool operator==(const ArmSample&) const = default;
};

class ArmTrajectory {
public:
    // Appends a sample; false (and nothing added) when its time is not after the last one's or
    // the pedal is outside 0..4095.
    bool Add(const ArmSample& sample);
    // Replaces the last sample by one of the same moment; false when there is none.
    bool ReplaceLast(const ArmSample& sample);
    const std::vector<ArmSample>& Samples() const { return samples_; }
    bool Empty() const { return samples_.empty(); }
    // Time of the last sample; 0 when empty.
    double EndMs() const { return samples_.empty() ? 0.0 : samples_.back().timeMs; }

    // The arm at a moment; a trajectory without samples stands at zero.
    ArmPosition At(double timeMs) const;

    // Comment lines written above the header.
    std::vector<std::string> comments;

private:
    std::vector<ArmSample> samples_;
};

// The file as text, and back. Parsing fails on the first line it cannot take and says which
// line and why, in `error` ("line 7: the time does not increase"); the trajectory is then empty.
std::string FormatArmTrajectory(const ArmTrajectory& trajectory);
bool ParseArmTrajectory(const std::string& text, ArmTrajectory& trajectory, std::string& error);

// The whole file is read, or written at once (a reader never sees half a file). false with the
// reason in `error`.
bool ReadArmTrajectory(const std::string& path, ArmTrajectory& trajectory, std::string& error);
bool WriteArmTrajectory(const std::string& path, const ArmTrajectory& trajectory, std::string& error);

} // namespace corvane
