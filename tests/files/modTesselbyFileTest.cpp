#include "files/modTesselbyFile.h"
#include "common/ReadShown.h"

#include "ProjectFileTestSupport.h"
#include "model/Globals.h"

namespace corvane {
namespace {

using test::ProjectFileTest;

class modTesselbyFileTest : public ProjectFileTest {};

TEST_F(modTesselbyFileTest, SchemaZeroFileWithLegacyBlocksAndLegacyReference) {
    const std::string path = Fixture("schema0.tbsc");
    prompts.Expect(Answer::OK, "Missing or updated data items:");
    ASSERT_EQ(ReadTesselbyShown(path), 1);
    // Three task words only: the old name is not known here.
    EXPECT_EQ(prompts.History().back().text,
              "Missing or updated data items:\r\n\r\n [ISOTaskIndex] tag [Inspect] not recognized.");

    const clsCorvane& p = *gProject;
    EXPECT_EQ(p.ProjectID(), "schema0"); // blank: the file's name
    EXPECT_EQ(p.RepairShop(), "Old Shop");
    EXPECT_EQ(p.Notes(), "one|two");
    EXPECT_EQ(p.Customer(), "Harbour");
    EXPECT_EQ(p.JobNumber(), "88");
    EXPECT_EQ(gUnits->PropLengthIndex(), 0);
    EXPECT_EQ(p.BoreSize(), "");
    EXPECT_EQ(gISO484->ISOClassIndex(), 1);

    // The scan count comes from the first scan block, and the scans go to the left set.
    EXPECT_EQ(p.RotationIndex(), 1);
    EXPECT_EQ(p.RightScanCount(), 0);
    ASSERT_EQ(p.LeftScanCount(), 1);
    EXPECT_EQ(p.ProjectScanCount(), 1);
    const clsPropeller& scan = *p.LeftScan(0);
    EXPECT_EQ(scan.ScanID(), 0);
    EXPECT_EQ(scan.Description(), "Old scan");
    EXPECT_EQ(scan.Blades(0)->Section(0)->RadiusArray(), (std::vector<double>{1.9}));

    // The table row by row, as filed.
    EXPECT_EQ(p.ReferenceVariablePitchRadialPos(0), 0.95);
    EXPECT_EQ(p.ReferenceVariablePitch(1), 4.2);
    EXPECT_EQ(p.ReferenceVariablePitchRadialPos(2), 0.0);
    EXPECT_EQ(p.ReferenceSourceIndex(), 2);
    EXPECT_EQ(p.ReferenceSourceFilePath(), "");

    const clsPropeller& reference = *p.ReferenceSource();
    ASSERT_EQ(reference.BladeCount(), 3);
    EXPECT_EQ(reference.Blades(0)->GLPositionThetaDeg(), 30.0);
    EXPECT_EQ(reference.Blades(2)->Section(0)->ThetaDegArray(), (std::vector<double>{220, 230}));
}

TEST_F(modTesselbyFileTest, SchemaOneFileReadsItsProjectBlock) {
    ASSERT_EQ(ReadTesselbyShown(Fixture("schema1.tbsc")), 1);
    const clsCorvane& p = *gProject;
    EXPECT_EQ(gUnits->PropLengthIndex(), 1);
    EXPECT_EQ(p.ProjectID(), "T-1");
    EXPECT_EQ(p.Notes(), "a|b"); // no "|" replacement in this format
    EXPECT_EQ(p.Vessel(), "Ves");
    EXPECT_EQ(p.BoreSize(), "12.5"); // a float turned into text
    EXPECT_EQ(gISO484->ISOTaskIndex(), 2);
    EXPECT_EQ(p.RightScanCount(), 1);
    EXPECT_EQ(p.ProjectScanCount(), 3);
    EXPECT_EQ(p.RightScan(0)->ScanID(), 4);
    EXPECT_EQ(p.RightScan(0)->Blades(0)->Section(0)->AxialDropXArray(),
              (std::vector<double>{0.01, 0.02, 0.03}));
    EXPECT_EQ(p.ReferenceConstantPitch(), 1.25);
    EXPECT_EQ(p.ReferenceSource()->BladeCount(), 2);
    EXPECT_EQ(p.ReferenceSource()->Blades(1)->Section(0)->ThetaDeg(0), 190.0);
    EXPECT_EQ(p.ReferenceSourceFilePath(), "");
}

TEST_F(modTesselbyFileTest, SchemaTwoFileReadsThePresentReferenceBlocks) {
    ASSERT_EQ(ReadTesselbyShown(Fixture("schema2.tbsc")), 1);
    const clsCorvane& p = *gProject;
    EXPECT_EQ(gUnits->PropLengthIndex(), 3);
    EXPECT_EQ(p.PropellerScanCount(), 0); // no scan block either
    EXPECT_EQ(p.ReferenceSourceIndex(), 3);
    const clsPropeller& reference = *p.ReferenceSource();
    EXPECT_EQ(reference.Diameter(), 1500.0);
    ASSERT_EQ(reference.BladeCount(), 1);
    ASSERT_EQ(reference.Blades(0)->SectionCount(), 2);
    EXPECT_EQ(reference.Blades(0)->Chord(1), 300.0);
    EXPECT_EQ(reference.Blades(0)->Section(0)->SegmentPanelPitchArray(), (std::vector<double>{1230, 1250}));
    EXPECT_EQ(gISO484->ISOInnerRadius(), 25.0);
}

TEST_F(modTesselbyFileTest, MissingBlocksEndTheRead) {
    // A schema 0 file without its Units block: the legacy notice, and nothing more.
    prompts.Expect(Answer::OK);
    EXPECT_EQ(ReadTesselbyShown(Put("nounits.tbsc", "[RepairShopInfo]\nProjectID=x\n")), 0);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].title, "Legacy file read notice");
    EXPECT_EQ(prompts.History()[0].text, "\r\nBlock Units not found.");
    EXPECT_EQ(prompts.History()[0].style, MsgBox::OKOnly | MsgBox::Critical);

    // A missing scan block is the failure exit; nothing was flagged, so nothing is shown.
    test::MakeFreshProject();
    EXPECT_EQ(ReadTesselbyShown(Put("noscan.tbsc",
                                    "[Project]\nSchemaVersion=1\nPropLength=ft\n[PropellerInfo]\n"
                                    "Rotation=Right\nISOTaskIndex=ClassSpec\nISOCriteriaIndex=Primary\n"
                                    "ClassIndex=ClassS\nIncludeInnerRadiusIndex=Off\nInnerRadius=30\n"
                                    "PropellerScanCount=2\n[Propeller1]\nBladeCount=1\n"
                                    "[Propeller1Blade1]\nSectionCount=0\n")),
              0);
    EXPECT_EQ(prompts.History().size(), 1u);

    prompts.Expect(Answer::OK);
    EXPECT_EQ(ReadTesselbyShown(""), 0);
    EXPECT_EQ(prompts.History().back().text, " No Filepath ");
}

} // namespace
} // namespace corvane
