#include "common/ReadShown.h"

#include "ProjectFileTestSupport.h"
#include "files/modReferenceFile.h"
#include "model/Globals.h"

#include <regex>

namespace corvane {
namespace {

using test::ProjectFileTest;

// The reader's rules, old schemas and damaged files.
class modProjectFileReadTest : public ProjectFileTest {
protected:
    std::string Notice() const {
        return prompts.History().empty() ? std::string() : prompts.History().back().text;
    }
};

TEST_F(modProjectFileReadTest, SchemaZeroFileReadsWithItsOldRulesAndOneNotice) {
    const std::string path = Fixture("schema0.cvpj");
    prompts.Expect(Answer::OK, "Missing or updated data items:");
    ASSERT_EQ(ReadProjectShown(path), 1);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].title, "File read notice");
    EXPECT_EQ(prompts.History()[0].style, MsgBox::OKOnly | MsgBox::Exclamation);
    EXPECT_EQ(Notice(), "Missing or updated data items:\r\n\r\n [ClassIndex] tag [] not recognized.");

    const clsCorvane& p = *gProject;
    EXPECT_EQ(gUnits->PropLengthIndex(), 2);
    EXPECT_EQ(p.Notes(), "first\r\nsecond");
    EXPECT_EQ(p.BoreSize(), "");
    EXPECT_EQ(gISO484->ISOTaskIndex(), 0); // "Inspect" is the old name of task 0
    EXPECT_EQ(gISO484->ISOClassIndex(), 0);
    EXPECT_EQ(gISO484->ISOInnerRadius(), 30.0);
    EXPECT_EQ(p.CupExclusionDistance(), 0.5);
    EXPECT_EQ(p.InternalScanSourceIndex(), 0);
    EXPECT_EQ(p.ReferenceSectionPitchSourceIndex(), 0);
    EXPECT_EQ(p.ReferenceSourceIndex(), 1);
    // Neither blade was on: blade 0 takes part.
    EXPECT_EQ(p.ReferenceScanBladesEnabled(0), 1);
    EXPECT_EQ(p.ReferenceScanBladesEnabled(1), 0);

    // A right section of one point loads empty; a left one keeps it.
    const clsPropeller& right = *p.RightScan(0);
    EXPECT_EQ(right.BladeCount(), 1);
    EXPECT_EQ(right.Blades(0)->Section(0)->RawOffsetCount(), 0);
    EXPECT_EQ(right.Blades(0)->Section(1)->ThetaDegArray(), (std::vector<double>{-10, 0, 10}));
    const clsSection& left = *p.LeftScan(0)->Blades(0)->Section(0);
    EXPECT_EQ(left.RawOffsetCount(), 1);
    EXPECT_EQ(left.Radius(0), 22.8);

    // The table is matched to the stations within 0.001: .705 is dropped, .5005 lands on 0.5.
    EXPECT_EQ(p.ReferenceVariablePitchRadialPosArray(),
              std::vector<double>(gRadialPositions.begin(), gRadialPositions.end()));
    EXPECT_EQ(p.ReferenceVariablePitchArray(), (std::vector<double>{0, 40, 0, 0, 0, 43, 0, 0}));
    EXPECT_EQ(p.ReferenceVariablePitchArrayEnabled(),
              (std::vector<bool>{false, true, false, false, false, true, false, false}));
}

TEST_F(modProjectFileReadTest, SchemaOneFileReadsTheScanSourceButNotThePitchSource) {
    const std::string path = Fixture("schema1.cvpj");
    ASSERT_EQ(ReadProjectShown(path), 1);
    const clsCorvane& p = *gProject;
    EXPECT_EQ(gISO484->ISOTaskIndex(), 1); // "Repair" is the old name of task 1
    EXPECT_EQ(gISO484->ISOCriteriaIndex(), 1);
    EXPECT_EQ(gISO484->ISOClassIndex(), 3);
    EXPECT_EQ(p.BoreSize(), "60");
    EXPECT_EQ(p.InternalScanSourceIndex(), 1);
    EXPECT_EQ(p.InternalScanIndex(), 3);
    EXPECT_EQ(p.ReferenceSectionPitchSourceIndex(), 0);
    EXPECT_EQ(p.ProjectScanCount(), 6);
    const clsPropeller& scan = *p.RightScan(0);
    EXPECT_EQ(scan.ScanID(), 5);
    EXPECT_EQ(scan.ScanSource(), "USB4");
    EXPECT_EQ(scan.ScanDrop(), 2);
    EXPECT_EQ(scan.Blades(0)->GLPositionAxialX(), -0.01);
    // No inner radius in the file and points at section 8 with no radial position yet: the
    // inner radius is switched off.
    EXPECT_EQ(gISO484->ISOInnerRadius(), 0.0);
    EXPECT_EQ(gISO484->ISOIncludeInnerRadiusIndex(), 0);
    // The embedded legacy reference reads through the present reader: one blade, no points.
    EXPECT_EQ(p.ReferenceSource()->Diameter(), 1.2);
    EXPECT_EQ(p.ReferenceSource()->BladeCount(), 1);
    EXPECT_EQ(p.ReferenceSource()->Blades(0)->Section(0)->RawOffsetCount(), 0);
    EXPECT_EQ(p.ReferenceSourceFilePath(), "mid.cvrf");
}

