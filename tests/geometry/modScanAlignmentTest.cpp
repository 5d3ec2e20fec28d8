#include "geometry/modScanAlignment.h"
#include "ScanFixture.h"
#include "geometry/modEffectiveBladeAngle.h"

namespace corvane::test {
namespace {

using modScanAlignmentTest = ScanTest;

// The effective angles of whole sweeps are checked with the properties of virtual propellers;
// here the blade whose rows no other blade holds.
TEST_F(modScanAlignmentTest, WithoutACommonRowTheGLStandsInForTheEffectiveAngle) {
    auto scan = NewProject(0, 2);
    SetSweep(*scan, 0, 0, {350, 0, 10});
    SetSweep(*scan, 1, 1, {172, 194});
    scan->Blades(1)->SetGLPositionThetaDeg(180.0);
    scan->Blades(1)->SetISOEffectiveBladeAngleDeg(-7.0);
    double result = -1;
    ASSERT_EQ(CalcISOEffectiveBladeAngle(result, *scan, 1), 1);
    EXPECT_DOUBLE_EQ(result, 180.0);
    EXPECT_DOUBLE_EQ(scan->Blades(1)->ISOEffectiveBladeAngleDeg(), -7.0); // nothing stored
}

TEST_F(modScanAlignmentTest, ReviewFollowsEachBladeAndWindowsCrossZero) {
    // Three blades, half window 60. Slot 0 starts at 10 (window 310..70) and must take 350
    // from blade 1, then 20 from blade 2 around its new angle 350 (window 290..50).
    auto scan = NewProject(0, 3);
    SetSweep(*scan, 0, 7, {10, 30});
    SetSweep(*scan, 0, 6, {130, 150});
    SetSweep(*scan, 0, 5, {250, 270});
    SetSweep(*scan, 1, 7, {130, 150});
    SetSweep(*scan, 1, 6, {350, 10});
    SetSweep(*scan, 1, 5, {130, 150});
    SetSweep(*scan, 2, 7, {250, 270});
    SetSweep(*scan, 2, 6, {250, 270});
    SetSweep(*scan, 2, 5, {20, 40});
    ASSERT_EQ(ReviewScanSweepAssignments(*gProject, 0), 1);
    ASSERT_NE(gProject->PropellerScan(0), scan) << "a changed scan is replaced";
    const double expected[3][3] = {{10, 350, 20}, {130, 130, 130}, {250, 250, 250}};
    for (int b = 0; b < 3; ++b) {
        EXPECT_EQ(gProject->PropellerScan(0)->Blades(b)->SectionCount(), 8);
        for (int row = 7; row >= 5; --row) {
            EXPECT_DOUBLE_EQ(At(b, row)->ThetaDeg(0), expected[b][7 - row])
                << "blade " << b << " row " << row;
            EXPECT_EQ(At(b, row)->RawOffsetCount(), 2);
        }
        for (int row = 0; row < 5; ++row) {
            EXPECT_EQ(At(b, row)->RawOffsetCount(), 0);
        }
    }
}

TEST_F(modScanAlignmentTest, ReviewRepairsSwappedSweepsAlongASkewedBlade) {
    clsVirtualPropeller prop;
    prop.BladeCount = 4;
    prop.FirstBladeThetaDeg = 30;
    // The hub trailing edge lies 54 degrees from the tip one, beyond the half window of 45:
    // only a slot that follows its blade row by row keeps the hub sweeps.
    prop.SkewDeg = {{0.3, 70.0}, {0.95, 0.0}};
    auto scan = Sweep(prop);
    ASSERT_EQ(ReviewScanSweepAssignments(*gProject, 0), 1);
    EXPECT_EQ(gProject->PropellerScan(0), scan) << "nothing to repair, nothing replaced";

    auto wrong = scan->Blades(0)->Section(3);
    scan->Blades(0)->SetSection(3, scan->Blades(1)->Section(3));
    scan->Blades(1)->SetSection(3, wrong);
    ASSERT_EQ(ReviewScanSweepAssignments(*gProject, 0), 1);
    ASSERT_NE(gProject->PropellerScan(0), scan);
    for (int b = 0; b < 4; ++b) {
        for (int row = 0; row < 8; ++row) {
            const double te = prop.TrailingEdgeThetaDeg(b, kStandardRadialPositions[row]);
            EXPECT_TRUE(SameAngle(At(b, row)->ThetaDeg(0), te)) << "blade " << b << " row " << row;
        }
    }

    // A sweep of blade 1 stored under blade 0, blade 1's own slot left empty: it goes home and
    // blade 0 is left without that row.
    scan = gProject->PropellerScan(0);
    scan->Blades(0)->SetSection(2, scan->Blades(1)->Section(2)->CopyClass());
    scan->Blades(1)->Section(2)->SetRawOffsetCount(0);
    ASSERT_EQ(ReviewScanSweepAssignments(*gProject, 0), 1);
    EXPECT_EQ(At(0, 2)->RawOffsetCount(), 0);
    EXPECT_TRUE(SameAngle(At(1, 2)->ThetaDeg(0), prop.TrailingEdgeThetaDeg(1, 0.8)));
}

TEST_F(modScanAlignmentTest, ShiftMovesTheLiveArmWhenOneIsGiven) {
    clsVirtualPropeller prop;
    prop.BladeCount = 3;
    prop.FirstBladeThetaDeg = 20;
    prop.BladeOffsetDeg = {1.5};
    struct Arm : ILiveArm {
        std::vector<double> turns;
        void TurnFrame(double turn) override { turns.push_back(turn); }
    } arm;
    for (ILiveArm* live : {static_cast<ILiveArm*>(nullptr), static_cast<ILiveArm*>(&arm)}) {
        Sweep(prop);
        ASSERT_EQ(ShiftScanDataToGL(*gProject, 0, live), 1);
    }
    ASSERT_EQ(arm.turns.size(), 1u);
    EXPECT_TRUE(SameAngle(arm.turns[0], 21.5));
    EXPECT_TRUE(SameAngle(At(0, 0)->ThetaDeg(0), prop.TrailingEdgeThetaDeg(0, 0.95) - 21.5));
}

} // namespace
} // namespace corvane::test
