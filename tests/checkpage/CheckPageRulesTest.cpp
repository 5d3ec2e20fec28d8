#include "checkpage/CheckPageRules.h"
#include "checkpage/CheckReferenceUpdate.h"
#include "reference/ReferenceFixture.h"

#include "model/clsBlades.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using test::ReferenceTest;

class CheckPageRulesTest : public ReferenceTest {
protected:
    // The shop propeller measured and judged against a scan reference at `pitch`.
    void MeasureAgainst(double pitch) {
        ASSERT_TRUE(Measure(Shop()));
        gProject->SetReferenceSourceIndex(kReferenceScan);
        gProject->SetInternalScanSourceIndex(0);
        gProject->SetReferenceConstantPitch(pitch);
    }
};

TEST_F(CheckPageRulesTest, PanelsAndZoomFollowTheViewAndTheDropEncoder) {
    clsPropeller scan;
    scan.SetBladeCount(3);
    for (int b = 0; b < 3; ++b) {
        scan.Blades(b)->SetSectionCount(8);
    }
    scan.Blades(0)->Section(2)->SetRawOffsetCount(5);
    scan.Blades(2)->Section(0)->SetRawOffsetCount(5);
    struct Case {
        int view;
        bool reference;
        std::int16_t drop;
        bool small;
        int elements;
        bool zoomEnabled, zoomForced;
    };
    const Case cases[] = {
        {kViewTop, false, 1, false, 1, true, false},     {kViewTop, true, 1, true, 2, true, false},
        {kViewPitch, false, 1, true, 1, true, false},    {kViewRadius, false, 1, true, 2, true, false},
        {kViewBlade, false, 2, false, 1, true, false},   {kViewOutline, false, 1, false, 1, true, false},
        {kViewOutline, false, 2, false, 1, false, true}, {kViewPath, false, 1, false, 1, false, false},
        {3, false, 1, false, 0, false, false},
    };
    for (const Case& c : cases) {
        scan.SetScanDrop(c.drop);
        const CheckViewLayout layout = LayoutOfView(c.view, c.reference, scan);
        SCOPED_TRACE(testing::Message() << "view " << c.view << " drop " << c.drop);
        EXPECT_EQ(layout.sectionGraphs, c.small);
        EXPECT_EQ(layout.elements, c.elements);
        EXPECT_EQ(layout.zoomEnabled, c.zoomEnabled);
        EXPECT_EQ(layout.zoomForced, c.zoomForced);
        EXPECT_EQ(EffectiveZoom(layout, false), c.zoomForced);
    }
    EXPECT_FALSE(CheckViewByName("3"));
    EXPECT_EQ(CheckViewByName("radius"), kViewRadius);
}

TEST_F(CheckPageRulesTest, DrawsOnlyWhenSomethingShownChanged) {
    CheckDrawState drawn;
    drawn.width = 800;
    CheckDrawState resized = drawn, otherBlade = drawn, zoomedElement = drawn;
    resized.height = 10;
    otherBlade.blades[3] = true;
    zoomedElement.zoomedElements = 2;
    EXPECT_TRUE(NeedsRedraw(std::nullopt, drawn, false));
    EXPECT_FALSE(NeedsRedraw(drawn, drawn, false));
    EXPECT_TRUE(NeedsRedraw(drawn, drawn, true));
    for (const CheckDrawState& now : {resized, otherBlade, zoomedElement}) {
        EXPECT_TRUE(NeedsRedraw(drawn, now, false));
    }
}

TEST_F(CheckPageRulesTest, QuickReadOutInvitesTheSearchUnlessTheAnswerIsKnown) {
    clsISO484 iso;
    struct Case {
        bool reference;
        std::int16_t cls, verdict;
        const char* text;
    };
    const Case cases[] = {{false, 0, 1, " N/A"},      {true, 0, 1, " Class S"}, {true, 0, 2, " CLICK"},
                          {true, 4, 2, " FAILS ALL"}, {true, 4, 1, " CLICK"},   {true, 2, 2, " CLICK"}};
    for (const Case& c : cases) {
        iso.SetISOClassIndex(c.cls);
        EXPECT_EQ(QuickClassText(iso, c.reference, c.verdict), c.text) << c.cls << " " << c.verdict;
    }
}

