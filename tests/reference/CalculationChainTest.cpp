#include "ReferenceFixture.h"

#include "iso484/modISO484Criteria.h"

#include <gtest/gtest.h>

#include <vector>

namespace corvane::test {
namespace {

class CalculationChainTest : public ReferenceTest {
protected:
    // Geometry that records what the chain had done when it was asked for the scan's measures.
    ISOGeometrySteps Recording(std::int32_t status) {
        ISOGeometrySteps steps;
        steps.CalculatePropellerProperties = [this, status](clsPropeller&, bool, bool) {
            seenStatus = gISOStatus;
            seenStandard = gISO484->ISOStandardIndex();
            seenBladeTolerance = gISO484->MeanPitchPerBladePercent();
            ++calls;
            return status;
        };
        steps.CalculateReferenceProperties = [](std::int16_t& useRawEnds) { return useRawEnds == 0 ? 0 : 1; };
        steps.CalcLocalPitchDeviations = [](clsPropeller&, int, int, clsPropeller&) { return 1; };
        steps.CalcSectionAxialDrop = [](clsPropeller&, int, int, double, double& drop) {
            drop = 0.0;
            return 1;
        };
        return steps;
    }

    std::array<std::int16_t, kISOStatusCells> seenStatus{};
    std::int16_t seenStandard = -1;
    double seenBladeTolerance = -1.0;
    int calls = 0;
};

TEST_F(CalculationChainTest, ClearsAndSetsTheTolerancesBeforeCalculatingAndEvaluatesAfter) {
    ASSERT_TRUE(Measure(Small()));
    gProject->SetReferenceSourceIndex(1);
    gISO484->SetISOClassIndex(1);
    gISOStatus.fill(kISOCellFailed);
    ISOGeometryScope geometry(Recording(1));
    std::int16_t verdict = -1;
    ASSERT_EQ(RunISOEvaluationChain(verdict), 1);
    EXPECT_EQ(calls, 1);
    for (auto cell : seenStatus) {
        EXPECT_EQ(cell, kISOCellClear);
    }
    EXPECT_EQ(seenStandard, 1); // 1 m: ISO 484-2, chosen before the data were calculated
    EXPECT_DOUBLE_EQ(seenBladeTolerance, 0.01);
    // The reference did not calculate: dropped without a word, the scan evaluated alone.
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);
    EXPECT_EQ(verdict, 0);
    EXPECT_EQ(gISOStatus[kISOStatusGeneral], kISOCellNotApplicable);
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(CalculationChainTest, DataThatDoNotCalculateAreNotEvaluated) {
    ASSERT_TRUE(Measure(Shop()));
    gISOStatus.fill(kISOCellFailed);
    ISOGeometryScope geometry(Recording(0));
    std::int16_t verdict = -1;
    EXPECT_EQ(RunISOEvaluationChain(verdict), 0);
    EXPECT_EQ(verdict, 0);
    // Cleared, and then left alone: EvaluateISOCriteria would have set the general cell to 0.
    EXPECT_EQ(gISOStatus[kISOStatusGeneral], kISOCellClear);
}

TEST_F(CalculationChainTest, InstallingPutsTheGeometryBackOverStandIns) {
    ASSERT_TRUE(Measure(Shop()));
    gProject->SetReferenceSourceIndex(1);
    {
        ISOGeometryScope geometry(Recording(1));
        InstallCalculationSteps();
        InstallCalculationSteps(); // again: the same routines
        std::int16_t verdict = -1;
        ASSERT_EQ(RunISOEvaluationChain(verdict), 1);
        EXPECT_EQ(calls, 0);
        EXPECT_EQ(verdict, 1);
        EXPECT_EQ(gProject->ReferenceSourceIndex(), 1);
    }
    // With no steps at all the chain installs them itself.
    SetISOGeometrySteps({});
    SetPPPPipeline({});
    ASSERT_EQ(RunISOEvaluationChain(), 1);
    EXPECT_TRUE(static_cast<bool>(GetISOGeometrySteps().CalculateReferenceProperties));
    EXPECT_TRUE(static_cast<bool>(InstalledPPPPipeline().CalculateReferenceProperties));
}

} // namespace
} // namespace corvane::test
