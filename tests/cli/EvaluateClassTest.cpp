#include "CliTestProjects.h"
#include "common/ServicesFixture.h"
#include "iso484/modISO484.h"
#include "model/clsCorvane.h"

#include <fstream>
#include <sstream>

namespace corvane::cli {
namespace {

using test::Cli;
using test::CliRun;
using test::Ideal;
using test::Json;
using test::JsonValue;
using test::WriteProject;

// The demo size (40 in) falls under ISO 484-2, whose windows have floors in millimetres: at a
// pitch of 36 in the nose-tail window is 1 % (0.36 in) in class S and the propeller's mean pitch
// window 0.5 % (0.18 in) in class S, 1 % in class 2 and 3 % in class 3.
class EvaluateClassTest : public corvane::test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        ideal = temp->File("ideal.cvpj");
        WriteProject(ideal, {Ideal(36.0)});
    }

    static void ExpectVerdict(JsonValue& json, int status, const std::string& sentence) {
        EXPECT_EQ(json["ClassStatus"]["Code"], status);
        EXPECT_EQ(json["ClassStatus"]["StatusWord"], status == 1 ? "PASS" : status == 2 ? "FAIL" : "N/A");
        EXPECT_EQ(json["BestClass"]["Sentence"], sentence);
    }

    std::string ideal;
};

TEST_F(EvaluateClassTest, WithoutReferenceNothingIsJudged) {
    JsonValue json = Json(Cli({"evaluate", ideal, "--json"}));
    EXPECT_EQ(json["ReferenceSource"], "None");
    EXPECT_EQ(json["ISOStandard"], "ISO484-2");
    ExpectVerdict(json, 0, "Scan not evaluated.");
    EXPECT_EQ(json["BestClass"]["Code"], 0);
}

TEST_F(EvaluateClassTest, ClassAndPitchChangeTheVerdict) {
    // 36.4 is 1.1 % above the scan: outside the mean pitch windows of classes S to 2, inside 3.
    JsonValue strict = Json(Cli({"evaluate", ideal, "--json", "--constant-pitch", "36.4", "--class", "S"}));
    EXPECT_EQ(strict["ReferenceSource"], "InternalScan");
    EXPECT_EQ(strict["ISOClass"], "Class S");
    ExpectVerdict(strict, 2, "Fails to meet Class S.");
    JsonValue loose = Json(Cli({"evaluate", ideal, "--json", "--constant-pitch", "36.4", "--class", "3"}));
    ExpectVerdict(loose, 1, "MEETS OR EXCEEDS CLASS 3.");
    // Each criterion keeps the best class it passed: 0.4 in is inside class 1's nose-tail window
    // (1.5 %) but not class S's, while the propeller's mean pitch passes class 3 only.
    EXPECT_EQ(loose["BestClass"]["PropellerCode"], 4);
    EXPECT_EQ(loose["Blades"][0]["ClassCodes"]["NoseTailPitch"], 1);

    // A variable pitch is taken row by row: section 0 (0.95) against 36.4 here.
    JsonValue variable =
        Json(Cli({"evaluate", ideal, "--json", "--variable-pitch", "0.9:36,1:36.8", "--class", "S"}));
    JsonValue& window = variable["Blades"][0]["Sections"][0]["NoseTailPitch"];
    EXPECT_NEAR(window["Lower"].get<double>(), 36.4 - 0.364, 1e-9);
    EXPECT_NEAR(window["Upper"].get<double>(), 36.4 + 0.364, 1e-9);
    EXPECT_EQ(window["Pass"], false);
    EXPECT_EQ(variable["Blades"][0]["Sections"][2]["NoseTailPitch"]["Pass"], true);
    ExpectVerdict(variable, 2, "Fails to meet Class S.");

    // The demo's pitch falls off towards hub and tip: against a constant 35.3 in it meets class 2
    // on the primary criteria, and its local pitch is not continuous enough for the secondary.
    const std::string demo = temp->File("demo.cvpj");
    ASSERT_EQ(Cli({"demo", demo}).code, 0);
    JsonValue primary = Json(Cli(
        {"evaluate", demo, "--json", "--constant-pitch", "35.3", "--class", "2", "--criteria", "primary"}));
    EXPECT_EQ(primary["ISOCriteria"], "Primary");
    ExpectVerdict(primary, 1, "MEETS OR EXCEEDS CLASS 2.");
    JsonValue secondary = Json(Cli(
        {"evaluate", demo, "--json", "--constant-pitch", "35.3", "--class", "2", "--criteria", "secondary"}));
    EXPECT_EQ(secondary["ISOCriteria"], "Primary & Secondary");
    EXPECT_EQ(secondary["BestClass"]["StandardText"], "ISO 484-2 Primary and Secondary");
    ExpectVerdict(secondary, 2, "Fails to meet Class 2.");
}