TEST_F(modProjectFileReadTest, MissingScanBlocksOfTheTwoHands) {
    // A missing right scan reads as empty and the reading goes on.
    const std::string blocks = "[Project]\nSchemaVersion=2\nPropLength=mm\n"
                               "[PropellerInfo]\nBladeCount=2\nRotation=Right\nISOTaskIndex=ClassSpec\n"
                               "ISOCriteriaIndex=Primary\nClassIndex=ClassS\nIncludeInnerRadiusIndex=Off\n"
                               "InnerRadius=30\nRightScanCount=1\nLeftScanCount=LEFT\n"
                               "[RightPropeller1Blade1]\nSectionCount=0\n"
                               "[RightPropeller1Blade2]\nSectionCount=0\n";
    const std::string tail =
        "[ReferencePropellerInfo]\nReferenceSource=None\nInternalScanSourceIndex=Active\n"
        "ReferenceSectionPitch=SectionPitchConstant\nReferenceLocalPitch=LocalPitchFlatFace\n"
        "ReferenceSectionPitchSource=Manual\n";
    const std::string right = Put("right.cvpj", std::regex_replace(blocks, std::regex("LEFT"), "0") + tail);
    prompts.Expect(Answer::OK);
    ASSERT_EQ(ReadProjectShown(right), 1);
    EXPECT_EQ(Notice(), "Missing or updated data items:\r\n\r\nBlock RightPropeller1 not found.");
    EXPECT_EQ(gProject->RightScan(0)->BladeCount(), 2); // the empty header keeps the project's blades

    // A missing left scan is the failure exit, with the text alone under the stop icon.
    test::MakeFreshProject();
    const std::string left = Put("left.cvpj", std::regex_replace(blocks, std::regex("LEFT"), "1") + tail);
    prompts.Expect(Answer::OK);
    EXPECT_EQ(ReadProjectShown(left), 0);
    EXPECT_EQ(prompts.History().back().style, MsgBox::OKOnly | MsgBox::Critical);
    EXPECT_EQ(Notice(), "\r\nBlock RightPropeller1 not found.\r\nBlock LeftPropeller1 not found.");
}

TEST_F(modProjectFileReadTest, FailureExitsAndTheirNotices) {
    // An empty path.
    prompts.Expect(Answer::OK);
    EXPECT_EQ(ReadProjectShown(""), 0);
    EXPECT_EQ(Notice(), " No Filepath ");
    EXPECT_EQ(prompts.History().back().title, "File read notice");

    // No PropellerInfo: failure with nothing flagged, so nothing shown.
    EXPECT_EQ(ReadProjectShown(Put("bare.cvpj", "[Project]\nSchemaVersion=2\nPropLength=ft\n")), 0);
    EXPECT_EQ(prompts.History().size(), 1u);

    // A missing blade block ends the read; the notice holds what was flagged before.
    EXPECT_EQ(ReadProjectFile(Put("blade.cvpj", "[Project]\nPropLength=ft\n[PropellerInfo]\nRotation=Right\n"
                                                "ISOTaskIndex=ClassSpec\nISOCriteriaIndex=Primary\n"
                                                "ClassIndex=ClassS\nIncludeInnerRadiusIndex=Off\n"
                                                "RightScanCount=1\n[RightPropeller1]\nBladeCount=1\n"))
                  .status,
              0);

    // No ReferencePropellerInfo.
    test::MakeFreshProject();
    prompts.Expect(Answer::OK);
    EXPECT_EQ(ReadProjectShown(Put("noref.cvpj", "[Project]\nPropLength=ft\n[PropellerInfo]\nRotation=Right\n"
                                                 "ISOTaskIndex=ClassSpec\nISOCriteriaIndex=Primary\n"
                                                 "ClassIndex=ClassS\nIncludeInnerRadiusIndex=Off\n")),
              0);
    EXPECT_EQ(Notice(), "\r\nBlock ReferencePropellerInfo not found.");
}

