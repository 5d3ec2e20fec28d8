#include "model/clsBlades.h"
#include "common/Fails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace corvane;
using corvane::test::Fails;
using testing::ElementsAre;

TEST(clsBladesTest, SectionCountResizeKeepsSectionsAndClearsNumbers) {
    clsBlades b;
    EXPECT_THAT([&] { b.Section(0); }, Fails(ErrorNumber::SubscriptOutOfRange));
    b.SetSectionCount(5);
    for (int k = 0; k < 5; ++k) {
        b.Section(k)->SetRadiusArray({1.0 + k, 2.0 + k});
        b.SetChord(k, 10.0 + k);
        b.SetISOTotalThetaDegToBCL(k, 3.0);
    }
    const auto before = b.Section(0);
    b.SetSectionCount(8);
    EXPECT_THAT(b.Section(4)->RadiusArray(), ElementsAre(5.0, 6.0));
    EXPECT_EQ(b.Section(7)->RawOffsetCount(), 0);
    EXPECT_NE(b.Section(0), before); // the section survives as a copy
    EXPECT_THAT(b.ChordArray(), ElementsAre(0, 0, 0, 0, 0, 0, 0, 0));
    EXPECT_DOUBLE_EQ(b.ISOTotalThetaDegToBCL(4), 0);

    // A copy on resize drops what a section copy drops.
    b.Section(1)->SetISOLEArcLengthPerSection(2.5);
    b.SetSectionCount(3);
    EXPECT_DOUBLE_EQ(b.Section(1)->ISOLEArcLengthPerSection(), 0);

    // 0 or less: the count goes to 0 and the records stay reachable.
    b.SetPitch(2, 6.0);
    b.SetSectionCount(0);
    EXPECT_THAT(b.PitchArray(), ElementsAre(0.0));
    EXPECT_DOUBLE_EQ(b.Pitch(2), 6.0);
    EXPECT_THAT(b.Section(2)->RadiusArray(), ElementsAre(3.0, 4.0));
    EXPECT_THAT([&] { b.Pitch(3); }, Fails(ErrorNumber::SubscriptOutOfRange));
}

TEST(clsBladesTest, ArraySetterDropsTheTopElement) {
    clsBlades b;
    b.SetSectionCount(4);
    b.SetPitch(0, 9.0);
    b.SetRakeAftArray({1.0, 2.0, 3.0});
    EXPECT_EQ(b.SectionCount(), 2);
    EXPECT_THAT(b.RakeAftArray(), ElementsAre(1.0, 2.0));
    EXPECT_DOUBLE_EQ(b.Pitch(0), 0.0); // went through the resize
    b.SetSkewHelixArray({5.0});
    EXPECT_EQ(b.SectionCount(), 0);
    EXPECT_THAT(b.SkewHelixArray(), ElementsAre(0.0));
}

TEST(clsBladesTest, CopyIsDeep) {
    clsBlades b;
    b.SetSectionCount(3);
    b.SetRadialPosArray({0.95, 0.9, 0.8, 0.0});
    b.SetChord(1, 4.0);
    b.SetISOTotalAxialRakeToBCL(2, -1.0);
    b.Section(2)->SetThetaDegArray({5.0, 6.0});
    b.SetSection(0, nullptr);
    b.SetBladeEnabled(true);
    b.SetGLPositionThetaDeg(30.0);

    const auto c = b.CopyClass();
    EXPECT_THAT(c->RadialPosArray(), ElementsAre(0.95, 0.9, 0.8));
    EXPECT_DOUBLE_EQ(c->ISOTotalAxialRakeToBCL(2), -1.0);
    EXPECT_THAT(c->Section(2)->ThetaDegArray(), ElementsAre(5.0, 6.0));
    EXPECT_NE(c->Section(2), b.Section(2));
    EXPECT_EQ(c->Section(0)->RawOffsetCount(), 0); // an empty slot copies as a new section
    EXPECT_EQ(b.Section(0), b.Section(0));         // and reading it fills the slot once
    EXPECT_DOUBLE_EQ(c->GLPositionThetaDeg(), 30.0);

    c->Section(2)->SetThetaDeg(0, -1.0);
    EXPECT_DOUBLE_EQ(b.Section(2)->ThetaDeg(0), 5.0);

    // Records beyond a count of 0 are not part of the copy.
    b.SetSectionCount(0);
    const auto empty = b.CopyClass();
    EXPECT_EQ(empty->SectionCount(), 0);
    EXPECT_THAT([&] { empty->Section(0); }, Fails(ErrorNumber::SubscriptOutOfRange));
}