TEST_F(EvaluateClassTest, ProjectsAreTakenAsTheWindowTakesThem) {
    // Pitch rising from 30 in at the hub to 37 in at the tip, the inner section at 25 % of R.
    clsVirtualPropeller rising = Ideal(36.0);
    rising.Pitch = {{0.25, 30.0}, {0.95, 37.0}};
    const auto innerRadius = [&rising] {
        gISO484->SetISOIncludeInnerRadiusIndex(1);
        gISO484->SetISOInnerRadius(25.0);
        ApplyInnerRadiusRow(*gISO484);
        rising.FillScan(*gProject->PropellerScan(0),
                        std::vector<double>(gRadialPositions.begin(), gRadialPositions.end()), 40);
    };
    // As saved before the first check: the scan has no diameter yet.
    const auto unchecked = [] { gProject->PropellerScan(0)->SetDiameter(0.0); };
    const std::string ppp = temp->File("ideal.ppp");
    ASSERT_EQ(Cli({"export-ppp", ideal, ppp}).code, 0);

    struct Case {
        const char* name;
        clsVirtualPropeller prop;
        std::function<void()> edit;
        std::vector<std::string> options;
    };
    const Case cases[] = {
        {"file reference for a scan never checked", Ideal(36.0), unchecked, {"--reference", ppp}},
        {"variable pitch down to the inner radius",
         rising,
         innerRadius,
         {"--variable-pitch", "0.25:30,0.95:37"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string path = temp->File("case.cvpj");
        WriteProject(path, {c.prop}, {}, c.edit);
        std::vector<std::string> args = {"evaluate", path, "--json", "--class", "S"};
        args.insert(args.end(), c.options.begin(), c.options.end());
        JsonValue json = Json(Cli(args));
        ExpectVerdict(json, 1, "MEETS OR EXCEEDS CLASS S.");
        for (JsonValue& blade : json["Blades"]) {
            EXPECT_EQ(blade["Sections"][7]["NoseTailPitch"]["Pass"], true);
        }
    }
    // The exported file is a reference of its own: a coarser propeller fails against it.
    const std::string coarse = temp->File("coarse.cvpj");
    WriteProject(coarse, {Ideal(37.0)});
    JsonValue off = Json(Cli({"evaluate", coarse, "--json", "--reference", ppp, "--class", "S"}));
    EXPECT_EQ(off["ReferenceSource"], "ExternalFile");
    ExpectVerdict(off, 2, "Fails to meet Class S.");
}

TEST_F(EvaluateClassTest, TheFailedColumnListsWhatTheVerdictCounts) {
    // Class 3 judges no local pitch, and of ISO 484-2 only the 0.9, 0.7 and 0.5 sections.
    const CliRun run = Cli({"evaluate", ideal, "--constant-pitch", "36.4", "--class", "3"});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("Class status:          PASS"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("Result:                MEETS OR EXCEEDS CLASS 3."), std::string::npos) << run.out;
    std::istringstream lines(run.out);
    int rows = 0;
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind("  0.", 0) == 0) {
            ++rows;
            EXPECT_EQ(line.back(), '-') << line;
        }
    }
    EXPECT_EQ(rows, 32);
}

TEST_F(EvaluateClassTest, BadReferencesAndExportsExitTwo) {
    const std::string wrongType = temp->File("ref.txt");
    std::ofstream(wrongType) << "pitch 36\n";
    for (const std::string& reference : {temp->File("missing.ppp"), wrongType}) {
        const CliRun run = Cli({"evaluate", ideal, "--json", "--reference", reference});
        EXPECT_EQ(run.code, 2) << reference;
        EXPECT_NE(run.err.find("cannot read the reference " + reference), std::string::npos) << run.err;
        EXPECT_TRUE(run.out.empty());
    }
    const std::string unwritable = (temp->Path() / "no-such-folder" / "out.ppp").string();
    const CliRun run = Cli({"export-ppp", ideal, unwritable});
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.err.find("cannot write " + unwritable), std::string::npos) << run.err;
    EXPECT_FALSE(std::filesystem::exists(unwritable));
    EXPECT_EQ(Cli({"export-ppp", ideal}).code, 2);
    EXPECT_EQ(Cli({"export-ppp", temp->File("missing.cvpj"), temp->File("x.ppp")}).code, 2);
}

} // namespace
} // namespace corvane::cli
