#include "PropertiesFixture.h"
#include "geometry/modISOPitch.h"

namespace corvane::test {
namespace {

using modPropellerPropertiesRobustTest = PropertiesTest;

const char* const kInsertError =
    "An error occurred inserting points into the raw data curves. Please check the data and try again.";

void ExpectUnmeasured(clsPropeller& scan, int slot, int row) {
    SCOPED_TRACE("slot " + std::to_string(slot) + ", row " + std::to_string(row));
    auto blade = scan.Blades(slot);
    EXPECT_LE(blade->Section(row)->RawOffsetCount(), 1);
    EXPECT_EQ(blade->SkewHelix(row), 0.0);
    EXPECT_EQ(blade->Pitch(row), 0.0);
    EXPECT_EQ(blade->Section(row)->SegmentPanelCount(), 0);
}

// A sweep of one point, one whose points all share an angle, one swept backwards from the
// leading edge: the check leaves each with a single point, which is not measured, and the rows
// they sit in drop out of every blade's effective angle, though only after the scan was turned.
TEST_F(modPropellerPropertiesRobustTest, DegenerateSweepsAreLeftOutOfEveryMeasure) {
    for (std::int16_t rotation : {0, 1}) {
        SCOPED_TRACE("rotation " + std::to_string(rotation));
        clsVirtualPropeller prop = ShopPropeller(rotation, 4);
        prop.BladeOffsetDeg = {0.0, 0.5, -0.3, 0.2};
        auto stored = SweepProject(prop, 30);
        stored->Blades(1)->Section(2)->SetRawOffsetCount(1);
        auto still = stored->Blades(2)->Section(5);
        for (int i = 0; i < 30; ++i) {
            still->SetThetaDeg(i, still->ThetaDeg(0));
        }
        auto back = stored->Blades(3)->Section(0);
        const auto reversed = [](std::vector<double> v) { return std::vector<double>(v.rbegin(), v.rend()); };
        back->SetRadiusArray(reversed(back->RadiusArray()));
        back->SetThetaDegArray(reversed(back->ThetaDegArray()));
        back->SetAxialDropXArray(reversed(back->AxialDropXArray()));
        auto scan = Check();
        ASSERT_TRUE(scan);
        EXPECT_TRUE(prompts.History().empty());
        ExpectAllFinite(*scan);

        IdealScan ideal{prop};
        ideal.shiftRows = {0, 1, 3, 4, 5, 6, 7};
        ideal.commonRows = {1, 3, 4, 6, 7};
        // Virtual blades 1, 2, 3 sit in slots 3, 2, 1.
        ExpectUnmeasured(*scan, 3, 2);
        ExpectUnmeasured(*scan, 2, 5);
        ExpectUnmeasured(*scan, 1, 0);
        for (int slot = 0; slot < 4; ++slot) {
            EXPECT_TRUE(SameAngle(scan->Blades(slot)->ISOEffectiveBladeAngleDeg(), ideal.Effective(slot)));
            for (int k = 0; k < 8; ++k) {
                if (scan->Blades(slot)->Section(k)->RawOffsetCount() > 1) {
                    ExpectIdealSection(ideal, *scan, slot, k);
                }
            }
            EXPECT_TRUE(Near(scan->Blades(slot)->ISOBladePitch(), 2400.0, kExact));
            EXPECT_TRUE(Near(scan->Blades(slot)->EffectivePitch(), 2400.0, kExact));
        }
    }
}

TEST_F(modPropellerPropertiesRobustTest, ZeroPitchFallsToTheFlatMeasures) {
    for (std::int16_t rotation : {0, 1}) {
        SCOPED_TRACE("rotation " + std::to_string(rotation));
        clsVirtualPropeller prop = ShopPropeller(rotation, 3);
        prop.Pitch = {{0.0, 0.0}};
        SweepProject(prop, 30);
        auto scan = Check();
        ASSERT_TRUE(scan);
        ExpectAllFinite(*scan);
        const IdealScan ideal{prop};
        const double mean = ideal.MeanSkew(ideal.commonRows);
        for (int slot = 0; slot < 3; ++slot) {
            auto blade = scan->Blades(slot);
            for (int k = 0; k < 8; ++k) {
                // The ends of a flat sweep are read back to the last digit or so, not exactly.
                EXPECT_NEAR(blade->Pitch(k), 0.0, 1e-9);
                EXPECT_TRUE(Near(blade->Chord(k), ideal.Chord(k), kExact));
                // The flat skew is the plain mean arc, not negated and without the hand's sign.
                EXPECT_TRUE(Near(blade->SkewHelix(k),
                                 ideal.Sense() * (ideal.Skew(k) - mean) * gDegToRad * ideal.R(k), kExact,
                                 ideal.R(k)));
                EXPECT_TRUE(
                    Near(blade->RakeAft(k), prop.GLDrop + prop.At(prop.Rake, ideal.Q(k)), kExact, 100.0));
                for (int j = 0; j < blade->Section(k)->SegmentPanelCount(); ++j) {
                    EXPECT_NEAR(blade->Section(k)->SegmentPanelPitch(j), 0.0, 1e-9);
                }
            }
            EXPECT_NEAR(blade->ISOBladePitch(), 0.0, 1e-9);
            EXPECT_NEAR(blade->EffectivePitch(), 0.0, 1e-9);
        }
        EXPECT_NEAR(scan->ISOPropellerPitch(), 0.0, 1e-9);
        EXPECT_TRUE(prompts.History().empty());

        // The exclusion zones need a nose-tail pitch to turn lengths into angles: without one the
        // calculation stops, and nothing is said.
        gProject->SetCupExclusionDistance(10.0);
        EXPECT_EQ(CalculatePropellerProperties(*scan, false, true), 0);
        EXPECT_TRUE(prompts.History().empty());
    }
}

TEST_F(modPropellerPropertiesRobustTest, ASectionOnOneBladeHasTheSegmentOfThatBlade) {
    clsVirtualPropeller prop = ShopPropeller(0, 4);
    prop.BladeOffsetDeg = {0.0, 0.5, -0.3, 0.2};
    auto stored = SweepProject(prop, 30);
    for (int b = 1; b < 4; ++b) {
        stored->Blades(b)->Section(7)->SetRawOffsetCount(0);
    }
    auto scan = Check();
    ASSERT_TRUE(scan);
    IdealScan ideal{prop};
    ideal.shiftRows = ideal.commonRows = {0, 1, 2, 3, 4, 5, 6};
    auto section = scan->Blades(0)->Section(7);
    EXPECT_NEAR(section->SegmentThetaTE(), section->RawThetaTE(), 1e-12);
    EXPECT_NEAR(section->SegmentThetaLE(), section->RawThetaLE(), 1e-12);
    EXPECT_TRUE(Near(section->SegmentChord(), ideal.Chord(7), kExact));
    for (int slot = 0; slot < 4; ++slot) {
        for (int k = 0; k < 7; ++k) {
            ExpectIdealSection(ideal, *scan, slot, k);
        }
    }
    ExpectIdealSection(ideal, *scan, 0, 7);
    for (int slot = 1; slot < 4; ++slot) {
        ExpectUnmeasured(*scan, slot, 7);
    }
    ExpectAllFinite(*scan);
}

// A blade without a sweep takes no part in placing the others: the swept blades are turned and
// renumbered by where they stand and measured as if the missing blade were not there, and the
// empty blade takes the slot where a blade is missing. As on the demo propeller, the virtual
// blades stand in the sense of rotation, the reverse of the slot order, so the empty blade does
// not keep its number; kept in place, its slot's GL would lie half a turn from a swept blade.
TEST_F(modPropellerPropertiesRobustTest, ABladeWithoutSectionsIsAskedAboutAndLeftEmpty) {
    struct Case {
        std::int16_t rotation;
        int empty;
        const char* question;
    };
    for (const Case c : {Case{0, 3, "Blade 2 has no sections. Do you wish to proceed?"},
                         Case{1, 1, "Blade 4 has no sections. Do you wish to proceed?"},
                         Case{0, 2, "Blade 3 has no sections. Do you wish to proceed?"}}) {
        SCOPED_TRACE("rotation " + std::to_string(c.rotation) + ", empty " + std::to_string(c.empty));
        prompts.Clear();
        clsVirtualPropeller prop = ShopPropeller(c.rotation, 4);
        prop.BladeOffsetDeg = {0.0, 0.5, -0.3, 0.2};
        // The ideal segment is the one the swept blades share.
        prop.BladeOffsetDeg[static_cast<std::size_t>(c.empty)] = 0.0;
        auto stored = SweepProject(prop, 30);
        for (int k = 0; k < 8; ++k) {
            stored->Blades(c.empty)->Section(k)->SetRawOffsetCount(0);
        }
        prompts.Expect(Answer::Yes, c.question);
        auto scan = Check();
        ASSERT_TRUE(scan);
        ASSERT_EQ(prompts.History().size(), 1u);
        EXPECT_EQ(prompts.History()[0].title, "Scan Data Warning...");
        ExpectAllFinite(*scan);

        const IdealScan ideal{prop};
        const int gap = (4 - c.empty) % 4;
        for (int slot = 0; slot < 4; ++slot) {
            auto blade = scan->Blades(slot);
            EXPECT_TRUE(SameAngle(blade->GLPositionThetaDeg(), ideal.GL(slot)));
            for (int k = 0; k < 8; ++k) {
                if (slot == gap) {
                    ExpectUnmeasured(*scan, slot, k);
                } else {
                    ExpectIdealSection(ideal, *scan, slot, k);
                }
            }
            if (slot != gap) {
                EXPECT_TRUE(SameAngle(blade->ISOEffectiveBladeAngleDeg(), ideal.Effective(slot)));
                EXPECT_TRUE(Near(blade->ISOBladePitch(), 2400.0, kExact));
            }
        }
        EXPECT_TRUE(Near(scan->ISOPropellerPitch(), 2400.0, kExact));
        // The empty blade's pitch of 0 does not count in the mean.
        ASSERT_EQ(CalcIntegratedPropellerPitch(*scan), 1);
        EXPECT_TRUE(Near(scan->PitchMean(), 2400.0, kExact));
    }
}

TEST_F(modPropellerPropertiesRobustTest, BladesWithoutACommonSegmentCannotBeResampled) {
    clsVirtualPropeller prop = ShopPropeller(0, 2);
    prop.BladeOffsetDeg = {0.0, 60.0}; // further off than any section is wide
    SweepProject(prop, 30);
    prompts.Expect(Answer::OK, kInsertError);
    auto scan = Check(0);
    ASSERT_TRUE(scan);
    ASSERT_EQ(prompts.History().size(), 1u);
    ExpectShown(prompts.History()[0], kInsertError, "Error calculating propeller properties",
                MsgBox::OKOnly | MsgBox::Critical);
}

TEST_F(modPropellerPropertiesRobustTest, FailuresNameTheScanBladeAndSection) {
    clsVirtualPropeller prop = ShopPropeller(0, 3);
    SweepProject(prop, 30);
    auto scan = Check();
    ASSERT_TRUE(scan);

    // Row 7's standard radius of 0 cannot unroll a section.
    scan->SetScanID(27);
    gRadialPositions[7] = 0.0;
    prompts.Expect(Answer::Ignore, "mathematical error");
    prompts.Expect(Answer::OK, "local pitch segments");
    EXPECT_EQ(CalculatePropellerProperties(*scan, false, true), 0);
    ASSERT_EQ(prompts.History().size(), 2u);
    ExpectShown(prompts.History()[1],
                "An error occurred calculating local pitch segments from the Scan data (Scan: AB, Blade: 1, "
                "Section: 0.3).",
                "Scan Data Error", MsgBox::OKOnly | MsgBox::Exclamation);
    gRadialPositions[7] = 0.3;

    // Without a diameter the section measures divide by zero.
    prompts.Clear();
    gProject->SetMarkedDiameter(0.0);
    prompts.Expect(Answer::Ignore, "mathematical error");
    prompts.Expect(Answer::OK, "section properties");
    EXPECT_EQ(CalculatePropellerProperties(*scan, false, true), 0);
    ASSERT_EQ(prompts.History().size(), 2u);
    ExpectShown(prompts.History()[1],
                "An error occurred calculating section properties from the Scan data (Scan: AB, Blade: 1, "
                "Section: 0.95).",
                "Scan Data Error", MsgBox::OKOnly | MsgBox::Exclamation);

    // Blades of one section have no ISO blade pitch.
    prompts.Clear();
    gProject->SetMarkedDiameter(prop.Diameter);
    for (int b = 0; b < 3; ++b) {
        scan->Blades(b)->SetSectionCount(1);
    }
    scan->SetScanID(702);
    prompts.Expect(Answer::OK, "ISO blade pitch");
    EXPECT_EQ(CalculatePropellerProperties(*scan, false, true), 0);
    ASSERT_EQ(prompts.History().size(), 1u);
    ExpectShown(prompts.History()[0],
                "An error occurred calculating ISO blade pitch from the Scan data (Scan: 702).",
                "Scan Data Error", MsgBox::OKOnly | MsgBox::Exclamation);
}

} // namespace
} // namespace corvane::test
