#include "acquisition/ArmStation.h"

#include "acquisition/DemoProject.h"
#include "acquisition/RecordingEncoderBox.h"
#include "acquisition/ScanRadii.h"
#include "acquisition/ScanWorkflow.h"
#include "acquisition/ScriptedOperator.h"
#include "acquisition/SimulatedEncoderBox.h"
#include "iso484/clsISO484.h"
#include "model/clsCorvane.h"

namespace corvane {
namespace {

// The scripted demo for a station and a project's ISO class; the arm starts at its HOME pose.
std::shared_ptr<const ArmTrajectory> DemoTrajectory(const StationSettings& station, const clsISO484& iso,
                                                    const clsUnits& units, std::int16_t scanOrderMode,
                                                    const std::array<double, 8>& radialPositions) {
    OperatorPlan plan;
    plan.station = station;
    plan.scanOrderMode = scanOrderMode;
    plan.radii = ScanRadiusOrder(iso, radialPositions);
    const auto sweeps = VirtualSweeps(DemoPropeller(), radialPositions, 0);
    return std::make_shared<const ArmTrajectory>(ScriptOperator(*sweeps, units, plan));
}

// The first sample of a trajectory, held: the pedal at rest.
std::shared_ptr<const ArmTrajectory> StandingAtStart(const ArmTrajectory& trajectory) {
    ArmTrajectory standing;
    ArmSample start = trajectory.Empty() ? ArmSample{} : trajectory.Samples().front();
    start.timeMs = 0;
    start.pedal = 0;
    standing.Add(start);
    return std::make_shared<const ArmTrajectory>(std::move(standing));
}

} // namespace

ArmStation::ArmStation() : box_(std::make_unique<NoEncoderBox>()) {}

ArmStation::~ArmStation() = default;

std::unique_ptr<ArmStation> ArmStation::WithBox(std::unique_ptr<IEncoderBox> box) {
    auto station = std::make_unique<ArmStation>();
    if (box) {
        station->box_ = std::move(box);
    }
    return station;
}

std::unique_ptr<ArmStation> ArmStation::Playing(std::shared_ptr<const ArmTrajectory> trajectory) {
    auto station = std::make_unique<ArmStation>();
    station->simulated_ = std::make_unique<SimulatedEncoderBox>();
    // Until HOME the arm stands where the trajectory starts; its pedal presses nothing before.
    station->simulated_->Play(StandingAtStart(*trajectory));
    station->trajectory_ = std::move(trajectory);
    return station;
}

std::unique_ptr<ArmStation> ArmStation::ScriptedDemo() {
    auto station = std::make_unique<ArmStation>();
    station->simulated_ = std::make_unique<SimulatedEncoderBox>();
    station->scriptedDemo_ = true;
    // Until HOME writes the demo for the project, the arm stands at the operator's HOME pose.
    const OperatorPlan plan;
    ArmTrajectory home;
    home.Add(ArmSample{0, plan.homeAngle, plan.homeRadius, plan.homeDrop, 0});
    station->simulated_->Play(StandingAtStart(home));
    return station;
}

void ArmStation::Record(const std::string& path) {
    IEncoderBox& inner = simulated_ ? static_cast<IEncoderBox&>(*simulated_) : *box_;
    recorder_ = std::make_unique<RecordingEncoderBox>(inner);
    recordingPath_ = path;
}

bool ArmStation::SaveRecording(std::string& error) {
    return !recorder_ || recorder_->Save(recordingPath_, error);
}

IEncoderBox& ArmStation::Box() {
    if (recorder_) {
        return *recorder_;
    }
    if (simulated_) {
        return *simulated_;
    }
    return *box_;
}

void ArmStation::AdvanceTo(double timeMs) {
    if (simulated_) {
        simulated_->AdvanceTo(timeMs);
    }
    if (recorder_) {
        recorder_->AdvanceTo(timeMs);
    }
}

void ArmStation::PrepareHome(const ScanContext& ctx) {
    if (recorder_) {
        recorder_->BeginAtHome();
    }
    if (!simulated_) {
        return;
    }
    if (scriptedDemo_) {
        simulated_->Play(DemoTrajectory(ctx.station, ctx.iso, *ctx.project.Units(), ctx.scanOrderMode,
                                        ctx.radialPositions));
    } else if (trajectory_) {
        simulated_->Play(trajectory_);
    }
}

} // namespace corvane
