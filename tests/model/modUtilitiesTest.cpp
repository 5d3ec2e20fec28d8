#include "model/modUtilities.h"
#include "common/ServicesFixture.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/NumberText.h"

#include <gmock/gmock.h>

#include <limits>
#include <random>
#include <tuple>

namespace corvane {
namespace {

using modUtilitiesTest = test::ServicesTest;

TEST_F(modUtilitiesTest, RoundSignificantRoundsTiesAwayFromZeroAndReportsTheDigitsKept) {
    // Log(1000) / Log(10) lies just below 3, so 1000 at 4 digits keeps one decimal more; a pattern
    // shorter than the digits asked for is given whole; a zero leaves the format alone.
    // clang-format off
    const std::tuple<double, int, double, const char*> cases[] = {
        {1234.5678, 2, 1200.0, nullptr}, {0.0012345, 2, 0.0012, "#########0.0000"}, {-2.5, 1, -3.0, nullptr},
        {2.5, 1, 3.0, nullptr}, {0.45, 1, 0.5, nullptr}, {-1234.56789012, 9, -1234.56789, nullptr},
        {987654321.0, 3, 988000000.0, nullptr}, {5.0, 0, 0.0, nullptr}, {0.0, 3, 0.0, "kept"},
        {999.6, 3, 1000.0, "#########0"}, {12345.0, 2, 12000.0, "#########0"}, {1.2345, 3, 1.23, "#########0.00"},
        {1e-20, 5, 1e-20, "#########0.0000000000"}, {1000.0, 4, 1000.0, "#########0.0"}};
    // clang-format on
    for (const auto& [value, digits, expected, format] : cases) {
        std::string kept = "kept";
        EXPECT_DOUBLE_EQ(RoundSignificant(value, digits, &kept), expected) << value << " at " << digits;
        if (format != nullptr) {
            EXPECT_EQ(kept, format) << value << " at " << digits;
        }
    }
    EXPECT_GT(RoundSignificant(4.9e-324, 9), 0.0); // no overflow of the scale factor
}

// The fast path that files every number must write what rounding then formatting writes.
TEST_F(modUtilitiesTest, RoundedFileFloatMatchesRoundingThenFormatting) {
    // clang-format off
    std::vector<double> values = {0.0, -0.0, 1.0, 1000.0, 0.001, 999999999.5, 12345.6789012, -2.675, 1e-5,
                                  1.5e-5, 9.9999999996e-5, 123456789012.0, 1e300, 5e-324, -1e-310, 0.5,
                                  99999.99995, std::numeric_limits<double>::infinity(),
                                  std::numeric_limits<double>::quiet_NaN()};
    // clang-format on
    std::mt19937_64 random(484);
    std::uniform_real_distribution<double> mantissa(-10.0, 10.0);
    std::uniform_int_distribution<int> exponent(-12, 14);
    for (int i = 0; i < 20000; ++i) {
        values.push_back(mantissa(random) * std::pow(10.0, exponent(random)));
    }
    // Next to the powers of ten the count of digits before the point is decided by a hair.
    for (int p = -32; p <= 32; ++p) {
        double x = std::pow(10.0, p);
        for (int step = 0; step < 4; ++step) {
            values.push_back(x);
            values.push_back(std::nextafter(x, 0.0));
            x = std::nextafter(x, 1e300);
        }
        values.push_back(std::pow(10.0, p) * (1.0 + 1e-12));
        values.push_back(std::pow(10.0, p) * (1.0 - 1e-12));
    }
    for (const double v : values) {
        for (const int digits : {1, 6, 9, 12, 15}) {
            std::string fast;
            AppendRoundedFileFloat(fast, v, digits);
            ASSERT_EQ(fast, FormatFileFloat(RoundSignificant(v, digits))) << v << " at " << digits;
        }
    }
}

TEST_F(modUtilitiesTest, CompareDoubleModesAndTwelveDigitRounding) {
    // Equality rounds to twelve digits; the tolerance counts by its magnitude and not for "<";
    // modes outside 0..5 are never true.
    // clang-format off
    const std::tuple<double, int, double, double, bool> cases[] = {
        {1.0000000000001, kCompareEqual, 1.0, 0.0, true}, {1.0000000000001, kCompareGreater, 1.0, 0.0, false},
        {1.00000000001, kCompareGreater, 1.0, 0.0, true}, {1.05, kCompareEqual, 1.0, -0.1, true},
        {1.05, kCompareGreaterOrEqual, 1.0, 0.1, true}, {0.95, kCompareGreaterOrEqual, 1.0, 0.1, true},
        {0.8, kCompareGreaterOrEqual, 1.0, 0.1, false}, {1.05, kCompareLessOrEqual, 1.0, 0.1, true},
        {1.0, kCompareLess, 1.0, 5.0, false}, {0.9, kCompareLess, 1.0, 5.0, true},
        {1.2, kCompareNotEqual, 1.0, 0.1, true}, {1.0, kCompareNotEqual, 1.0, 0.0, false},
        {1.0, 6, 1.0, 0.0, false}, {1.0, -1, 1.0, 0.0, false}};
    // clang-format on
    for (const auto& [a, mode, b, tolerance, expected] : cases) {
        EXPECT_EQ(CompareDouble(a, mode, b, tolerance), expected) << a << " mode " << mode << " " << b;
    }
}

TEST_F(modUtilitiesTest, FormatPointPrintsHistoricFormatsWithAPoint) {
    // Rounding is decided on 15 digits, not the binary value (2.675); a zero has no minus; a
    // literal comma is replaced by the point.
    // clang-format off
    const std::tuple<double, const char*, const char*> cases[] = {
        {1.23456, "0.0000", "1.2346"}, {-0.5, "0.000", "-0.500"}, {1234.5, "#########0", "1235"},
        {0.0, "#########0", "0"}, {2.675, "0.00", "2.68"}, {0.125, "0.00", "0.13"}, {-0.001, "0.00", "0.00"},
        {99.996, "0.00", "100.00"}, {12345678901.0, "0.0", "12345678901.0"}, {0.7, "0.0#", "0.7"},
        {0.75, "0.0#", "0.75"}, {2.5, "0.0###", "2.5"}, {0.1234, "0.0%", "12.3%"}, {0.7, "#R", "1R"},
        {0.5, "#.##", ".5"}, {1.0 / 3.0, "0.0##############", "0.333333333333333"},
        {5.0, "0\" deg\"", "5 deg"}, {-5.0, "0.0;(0.0)", "(5.0)"}, {0.5, "", "0.5"}, {0.00001, "", "1E-05"},
        {3.0, "0,0", "0.3"}};
    // clang-format on
    for (const auto& [value, format, expected] : cases) {
        EXPECT_EQ(FormatPoint(value, format), expected) << value << " as " << format;
    }
}

TEST_F(modUtilitiesTest, TextToNumbersTrustsTheUserSeparatorOnlyForWholeNumbers) {
    // clang-format off
    const std::tuple<const char*, std::int16_t, double> doubles[] = {
        {"12abc", '.', 12.0}, {"  1.5  ", '.', 1.5}, {"3,5", '.', 3.0}, {"", '.', 0.0}, {"-1.5e2", '.', -150.0},
        {"3,5", ',', 3.5}, {" -0,25 ", ',', -0.25}, {"3.5", ',', 3.5}, {"3,5abc", ',', 3.0}};
    const std::pair<const char*, int> integers[] = {{"2.5", 2}, {"3.5", 4}, {"-2.5", -2}, {"2.51", 3},
                                                    {"12abc", 12}, {"x", 0}, {"32767.4", 32767},
                                                    {"-32768.5", -32768}};
    // clang-format on
    for (const auto& [text, separator, expected] : doubles) {
        gDecimalChar = separator;
        EXPECT_EQ(StringToDouble(text), expected) << text << " with " << static_cast<char>(separator);
    }
    gDecimalChar = '.';
    for (const auto& [text, expected] : integers) {
        EXPECT_EQ(StringToInteger(text), expected) << text; // half to even, within 16 bits
    }
    EXPECT_THAT([] { StringToInteger("32767.5"); }, testing::Throws<CorvaneError>(testing::Property(
                                                        &CorvaneError::Number, ErrorNumber::Overflow)));
    EXPECT_THROW(StringToInteger("1e999"), CorvaneError);
    gDecimalChar = ',';
    EXPECT_EQ(StringToInteger("1,5"), 2);
    EXPECT_TRUE(IsNumericText("1,5E3", ','));
    EXPECT_FALSE(IsNumericText("1,5", '.'));
    EXPECT_FALSE(IsNumericText("1e", '.'));
}

TEST_F(modUtilitiesTest, SplitListKeepsEveryStretch) {
    std::vector<std::string> out{"stale"};
    EXPECT_EQ(SplitList(out, "", ","), 1);
    EXPECT_EQ(out, (std::vector<std::string>{""}));
    EXPECT_EQ(SplitList(out, ",a,", ","), 3);
    EXPECT_EQ(out, (std::vector<std::string>{"", "a", ""}));
    EXPECT_EQ(SplitList(out, "a||b|c", "||"), 2);
    EXPECT_EQ(out[1], "b|c");
}

TEST_F(modUtilitiesTest, DateStampsRoundTripAndRejectNonDates) {
    EXPECT_EQ(DateToStamp(DateTime{2024, 3, 5, 7, 0, 9}), "2024/3/5 7:0:9");
    EXPECT_EQ(DateToStamp(DateTime{}), "1899/12/30 0:0:0");
    EXPECT_EQ(DateToStamp(DateTime{2023, 2, 29, 0, 0, 0}), "");
    EXPECT_EQ(StampToDate("2024/3/5 7:0:9"), (DateTime{2024, 3, 5, 7, 0, 9}));
    EXPECT_EQ(StampToDate("2024/12/31 23:59"), (DateTime{2024, 12, 31, 23, 59, 0}));
    EXPECT_EQ(StampToDate("20240305-0712"), (DateTime{2024, 3, 5, 7, 12, 0}));
    for (const char* bad : {"2024/3/5", "2024/2/30 1:2:3", "2024/x/5 1:2:3", "2024-03-05", ""}) {
        EXPECT_EQ(StampToDate(bad), DateTime{}) << bad;
    }
}

TEST_F(modUtilitiesTest, WrapKeepsAnglesInTheirHalfOpenRanges) {
    // 360 - 1e-20 is 360, so -1e-20 wraps to 0; a value that is no angle gives 0.
    const double nan = std::numeric_limits<double>::quiet_NaN();
    // clang-format off
    const std::pair<double, double> to360[] = {{0.0, 0.0}, {360.0, 0.0}, {-360.0, 0.0}, {-90.0, 270.0},
                                               {720.5, 0.5}, {-1e-20, 0.0}, {nan, 0.0}};
    const std::pair<double, double> to180[] = {{180.0, 180.0}, {-180.0, 180.0}, {181.0, -179.0}, {-90.0, -90.0},
                                               {-std::numeric_limits<double>::infinity(), 0.0}};
    // clang-format on
    for (const auto& [angle, expected] : to360) {
        EXPECT_EQ(Wrap360(angle), expected) << angle;
    }
    for (const auto& [angle, expected] : to180) {
        EXPECT_EQ(Wrap180(angle), expected) << angle;
    }
    const double huge = Wrap360(1e300);
    EXPECT_TRUE(huge >= 0.0 && huge < 360.0) << huge;
    EXPECT_NEAR(Wrap360(1e7 + 370.0), std::fmod(1e7 + 10.0, 360.0), 1e-6);
}

TEST_F(modUtilitiesTest, SmallHelpersAtTheirEdges) {
    const double pi = 4.0 * std::atan(1.0);
    EXPECT_EQ(Atan2YX(-1.0, 0.0), -pi / 2.0);
    EXPECT_EQ(Atan2YX(0.0, 0.0), 0.0);
    EXPECT_EQ(Atan2YX(0.0, -2.0), pi);
    EXPECT_DOUBLE_EQ(Atan2YX(-1.0, -1.0), -3.0 * pi / 4.0);
    EXPECT_EQ(ShiftLeft(1, 31), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(ShiftLeft(0x40000001, 1), static_cast<std::int32_t>(0x80000002u));
    EXPECT_THROW(ShiftLeft(1, 32), CorvaneError);
    EXPECT_TRUE(std::signbit(MaxDouble(0.0, -0.0))); // a tie gives the second argument
    EXPECT_EQ(MinOfArray({3.0, -1.0, 7.5, 2.0}), -1.0);
    EXPECT_THROW(MaxOfArray({}), CorvaneError);
    EXPECT_EQ(StripControlChars("a\tb\r\nc\x01"), "abc");
    EXPECT_EQ(StripControlChars("a\tb\r\nc", true), "ab\r\nc");
}

} // namespace
} // namespace corvane
