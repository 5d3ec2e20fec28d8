#include "CliTestProjects.h"
#include "acquisition/ScriptedOperator.h"
#include "common/FileBytes.h"
#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"

#include <gtest/gtest.h>

#include <cmath>

namespace corvane::cli {
namespace {

using test::Cli;
using test::CliRun;

class ScanCommandTest : public ::testing::Test {
protected:
    corvane::test::TempFolder temp;
};

// simulate-arm, scan and evaluate close the loop: the scripted operator sweeps an ideal
// propeller of the marked data with the default 8000/200/200 calibration, and the geometry gives
// its pitch and chords back.
TEST_F(ScanCommandTest, AScriptedScanOfTheIdealPropellerGivesBackItsPitchAndChord) {
    const std::string project = temp.File("job.cvpj"), arm = temp.File("arm.cvarm"),
                      out = temp.File("out.cvpj");
    test::WriteProject(project, {});
    clsVirtualPropeller ideal;
    ASSERT_TRUE(IdealPropeller(*gProject, gRadialPositions, ideal));

    const CliRun simulated = Cli({"simulate-arm", project, "-o", arm});
    ASSERT_EQ(simulated.code, 0) << simulated.err;
    EXPECT_NE(simulated.out.find("an ideal propeller of the marked diameter and pitch"), std::string::npos);
    const CliRun scanned = Cli({"scan", project, "--arm", arm, "-o", out});
    ASSERT_EQ(scanned.code, 0) << scanned.err;
    for (const std::string& line :
         {std::string("0.00 s  Check maximum diameter per blade."), "wrote " + out + ": scan A, 28 sweeps"})
        EXPECT_NE(scanned.out.find(line), std::string::npos) << line << "\n" << scanned.out;

    test::JsonValue json = test::Json(Cli({"evaluate", out, "--json"}));
    EXPECT_NEAR(json["ISOPropellerPitch"].get<double>(), 36.0, 36.0 * 0.002);
    for (int b = 0; b < 4; ++b) {
        test::JsonValue& sections = json["Blades"][b]["Sections"];
        for (int k = 0; k < 7; ++k) {
            test::JsonValue& section = sections[k];
            const double expected = ideal.At(ideal.Chord, gRadialPositions[static_cast<std::size_t>(k)]);
            EXPECT_GT(section["RawOffsetCount"].get<double>(), 100) << b << "/" << k;
            EXPECT_NEAR(section["Chord"].get<double>(), expected, expected * 0.01) << b << "/" << k;
            EXPECT_NEAR(section["Pitch"].get<double>(), 36.0, 36.0 * 0.002) << b << "/" << k;
        }
    }
}

TEST_F(ScanCommandTest, WhatCannotBeUsedIsSaidAndEndsWithTwo) {
    const std::string project = temp.File("job.cvpj"), out = temp.File("out.cvpj");
    test::WriteProject(project, {});
    const std::string nameless = temp.File("nameless.cvpj");
    test::WriteProject(nameless, {}, {}, [] { gProject->SetCustomer(""); });
    corvane::test::WriteBytes(temp.File("header.cvarm"), "time,angle\n");
    corvane::test::WriteBytes(temp.File("still.cvarm"),
                              "time_ms,angle,radius,drop,pedal\n0,0,0,0,0\n500,0,0,0,0\n");
    corvane::test::WriteBytes(temp.File("broken.cvst"), "[Other]\nA=1\n");
    const struct {
        std::vector<std::string> args;
        const char* reason;
    } cases[] = {
        {{"scan", project, "--arm", temp.File("none.cvarm"), "-o", out}, "cannot read"},
        {{"scan", project, "--arm", temp.File("header.cvarm"), "-o", out}, "line 1: the header must read"},
        {{"scan", project, "--arm", temp.File("still.cvarm"), "-o", out}, "the scan ended before any sweep"},
        {{"scan", nameless, "--arm", temp.File("still.cvarm"), "-o", out},
         "the project has no valid customer"},
        {{"scan", project, "--arm", temp.File("still.cvarm"), "--calibration", temp.File("broken.cvst"), "-o",
          out},
         "not a calibration file"},
        {{"simulate-arm", project, "-o", temp.File("no/such/folder/arm.cvarm")}, "cannot be written"},
    };
    for (const auto& c : cases) {
        const CliRun run = Cli(c.args);
        EXPECT_EQ(run.code, 2) << c.reason;
        EXPECT_NE(run.err.find(c.reason), std::string::npos) << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists(out));
    EXPECT_EQ(Cli({"scan", project, "-o", out}).code, 1) << "--arm is required";
}

} // namespace
} // namespace corvane::cli
