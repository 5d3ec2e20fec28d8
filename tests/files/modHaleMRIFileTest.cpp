#include "common/ServicesFixture.h"

#include "files/modHaleMRIFile.h"
#include "files/modProjectCommands.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"

#include <fstream>
#include <utility>
#include <vector>

namespace corvane {
namespace {

using Points = std::vector<std::pair<double, double>>;

// Header fields 0 to 23 of a file measured on a 40 in right- or left-hand propeller.
std::string Header(const char* hand = "R") {
    return std::string("H,Atlantic Tug,x,FP-40,40,36,") + hand +
           ",x,x,J-9,x,3/5/2024 2:30 PM,x,SN-7,x,x,Ann Smith\r\nx,x,x,x,Hale Props,TUG-1,Nibral\r\n";
}

// One section's points, one "angle,drop" line each, then the end mark.
std::string Section(const Points& points, const char* end = "102") {
    std::string text;
    for (const auto& [angle, drop] : points) {
        text += std::to_string(angle) + "," + std::to_string(drop) + "\r\n";
    }
    return text + end + "\r\n";
}

const Points kThree = {{10, 0.5}, {20, 0.75}, {30, 1.0}};

class modHaleMRIFileTest : public test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        ASSERT_EQ(CreateNewProject(), 1);
        gUnits->SetPropLengthIndex(2); // inches, as the file
    }

    FileReadResult Import(const std::string& text) {
        const std::string path = temp->File("scan.txt");
        std::ofstream(path, std::ios::binary) << text;
        return ImportHaleMRIFile(path, *gProject, *gISO484);
    }
    static clsPropeller& Scan() { return *gProject->PropellerScan(gProject->ActiveScanIndex()); }
    static clsSection& At(int blade, int row) { return *Scan().Blades(blade)->Section(row); }
};

TEST_F(modHaleMRIFileTest, PlainLayoutFillsTheHeaderTheRowsOfEachBladeAndTheInnerRadius) {
    gUnits->SetPropLengthIndex(3); // mm: every length converts from inches
    const FileReadResult read =
        Import(Header() + "2,95,1,3,90,4,6,55,7,9,30.7,10,12\r\n95,13,15,90,16,18\r\n" + Section(kThree) +
               Section(kThree) + Section({{40, 1}, {50, 1}, {60, 1}}) + Section(kThree) + Section(kThree) +
               Section(kThree));
    ASSERT_TRUE(read.Usable()) << read.collected;
    EXPECT_TRUE(read.notices.empty());
    const clsCorvane& p = *gProject;
    EXPECT_EQ(
        std::vector<std::string>({p.Customer(), p.ModelNumber(), p.JobNumber(), p.SerialNumber(),
                                  p.Inspector(), p.Manufacturer(), p.ProjectID(), p.MaterialDescription()}),
        std::vector<std::string>(
            {"Atlantic Tug", "FP-40", "J-9", "SN-7", "Ann Smith", "Hale Props", "TUG-1", "Nibral"}));
    EXPECT_DOUBLE_EQ(p.MarkedDiameter(), 1016.0);
    EXPECT_DOUBLE_EQ(p.ReferenceDiameter(), 1016.0);
    EXPECT_EQ(p.MarkedPitch().substr(0, 5), "914.4");
    EXPECT_EQ(Scan().ScanDate(), "05-Mar-2024 02:30 PM");
    EXPECT_EQ(Scan().ScanSource(), "Hale MRI file import");
    EXPECT_EQ(p.ProjectScanCount(), 1);
    ASSERT_EQ(Scan().BladeCount(), 2);
    EXPECT_DOUBLE_EQ(Scan().Blades(1)->GLPositionThetaDeg(), 180.0);
    for (int blade = 0; blade < 2; ++blade) {
        EXPECT_DOUBLE_EQ(Scan().Blades(blade)->RadialPos(1), 0.9);
        ASSERT_EQ(At(blade, 1).RawOffsetCount(), 3);
        EXPECT_NEAR(At(blade, 1).Radius(0), 0.9 * 508.0, 1e-9);
        EXPECT_NEAR(At(blade, 1).AxialDropX(2), 25.4, 1e-9);
    }
    // 30.7 % is blade 0's inner radius, rounded up to 31 % for row 7; 55 % has no row.
    EXPECT_EQ(gISO484->ISOIncludeInnerRadiusIndex(), 1);
    EXPECT_DOUBLE_EQ(gISO484->ISOInnerRadius(), 31.0);
    EXPECT_DOUBLE_EQ(gRadialPositions[7], 0.31);
    EXPECT_NEAR(Scan().Blades(0)->RadialPos(7), 0.307, 1e-12);
    EXPECT_DOUBLE_EQ(At(0, 7).ThetaDeg(0), 10.0);
    for (int row = 2; row < 7; ++row) {
        EXPECT_EQ(At(0, row).RawOffsetCount(), 0) << row;
    }
}

