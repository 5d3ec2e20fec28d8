#include "geometry/modPropellerProperties.h"
#include "PropertiesFixture.h"
#include "geometry/modISOPitch.h"

namespace corvane::test {
namespace {

void ExpectIdeal(const IdealScan& ideal, clsPropeller& scan) {
    double propellerPitch = 0.0;
    for (int slot = 0; slot < ideal.Count(); ++slot) {
        auto blade = scan.Blades(slot);
        EXPECT_DOUBLE_EQ(blade->GLPositionThetaDeg(), ideal.GL(slot));
        EXPECT_TRUE(SameAngle(blade->ISOEffectiveBladeAngleDeg(), ideal.Effective(slot)));
        for (int k = 0; k < 8; ++k) {
            ExpectIdealSection(ideal, scan, slot, k);
            EXPECT_TRUE(Near(blade->Section(k)->SegmentChord(), ideal.SegmentChord(slot, k), kExact));
        }
        EXPECT_TRUE(Near(blade->ISOBladePitch(), ideal.BladePitch(slot), kExact));
        EXPECT_TRUE(Near(blade->EffectivePitch(), ideal.EffectivePitch(slot), kExact));
        propellerPitch += ideal.BladePitch(slot) / ideal.Count();
    }
    EXPECT_TRUE(Near(scan.ISOPropellerPitch(), propellerPitch, kExact));
    EXPECT_DOUBLE_EQ(scan.Diameter(), ideal.prop.Diameter);
    EXPECT_EQ(scan.PitchOfRecord(), "2400");
}

using modPropellerPropertiesTest = PropertiesTest;

TEST_F(modPropellerPropertiesTest, IdealScansOfEitherHandAndEveryBladeCountGiveTheirOwnGeometry) {
    const std::vector<double> offsets = {0.0, 0.7, -0.4, 0.25, -0.9, 0.5, 0.15};
    const std::vector<double> factors = {1.0, 1.01, 0.985, 1.0, 1.02, 0.99, 1.005};
    for (bool radial : {false, true}) {
        for (std::int16_t rotation : {0, 1}) {
            for (std::int16_t n = 2; n <= 7; ++n) {
                SCOPED_TRACE(std::string(radial ? "radial pitch" : "constant pitch") + ", rotation " +
                             std::to_string(rotation) + ", blades " + std::to_string(n));
                clsVirtualPropeller prop = ShopPropeller(rotation, n);
                prop.BladeOffsetDeg = offsets;
                if (radial) {
                    prop.Pitch = {{0.3, 2000.0}, {0.95, 2600.0}};
                    prop.BladePitchFactor = factors;
                }
                auto stored = SweepProject(prop, 60);
                if (n >= 3) {
                    // Two sweeps of row 3 stored under each other's blade.
                    auto one = stored->Blades(1)->Section(3);
                    stored->Blades(1)->SetSection(3, stored->Blades(2)->Section(3));
                    stored->Blades(2)->SetSection(3, one);
                }
                auto scan = Check();
                ASSERT_TRUE(scan);
                EXPECT_TRUE(prompts.History().empty());
                ExpectIdeal(IdealScan{prop}, *scan);

                ASSERT_EQ(CalcIntegratedPropellerPitch(*scan), 1);
                double mean = 0.0;
                for (int slot = 0; slot < n; ++slot) {
                    mean += IdealScan{prop}.EffectivePitch(slot) / n;
                }
                EXPECT_TRUE(Near(scan->PitchMean(), mean, kExact));
            }
        }
    }
}

TEST_F(modPropellerPropertiesTest, QuantisedSweepsStayCloseToTheIdeal) {
    for (std::int16_t rotation : {0, 1}) {
        SCOPED_TRACE("rotation " + std::to_string(rotation));
        clsVirtualPropeller prop = ShopPropeller(rotation, 4);
        prop.BladeOffsetDeg = {0.0, 0.4, -0.2, 0.3};
        prop.AngleCountsPerRotation = 360000.0; // 0.001 degree
        prop.RadiusCountsPerMM = 100.0;
        prop.DropCountsPerMM = 100.0;
        SweepProject(prop, 800);
        auto scan = Check();
        ASSERT_TRUE(scan);
        const IdealScan ideal{prop};
        for (int slot = 0; slot < 4; ++slot) {
            for (int k = 0; k < 8; ++k) {
                SCOPED_TRACE("slot " + std::to_string(slot) + ", row " + std::to_string(k));
                auto section = scan->Blades(slot)->Section(k);
                EXPECT_TRUE(Near(scan->Blades(slot)->RadialPos(k), ideal.Q(k), 1e-5));
                EXPECT_TRUE(Near(scan->Blades(slot)->Pitch(k), ideal.P(slot, k), 1e-3));
                EXPECT_TRUE(Near(scan->Blades(slot)->Chord(k), ideal.Chord(k), 1e-3));
                EXPECT_TRUE(Near(scan->Blades(slot)->RakeAft(k), ideal.Rake(slot, k), 1e-3, 100.0));
                for (int j = 0; j < section->SegmentPanelCount(); ++j) {
                    EXPECT_TRUE(Near(section->SegmentPanelPitch(j), ideal.P(slot, k), 5e-3)) << "panel " << j;
                }
            }
        }
    }
}

TEST_F(modPropellerPropertiesTest, ExclusionDistancesTrimTheSegmentAlongTheHelix) {
    clsVirtualPropeller prop = ShopPropeller(1, 3);
    prop.SkewDeg = {{0.0, 0.0}};
    SweepProject(prop, 50);
    gProject->SetCupExclusionDistance(40.0);
    gProject->SetLEExclusionDistance(25.0);
    auto scan = Check();
    ASSERT_TRUE(scan);
    const IdealScan ideal{prop};
    for (int k = 0; k < 8; ++k) {
        // The exclusions are lengths along the helix: degrees = length * cos(beta) / r.
        const double r = ideal.R(k);
        const double cosBeta = 1.0 / std::sqrt(1.0 + std::pow(2400.0 / (2.0 * std::numbers::pi * r), 2));
        const double cup = 40.0 * cosBeta / r / gDegToRad;
        const double lead = 25.0 * cosBeta / r / gDegToRad;
        const double half = ideal.Span(0, k) / 2.0;
        auto section = scan->Blades(1)->Section(k);
        // Left hand: the trailing edge lies at +half, the leading edge at -half.
        EXPECT_NEAR(section->SegmentThetaTE(), half - cup, 1e-7);
        EXPECT_NEAR(section->SegmentThetaLE(), -half + lead, 1e-7);
        EXPECT_TRUE(Near(scan->Blades(1)->Pitch(k), 2400.0, kExact));
        EXPECT_TRUE(Near(section->SegmentPanelPitch(1), 2400.0, kExact));
    }

    // A cup zone longer than the section stops at the far end: nothing of the segment is left
    // (the blades' raw ends may differ in the last digits), and nothing goes out of bounds.
    gProject->SetCupExclusionDistance(5000.0);
    gProject->SetLEExclusionDistance(0.0);
    ASSERT_EQ(CalculatePropellerProperties(*scan, false, true), 1);
    for (int b = 0; b < 3; ++b) {
        for (int k = 0; k < 8; ++k) {
            auto section = scan->Blades(b)->Section(k);
            EXPECT_NEAR(section->SegmentThetaTE(), section->SegmentThetaLE(), 1e-9);
            EXPECT_LT(section->SegmentChord(), 1e-9);
            EXPECT_TRUE(std::isfinite(scan->Blades(b)->Pitch(k)));
            EXPECT_TRUE(std::isfinite(scan->Blades(b)->SkewHelix(k)));
        }
    }
    EXPECT_TRUE(prompts.History().empty());
}

} // namespace
} // namespace corvane::test
