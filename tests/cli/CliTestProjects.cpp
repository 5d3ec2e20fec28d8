#include "CliTestProjects.h"

#include "cli/CliApp.h"
#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"

#include <gtest/gtest.h>

#include <sstream>

namespace corvane::cli::test {

CliRun Cli(std::vector<std::string> args) {
    std::ostringstream out, err;
    CliRun run;
    run.code = RunCli(args, out, err);
    run.out = out.str();
    run.err = err.str();
    return run;
}

JsonValue Json(const CliRun& run) {
    EXPECT_EQ(run.code, 0) << run.err;
    JsonValue value = JsonValue::parse(run.out, nullptr, false);
    EXPECT_FALSE(value.is_discarded()) << "not valid JSON:\n" << run.out;
    return value.is_discarded() ? JsonValue{} : value;
}

clsVirtualPropeller Ideal(double pitch, std::int16_t rotation) {
    clsVirtualPropeller prop;
    prop.Diameter = 40.0;
    prop.BladeCount = 4;
    prop.RotationIndex = rotation;
    prop.Pitch = {{0.0, pitch}};
    prop.Chord = {{0.0, 8.0}};
    prop.FirstBladeThetaDeg = 0.0;
    return prop;
}

void WriteProject(const std::string& path, const std::vector<clsVirtualPropeller>& right,
                  const std::vector<clsVirtualPropeller>& left, const std::function<void()>& edit) {
    ASSERT_EQ(CreateNewProject(), 1);
    gUnits->SetPropLengthIndex(2);
    gProject->SetProjectID("IDEAL-4B");
    gProject->SetCustomer("Test Shipping");
    gProject->SetMarkedDiameter(40.0);
    gProject->SetMarkedPitch("36");
    gISO484->SetISOClassIndex(1);
    std::int16_t id = 0;
    for (std::int16_t hand = 0; hand < 2; ++hand) {
        const auto& props = hand == 0 ? right : left;
        if (props.empty())
            continue;
        gProject->SetRotationIndex(hand);
        gProject->SetBladeCount(props.front().BladeCount);
        gProject->SetPropellerScanCount(static_cast<std::int16_t>(props.size()));
        for (std::size_t i = 0; i < props.size(); ++i) {
            auto scan = gProject->PropellerScan(static_cast<int>(i));
            scan->SetScanID(id++);
            props[i].FillScan(*scan, std::vector<double>(gRadialPositions.begin(), gRadialPositions.end()),
                              40);
        }
    }
    gProject->SetProjectScanCount(id);
    gProject->SetRotationIndex(0);
    if (edit)
        edit();
    ASSERT_EQ(WriteProjectFile(path), 1);
}

} // namespace corvane::cli::test
