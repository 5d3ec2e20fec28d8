#include "model/clsCorvane.h"
#include "common/Fails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace corvane;
using corvane::test::Fails;
using testing::ElementsAre;

namespace {

class clsCorvaneTest : public testing::Test {
protected:
    void SetUp() override { project.SetLinkedClasses(units); }

    std::shared_ptr<clsUnits> units = std::make_shared<clsUnits>();
    clsCorvane project;
};

} // namespace

TEST_F(clsCorvaneTest, RotationIndexRoutesTheTwoSets) {
    project.SetRightScanCount(3);
    project.SetLeftScanCount(1);
    EXPECT_EQ(project.RotationIndex(), 0); // the named setters put it back
    EXPECT_EQ(project.PropellerScanCount(), 3);
    project.SetActiveScanIndex(2);
    EXPECT_EQ(project.PropellerScan(1), project.RightScan(1));

    project.SetRotationIndex(1);
    EXPECT_EQ(project.PropellerScanCount(), 1);
    EXPECT_EQ(project.PropellerScan(0), project.LeftScan(0));
    EXPECT_EQ(project.ActiveScanIndex(), 0);
    project.SetActiveScanIndex(0);
    EXPECT_THAT([&] { project.PropellerScan(1); }, Fails(ErrorNumber::SubscriptOutOfRange));

    project.SetRotationIndex(0);
    EXPECT_EQ(project.ActiveScanIndex(), 2);
    EXPECT_EQ(project.ActiveLeftScanIndex(), 0);

    auto mine = std::make_shared<clsPropeller>();
    project.SetPropellerScan(2, mine);
    EXPECT_EQ(project.RightScan(2), mine);
}

TEST_F(clsCorvaneTest, ScanCountResizeCopiesTheSet) {
    project.SetBladeCount(4);
    project.SetPropellerScanCount(2);
    EXPECT_EQ(project.PropellerScan(1)->BladeCount(), 4);
    const auto first = project.PropellerScan(0);
    first->SetDescription("first");
    first->Blades(3)->SetSectionCount(8);

    project.SetPropellerScanCount(0); // never empties a set
    project.SetPropellerScanCount(-1);
    EXPECT_EQ(project.PropellerScanCount(), 2);
    EXPECT_EQ(project.PropellerScan(0), first);

    project.SetPropellerScanCount(3);
    EXPECT_EQ(project.PropellerScanCount(), 3);
    EXPECT_NE(project.PropellerScan(0), first); // earlier references no longer belong
    EXPECT_EQ(project.PropellerScan(0)->Description(), "first");
    EXPECT_EQ(project.PropellerScan(0)->Blades(3)->SectionCount(), 8);
    EXPECT_EQ(project.PropellerScan(2)->BladeCount(), 4);
    EXPECT_EQ(project.LeftScanCount(), 0);
}

TEST_F(clsCorvaneTest, BladeCountReachesOnlyTheSelectedSet) {
    project.SetRightScanCount(2);
    project.SetLeftScanCount(2);
    project.SetReferenceScanBladesEnabled(1, 1);

    project.SetBladeCount(5);
    EXPECT_EQ(project.RightScan(0)->BladeCount(), 5);
    EXPECT_EQ(project.RightScan(1)->BladeCount(), 5);
    EXPECT_EQ(project.LeftScan(0)->BladeCount(), 2);
    EXPECT_EQ(project.ReferenceScanBladesEnabled(1), 1); // kept
    EXPECT_EQ(project.ReferenceScanBladesEnabled(4), 0);

    project.SetBladeCount(0);
    EXPECT_EQ(project.BladeCount(), 0);
    EXPECT_EQ(project.RightScan(0)->BladeCount(), 2);
    EXPECT_EQ(project.ReferenceScanBladesEnabled(0), 0);
    EXPECT_THAT([&] { project.ReferenceScanBladesEnabled(1); }, Fails(ErrorNumber::SubscriptOutOfRange));
}

TEST_F(clsCorvaneTest, RemoveAndClearScans) {
    EXPECT_EQ(project.RemovePropellerScan(0), 0); // empty set: nothing to do
    EXPECT_EQ(project.ClearPropellerScanData(0), 0);

    project.SetPropellerScanCount(3);
    for (std::int16_t i = 0; i < 3; ++i) {
        project.PropellerScan(i)->SetScanID(i);
    }
    project.PropellerScan(2)->SetBladeCount(3);
    EXPECT_EQ(project.RemovePropellerScan(1), 0);
    EXPECT_EQ(project.PropellerScanCount(), 2);
    EXPECT_EQ(project.PropellerScan(0)->ScanID(), 0);
    EXPECT_EQ(project.PropellerScan(1)->ScanID(), 2);
    EXPECT_EQ(project.PropellerScan(1)->BladeCount(), 3); // survivors keep their own blades
    EXPECT_THAT([&] { project.RemovePropellerScan(2); }, Fails(ErrorNumber::SubscriptOutOfRange));

    const auto scan = project.PropellerScan(1);
    scan->SetScanSource("USB4");
    scan->Blades(0)->SetSectionCount(8);
    EXPECT_EQ(project.ClearPropellerScanData(2), 0);
    EXPECT_EQ(project.ClearPropellerScanData(1), 1);
    EXPECT_EQ(scan->Blades(0)->SectionCount(), 0);
    EXPECT_EQ(scan->ScanSource(), "USB4");

    // The last scan of a set stays.
    project.RemovePropellerScan(0);
    const auto last = project.PropellerScan(0);
    EXPECT_EQ(project.RemovePropellerScan(0), 0);
    EXPECT_EQ(project.PropellerScanCount(), 1);
    EXPECT_EQ(project.PropellerScan(0), last);
}

TEST_F(clsCorvaneTest, InternalScanIndexFollowsOrStaysLocked) {
    project.SetInternalScanIndex(1);
    project.SetActiveScanIndex(3);
    EXPECT_EQ(project.InternalScanIndex(), 3);
    project.SetInternalScanSourceIndex(1);
    project.SetActiveScanIndex(0);
    EXPECT_EQ(project.InternalScanIndex(), 1);
    EXPECT_EQ(project.InternalScanSourceLabel(), "Locked");
}

TEST_F(clsCorvaneTest, LengthsConvertThroughTheLinkedUnits) {
    units->SetPropLengthIndex(2); // inches
    project.SetMarkedDiameter(40.0);
    EXPECT_DOUBLE_EQ(project.MarkedDiameter(3), 40.0 * 25.4);
    project.SetCupExclusionDistance(25.4, 3);
    EXPECT_DOUBLE_EQ(project.CupExclusionDistance(), 1.0);
    // A unit other than -1 reads the diameter, not the pitch.
    project.SetReferenceDiameter(48.0);
    project.SetReferenceConstantPitch(1.0, 0);
    EXPECT_DOUBLE_EQ(project.ReferenceConstantPitch(), 12.0);
    EXPECT_DOUBLE_EQ(project.ReferenceConstantPitch(2), 48.0);

    clsCorvane unlinked;
    unlinked.SetMarkedDiameter(3.0);
    EXPECT_DOUBLE_EQ(unlinked.MarkedDiameter(), 3.0);
    EXPECT_THAT([&] { unlinked.MarkedDiameter(1); }, Fails(91));
}
