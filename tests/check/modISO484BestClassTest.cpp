#include "iso484/ISOEvaluationFixture.h"

#include "check/modISO484BestClass.h"

#include <gmock/gmock.h>

namespace corvane {
namespace {

using test::ISOEvaluationTest;
using testing::Each;

// The class search over the hand-built results: the data step keeps them as they stand.
class modISO484BestClassTest : public ISOEvaluationTest {
protected:
    static std::int32_t KeepResults(clsCorvane&, std::int16_t&) {
        ++dataSteps;
        return 1;
    }

    std::int16_t BestClass(std::int16_t classIndex, std::int16_t criteria = 0) {
        RunChain(classIndex, criteria);
        return Search();
    }

    std::int16_t Search(bool belowLimit = false) {
        propellerCode = -1;
        return GetBestISOClass(Project(), ISO(), 0, selection, belowLimit, codes, propellerCode,
                               &KeepResults);
    }

    ISOSelection selection;
    static inline int dataSteps = 0;
};

// Each fault lands in the class whose tolerance it first fits, on its own blade and row only.
TEST_F(modISO484BestClassTest, FaultsLandInTheClassTheirToleranceAllows) {
    // Blade mean pitch 1.2 % off: beyond S (0.75 %) and 1 (1 %), within 2 (1.5 %).
    ScanBlade(1).SetISOBladePitch(kPitch * 1.012);
    // Blade 2 turned 1.5 degrees: beyond 1 degree (S, 1), within 2 (classes 2, 3).
    TurnBlade(2, 1.5);
    // Rake 40 mm off at r/R 0.7: beyond 15 (S) and 30 (1), within 45 (2).
    ScanBlade(0).SetISOTotalAxialRakeToBCL(3, 30.0 + 40.0);
    // Chord 14 mm long at r/R 0.9: beyond 12 (S, 1.5 %), within 16 (1, 2 %).
    ScanBlade(3).SetChord(1, kChord + 14.0);

    EXPECT_EQ(BestClass(1), 2);
    EXPECT_EQ(Code(kISORowBladeMeanPitch, 1), 3);
    EXPECT_EQ(Code(kISORowBladeMeanPitch, 0), 0);
    EXPECT_EQ(Code(kISORowBladeSpacing, 2), 3);
    // The neighbours see half the error on each side: 0.75 degrees is inside class S.
    EXPECT_EQ(Code(kISORowBladeSpacing, 1), 0);
    EXPECT_EQ(Code(kISORowBladeSpacing, 3), 0);
    EXPECT_EQ(Code(kISORowRakePosition, 0), 3);
    EXPECT_EQ(Code(kISORowRakePosition, 1), 0);
    EXPECT_EQ(Code(kISORowChordLength, 3), 1);
    EXPECT_EQ(Code(kISORowChordLength, 2), 0);
    EXPECT_EQ(Code(kISORowOverall, 1), 0); // the blade row as a whole is never failed
    EXPECT_EQ(propellerCode, 0);

    std::string standard, sentence;
    GetEvaluationSentence(ISO(), standard, sentence, 2);
    EXPECT_EQ(standard, "ISO 484-1  Primary");
    EXPECT_EQ(sentence, "Fails to meet Class 1.");
    // Class 2 is what every fault allows: the verdict for it is a pass.
    EXPECT_EQ(BestClass(3), 1);
}

TEST_F(modISO484BestClassTest, FaultBeyondEveryClassStaysAtTheWorstCode) {
    ScanBlade(0).SetChord(1, kChord * 1.08); // class 3 allows 5 %
    EXPECT_EQ(BestClass(4), 2);
    EXPECT_EQ(Code(kISORowChordLength, 0), 4);
}

TEST_F(modISO484BestClassTest, PartialCoverageMeetsOnlyPartly) {
    for (int k : {0, 2, 4, 6, 7}) {
        DropSection(k);
    }
    EXPECT_EQ(BestClass(1), 3);
    EXPECT_EQ(ISO().Results().CoverageCode, 4);
    EXPECT_THAT(codes[kISORowCoverage], Each(4));
    std::string standard, sentence;
    GetEvaluationSentence(ISO(), standard, sentence, 3);
    EXPECT_EQ(sentence, "Partial scan meets Class 1.");

    // Class 3 needs no more than rows 1, 3 and 5: a full pass.
    EXPECT_EQ(BestClass(4), 1);
}

TEST_F(modISO484BestClassTest, CoverageOfASmallPropeller) {
    UsePropeller(700.0, 500.0, 150.0); // ISO 484-2, below the 0.8 m size limit
    for (int k : {0, 2, 4}) {
        DropSection(k);
    }
    EXPECT_TRUE(ISOBelowSizeLimit(Project()));
    RunChain(0);
    EXPECT_EQ(Search(true), 3);
    EXPECT_EQ(ISO().Results().CoverageCode, 2);

    selection.blades[2] = false; // a blade left out is missing data
    EXPECT_EQ(Search(true), 3);
    EXPECT_EQ(Code(kISORowCoverage, 2), kISOCodeMissing);
    EXPECT_EQ(Code(kISORowCoverage, 1), 2);
}

TEST_F(modISO484BestClassTest, SingleChannelDropLeavesRakeRowsNotApplicable) {
    Scan().SetScanDrop(2);
    ScanBlade(0).SetISOTotalAxialRakeToBCL(3, 30.0 + 200.0);
    BestClass(0, 1);
    for (int row : {kISORowRakePosition, kISORowRakeBetweenBlades, kISORowDeltaRake}) {
        EXPECT_THAT(codes[static_cast<std::size_t>(row)], Each(kISOCodeNotApplicable))
            << kISOClassRowNames[row];
        EXPECT_EQ(kISOClassCellTexts[static_cast<std::size_t>(Code(static_cast<ISOClassRow>(row), 0))],
                  std::string("-"));
    }
    EXPECT_THAT(codes[kISORowChordLength], Each(0));
}

TEST_F(modISO484BestClassTest, ProjectKeepsItsClassToleranceAndResults) {
    ScanBlade(1).SetISOBladePitch(kPitch * 1.012);
    RunChain(1, 1);
    const double localPitchPercent = ISO().LocalPitchPercent();
    const ISOWindow pitchWindow = ISO().Results().Blades[1].BladeMeanPitch;
    gISOStatus[kISOStatusChord] = kISOCellFailed; // whatever the screen last showed
    const auto statusBefore = gISOStatus;
    const auto isoBefore = gISO484;

    dataSteps = 0;
    EXPECT_EQ(Search(), 2);
    EXPECT_EQ(gISO484, isoBefore);
    EXPECT_EQ(ISO().ISOClassIndex(), 1);
    EXPECT_EQ(ISO().ISOCriteriaIndex(), 1);
    EXPECT_DOUBLE_EQ(ISO().LocalPitchPercent(), localPitchPercent);
    EXPECT_DOUBLE_EQ(ISO().Results().Blades[1].BladeMeanPitch.Upper, pitchWindow.Upper);
    EXPECT_EQ(gISOStatus, statusBefore);
    ASSERT_TRUE(ISO().Results().ClassCodesFound);
    EXPECT_EQ(ISO().Results().ClassCodes[kISORowBladeMeanPitch][1], 3);
    EXPECT_EQ(ISO().Results().BestClassResult, 2);
    EXPECT_EQ(dataSteps, 4); // once per class tried
}

} // namespace
} // namespace corvane
