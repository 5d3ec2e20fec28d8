#include "files/modProjectFile.h"
#include "common/ReadShown.h"

#include "ProjectFileTestSupport.h"
#include "files/modReferenceFile.h"
#include "model/Globals.h"

#include <regex>

namespace corvane {
namespace {

namespace fs = std::filesystem;
using test::ProjectFileTest;

using modProjectFileTest = ProjectFileTest;

TEST_F(modProjectFileTest, WritesBlocksAndTagsInTheirOrder) {
    clsCorvane& p = *gProject;
    p.SetProjectID("P1");
    p.SetNotes("a\r\nb");
    p.SetBladeCount(2);
    p.SetRightScanCount(1);
    p.SetProjectScanCount(1);
    clsPropeller& scan = *p.RightScan(0);
    scan.SetScanDrop(1);
    scan.Blades(0)->SetSectionCount(1);
    scan.Blades(0)->Section(0)->SetRadiusArray({1.5, 1.75});
    scan.Blades(0)->Section(0)->SetThetaDegArray({-10, 12.5});
    scan.Blades(0)->Section(0)->SetAxialDropXArray({0.5, -0.25});
    scan.Blades(1)->SetGLPositionThetaDeg(180);

    const std::string path = temp->File("order.cvpj");
    ASSERT_EQ(WriteProjectFile(path), 1);
    // The order of every block and tag is pinned by the shipped demo (DemoGoldenTest); here the
    // forms of values the demo does not have.
    const std::string text = test::FileBytes(path);
    EXPECT_EQ(text.rfind("[Project]\r\nSchemaVersion=2\r\nLastModified=2026/11/22 9:5:7\r\nSource=", 0), 0u);
    for (
        const char* expected :
        {"\r\nPropLength=ft\r\nProjectID=P1\r\nRepairShop=\r\nInspector=\r\nNotes=a|b\r\n",
         "\r\nScanDrop=DualChannel\r\n",
         "\r\n[RightPropeller1Blade1Section1]\r\nRawOffsetCount=2\r\nRadius=1.5,1.75\r\nThetaDeg=-10,12.5\r\n"
         "AxialDropX=.5,-.25\r\n[RightPropeller1Blade2]\r\n",
         "\r\nGLPositionThetaDeg=180\r\nGLPositionAxialX=0\r\nSectionCount=0\r\n[ReferencePropellerInfo]\r\n",
         "\r\nReferenceIncludeBlade1=On\r\nReferenceIncludeBlade2=Off\r\n"}) {
        EXPECT_NE(text.find(expected), std::string::npos) << expected;
    }
    // The third line names the program and its version, with the build tag when there is one.
    EXPECT_TRUE(std::regex_search(text, std::regex("\nSource=Corvane \\d+\\.\\d\\d\\.\\d{4}\r\n")));
    gBuildTag = "rc2";
    ASSERT_EQ(WriteProjectFile(path), 1);
    EXPECT_TRUE(std::regex_search(test::FileBytes(path),
                                  std::regex("\nSource=Corvane \\d+\\.\\d\\d\\.\\d{4}\\.rc2\r\n")));
}

// The sample sets every filed member to a value of its own, so a member that is lost or taken
// for another on the way in is written differently the second time.
TEST_F(modProjectFileTest, RoundTripKeepsEveryFiledMemberOfBothHands) {
    test::FillSampleProject();
    const std::string path = temp->File("sample.cvpj");
    ASSERT_EQ(WriteProjectFile(path), 1);

    test::MakeFreshProject();
    ASSERT_EQ(ReadProjectShown(path), 1);
    // The external reference file is gone: the embedded copy serves, under its bare name.
    EXPECT_EQ(gProject->ReferenceSourceFilePath(), "blue-line.cvrf");
    EXPECT_EQ(gProject->ReferenceSource()->Blades(0)->SectionCount(), 3);
    gProject->SetReferenceSourceFilePath("C:\\refs\\blue-line.cvrf");
    const std::string again = temp->File("again.cvpj");
    ASSERT_EQ(WriteProjectFile(again), 1);
    EXPECT_EQ(test::FileBytes(again), test::FileBytes(path));
}

TEST_F(modProjectFileTest, SavingAgainKeepsBlocksItNoLongerWritesUnread) {
    test::FillSampleProject();
    const std::string path = temp->File("resave.cvpj");
    ASSERT_EQ(WriteProjectFile(path), 1);
    gProject->SetRotationIndex(0);
    gProject->RemovePropellerScan(1);
    gProject->SetCustomer("Green Line");
    ASSERT_EQ(WriteProjectFile(path), 1);
    const std::string text = test::FileBytes(path);
    EXPECT_NE(text.find("[RightPropeller2Blade4Section8]"), std::string::npos);
    EXPECT_EQ(text.find("[Project]"), 0u);

    test::MakeFreshProject();
    ASSERT_EQ(ReadProjectFile(path).status, 1);
    EXPECT_EQ(gProject->RightScanCount(), 1);
    EXPECT_EQ(gProject->Customer(), "Green Line");
}

TEST_F(modProjectFileTest, AScanReferenceWithoutAPitchIsSavedAsNone) {
    const std::string path = temp->File("ref.cvpj");
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceSectionPitchIndex(0);
    gProject->SetReferenceConstantPitch(0);
    ASSERT_EQ(WriteProjectFile(path), 1);
    EXPECT_NE(test::FileBytes(path).find("ReferenceSource=None\r\n"), std::string::npos);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);

    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceSectionPitchIndex(1);
    gProject->SetReferenceVariablePitch(5, -1.0);
    ASSERT_EQ(WriteProjectFile(path), 1);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);

