#include "files/modReferenceFile.h"

#include "ProjectFileTestSupport.h"
#include "model/Globals.h"

namespace corvane {
namespace {

using test::ProjectFileTest;

class modReferenceFileTest : public ProjectFileTest {
protected:
    // A reference of three blades; blade 0 has three sections, the middle one without panels.
    static clsPropeller ThreeBladeReference() {
        clsPropeller propeller;
        propeller.SetDiameter(1250.5);
        propeller.SetBladeCount(3);
        const auto blade = propeller.Blades(0);
        blade->SetSectionCount(3);
        for (int k = 0; k < 3; ++k) {
            blade->SetRadialPos(k, gRadialPositions[static_cast<std::size_t>(k)]);
            blade->SetChord(k, 310.25 - k);
            blade->SetPitch(k, 1100.5 + k);
            blade->SetSkewHelix(k, 12.5 - k);
            blade->SetRakeAft(k, 0.75 * k);
            if (k != 1) {
                blade->Section(k)->SetSegmentPanelPitchArray({1090.125, 1101.5, 1112.75 + k});
            }
        }
        propeller.Blades(1)->SetSectionCount(5);
        return propeller;
    }

    bool flag = false;
    std::string text;
};

TEST_F(modReferenceFileTest, RoundTripKeepsOneBladeOfSectionValues) {
    const std::string path = temp->File("design.cvrf");
    ASSERT_EQ(WriteReferenceBlocks(path, ThreeBladeReference(), flag, text), 1);
    EXPECT_EQ(test::FileBytes(path), test::Crlf(R"([ReferencePropeller]
Diameter=1250.5
[ReferenceBlade1]
SectionCount=3
[ReferenceBlade1Section1]
RadialPos=.95
Chord=310.25
Pitch=1100.5
SkewHelix=12.5
RakeAft=0
SegmentPanelCount=3
SegmentPanelPitch=1090.125,1101.5,1112.75
[ReferenceBlade1Section2]
RadialPos=.9
Chord=309.25
Pitch=1101.5
SkewHelix=11.5
RakeAft=.75
SegmentPanelCount=0
[ReferenceBlade1Section3]
RadialPos=.8
Chord=308.25
Pitch=1102.5
SkewHelix=10.5
RakeAft=1.5
SegmentPanelCount=3
SegmentPanelPitch=1090.125,1101.5,1114.75
)"));

    // Read back and written again, the file is the same: one blade, every value kept.
    clsPropeller read;
    ASSERT_EQ(ReadReferenceBlocks(path, read, flag, text), 1);
    EXPECT_FALSE(flag);
    EXPECT_EQ(read.BladeCount(), 1);
    const std::string again = temp->File("again.cvrf");
    ASSERT_EQ(WriteReferenceBlocks(again, read, flag, text), 1);
    EXPECT_EQ(test::FileBytes(again), test::FileBytes(path));
}

TEST_F(modReferenceFileTest, WritingReplacesItsBlocksAndKeepsTheOthers) {
    const std::string path =
        Put("kept.cvrf", "[Project]\nNotes=design notes\n[ReferencePropeller]\nDiameter=1\n");
    clsPropeller propeller;
    propeller.SetDiameter(2.5);
    propeller.Blades(0)->SetSectionCount(0);
    flag = true; // cleared at the start
    ASSERT_EQ(WriteReferenceBlocks(path, propeller, flag, text), 1);
    EXPECT_FALSE(flag);
    EXPECT_EQ(test::FileBytes(path),
              test::Crlf("[Project]\nNotes=design notes\n[ReferencePropeller]\nDiameter=2.5\n"
                         "[ReferenceBlade1]\nSectionCount=0\n"));
    // No sections: one blade and nothing else.
    clsPropeller read;
    read.SetBladeCount(4);
    ASSERT_EQ(ReadReferenceBlocks(path, read, flag, text), 1);
    EXPECT_EQ(read.BladeCount(), 1);
    EXPECT_EQ(read.Blades(0)->SectionCount(), 0);
}

TEST_F(modReferenceFileTest, ReadingFlagsWhatItCannotUse) {
    // No reference at all is no error, and the propeller stays as it is.
    clsPropeller propeller;
    propeller.SetDiameter(7.0);
    ASSERT_EQ(ReadReferenceBlocks(Put("none.cvrf", "[Project]\nNotes=x\n"), propeller, flag, text), 1);
    EXPECT_FALSE(flag);
    EXPECT_EQ(propeller.Diameter(), 7.0);
    EXPECT_EQ(propeller.BladeCount(), 2);

    // Panel pitches of the wrong length are dropped with the flag and no text.
    const std::string shortPanels = Put("short.cvrf", "[ReferencePropeller]\nDiameter=3\n[ReferenceBlade1]\n"
                                                      "SectionCount=1\n[ReferenceBlade1Section1]\nPitch=2.5\n"
                                                      "SegmentPanelCount=4\nSegmentPanelPitch=1,2,3\n");
    ASSERT_EQ(ReadReferenceBlocks(shortPanels, propeller, flag, text), 1);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "");
    EXPECT_EQ(propeller.Blades(0)->Pitch(0), 2.5);
    EXPECT_EQ(propeller.Blades(0)->Section(0)->SegmentPanelPitchArray(), std::vector<double>(4, 0.0));

    // A missing section block fails.
    flag = false;
    const std::string missing = Put("missing.cvrf", "[ReferencePropeller]\nDiameter=3\n[ReferenceBlade1]\n"
                                                    "SectionCount=2\n[ReferenceBlade1Section1]\nPitch=2.5\n");
    EXPECT_EQ(ReadReferenceBlocks(missing, propeller, flag, text), 0);
    EXPECT_TRUE(flag);
    EXPECT_EQ(text, "\r\nBlock ReferenceBlade1Section2 not found.");
}

TEST_F(modReferenceFileTest, LegacyBlocksBuildTheOtherBladesFromBladeZero) {
    const std::string path = Fixture("legacy-reference.cvrf");
    ASSERT_EQ(ReadLegacyReferenceBlocks(path, flag, text), 1);
    EXPECT_TRUE(flag); // AxialDropX of section 2 has three values for two points
    EXPECT_EQ(text, "");

    const clsPropeller& reference = *gProject->ReferenceSource();
    EXPECT_EQ(reference.Description(), "Design blade");
    EXPECT_EQ(reference.PitchOfRecord(), "1100 mm");
    EXPECT_EQ(reference.MaterialDescription(), "NiAl bronze");
    ASSERT_EQ(reference.BladeCount(), 3);
    const auto first = reference.Blades(0);
    EXPECT_EQ(first->BladeDiameter(), 1249.0);
    // The generator-line tags land crossed: the axial tag is blade 0's angle.
    EXPECT_EQ(first->GLPositionThetaDeg(), 30.0);
    EXPECT_EQ(first->GLPositionAxialX(), 0.0);
    EXPECT_EQ(first->Section(1)->AxialDropXArray(), (std::vector<double>{0, 0}));

    const std::vector<std::vector<double>> expectedTheta = {{95, 120, 110}, {215, 240, 230}};
    for (int b = 1; b < 3; ++b) {
        const auto blade = reference.Blades(b);
        EXPECT_EQ(blade->GLPositionThetaDeg(), b * 120.0);
        EXPECT_EQ(blade->GLPositionAxialX(), 0.0);
        EXPECT_EQ(blade->Section(0)->ThetaDegArray(), expectedTheta[static_cast<std::size_t>(b - 1)]);
        EXPECT_EQ(blade->Section(0)->RadiusArray(), first->Section(0)->RadiusArray());
        EXPECT_EQ(blade->Section(0)->AxialDropXArray(), first->Section(0)->AxialDropXArray());
    }
    // Building the copies leaves blade 0 as read.
    EXPECT_EQ(first->Section(0)->ThetaDegArray(), (std::vector<double>{-25, 0, 350}));
}

TEST_F(modReferenceFileTest, LegacyReaderExitsAndWhatTheyCollect) {
    EXPECT_EQ(ReadLegacyReferenceBlocks("", flag, text), 0);
    EXPECT_EQ(text, " No Filepath ");

    // Nothing to read is a success; a missing section block is not.
    flag = false;
    text.clear();
    EXPECT_EQ(ReadLegacyReferenceBlocks(Put("empty.cvrf", "[Other]\nX=1\n"), flag, text), 1);
    EXPECT_EQ(
        ReadLegacyReferenceBlocks(Put("cut.cvrf", "[ReferencePropeller]\nBladeCount=2\n[ReferenceBlade1]\n"
                                                  "SectionCount=1\n"),
                                  flag, text),
        0);
    EXPECT_EQ(text, "\r\nBlock ReferenceBlade1Section1 not found.");
}

TEST_F(modReferenceFileTest, LegacyBladesAreBuiltOnlyAsFarAsTheFileAccountsFor) {
    std::string text8;
    for (int k = 1; k <= 8; ++k) {
        std::string values = "1";
        for (int p = 1; p < 4000; ++p) {
            values += ",1";
        }
        text8 += "[ReferenceBlade1Section" + std::to_string(k) + "]\nRawOffsetCount=4000\nRadius=" + values +
                 "\nThetaDeg=" + values + "\nAxialDropX=" + values + "\n";
    }
    const std::string path = Put("many.cvrf", "[ReferencePropeller]\nBladeCount=30000\n[ReferenceBlade1]\n"
                                              "SectionCount=8\n" +
                                                  text8);
    ASSERT_EQ(ReadLegacyReferenceBlocks(path, flag, text), 1);
    const int blades = gProject->ReferenceSource()->BladeCount();
    EXPECT_GT(blades, 1);
    EXPECT_LT(blades, 100);
    EXPECT_EQ(text, "\r\n [BladeCount] tag [30000] reduced to " + std::to_string(blades) +
                        ": the file cannot hold that many blades.");
}

} // namespace
} // namespace corvane
