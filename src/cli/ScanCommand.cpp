#include "cli/ScanCommand.h"

#include "acquisition/ArmTrajectory.h"
#include "acquisition/ScanWorkflow.h"
#include "acquisition/SimulatedEncoderBox.h"
#include "cli/ConsoleClock.h"
#include "cli/ProjectLoader.h"
#include "cli/ScanPreparation.h"
#include "cli/SimulatedArmStation.h"
#include "files/modProjectFile.h"
#include "iso484/clsISO484.h"
#include "model/clsCorvane.h"
#include "support/Services.h"

#include <cstdio>
#include <memory>
#include <ostream>

namespace corvane::cli {
namespace {

constexpr const char* kCommand = "scan";
// The window's acquisition timer runs every 10 ms; so does the virtual one.
constexpr double kTickMs = 10;

std::string TimeText(double ms) {
    char text[32];
    std::snprintf(text, sizeof text, "%9.2f s  ", ms / 1000);
    return text;
}

} // namespace

int RunScan(const ScanOptions& options, std::ostream& out, std::ostream& err) {
    const std::string prefix = std::string("corvane-cli ") + kCommand + ": ";
    ConsoleClock clock;
    Services services = InstalledServices();
    services.clock = &clock;
    ServiceScope scope(services);

    if (!LoadProject(kCommand, options.projectPath, err))
        return 2;
    CheckOutcome gate;
    gate.fields = CheckProjectFields(*gProject, *gISO484);
    if (!gate.fields.AllHold()) {
        gate.stop = CheckStop::ProjectData;
        (void)CheckPassed(kCommand, gate, err);
        return 2;
    }
    auto trajectory = std::make_shared<ArmTrajectory>();
    std::string why;
    if (!ReadArmTrajectory(options.armPath, *trajectory, why)) {
        err << prefix << "cannot read " << options.armPath << ": " << why << "\n";
        return 2;
    }
    StationSettings station;
    if (!SimulatedArmStation(kCommand, options.calibrationPath, err, station))
        return 2;

    SimulatedEncoderBox box;
    box.Play(trajectory);
    ScanWorkflow workflow(box);
    std::int16_t blade = 0;
    std::int16_t radius = 0;
    const ScanContext ctx{*gProject, *gISO484, station, 2, 0, blade, radius, gRadialPositions};
    workflow.PageLoad(ctx);
    workflow.Activate(ctx);
    if (!workflow.AddScan(ctx, Clock().Now())) {
        err << prefix << "the project takes no more scans\n";
        return 2;
    }
    const std::string letter = ScanLabel(gProject->PropellerScan(gProject->ActiveScanIndex())->ScanID());

    // The operator presses HOME at time 0, as with the button; the pedal does the rest.
    std::string shown;
    const auto show = [&](double ms) {
        const std::string line = workflow.View().ShownGuidance();
        if (line != shown) {
            out << TimeText(ms) << line << "\n";
            shown = line;
        }
    };
    workflow.PressScanButton(ctx);
    show(0);
    int sweeps = 0;
    for (double t = kTickMs;; t += kTickMs) {
        box.AdvanceTo(t);
        workflow.Tick(ctx);
        sweeps += workflow.TakeEvents().sweepsEnded;
        show(t);
        if (t >= trajectory->EndMs())
            break;
    }
    if (workflow.Recording())
        err << prefix << "the trajectory ends during a sweep; that sweep keeps the points polled so far\n";
    if (sweeps == 0) {
        err << prefix << "the scan ended before any sweep\n";
        return 2;
    }
    if (WriteProjectFile(options.outPath) != 1) {
        err << prefix << "cannot write " << options.outPath << "\n";
        return 2;
    }
    out << "wrote " << options.outPath << ": scan " << letter << ", " << sweeps
        << (sweeps == 1 ? " sweep" : " sweeps") << "\n";
    return 0;
}

} // namespace corvane::cli
