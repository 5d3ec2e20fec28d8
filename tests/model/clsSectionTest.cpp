#include "model/clsSection.h"
#include "common/Fails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace corvane;
using corvane::test::Fails;
using testing::ElementsAre;

TEST(clsSectionTest, CountsResizeKeepingContent) {
    clsSection s;
    EXPECT_THAT(s.RadiusArray(), ElementsAre(0.0));
    // Acquisition appends point by point: grow by one, then write the new element.
    for (int i = 0; i < 100; ++i) {
        s.SetRawOffsetCount(i + 1);
        s.SetThetaDeg(i, i);
    }
    s.SetRawOffsetCount(3);
    EXPECT_THAT(s.ThetaDegArray(), ElementsAre(0.0, 1.0, 2.0));
    EXPECT_THAT([&] { s.Radius(3); }, Fails(ErrorNumber::SubscriptOutOfRange));
    // A count of 0 or less is stored as given and keeps slot 0 with its value.
    s.SetRadius(0, 4.0);
    s.SetRawOffsetCount(-5);
    EXPECT_EQ(s.RawOffsetCount(), -5);
    EXPECT_DOUBLE_EQ(s.Radius(0), 4.0);
    EXPECT_THAT([&] { s.Radius(1); }, Fails(ErrorNumber::SubscriptOutOfRange));
    EXPECT_THAT([&] { s.Radius(-1); }, Fails(ErrorNumber::SubscriptOutOfRange));
}

TEST(clsSectionTest, CountsAreHeldIn32BitsAndReadIn16) {
    clsSection s;
    s.SetSegmentPanelCount(40000);
    s.SetSegmentPanelPitch(39999, 1.5);
    EXPECT_DOUBLE_EQ(s.SegmentPanelPitch(39999), 1.5);
    EXPECT_THAT([&] { s.SegmentPanelCount(); }, Fails(ErrorNumber::Overflow));
}

TEST(clsSectionTest, ArraySettersTakeTheWholeArrayAndSizeTheirCompanions) {
    clsSection s;
    s.SetAxialDropXArray({1.0, 2.0, 3.0});
    EXPECT_EQ(s.RawOffsetCount(), 3);
    EXPECT_THAT(s.RadiusArray(), ElementsAre(0.0, 0.0, 0.0));
    s.SetSegmentPanelCenterYArray({});
    EXPECT_EQ(s.SegmentPanelCount(), 0);
    // The segment count sizes the points and both deviation arrays together.
    s.SetSegmentOffsetDeviationDiffArray({0.1, 0.2});
    EXPECT_THAT(s.SegmentOffsetDeviationSumArray(), ElementsAre(0.0, 0.0));
    s.SetSegmentOffsetCount(4);
    EXPECT_THAT(s.SegmentOffsetDeviationDiffArray(), ElementsAre(0.1, 0.2, 0.0, 0.0));
}

TEST(clsSectionTest, CopyLeavesOutDeviationsAndArcLength) {
    clsSection s;
    s.SetRadiusArray({10, 11});
    s.SetSegmentOffsetCount(2);
    s.SetSegmentOffsetY(1, 3.5);
    s.SetSegmentOffsetDeviationSum(0, 9);
    s.SetSegmentOffsetDeviationDiff(1, 8);
    s.SetISOLEArcLengthPerSection(5);
    s.SetSegmentChord(6);
    const auto c = s.CopyClass();
    EXPECT_THAT(c->RadiusArray(), ElementsAre(10, 11));
    EXPECT_DOUBLE_EQ(c->SegmentOffsetY(1), 3.5);
    EXPECT_DOUBLE_EQ(c->SegmentOffsetDeviationSum(0), 0);
    EXPECT_DOUBLE_EQ(c->SegmentOffsetDeviationDiff(1), 0);
    EXPECT_DOUBLE_EQ(c->ISOLEArcLengthPerSection(), 0);
    EXPECT_DOUBLE_EQ(c->SegmentChord(), 6);
    // Only counted points travel: a slot kept at count 0 reads 0 in the copy.
    s.SetRawOffsetCount(0);
    EXPECT_DOUBLE_EQ(s.Radius(0), 10);
    EXPECT_DOUBLE_EQ(s.CopyClass()->Radius(0), 0);
}

TEST(clsSectionTest, CopiesStayIndependentThroughEveryWrite) {
    // Copies share point buffers until written; every kind of write must separate them.
    clsSection s;
    s.SetRadiusArray({1, 2, 3});
    s.SetSegmentOffsetCount(2);
    s.SetSegmentOffsetX(1, 5);
    s.SetSegmentPanelCount(1);
    s.SetSegmentPanelCenterX(0, 7);
    const auto a = s.CopyClass();
    const auto b = s.CopyClass();
    const auto c = a->CopyClass();

    s.SetRadius(0, -1);
    a->SetRawOffsetCount(4);
    a->SetRadius(3, 9);
    b->SetSegmentOffsetXArray({8});
    c->SetSegmentPanelCenterX(0, -7);
    c->SetSegmentOffsetDeviationSum(1, 4);

    EXPECT_THAT(s.RadiusArray(), ElementsAre(-1, 2, 3));
    EXPECT_THAT(a->RadiusArray(), ElementsAre(1, 2, 3, 9));
    EXPECT_THAT(b->RadiusArray(), ElementsAre(1, 2, 3));
    EXPECT_THAT(c->RadiusArray(), ElementsAre(1, 2, 3));
    EXPECT_THAT(s.SegmentOffsetXArray(), ElementsAre(0, 5));
    EXPECT_THAT(b->SegmentOffsetXArray(), ElementsAre(8));
    EXPECT_THAT(c->SegmentOffsetXArray(), ElementsAre(0, 5));
    EXPECT_DOUBLE_EQ(a->SegmentPanelCenterX(0), 7);
    EXPECT_DOUBLE_EQ(c->SegmentPanelCenterX(0), -7);
    EXPECT_DOUBLE_EQ(a->SegmentOffsetDeviationSum(1), 0);
}