TEST_F(modProjectFileReadTest, AnArrayOfTheWrongLengthIsDroppedWithoutAWord) {
    test::FillSampleProject();
    const std::string path = temp->File("short.cvpj");
    ASSERT_EQ(WriteProjectFile(path), 1);
    std::string text = test::FileBytes(path);
    const std::string block = "[LeftPropeller1Blade1Section1]\r\nRawOffsetCount=3\r\n";
    const std::size_t at = text.find(block);
    ASSERT_NE(at, std::string::npos);
    text.replace(at, block.size(), "[LeftPropeller1Blade1Section1]\r\nRawOffsetCount=4\r\n");
    test::WriteBytes(path, text);

    test::MakeFreshProject();
    prompts.Expect(Answer::OK);
    ASSERT_EQ(ReadProjectShown(path), 1);
    EXPECT_EQ(Notice(), "Missing or updated data items:\r\n");
    const clsSection& section = *gProject->LeftScan(0)->Blades(0)->Section(0);
    EXPECT_EQ(section.RawOffsetCount(), 4);
    EXPECT_EQ(section.RadiusArray(), std::vector<double>(4, 0.0));
}

TEST_F(modProjectFileReadTest, CountsBeyondTheFileAreCutWithANotice) {
    // Twenty sections claim 30000 points with three filed: zeros are kept as long as the file
    // can account for them, then the sections read empty with a line each.
    std::string text = "[Project]\nPropLength=ft\n[PropellerInfo]\nBladeCount=1\nRotation=Left\n"
                       "ISOTaskIndex=ClassSpec\nISOCriteriaIndex=Primary\nClassIndex=ClassS\n"
                       "IncludeInnerRadiusIndex=Off\nInnerRadius=30\nLeftScanCount=1\n"
                       "[LeftPropeller1]\nBladeCount=1\n[LeftPropeller1Blade1]\nSectionCount=20\n";
    for (int k = 1; k <= 20; ++k) {
        text += "[LeftPropeller1Blade1Section" + std::to_string(k) +
                "]\nRawOffsetCount=30000\nRadius=1,2,3\nThetaDeg=1,2,3\nAxialDropX=1,2,3\n";
    }
    text += "[ReferencePropellerInfo]\nReferenceSource=None\nInternalScanSourceIndex=Active\n"
            "ReferenceSectionPitch=SectionPitchConstant\nReferenceLocalPitch=LocalPitchFlatFace\n"
            "ReferenceSectionPitchSource=Manual\n";
    prompts.Expect(Answer::OK);
    ASSERT_EQ(ReadProjectShown(Put("points.cvpj", text)), 1);
    long long points = 0;
    int emptied = 0;
    for (int k = 0; k < 20; ++k) {
        const int count = gProject->LeftScan(0)->Blades(0)->Section(k)->RawOffsetCount();
        points += count;
        emptied += count == 0 ? 1 : 0;
    }
    EXPECT_LE(points, 300000);
    EXPECT_GT(emptied, 0);
    EXPECT_NE(Notice().find("\r\n [RawOffsetCount] tag [30000] does not match the points of block "
                            "LeftPropeller1Blade1Section20."),
              std::string::npos);

    // Thousands of scans of thousands of blades in a few bytes.
    test::MakeFreshProject();
    prompts.Expect(Answer::OK);
    EXPECT_EQ(
        ReadProjectShown(Put("scans.cvpj", "[Project]\nPropLength=ft\n[PropellerInfo]\nBladeCount=30000\n"
                                           "Rotation=Right\nRightScanCount=30000\nLeftScanCount=32767\n")),
        0);
    EXPECT_EQ(gProject->RightScanCount(), 1);
    EXPECT_NE(Notice().find(
                  "\r\n [RightScanCount] tag [30000] reduced to 1: the file cannot hold that many scans."),
              std::string::npos);
}