TEST_F(modHaleMRIFileTest, TheSecondListFieldDecidesTheLayout) {
    const std::string records = "95,1,3,90,4,6,95,7,9,90,10,12";
    std::string thirteen = "1,12,95,1,3";
    for (int s = 0; s < 12; ++s) {
        thirteen += ",95,1,3";
    }
    const struct {
        std::string list;
        int sections;
        int blades;
        std::size_t warnings;
    } cases[] = {
        {"2," + records, 4, 2, 0},                      // plain: the blade count, then the records
        {"2,2," + records, 4, 2, 0},                    // counted: two blades of two sections
        {"4,95.0,1,3,90,4,6,95,7,9,90,10,12", 4, 1, 0}, // "95.0" ends the counts: one blade of four
        {thirteen, 13, 2, 1},                           // 12 is a count, not an r/R: too many sections
    };
    for (const auto& c : cases) {
        ASSERT_EQ(CreateNewProject(), 1);
        gUnits->SetPropLengthIndex(2);
        std::string points;
        for (int s = 0; s < c.sections; ++s) {
            points += Section(kThree);
        }
        const FileReadResult read = Import(Header() + c.list + "\r\n" + points);
        EXPECT_TRUE(read.Usable()) << c.list << read.collected;
        EXPECT_EQ(Scan().BladeCount(), c.blades) << c.list;
        EXPECT_EQ(At(0, 0).RawOffsetCount(), 3) << c.list;
        ASSERT_EQ(read.notices.size(), c.warnings) << c.list;
    }
    EXPECT_EQ(
        Import(Header() + thirteen + "\r\n").notices.at(0).text,
        "Warning, this file contains data for 12 Sections on some blades. \r\n This program is limited to "
        "8 Sections per blade, Only Data for the 8 ISO Standard Sections will be included");
}

TEST_F(modHaleMRIFileTest, MoreThanSevenBladesAreReadWithAWarningAndDropped) {
    std::string list = "8,95,1,1";
    std::string points = Section({{1, 0}});
    for (int b = 1; b < 8; ++b) {
        list += ",95,1,1";
        points += Section({{b + 1.0, 0}});
    }
    FileReadResult read = Import(Header() + list + "\r\n" + points);
    ASSERT_TRUE(read.Usable()) << read.collected;
    ASSERT_EQ(read.notices.size(), 1u);
    EXPECT_EQ(read.notices[0].text,
              "Warning, this file contains data for 8 blades. \r\n This program is limited "
              "to 7 bladed propellers, Only Data for the first 7 blades will be included");
    EXPECT_EQ(Scan().BladeCount(), 7);
    EXPECT_DOUBLE_EQ(At(6, 0).ThetaDeg(0), 7.0); // blade 8 was read and dropped
}

TEST_F(modHaleMRIFileTest, PointsThatGoBackAreDroppedForEitherHandAndLeftHandAnglesAreMirrored) {
    const Points sweep = {{10, 1}, {20, 2}, {15, 3}, {350, 4}, {355, 5}, {0, 6}};
    for (const char* hand : {"R", "L"}) {
        ASSERT_EQ(CreateNewProject(), 1);
        gUnits->SetPropLengthIndex(2);
        ASSERT_TRUE(Import(Header(hand) + "1,95,1,6\r\n" + Section(sweep)).Usable());
        const bool left = std::string(hand) == "L";
        const std::vector<double> angles =
            left ? std::vector<double>{350, 340, 10, 5, 360} : std::vector<double>{10, 20, 350, 355, 0};
        EXPECT_EQ(At(0, 0).ThetaDegArray(), angles) << hand;
        EXPECT_EQ(At(0, 0).AxialDropXArray(), (std::vector<double>{1, 2, 4, 5, 6})) << hand;
        EXPECT_EQ(gProject->RotationIndex(), left ? 1 : 0);
    }
}

TEST_F(modHaleMRIFileTest, AnEarlyEndMarkKeepsThePointsReadQuotedOrNotAndLineFeedsAlone) {
    std::string text = Header() + "1,95,1,5,90,6,10,80,11,15\r\n" + Section({{1, 0}, {2, 0}}) +
                       "3.0,\"102\"\r\n" + Section(kThree);
    for (char& c : text) {
        c = c == '\r' ? ' ' : c; // LF alone; the blanks before it are dropped with the field's
    }
    const FileReadResult read = Import(text);
    ASSERT_TRUE(read.Usable()) << read.collected;
    EXPECT_EQ(At(0, 0).RawOffsetCount(), 2);
    EXPECT_EQ(At(0, 1).RawOffsetCount(), 0); // its only angle came with a quoted end mark
    EXPECT_EQ(At(0, 2).ThetaDegArray(), (std::vector<double>{10, 20, 30}));
}

TEST_F(modHaleMRIFileTest, CutFilesSayWhereTheyEnd) {
    EXPECT_EQ(Import("H,Atlantic Tug,x\r\n").Reason(), "The file ends before its header is complete.");
    EXPECT_EQ(Import(Header() + "1,2,95,1,3,90,4").Reason(), "The file ends in its section list.");
    const FileReadResult cut = Import(Header() + "1,95,1,3,90,4,6\r\n" + Section(kThree) + "10.0,0.5\r\n");
    EXPECT_FALSE(cut.Usable());
    EXPECT_EQ(cut.Reason(), "The file ends in the points of blade 1 at r/R 90 %.");
    EXPECT_EQ(At(0, 1).RawOffsetCount(), 1); // what was read stays
    EXPECT_EQ(ImportHaleMRIFile(temp->File("none.txt"), *gProject, *gISO484).Reason(),
              "The file cannot be read.");
}

} // namespace
} // namespace corvane
