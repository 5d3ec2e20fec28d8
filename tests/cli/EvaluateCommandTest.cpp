#include "CliTestProjects.h"
#include "common/ServicesFixture.h"

#include "model/Globals.h"
#include "model/clsCorvane.h"

#include <cmath>

namespace corvane::cli {
namespace {

using test::Cli;
using test::CliRun;
using test::Ideal;
using test::Json;
using test::JsonValue;
using test::WriteProject;

void ExpectRelative(double actual, double expected, double tolerance, const std::string& where) {
    EXPECT_LE(std::abs(actual - expected), tolerance * std::abs(expected)) << where << ": " << actual;
}

using EvaluateCommandTest = corvane::test::ServicesTest;

// The measures themselves are checked against the virtual propeller in the geometry tests; here
// that every blade and section reaches the output with its own numbers.
TEST_F(EvaluateCommandTest, IdealPropellerGivesItsOwnNumbersInEveryBladeAndSection) {
    const std::string path = temp->File("ideal.cvpj");
    WriteProject(path, {Ideal(36.0)});
    JsonValue json = Json(Cli({"evaluate", path, "--json"}));
    EXPECT_EQ(json["ProjectID"], "IDEAL-4B");
    EXPECT_EQ(json["PropLength"], "in");
    EXPECT_EQ(json["Rotation"], "Right");
    EXPECT_EQ(json["Scan"], "A");
    ExpectRelative(json["PitchMean"].get<double>(), 36.0, 1e-7, "PitchMean");
    ASSERT_EQ(json["Blades"].size(), 4u);
    const double gl[] = {0, 270, 180, 90};
    for (std::size_t b = 0; b < 4; ++b) {
        JsonValue& blade = json["Blades"][b];
        EXPECT_NEAR(blade["GLPositionThetaDeg"].get<double>(), gl[b], 1e-9);
        ExpectRelative(blade["EffectivePitch"].get<double>(), 36.0, 1e-7, "EffectivePitch");
        ASSERT_EQ(blade["Sections"].size(), 8u);
        for (std::size_t k = 0; k < 8; ++k) {
            JsonValue& section = blade["Sections"][k];
            const std::string where = "blade " + std::to_string(b) + " section " + std::to_string(k);
            EXPECT_NEAR(section["RadialPos"].get<double>(), gRadialPositions[k], 1e-9) << where;
            ExpectRelative(section["Chord"].get<double>(), 8.0, 1e-6, where);
            ExpectRelative(section["SegmentPanelPitch"][0].get<double>(), 36.0, 1e-7, where);
        }
    }
    const CliRun table = Cli({"evaluate", path});
    ASSERT_EQ(table.code, 0) << table.err;
    EXPECT_NE(table.out.find("Project IDEAL-4B: diameter 40.000 in, 4 blades, Right hand, scan A"),
              std::string::npos)
        << table.out;
    EXPECT_NE(table.out.find("ISO propeller pitch:   36.000 in"), std::string::npos) << table.out;
}

TEST_F(EvaluateCommandTest, HandAndScanChooseTheScan) {
    const std::string path = temp->File("hands.cvpj");
    WriteProject(path, {Ideal(36.0), Ideal(30.0)}, {Ideal(40.0, 1)});
    const auto pitchOf = [](const CliRun& run) { return Json(run)["ISOPropellerPitch"].get<double>(); };

    EXPECT_NEAR(pitchOf(Cli({"evaluate", path, "--json"})), 36.0, 1e-6);
    JsonValue second = Json(Cli({"evaluate", path, "--json", "--scan", "1"}));
    EXPECT_EQ(second["Scan"], "B");
    EXPECT_NEAR(second["ISOPropellerPitch"].get<double>(), 30.0, 1e-6);
    EXPECT_NEAR(pitchOf(Cli({"evaluate", path, "--json", "--scan", "b"})), 30.0, 1e-6);

    JsonValue left = Json(Cli({"evaluate", path, "--json", "--hand", "left"}));
    EXPECT_EQ(left["Rotation"], "Left");
    EXPECT_EQ(left["Scan"], "C");
    EXPECT_NEAR(left["ISOPropellerPitch"].get<double>(), 40.0, 1e-6);

    for (const std::vector<std::string>& args :
         {std::vector<std::string>{"--scan", "2"}, {"--scan", "Q"}, {"--hand", "left", "--scan", "1"}}) {
        std::vector<std::string> all{"evaluate", path};
        all.insert(all.end(), args.begin(), args.end());
        const CliRun run = Cli(all);
        EXPECT_EQ(run.code, 2) << args[1];
        EXPECT_NE(run.err.find("scan '"), std::string::npos) << run.err;
        EXPECT_TRUE(run.out.empty());
    }
}

TEST_F(EvaluateCommandTest, SectionWithoutDataGivesNullsAndTheRestIsMeasured) {
    const std::string path = temp->File("gap.cvpj");
    WriteProject(path, {Ideal(36.0)}, {}, [] {
        auto section = gProject->PropellerScan(0)->Blades(2)->Section(3);
        section->SetRadiusArray({});
        section->SetThetaDegArray({});
        section->SetAxialDropXArray({});
    });
    const CliRun run = Cli({"evaluate", path, "--json"});
    JsonValue json = Json(run);
    JsonValue& gap = json["Blades"][2]["Sections"][3];
    EXPECT_EQ(gap["RawOffsetCount"], 0.0);
    for (const char* key : {"RadialPos", "Pitch", "RakeAft", "Chord", "SkewHelix", "SegmentChord",
                            "ISOTotalAxialRakeToBCL", "ISOLEArcLengthPerSection", "SegmentPanelPitch"}) {
        EXPECT_TRUE(gap.contains(key)) << key;
        EXPECT_TRUE(gap[key].is_null()) << key;
    }
    ExpectRelative(json["Blades"][2]["Sections"][4]["Pitch"].get<double>(), 36.0, 1e-7, "next section");
    ExpectRelative(json["Blades"][3]["Sections"][3]["Pitch"].get<double>(), 36.0, 1e-7, "next blade");
}

TEST_F(EvaluateCommandTest, QuestionsAreAnsweredToGoOnAndShownOnStandardError) {
    const std::string path = temp->File("bare-blade.cvpj");
    WriteProject(path, {Ideal(36.0)}, {}, [] {
        auto blade = gProject->PropellerScan(0)->Blades(3);
        for (int k = 0; k < blade->SectionCount(); ++k)
            blade->Section(k)->SetThetaDegArray({});
    });
    // The question must be on standard error and answered Yes, which would otherwise end the
    // check at once. The blades are renumbered before it is asked: the stored blade 4 stands
    // 90 degrees behind blade 1, where blade 2 belongs.
    const CliRun run = Cli({"evaluate", path, "--json"});
    EXPECT_NE(run.err.find("Scan Data Warning...: Blade 2 has no sections. Do you wish to proceed?"),
              std::string::npos)
        << run.err;
    EXPECT_EQ(run.err.find("aborted by the user"), std::string::npos) << run.err;
    ASSERT_EQ(run.code, 0) << run.err;
    // The geometry of the scan without the blade is the check's business; here only that the
    // evaluation went on to the end.
    JsonValue json = Json(run);
    ExpectRelative(json["ISOPropellerPitch"].get<double>(), 36.0, 1e-7, "ISOPropellerPitch");
    EXPECT_EQ(json["Blades"][1]["Sections"][0]["RawOffsetCount"], 0.0);
}

TEST_F(EvaluateCommandTest, WrongOptionsExitTwoWithTheUsage) {
    const std::string path = temp->File("ideal.cvpj");
    const std::vector<std::vector<std::string>> cases = {
        {"evaluate"},
        {"evaluate", path, "--hand", "up"},
        {"evaluate", path, "--scan"},
        {"evaluate", path, "--class", "4"},
        {"evaluate", path, "--criteria", "all"},
        {"evaluate", path, "--constant-pitch", "-3"},
        {"evaluate", path, "--constant-pitch", "36in"},
        {"evaluate", path, "--variable-pitch", "0.5"},
        {"evaluate", path, "--variable-pitch", "0.5:36,1.5:36"},
        {"evaluate", path, "--constant-pitch", "36", "--reference", "x.ppp"},
        {"evaluate", path, "--frobnicate"},
    };
    for (const auto& args : cases) {
        const CliRun run = Cli(args);
        EXPECT_EQ(run.code, 2) << args.back();
        EXPECT_NE(run.err.find("usage: corvane-cli evaluate PROJECT"), std::string::npos) << run.err;
        EXPECT_TRUE(run.out.empty());
    }
}

} // namespace
} // namespace corvane::cli
