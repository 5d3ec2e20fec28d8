#include "checkpage/ReferencePanel.h"
#include "reference/ReferenceFixture.h"

#include "model/modReferenceSource.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using test::ReferenceTest;

class ReferencePanelTest : public ReferenceTest {
protected:
    ReferencePanel panel;
};

TEST_F(ReferencePanelTest, EachSourceShowsItsOwnFields) {
    struct Case {
        int source;
        bool scan, blades, pitch, file;
    };
    const Case cases[] = {{kReferenceNone, false, false, false, false},
                          {kReferenceScan, true, true, true, false},
                          {kReferenceFile, false, false, false, true},
                          {kReferenceFilePitch, false, false, true, true}};
    for (const Case& c : cases) {
        const ReferencePanelFields f = FieldsForSource(c.source);
        EXPECT_EQ(f.scan, c.scan) << c.source;
        EXPECT_EQ(f.blades, c.blades) << c.source;
        EXPECT_EQ(f.pitch, c.pitch) << c.source;
        EXPECT_EQ(f.file, c.file) << c.source;
    }
}

TEST_F(ReferencePanelTest, KeepsTheTailFromAFolder) {
    EXPECT_EQ(ShortenedPath("/refs/a.cvrf", 20), "/refs/a.cvrf");
    EXPECT_EQ(ShortenedPath("/shop/references/2026/tug/prop.cvrf", 20), "...\\tug/prop.cvrf");
    EXPECT_EQ(ShortenedPath("/x/averyveryverylongname.cvrf", 12), "...\\ame.cvrf");
}

TEST_F(ReferencePanelTest, EditsWaitForApply) {
    ASSERT_TRUE(Measure(Shop()));
    panel.Load(*gProject);
    EXPECT_FALSE(panel.Pending());
    // Negative and unreadable distances leave the stored one and mark nothing.
    EXPECT_FALSE(panel.SetCupExclusion("-2"));
    EXPECT_FALSE(panel.SetLEExclusion("none"));
    EXPECT_FALSE(panel.Pending());
    EXPECT_TRUE(panel.SetCupExclusion("3.5"));
    panel.SetSource(kReferenceScan);
    EXPECT_TRUE(panel.Pending());
    EXPECT_EQ(gProject->ReferenceSourceIndex(), kReferenceNone);
    panel.Apply(*gProject);
    EXPECT_FALSE(panel.Pending());
    EXPECT_EQ(gProject->ReferenceSourceIndex(), kReferenceScan);
    EXPECT_DOUBLE_EQ(gProject->CupExclusionDistance(), 3.5);
}

TEST_F(ReferencePanelTest, SwitchingOffTheLastBladeOfTheAverageBringsBladeZeroBack) {
    ASSERT_TRUE(Measure(Shop()));
    panel.Load(*gProject);
    for (int b = 3; b >= 0; --b) {
        panel.SetAverageBlade(b, false);
    }
    const auto& blades = panel.Settings().averageBlades;
    EXPECT_TRUE(blades[0]);
    EXPECT_FALSE(blades[1] || blades[2] || blades[3]);
}

TEST_F(ReferencePanelTest, EstimateTakesTheMidRangeOfTheAveragedBlades) {
    clsVirtualPropeller prop = Shop();
    ASSERT_TRUE(Measure(prop, nullptr, [](clsPropeller& scan) {
        // Row 7 is never swept: its pitch keeps what was typed.
        for (int b = 0; b < scan.BladeCount(); ++b) {
            scan.Blades(b)->Section(7)->SetRawOffsetCount(0);
        }
    }));
    std::int16_t verdict = 0;
    ASSERT_EQ(RunISOEvaluationChain(*gProject, *gISO484, verdict), 1);
    panel.Load(*gProject);
    panel.SetPitchDefinition(0);
    panel.SetVariablePitch(7, 123);
    panel.SetPitchDefinition(1);
    panel.SetVariablePitch(0, 5); // locked in Auto
    panel.EstimatePitch(*gProject, *gISO484);
    const ReferencePanelSettings& s = panel.Settings();
    for (int row = 0; row < 7; ++row) {
        EXPECT_NEAR(s.variablePitch[static_cast<std::size_t>(row)], 2400, 24) << row;
    }
    EXPECT_DOUBLE_EQ(s.variablePitch[7], 123);
    EXPECT_NEAR(s.constantPitch, 2400, 24);
}

TEST_F(ReferencePanelTest, AFileOfAnotherTypeLeavesTheReferenceAtNone) {
    ASSERT_TRUE(Measure(Shop()));
    gProject->SetReferenceSourceIndex(kReferenceFile);
    gProject->SetReferenceSourceFilePath("/old.cvrf");
    prompts.Expect(1, "File type is not recognized.");
    const ReferenceFileRead read = ReadReferenceFileIntoProject(*gProject, temp->File("offsets.txt"));
    EXPECT_FALSE(read.read);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), kReferenceNone);
    EXPECT_EQ(gProject->ReferenceSourceFilePath(), "");
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].title, "Invalid File Type");
}

} // namespace
} // namespace corvane