TEST_F(modProjectFileReadTest, AnErrorInTheReaderGoesToTheHandler) {
    const std::string path =
        Put("overflow.cvpj", "[Project]\nPropLength=ft\n[PropellerInfo]\nRightScanCount=1E9\n");
    prompts.Expect(Answer::Retry, "reading the cvpj file from disk");
    prompts.Expect(Answer::Ignore, "reading the cvpj file from disk");
    EXPECT_EQ(ReadProjectShown(path), 0);
    EXPECT_EQ(prompts.History().size(), 2u); // and no notice after an ignored error
}

TEST_F(modProjectFileReadTest, AnExternalReferenceIsReadAgainWhenItCanBe) {
    test::FillSampleProject();
    const std::string refPath = temp->File("outside.cvrf");
    clsPropeller outside;
    outside.SetDiameter(999.5);
    outside.SetBladeCount(1);
    bool flag = false;
    std::string text;
    ASSERT_EQ(WriteReferenceBlocks(refPath, outside, flag, text), 1);
    gProject->SetReferenceSourceFilePath(refPath);
    const std::string path = temp->File("external.cvpj");
    ASSERT_EQ(WriteProjectFile(path), 1);

    test::MakeFreshProject();
    ASSERT_EQ(ReadProjectFile(path).status, 1);
    EXPECT_EQ(gProject->ReferenceSource()->Diameter(), 999.5);
    EXPECT_EQ(gProject->ReferenceSourceFilePath(), refPath);

    // A reference file that fails to read leaves the embedded copy whole.
    test::WriteBytes(refPath, test::Crlf("[ReferencePropeller]\nDiameter=5\n"));
    test::MakeFreshProject();
    prompts.Expect(Answer::OK);
    ASSERT_EQ(ReadProjectShown(path), 1);
    EXPECT_EQ(gProject->ReferenceSource()->Diameter(), 1250.0);
    EXPECT_EQ(gProject->ReferenceSource()->Blades(0)->SectionCount(), 3);
    EXPECT_EQ(gProject->ReferenceSourceFilePath(), "outside.cvrf");
    EXPECT_EQ(Notice(), "Missing or updated data items:\r\n\r\nBlock ReferenceBlade1 not found.");

    // A ppp file is taken again only when it is whole.
    const std::string pppPath = temp->File("design.PPP");
    test::WriteBytes(pppPath, "[Prop Description]\r\nx\r\n");
    test::MakeFreshProject();
    test::FillSampleProject();
    gProject->SetReferenceSourceFilePath(pppPath);
    ASSERT_EQ(WriteProjectFile(path), 1);
    test::MakeFreshProject();
    ASSERT_EQ(ReadProjectFile(path).status, 1);
    EXPECT_EQ(gProject->ReferenceSourceFilePath(), "design.PPP");

    std::filesystem::copy_file(std::string(CORVANE_SOURCE_DIR) + "/data/legacy/reference.ppp", pppPath,
                               std::filesystem::copy_options::overwrite_existing);
    test::MakeFreshProject();
    test::FillSampleProject();
    gProject->SetReferenceSourceFilePath(pppPath);
    ASSERT_EQ(WriteProjectFile(path), 1);
    test::MakeFreshProject();
    ASSERT_EQ(ReadProjectFile(path).status, 1);
    EXPECT_EQ(gProject->ReferenceSource()->Diameter(), 40.0);
    EXPECT_EQ(gProject->ReferenceSource()->Blades(0)->SectionCount(), 5);
    EXPECT_EQ(gProject->ReferenceSourceFilePath(), pppPath);
}

// The library lists what the header read finds (clsProjectLibraryTest); here what it refuses.
TEST_F(modProjectFileReadTest, HeaderReadRefusesIncompleteHeadersQuietly) {
    std::string id, stamp, customer, pitch;
    double diameter = 0;
    std::int16_t blades = 0, classIndex = 0, unit = 0;
    for (const std::string& path :
         {Put("h1.cvpj", "[Project]\nProjectID=x\n"),
          Put("h2.cvpj", "[Project]\nProjectID=x\n[PropellerInfo]\nBladeCount=99999\n"),
          temp->File("none.cvpj")}) {
        EXPECT_EQ(ReadProjectHeader(path, id, stamp, customer, diameter, pitch, blades, classIndex, unit), 0)
            << path;
    }
}

} // namespace
} // namespace corvane
