#include "ISOEvaluationFixture.h"

#include "iso484/modISO484.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvane {
namespace {

using testing::ElementsAre;
using testing::Pair;

class ISODataTest : public test::ISOEvaluationTest {
protected:
    std::int32_t Calculate() {
        std::int16_t useRawEnds = 0;
        return CalculateAllISOData(useRawEnds);
    }
};

TEST_F(ISODataTest, SwitchesOnMeasuredBladesAndNeverOff) {
    ScanBlade(1).SetBladeEnabled(false);
    for (int k = 0; k < kSections; ++k) {
        ScanBlade(2).Section(k)->SetRawOffsetCount(k == 4 ? 1 : 0); // nothing but one point
    }
    ScanBlade(2).SetBladeEnabled(true);
    ScanBlade(3).SetBladeEnabled(false);
    for (int k = 0; k < kSections; ++k) {
        ScanBlade(3).Section(k)->SetRawOffsetCount(0);
    }
    EXPECT_EQ(Calculate(), 1);
    EXPECT_TRUE(ScanBlade(1).BladeEnabled());
    EXPECT_TRUE(ScanBlade(2).BladeEnabled());
    EXPECT_FALSE(ScanBlade(3).BladeEnabled());
    EXPECT_EQ(propertiesCalls, 1);
    EXPECT_FALSE(lastPanelMode);
    EXPECT_TRUE(lastSetLimits);
}

TEST_F(ISODataTest, WithReferenceComparesSectionsMeasuredOnBoth) {
    for (int b = 0; b < kBlades; ++b) {
        for (int k = 0; k < kSections; ++k) {
            if (b != 1 || k != 2) {
                ScanBlade(b).Section(k)->SetRawOffsetCount(k == 0 ? 2 : 0);
            }
        }
    }
    Reference().Blades(3)->Section(0)->SetRawOffsetCount(1);
    Reference().Blades(1)->SetISOTotalThetaDegToBCL(2, 271.25);
    EXPECT_EQ(Calculate(), 1);
    EXPECT_THAT(deviationCalls, ElementsAre(Pair(0, 0), Pair(1, 0), Pair(1, 2), Pair(2, 0)));
    ASSERT_EQ(dropAngles.size(), 4u);
    EXPECT_EQ(dropAngles[2], 271.25); // the scan's rake is taken at the reference's BCL
}

TEST_F(ISODataTest, WithoutReferenceTheBCLIsTheMidAngleOfTheRawEnds) {
    Project().SetReferenceSourceIndex(0);
    auto s = ScanBlade(0).Section(1);
    s->SetThetaDegArray({350.0, 5.0, 14.0}); // across 0/360 about a GL at 0
    ScanBlade(0).SetGLPositionThetaDeg(0.0);
    EXPECT_EQ(Calculate(), 1);
    EXPECT_TRUE(deviationCalls.empty());
    EXPECT_DOUBLE_EQ(ScanBlade(0).ISOTotalThetaDegToBCL(1), 2.0);
    EXPECT_DOUBLE_EQ(ScanBlade(1).ISOTotalThetaDegToBCL(1), 270.0);
    EXPECT_EQ(dropAngles.size(), static_cast<std::size_t>(kBlades * kSections));
}

TEST_F(ISODataTest, AnUnusableReferenceSilentlyLeavesTheScanOnItsOwn) {
    referenceStatus = 0;
    EXPECT_EQ(Calculate(), 1);
    EXPECT_EQ(Project().ReferenceSourceIndex(), 0);
    EXPECT_TRUE(deviationCalls.empty());

    referenceStatus = 1;
    Project().SetReferenceSourceIndex(1);
    Project().SetReferenceScan(nullptr);
    EXPECT_EQ(Calculate(), 1);
    EXPECT_EQ(Project().ReferenceSourceIndex(), 0);
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(ISODataTest, FailuresEndTheCalculation) {
    propertiesStatus = 0; // the geometry has told the user itself
    EXPECT_EQ(Calculate(), 0);
    EXPECT_TRUE(deviationCalls.empty());

    propertiesStatus = 1;
    deviationStatus = 0;
    prompts.Expect(Answer::OK, "An error occurred calculating pitch deviations from the reference data.");
    EXPECT_EQ(Calculate(), 0);
    EXPECT_EQ(deviationCalls.size(), 1u);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].title, "Scan Data Error");
    EXPECT_EQ(prompts.History()[0].style, MsgBox::OKOnly | MsgBox::Exclamation);
}

TEST_F(ISODataTest, MissingGeometryReachesTheHandler) {
    ISOGeometryScope none{ISOGeometrySteps{}};
    prompts.Expect(Answer::Ignore, "calculating all ISO data");
    EXPECT_EQ(Calculate(), 0);
}

} // namespace
} // namespace corvane
