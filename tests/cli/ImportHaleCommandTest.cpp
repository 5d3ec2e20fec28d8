#include "CliTestProjects.h"
#include "common/ServicesFixture.h"

#include "model/Globals.h"
#include "reference/clsReferenceTables.h"
#include "reference/modReferenceEditor.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iomanip>

namespace corvane::cli {
namespace {

using test::Cli;
using test::CliRun;
using test::Ideal;
using test::Json;
using test::JsonValue;

// A Hale MRI file of the propeller as the other machine writes it, lengths in inches: the plain
// section list (blade count, then r/R, first and last point of each section, tip first) and the
// points of each section with its end mark. A left-hand machine counts its angles the other way.
void WriteHale(const std::string& path, const clsVirtualPropeller& prop) {
    std::ofstream out(path, std::ios::binary);
    out << std::fixed << std::setprecision(8);
    out << "HALE,Test Shipping,,FP-40," << prop.Diameter << ",36," << (prop.RotationIndex == 1 ? "L" : "R")
        << ",,,J-1,,11/22/2026 9:00 AM,,SN-1,,,Inspector,,,,,Maker,HALE-4B,Bronze\r\n";
    out << prop.BladeCount;
    int point = 1;
    for (int b = 0; b < prop.BladeCount; ++b) {
        for (const double row : kStandardRadialPositions) {
            out << "," << std::setprecision(0) << row * 100 << "," << point << "," << point + 39;
            point += 40;
        }
    }
    out << std::setprecision(8) << "\r\n";
    for (int b = 0; b < prop.BladeCount; ++b) {
        for (const double row : kStandardRadialPositions) {
            std::vector<double> radius, theta, drop;
            prop.Sweep(b, row, 40, radius, theta, drop);
            for (std::size_t i = 0; i < theta.size(); ++i) {
                out << (prop.RotationIndex == 1 ? 360.0 - theta[i] : theta[i]) << "," << drop[i] << "\r\n";
            }
            out << "\"102\"\r\n";
        }
    }
}

class ImportHaleCommandTest : public ::testing::Test {
protected:
    corvane::test::TempFolder temp;
};

TEST_F(ImportHaleCommandTest, AnotherMachinesScanOfAnIdealPropellerEvaluatesToItsPitch) {
    for (const std::int16_t hand : {0, 1}) {
        const std::string hale = temp.File("scan.txt");
        const std::string project = temp.File("scan.cvpj");
        WriteHale(hale, Ideal(36.0, hand));
        const CliRun import = Cli({"import-hale", hale, "-o", project});
        ASSERT_EQ(import.code, 0) << import.err;
        EXPECT_EQ(import.out, "wrote " + project + "\n");
        EXPECT_EQ(import.err, "");

        JsonValue json = Json(Cli({"evaluate", project, "--json"}));
        EXPECT_EQ(json["ProjectID"], "HALE-4B");
        EXPECT_EQ(json["Rotation"], hand == 0 ? "Right" : "Left");
        EXPECT_EQ(json["Blades"].size(), 4u);
        const double pitch = json["ISOPropellerPitch"].get<double>();
        EXPECT_LE(std::abs(pitch - 36.0), 0.036) << "hand " << hand << ": " << pitch;
        EXPECT_EQ(json["Blades"][0]["Sections"][7]["RawOffsetCount"], 40.0);
    }
}

TEST_F(ImportHaleCommandTest, ABrokenFileLeavesNoProjectAndSaysWhy) {
    const std::string hale = temp.File("cut.txt");
    std::ofstream(hale) << "HALE,Test Shipping,,FP-40,40\n";
    const CliRun run = Cli({"import-hale", hale, "-o", temp.File("cut.cvpj")});
    EXPECT_EQ(run.code, 2);
    EXPECT_EQ(run.err, "corvane-cli import-hale: cannot read " + hale +
                           ": The file ends before its header is complete.\n");
    EXPECT_FALSE(std::filesystem::exists(temp.File("cut.cvpj")));
}

TEST_F(ImportHaleCommandTest, TheEditorsCvrfFileServesAsTheReference) {
    const std::string project = temp.File("ideal.cvpj");
    test::WriteProject(project, {Ideal(36.0)});
    std::vector<ReferenceSectionRow> rows;
    for (const double row : kStandardRadialPositions) {
        rows.push_back(ReferenceSectionRow{row * 100, 8.0, 0.0, 0.0, 36.0, {36, 36, 36, 36}, 0});
    }
    clsReferenceTables tables;
    tables.Assign("Ideal 36", 40.0, rows, 4);
    const std::string reference = temp.File("ideal.cvrf");
    ASSERT_EQ(SaveCvrfFile(reference, tables), 1);

    const CliRun run = Cli({"evaluate", project, "--reference", reference, "--json"});
    JsonValue json = Json(run);
    EXPECT_EQ(run.err.find("could not be calculated"), std::string::npos) << run.err;
    EXPECT_EQ(json["ReferenceSource"], "ExternalFile");
    EXPECT_EQ(json["ClassStatus"]["Code"], 1.0) << run.out;
}

} // namespace
} // namespace corvane::cli
