#include "cli/SimulateArmCommand.h"

#include "acquisition/ScanRadii.h"
#include "acquisition/ScriptedOperator.h"
#include "cli/ProjectLoader.h"
#include "cli/SimulatedArmStation.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/clsCorvane.h"

#include <cstdio>
#include <ostream>

namespace corvane::cli {
namespace {

constexpr const char* kCommand = "simulate-arm";

// The active scan when it holds a sweep on every blade of some radius.
std::shared_ptr<clsPropeller> MeasuredSweeps() {
    const int active = gProject->ActiveScanIndex();
    if (active < 0 || active >= gProject->PropellerScanCount())
        return nullptr;
    auto scan = gProject->PropellerScan(active);
    for (int k = 0; k < 8; ++k) {
        bool everyBlade = scan->BladeCount() > 0;
        for (int b = 0; b < scan->BladeCount() && everyBlade; ++b) {
            const auto blade = scan->Blades(b);
            everyBlade = k < blade->SectionCount() && blade->Section(k)->RawOffsetCount() >= 2;
        }
        if (everyBlade)
            return scan;
    }
    return nullptr;
}

} // namespace

int RunSimulateArm(const std::string& projectPath, const std::string& outPath,
                   const std::string& calibrationPath, std::ostream& out, std::ostream& err) {
    const std::string prefix = std::string("corvane-cli ") + kCommand + ": ";
    if (!LoadProject(kCommand, projectPath, err))
        return 2;
    OperatorPlan plan;
    if (!SimulatedArmStation(kCommand, calibrationPath, err, plan.station))
        return 2;
    SetISOStandardAndTolerances(*gISO484, *gProject);
    plan.radii = ScanRadiusOrder(*gISO484, gRadialPositions);

    std::string source = "the sweeps of the active scan";
    std::shared_ptr<clsPropeller> sweeps = MeasuredSweeps();
    if (!sweeps) {
        clsVirtualPropeller ideal;
        if (!IdealPropeller(*gProject, gRadialPositions, ideal)) {
            err << prefix
                << "the project has no sweeps, and no marked diameter and pitch to make an ideal "
                   "propeller of\n";
            return 2;
        }
        sweeps = VirtualSweeps(ideal, gRadialPositions, 0);
        source = "an ideal propeller of the marked diameter and pitch";
    }
    const ArmTrajectory trajectory = ScriptOperator(*sweeps, *gProject->Units(), plan);
    std::string why;
    if (!WriteArmTrajectory(outPath, trajectory, why)) {
        err << prefix << outPath << " " << why << "\n";
        return 2;
    }
    char seconds[32];
    std::snprintf(seconds, sizeof seconds, "%.1f", trajectory.EndMs() / 1000);
    out << "wrote " << outPath << ": " << source << ", " << trajectory.Samples().size() << " samples, "
        << seconds << " s\n";
    return 0;
}

} // namespace corvane::cli
