#include "ISOEvaluationFixture.h"

#include <algorithm>

namespace corvane {
namespace {

class modISO484EvaluateTest : public test::ISOEvaluationTest {
protected:
    void SetUp() override {
        ISOEvaluationTest::SetUp();
        ISO().SetISOClassIndex(0);
        SetISOStandardAndTolerances(ISO(), Project()); // ISO 484-1, class S
    }

    double l = 0, u = 0, v = 0;
};

TEST_F(modISO484EvaluateTest, WithoutReferenceEveryWindowClosesOnTheValue) {
    Project().SetReferenceSourceIndex(0);
    ScanBlade(1).SetISOBladePitch(2222.0);
    TurnBlade(1, 3.0);
    ASSERT_EQ(EvaluateBladeMeanPitch(ISO(), Project(), 0, 1, l, u, v), 1);
    EXPECT_TRUE(l == 2222.0 && u == 2222.0 && v == 2222.0) << l << " " << u << " " << v;
    double toPrev = 0, toNext = 0;
    ASSERT_EQ(EvaluateBladeSpacing(ISO(), Project(), 0, 1, l, u, toPrev, toNext), 1);
    EXPECT_DOUBLE_EQ(l, (toPrev - toNext) / 2.0);
    EXPECT_EQ(l, u);
    RunChain(0, 1);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 0);
    EXPECT_TRUE(ISO().Results().Blades[1].BladeSpacing->Pass);
}

TEST_F(modISO484EvaluateTest, TargetsFollowTheReferenceSource) {
    // From another scan: the mean over the enabled reference blades; a disabled one is ignored.
    Project().SetReferenceSourceIndex(1);
    Reference().Blades(3)->SetBladeEnabled(false);
    Reference().Blades(3)->SetISOBladePitch(9999.0);
    Reference().Blades(3)->SetChord(2, 9999.0);
    Reference().Blades(0)->SetISOBladePitch(2060.0);
    ASSERT_EQ(EvaluateBladeMeanPitch(ISO(), Project(), 0, 1, l, u, v), 1);
    const double mean = (2060.0 + 2 * kPitch) / 3.0;
    EXPECT_DOUBLE_EQ((l + u) / 2.0, mean);
    EXPECT_NEAR(u - l, 2 * mean * 0.0075, 1e-9);
    ASSERT_EQ(EvaluateChordLength(ISO(), Project(), 0, 0, 2, l, u, v), 1);
    EXPECT_NEAR(u, kChord * 1.015, 1e-9);

    // Section pitch from the constant or the variable reference pitch.
    Project().SetReferenceConstantPitch(2100.0);
    Project().SetReferenceVariablePitch(2, 1900.0);
    ASSERT_EQ(EvaluateNoseTailPitch(ISO(), Project(), 0, 0, 2, l, u, v), 1);
    EXPECT_DOUBLE_EQ((l + u) / 2.0, 2100.0);
    Project().SetReferenceSectionPitchIndex(1);
    ASSERT_EQ(EvaluateNoseTailPitch(ISO(), Project(), 0, 0, 2, l, u, v), 1);
    EXPECT_DOUBLE_EQ((l + u) / 2.0, 1900.0);
    ASSERT_EQ(EvaluateLocalPitch(ISO(), Project(), 0, 0, 2, 1, l, u, v), 1);
    EXPECT_DOUBLE_EQ((l + u) / 2.0, 1900.0); // flat face: the section pitch
    Project().SetReferenceLocalPitchIndex(1);
    Reference().Blades(0)->Section(2)->SetSegmentPanelPitch(1, 2090.0);
    ASSERT_EQ(EvaluateLocalPitch(ISO(), Project(), 0, 0, 2, 1, l, u, v), 1);
    EXPECT_DOUBLE_EQ((l + u) / 2.0, (2090.0 + 2 * kPitch) / 3.0); // cambered face: measured panels

    // From a file: the reference blade of the same index, never a mean.
    Project().SetReferenceSourceIndex(2);
    ASSERT_EQ(EvaluateBladeMeanPitch(ISO(), Project(), 0, 0, l, u, v), 1);
    EXPECT_DOUBLE_EQ((l + u) / 2.0, 2060.0);
    ASSERT_EQ(EvaluateBladeMeanPitch(ISO(), Project(), 0, 3, l, u, v), 1);
    EXPECT_DOUBLE_EQ((l + u) / 2.0, 9999.0);
    Reference().Blades(2)->SetISOTotalAxialRakeToBCL(3, 50.0);
    ASSERT_EQ(EvaluateRakePosition(ISO(), Project(), 0, 2, 3, l, u, v), 1);
    EXPECT_DOUBLE_EQ(l, 50.0 - kDiameter * 0.005);
    EXPECT_DOUBLE_EQ(v, 30.0);
}

TEST_F(modISO484EvaluateTest, InnerSectionsGetHalfAgainOnPitchOnly) {
    ASSERT_EQ(EvaluateChordLength(ISO(), Project(), 0, 0, 6, l, u, v), 1);
    EXPECT_NEAR(u - l, 2 * kChord * 0.015, 1e-9); // no more for the chord
    ASSERT_EQ(EvaluateLocalPitch(ISO(), Project(), 0, 0, 7, 0, l, u, v), 1);
    EXPECT_NEAR(u - l, 2 * kPitch * 0.015 * 1.5, 1e-9);
    // 25 mm off: outside the 20 mm of r/R 0.5, inside the 30 mm of r/R 0.4.
    ScanBlade(0).SetPitch(5, kPitch + 25.0);
    ScanBlade(0).SetPitch(6, kPitch + 25.0);
    RunChain(0);
    EXPECT_FALSE(ISO().Results().Blades[0].Sections[5].NoseTailPitch.Pass);
    EXPECT_TRUE(ISO().Results().Blades[0].Sections[6].NoseTailPitch.Pass);
}

TEST_F(modISO484EvaluateTest, FloorsWidenOnlyUnderISO4842) {
    UsePropeller(1000.0, 500.0, 150.0);
    SetISOStandardAndTolerances(ISO(), Project()); // ISO 484-2 class S
    ASSERT_EQ(EvaluateChordLength(ISO(), Project(), 0, 0, 1, l, u, v), 1);
    EXPECT_NEAR(u - l, 2 * 7.0, 1e-9); // 1.5 % of 150 is 2.25 mm, raised to 7
    ASSERT_EQ(EvaluatePropellerMeanPitch(ISO(), Project(), 0, l, u, v), 1);
    EXPECT_NEAR(u - l, 2 * 4.0, 1e-9);
    // Rake has no floor: 0.5 % of the reference diameter.
    ASSERT_EQ(EvaluateRakePosition(ISO(), Project(), 0, 0, 1, l, u, v), 1);
    EXPECT_NEAR(u - l, 2 * 5.0, 1e-9);

    ISO().SetISOStandardIndex(0); // the same tolerances under ISO 484-1: no floor
    ASSERT_EQ(EvaluateChordLength(ISO(), Project(), 0, 0, 1, l, u, v), 1);
    EXPECT_NEAR(u - l, 2 * 2.25, 1e-9);
}

TEST_F(modISO484EvaluateTest, BoundsAreInclusive) {
    ISO().SetISOClassIndex(5);
    ISO().SetMeanPitchPerBladePercent(0.25);
    for (int b = 0; b < kBlades; ++b) {
        Reference().Blades(b)->SetISOBladePitch(1024.0);
    }
    ScanBlade(0).SetISOBladePitch(1280.0); // 1024 + 256, exactly the upper bound
    ScanBlade(1).SetISOBladePitch(768.0);  // exactly the lower bound
    ScanBlade(2).SetISOBladePitch(1280.5);
    RunChain(5);
    EXPECT_TRUE(ISO().Results().Blades[0].BladeMeanPitch.Pass);
    EXPECT_TRUE(ISO().Results().Blades[1].BladeMeanPitch.Pass);
    EXPECT_FALSE(ISO().Results().Blades[2].BladeMeanPitch.Pass);
    EXPECT_EQ(ISO().Results().Blades[2].BladeMeanPitch.Upper, 1280.0);
}

TEST_F(modISO484EvaluateTest, BladeSpacingIsTakenToTheMeasuredNeighbours) {
    // Blades stand at 0, 270, 180 and 90. An unswept blade keeps a stale angle of 0 that must
    // never be taken for a position.
    struct Case {
        const char* name;
        std::vector<int> unswept;
        double turn2; // degrees blade 2 is off its place
        int blade;
        double toPrev;
        double toNext;
    };
    const Case cases[] = {
        {"turned blade, both ways across 0", {}, 1.5, 2, -1.5, 1.5},
        {"turned blade seen from blade 0", {}, 1.5, 0, 0.0, 0.0},
        {"turned blade seen from blade 3", {}, 1.5, 3, 1.5, 0.0},
        {"gap after blade 0", {1}, 0.0, 0, 0.0, 0.0},
        {"gap before blade 2", {1}, 0.0, 2, 0.0, 0.0},
        {"gap, turned neighbour two slots on", {1}, 1.5, 0, 0.0, 1.5},
        {"two gaps", {1, 2}, 0.0, 3, 0.0, 0.0},
        {"alone", {1, 2, 3}, 0.0, 0, 0.0, 0.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        UsePropeller(kDiameter, kPitch, kChord);
        TurnBlade(2, c.turn2);
        for (int b : c.unswept) {
            ScanBlade(b).SetISOEffectiveBladeAngleDeg(0.0);
            for (int k = 0; k < kSections; ++k) {
                ScanBlade(b).Section(k)->SetRawOffsetCount(0);
            }
        }
        double toPrev = 99, toNext = 99;
        ASSERT_EQ(EvaluateBladeSpacing(ISO(), Project(), 0, c.blade, l, u, toPrev, toNext), 1);
        EXPECT_NEAR(toPrev, c.toPrev, 1e-9);
        EXPECT_NEAR(toNext, c.toNext, 1e-9);
        EXPECT_EQ(l, -1.0);
        EXPECT_EQ(u, 1.0);
        for (int b = 0; b < kBlades; ++b) {
            const bool unswept = std::find(c.unswept.begin(), c.unswept.end(), b) != c.unswept.end();
            EXPECT_EQ(TakesPartInSpacing(Project(), 0, b), !unswept) << "blade " << b;
        }
    }
}

TEST_F(modISO484EvaluateTest, LEPositionWindowIsCappedAndGivenAlongTheHelix) {
    double lLen = 0, uLen = 0, vLen = 0;
    ASSERT_EQ(EvaluateLEPosition(ISO(), Project(), 0, 1, 3, l, u, v, lLen, uLen, vLen), 1);
    const double radius = 0.7 * kDiameter / 2.0;
    const double arc = kHalfSpan * gDegToRad * radius;
    EXPECT_NEAR(v, arc, 1e-9);
    EXPECT_NEAR(u - l, 2 * 2 * 7.0, 1e-9); // 3000 / 4 * 1.5 % = 11.25 mm, capped at 7, doubled
    const double cosPhi = std::cos(std::atan2(kPitch, 2 * gPi * radius));
    EXPECT_NEAR(vLen, arc / cosPhi, 1e-6);
    EXPECT_NEAR(uLen, u / cosPhi, 1e-6);

    UsePropeller(1000.0, 500.0, 150.0);
    SetISOStandardAndTolerances(ISO(), Project());
    ASSERT_EQ(EvaluateLEPosition(ISO(), Project(), 0, 1, 3, l, u, v, lLen, uLen, vLen), 1);
    EXPECT_NEAR(u - l, 2 * 2 * 3.75, 1e-9); // below the cap, and not raised to it

    l = u = v = -1.0;
    ScanBlade(1).SetPitch(3, 0.0); // no helix: the routine gives up without a word
    EXPECT_EQ(EvaluateLEPosition(ISO(), Project(), 0, 1, 3, l, u, v, lLen, uLen, vLen), 0);
    EXPECT_EQ(v, -1.0);
}

TEST_F(modISO484EvaluateTest, CriteriaWalkRecordsEveryWindow) {
    ScanBlade(0).Section(2)->SetSegmentPanelPitch(3, kPitch * 1.02);
    ScanBlade(2).Section(7)->SetRawOffsetCount(1); // one point: not measured
    RunChain(0, 1);
    const ISOResults& r = ISO().Results();
    ASSERT_EQ(r.Blades.size(), 4u);
    const ISOSectionResults& s = r.Blades[0].Sections[2];
    ASSERT_EQ(s.LocalPitch.size(), 4u);
    EXPECT_TRUE(s.LocalPitch[2].Pass);
    EXPECT_FALSE(s.LocalPitch[3].Pass);
    EXPECT_DOUBLE_EQ(s.LocalPitch[3].Value, kPitch * 1.02);
    EXPECT_EQ(s.PitchContinuitySum.size(), 5u);
    EXPECT_EQ(s.DeltaRake.size(), 5u); // to rows 3 to 7
    EXPECT_EQ(s.DeltaRake.front().ToSection, 3);
    EXPECT_DOUBLE_EQ(s.DeltaRake.front().Position, (0.8 + 0.7) / 2.0);
    EXPECT_FALSE(r.Blades[2].Sections[7].Measured);
    // Blade 1 and blade 3 have no measured neighbour at row 7 on blade 2's side.
    EXPECT_FALSE(r.Blades[1].Sections[7].RakeToNextBlade.has_value());
    EXPECT_TRUE(r.Blades[1].Sections[7].RakeToPrevBlade.has_value());

    EXPECT_EQ(gISOStatus[kISOStatusGeneral], kISOCellNotApplicable);
    EXPECT_EQ(gISOStatus[kISOStatusLocalPitch], kISOCellFailed);
    EXPECT_EQ(gISOStatus[kISOStatusChord], kISOCellClear);
    EXPECT_EQ(gISOStatus[kISOStatusRakeBetweenBlades], kISOCellNotApplicable);
}

TEST_F(modISO484EvaluateTest, EvaluatorErrorsReachTheHandlerAndFailTheCriterion) {
    Project().SetReferenceSourceIndex(1);
    for (int b = 0; b < kBlades; ++b) {
        Reference().Blades(b)->SetBladeEnabled(false); // a reference of no blade at all
    }
    prompts.Expect(Answer::Ignore, "A mathematical error has occurred evaluating blade 2 mean pitch.");
    l = u = v = -1.0;
    EXPECT_EQ(EvaluateBladeMeanPitch(ISO(), Project(), 0, 1, l, u, v), 0);
    EXPECT_EQ(v, -1.0);
}

} // namespace
} // namespace corvane
