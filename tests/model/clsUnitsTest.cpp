#include "model/clsUnits.h"
#include "common/Fails.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "model/CorvaneError.h"

using namespace corvane;
using corvane::test::Fails;

TEST(clsUnitsTest, ConvertsTargetFirstWithProjectUnitForMinusOne) {
    clsUnits u;
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(2.0, 2, 0), 24.0);   // ft -> in
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(1.0, 3, 2), 25.4);   // in -> mm
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(1.0, 1, 0), 0.3048); // ft -> m

    u.SetPropLengthIndex(2); // project in inches
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(10.0, 3, -1), 254.0);
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(254.0, -1, 3), 10.0);
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(7.5, -1, -1), 7.5);
    // Areas and volumes raise each factor.
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength2(1.0, 3, 2), 645.16);
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength3(1728.0, 0, 2), 1.0);
}

TEST(clsUnitsTest, SigDigitsRoundsOnlyWhenSet) {
    clsUnits u;
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(1.23456, 0, 0), 1.23456);
    u.SetSigDigits(3);
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(1.23456, 0, 0), 1.23);
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength2(1.0, 3, 2), 645.0); // 645.16
    u.ClearAllData();
    EXPECT_EQ(u.SigDigits(), -1);
}

TEST(clsUnitsTest, FormatsFollowTheUnitAndIndicesOutsideTheTablesFail) {
    clsUnits u;
    const char* formats[] = {"0.0000", "0.0000", "0.000", "0.00", "0.000"};
    for (std::int16_t i = 0; i < 5; ++i) {
        u.SetPropLengthIndex(i);
        EXPECT_EQ(u.PropLengthFormat(), formats[i]);
    }
    u.SetPropLengthFormat("0.0"); // stored, never read back
    EXPECT_EQ(u.PropLengthFormat(), "0.000");
    EXPECT_THAT([&] { u.PropLengthFileTag(4); }, Fails(ErrorNumber::SubscriptOutOfRange));
    EXPECT_THAT([&] { u.GetUnitPropLengthLabel(5); }, Fails(ErrorNumber::SubscriptOutOfRange));
    EXPECT_THAT([&] { u.ConvertUnitPropLength(1, -2, 0); }, Fails(ErrorNumber::SubscriptOutOfRange));
}

TEST(clsUnitsTest, CustomUnitAndCopy) {
    clsUnits u;
    // Undefined custom unit: a division by zero, reported, not an infinity.
    EXPECT_THAT([&] { u.ConvertUnitPropLength(1, 0, 4); }, Fails(ErrorNumber::DivisionByZero));
    u.SetUnitPropLengthCustomData("yd", 1.0 / 3.0);
    EXPECT_EQ(u.GetUnitPropLengthLabel(4), "yd");
    EXPECT_DOUBLE_EQ(u.ConvertUnitPropLength(1.0, 0, 4), 3.0);

    u.SetPropLengthIndex(3);
    u.SetSigDigits(4);
    const auto copy = u.CopyClass();
    EXPECT_EQ(copy->PropLengthIndex(), 3);
    EXPECT_EQ(copy->SigDigits(), -1);
    EXPECT_EQ(copy->GetUnitPropLengthLabel(4), "CUSTOM");

    u.ClearAllData();
    EXPECT_EQ(u.PropLengthIndex(), 0);
    EXPECT_EQ(u.GetUnitPropLengthLabel(4), "yd"); // the custom unit is not project data
}
