#include "model/clsPropeller.h"
#include "common/Fails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace corvane;
using corvane::test::Fails;
using testing::ElementsAre;

TEST(clsPropellerTest, BladeCountKeepsBladesThatStay) {
    clsPropeller p;
    p.Blades(1)->SetSectionCount(8);
    p.Blades(1)->Section(3)->SetRadiusArray({1.0, 2.0});
    p.Blades(1)->SetGLPositionThetaDeg(90.0);

    p.SetBladeCount(5);
    EXPECT_THAT(p.Blades(1)->Section(3)->RadiusArray(), ElementsAre(1.0, 2.0));
    EXPECT_DOUBLE_EQ(p.Blades(1)->GLPositionThetaDeg(), 90.0);
    EXPECT_EQ(p.Blades(4)->SectionCount(), 0);

    // 0 or less: the count reads 2 and the five blades stay as they are.
    const auto fifth = p.Blades(4);
    p.SetBladeCount(0);
    EXPECT_EQ(p.BladeCount(), 2);
    EXPECT_EQ(p.Blades(4), fifth);
    // The copy holds the counted blades only.
    EXPECT_THAT([&] { p.CopyClass()->Blades(2); }, Fails(ErrorNumber::SubscriptOutOfRange));

    p.SetBladeCount(1);
    EXPECT_EQ(p.Blades(0)->SectionCount(), 0);
    EXPECT_THAT([&] { p.Blades(1); }, Fails(ErrorNumber::SubscriptOutOfRange));
}

TEST(clsPropellerTest, CopyIsDeepAndCopiesOnlyTheUnitIndex) {
    clsPropeller p;
    p.Units()->SetPropLengthIndex(3);
    p.Units()->SetSigDigits(4);
    p.SetScanDate("2024/3/1 9:05:00");
    p.SetBladeCount(3);
    p.Blades(2)->SetSectionCount(1);
    p.Blades(2)->Section(0)->SetAxialDropXArray({0.5});
    p.SetBlades(0, nullptr);

    const auto c = p.CopyClass();
    EXPECT_EQ(c->Units()->PropLengthIndex(), 3);
    EXPECT_EQ(c->Units()->SigDigits(), -1);
    EXPECT_EQ(c->ScanDate(), "2024/3/1 9:05:00");
    ASSERT_NE(c->Blades(0), nullptr); // an empty slot copies as a new blade
    EXPECT_THAT(c->Blades(2)->Section(0)->AxialDropXArray(), ElementsAre(0.5));
    EXPECT_NE(c->Blades(2), p.Blades(2));
}

TEST(clsPropellerTest, ScanLabelsAreLettersThenPairsThenNumbers) {
    const std::pair<int, const char*> cases[] = {{0, "A"},   {25, "Z"},   {26, "AA"},  {27, "AB"},
                                                 {52, "BA"}, {701, "ZZ"}, {702, "702"}};
    for (const auto& [index, label] : cases) {
        EXPECT_EQ(ScanLabel(index), label) << index;
    }
}
