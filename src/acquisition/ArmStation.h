#pragma once

// The arm a front end works with: the vendor's box, the simulated arm playing a trajectory or
// the scripted demo, and the recorder that can stand between the station and the box. The front
// end chooses at start, then moves the arm's time with every tick and tells it when HOME is about
// to be pressed.

#include "acquisition/ArmTrajectory.h"
#include "acquisition/IEncoderBox.h"
#include "acquisition/NoEncoderBox.h"

#include <memory>
#include <string>

namespace corvane {

class RecordingEncoderBox;
class SimulatedEncoderBox;
struct ScanContext;

class ArmStation {
public:
    // No box at all.
    ArmStation();
    ~ArmStation();
    ArmStation(const ArmStation&) = delete;
    ArmStation& operator=(const ArmStation&) = delete;

    // The vendor's box (or any other), owned from here on.
    static std::unique_ptr<ArmStation> WithBox(std::unique_ptr<IEncoderBox> box);
    // The simulated arm playing a trajectory from each HOME on; before the first it stands where
    // the trajectory starts.
    static std::unique_ptr<ArmStation> Playing(std::shared_ptr<const ArmTrajectory> trajectory);
    // The simulated arm playing the scripted operator over the demo propeller from each HOME on.
    static std::unique_ptr<ArmStation> ScriptedDemo();

    // Puts a recorder between the station and the box; Save writes what it recorded to `path`.
    void Record(const std::string& path);
    bool Recording() const { return recorder_ != nullptr; }
    bool SaveRecording(std::string& error);
    const std::string& RecordingPath() const { return recordingPath_; }

    // The box the station talks to.
    IEncoderBox& Box();
    bool Simulated() const { return simulated_ != nullptr; }
    SimulatedEncoderBox* SimulatedBox() const { return simulated_.get(); }

    // Moves the arm's clock (milliseconds since the session began).
    void AdvanceTo(double timeMs);
    // HOME is about to be pressed: a simulated arm starts its trajectory again from time 0,
    // standing where HOME will zero the counters (the scripted demo writes its trajectory for the
    // project's settings first), and a recording takes its time 0 from the first HOME.
    void PrepareHome(const ScanContext& ctx);

private:
    std::unique_ptr<IEncoderBox> box_;
    std::unique_ptr<SimulatedEncoderBox> simulated_;
    std::unique_ptr<RecordingEncoderBox> recorder_;
    std::string recordingPath_;
    std::shared_ptr<const ArmTrajectory> trajectory_;
    bool scriptedDemo_ = false;
};

} // namespace corvane
