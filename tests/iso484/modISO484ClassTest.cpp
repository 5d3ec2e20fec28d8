#include "ISOEvaluationFixture.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

using test::ISOEvaluationTest;

using modISO484ClassTest = ISOEvaluationTest;

TEST_F(modISO484ClassTest, ISO4842FloorsPassASmallPropellerThatISO4841WouldFail) {
    UsePropeller(1000.0, 500.0, 200.0);
    ScanBlade(1).SetISOBladePitch(504.0); // 0.8 %: 3.75 mm allowed by the percentage, 5 by the floor
    ISO().SetISOClassIndex(0);
    SetISOStandardAndTolerances(ISO(), Project());
    ASSERT_EQ(ISO().ISOStandardIndex(), 1);
    EvaluateISOCriteria(Project(), ISO());
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 1);
    EXPECT_DOUBLE_EQ(ISO().Results().Blades[1].BladeMeanPitch.Upper, 505.0);

    clsISO484 large;
    large.SetLinkedClasses(units);
    SetISOLargeClassSTolerances(large);
    EXPECT_EQ(EvaluateClassStatus(Project(), large), 2);
    // The floor belongs to the standard, not to the table: ISO 484-1 ignores it even when set.
    large.SetMeanPitchPerBladeTol(5.0);
    EXPECT_EQ(EvaluateClassStatus(Project(), large), 2);
}

TEST_F(modISO484ClassTest, SectionsOutsideTheClassDoNotDecide) {
    ScanBlade(0).SetChord(0, kChord * 1.04); // r/R 0.95: required by classes S and 1 only
    RunChain(1);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 2);
    RunChain(3);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 1);
}

TEST_F(modISO484ClassTest, LocalPitchAndContinuityDecideExceptInClass3) {
    auto s = ScanBlade(2).Section(3); // r/R 0.7, required by every class
    s->SetSegmentPanelPitch(1, kPitch * 1.06);
    RunChain(3);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 2);
    RunChain(4);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 1);

    s->SetSegmentPanelPitch(1, kPitch);
    s->SetSegmentOffsetDeviationSum(2, 0.025); // beyond 2 % of class 1
    RunChain(1, 0);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 1); // primary criteria only
    RunChain(1, 1);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 2);
    ISOClassFlags flags;
    bool propellerOK = false;
    EXPECT_EQ(EvaluateClassPerBlade(Project(), ISO(), 0, ISOSelection{}, flags, propellerOK), 2);
    EXPECT_FALSE(flags[kISORowPitchContinuitySum][2]);
    EXPECT_TRUE(flags[kISORowPitchContinuityDiff][2]);
    EXPECT_TRUE(propellerOK);
}

TEST_F(modISO484ClassTest, RakeBetweenBladesAndProgressionNeverDecide) {
    // Each blade is inside its own rake window (15 mm in class S), but they differ by 20.
    ScanBlade(0).SetISOTotalAxialRakeToBCL(3, 30.0 + 10.0);
    ScanBlade(1).SetISOTotalAxialRakeToBCL(3, 30.0 - 10.0);
    RunChain(0, 1);
    EXPECT_EQ(EvaluateClassStatus(Project(), ISO()), 1);
    ISOClassFlags flags;
    bool propellerOK = false;
    EXPECT_EQ(EvaluateClassPerBlade(Project(), ISO(), 0, ISOSelection{}, flags, propellerOK), 1);
    EXPECT_FALSE(flags[kISORowRakeBetweenBlades][0]);
    EXPECT_TRUE(flags[kISORowRakeBetweenBlades][1]);
    EXPECT_TRUE(flags[kISORowRakePosition][0]);
    EXPECT_EQ(gISOStatus[kISOStatusRakeBetweenBlades], kISOCellFailed);

    ISOSelection selection;
    selection.blades[2] = false; // blade 1 is compared with a blade left out
    ScanBlade(1).SetISOTotalAxialRakeToBCL(3, 30.0);
    EXPECT_EQ(EvaluateClassPerBlade(Project(), ISO(), 0, selection, flags, propellerOK), 1);
    EXPECT_FALSE(flags[kISORowRakeBetweenBlades][1]);
}

TEST_F(modISO484ClassTest, EvaluationSentenceWordsStandardCriteriaAndClass) {
    clsISO484 iso;
    std::string standard, sentence;
    iso.SetISOStandardIndex(1);
    iso.SetISOCriteriaIndex(1);
    iso.SetISOClassIndex(2);
    GetEvaluationSentence(iso, standard, sentence, 2);
    EXPECT_EQ(standard, "ISO 484-2 Primary and Secondary");
    EXPECT_EQ(sentence, "Fails to meet Class 1a.");
    iso.SetISOClassIndex(5);
    GetEvaluationSentence(iso, standard, sentence, 1);
    EXPECT_EQ(sentence, "MEETS OR EXCEEDS CLASS CUSTOM.");
    GetEvaluationSentence(iso, standard, sentence, 4);
    EXPECT_EQ(sentence, "");
}

} // namespace
} // namespace corvane