TEST_F(CheckPageRulesTest, FullSearchWalksDownPastClassIaOfALargePropellerAndRestoresTheClass) {
    MeasureAgainst(2400);
    gISO484->SetISOClassIndex(3);
    int dots = 0;
    const ClassSearchResult found = SearchBestClass(*gProject, *gISO484, [&dots] { ++dots; });
    EXPECT_EQ(found.text, " Class S");
    EXPECT_EQ(found.classIndex, 0);
    // II, then I and S: Ia is not a class for 3 m.
    EXPECT_EQ(found.classesTried, 3);
    EXPECT_EQ(dots, 3);
    EXPECT_EQ(events.doEventsCalls, 3);
    EXPECT_EQ(gISO484->ISOClassIndex(), 3);
}

TEST_F(CheckPageRulesTest, FullSearchOfAFailingPropeller) {
    MeasureAgainst(2000); // every pitch 20 % over the reference
    for (std::int16_t cls : {std::int16_t{4}, std::int16_t{1}}) {
        gISO484->SetISOClassIndex(cls);
        const ClassSearchResult found = SearchBestClass(*gProject, *gISO484, {});
        EXPECT_EQ(found.text, " FAILS ALL");
        EXPECT_TRUE(found.failsAll);
        // Class III failing answers at once; from I it walks up through II and III.
        EXPECT_EQ(found.classesTried, cls == 4 ? 1 : 3);
        EXPECT_EQ(gISO484->ISOClassIndex(), cls);
    }
}

TEST_F(CheckPageRulesTest, ComparisonRowsNameEachScanByItsState) {
    const clsVirtualPropeller clean = Shop();
    ASSERT_TRUE(Measure(Shop(), &clean));
    gProject->SetPropellerScanCount(3);
    gProject->PropellerScan(0)->SetDescription("Initial");
    gProject->PropellerScan(1)->SetScanID(1);
    gProject->PropellerScan(2)->SetScanID(27);
    const std::vector<std::string> expected = {" None", "Initial [A] Active", " [B] ", " [AB] Empty"};
    EXPECT_EQ(ScanCompareTexts(*gProject), expected);
}

TEST_F(CheckPageRulesTest, UnusableReferenceIsDroppedOnlyWhenErrorsAreShown) {
    ASSERT_TRUE(Measure(Shop()));
    for (bool show : {false, true}) {
        gProject->SetReferenceSourceIndex(kReferenceFile);
        gProject->SetReferenceSourceFilePath("");
        prompts.SetAnswerFreely(true);
        prompts.Clear();
        const ReferenceUpdate update = UpdateCheckReference(*gProject, *gISO484, {-1, show});
        EXPECT_FALSE(update.referenceInForce);
        EXPECT_EQ(gProject->ReferenceSourceIndex(), show ? kReferenceNone : kReferenceFile);
        const std::vector<std::string> told = prompts.Texts();
        ASSERT_EQ(told.size(), show ? 1u : 0u);
        if (show) {
            EXPECT_EQ(told[0], "Reference file is invalid or incompatable with scan.\r\nnon-referenced data "
                               "will be displayed");
        }
    }
}

TEST_F(CheckPageRulesTest, ComparisonWithAnEmptyScanIsSwitchedOffAndTold) {
    ASSERT_TRUE(Measure(Shop()));
    gProject->SetPropellerScanCount(2);
    prompts.SetAnswerFreely(true);
    const ReferenceUpdate update = UpdateCheckReference(*gProject, *gISO484, {1, true});
    EXPECT_EQ(update.compareScanIndex, -1);
    EXPECT_EQ(gProject->ActiveScanIndex(), 0);
    ASSERT_FALSE(prompts.Texts().empty());
    EXPECT_EQ(prompts.Texts().back(), "An error occurred calculating previous scan data.");
    for (int b = 0; b < gProject->PropellerScan(1)->BladeCount(); ++b) {
        EXPECT_FALSE(gProject->PropellerScan(1)->Blades(b)->BladeEnabled());
    }
}

TEST_F(CheckPageRulesTest, ComparisonScanIsMeasuredAgainstTheReference) {
    const clsVirtualPropeller clean = Shop();
    ASSERT_TRUE(Measure(Shop(), &clean));
    gProject->SetReferenceSourceIndex(kReferenceScan);
    gProject->SetReferenceConstantPitch(2400);
    const ReferenceUpdate update = UpdateCheckReference(*gProject, *gISO484, {1, true});
    EXPECT_TRUE(update.referenceInForce);
    EXPECT_EQ(update.compareScanIndex, 1);
    EXPECT_TRUE(prompts.Texts().empty());
    EXPECT_EQ(update.verdict, 1);
}

} // namespace
} // namespace corvane