    // A usable one is saved with the blocks of the scan reference.
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceVariablePitch(5, 1.0);
    gProject->ReferenceScan()->SetDiameter(7.25);
    ASSERT_EQ(WriteProjectFile(path), 1);
    const std::string text = test::FileBytes(path);
    EXPECT_NE(text.find("ReferenceSource=InternalScan\r\n"), std::string::npos);
    EXPECT_NE(text.find("[ReferencePropeller]\r\nDiameter=7.25\r\n[ReferenceBlade1]"), std::string::npos);
}

TEST_F(modProjectFileTest, LineBreaksNeverLeaveTheirLine) {
    gProject->SetNotes("one\ntwo\rthree\r\nfour");
    gProject->SetCustomer("Blue\nBladeCount=99");
    const std::string path = temp->File("breaks.cvpj");
    ASSERT_EQ(WriteProjectFile(path), 1);
    EXPECT_NE(test::FileBytes(path).find("Notes=one|two|three|four\r\n"), std::string::npos);
    test::MakeFreshProject();
    ASSERT_EQ(ReadProjectFile(path).status, 1);
    EXPECT_EQ(gProject->Notes(), "one\r\ntwo\r\nthree\r\nfour");
    EXPECT_EQ(gProject->Customer(), "Blue BladeCount=99");
    EXPECT_EQ(gProject->BladeCount(), 4);
}

TEST_F(modProjectFileTest, UserNumbersUseTheUsersDecimalSeparator) {
    gDecimalChar = ',';
    gISO484->SetISOInnerRadius(25.5);
    gProject->SetCupExclusionDistance(1.25);
    const std::string path = temp->File("comma.cvpj");
    ASSERT_EQ(WriteProjectFile(path), 1);
    const std::string text = test::FileBytes(path);
    EXPECT_NE(text.find("InnerRadius=25,5\r\nCupExclusionDistance=1,25\r\n"), std::string::npos);
    test::MakeFreshProject();
    ASSERT_EQ(ReadProjectFile(path).status, 1);
    EXPECT_EQ(gISO484->ISOInnerRadius(), 25.5);
    EXPECT_EQ(gProject->CupExclusionDistance(), 1.25);
}

TEST_F(modProjectFileTest, AFileThatCannotBeWrittenGoesToTheHandlerAndLeavesNothing) {
    const std::string path = temp->File("missing-folder/p.cvpj");
    prompts.Expect(Answer::Retry, "writing the cvpj file to disk");
    prompts.Expect(Answer::Ignore, "writing the cvpj file to disk");
    EXPECT_EQ(WriteProjectFile(path), 0);
    EXPECT_FALSE(fs::exists(temp->Path() / "missing-folder"));

    // A folder where the file should be is left as it is.
    fs::create_directory(temp->Path() / "taken.cvpj");
    prompts.Expect(Answer::Ignore, "writing the cvpj file to disk");
    EXPECT_EQ(WriteProjectFile(temp->File("taken.cvpj")), 0);
    EXPECT_TRUE(fs::is_directory(temp->Path() / "taken.cvpj"));
}

} // namespace
} // namespace corvane
