#include "model/NumberText.h"
#include "model/CorvaneError.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

namespace corvane {
namespace {

TEST(NumberTextTest, FloatsTakeTheShortestFileFormWithExponentsBelowE_4AndFromE15) {
    // 15 digits hide the binary residue of 0.1 + 0.2; 999999999999999.9 carries into the exponent.
    // clang-format off
    const std::pair<double, const char*> cases[] = {
        {0.0, "0"}, {-0.0, "0"}, {0.5, ".5"}, {-0.5, "-.5"}, {1.5, "1.5"}, {-12.25, "-12.25"}, {100.0, "100"},
        {0.1 + 0.2, ".3"}, {1.0 / 3.0, ".333333333333333"}, {2.0 / 3.0, ".666666666666667"},
        {0.0001, ".0001"}, {0.00001, "1E-05"}, {0.000015, "1.5E-05"}, {-0.000015, "-1.5E-05"},
        {123456789012345.0, "123456789012345"}, {1e15, "1E+15"},
        {1234567890123456.0, "1.23456789012346E+15"}, {999999999999999.9, "1E+15"}, {1e100, "1E+100"},
        {2.5e-300, "2.5E-300"}, {std::numeric_limits<double>::quiet_NaN(), "NaN"},
        {-std::numeric_limits<double>::infinity(), "-Inf"}};
    // clang-format on
    for (const auto& [value, text] : cases) {
        EXPECT_EQ(FormatFileFloat(value), text) << value;
    }
    EXPECT_EQ(FormatFileInteger(0), "0");
    EXPECT_EQ(FormatFileInteger(-32768), "-32768");
    EXPECT_EQ(FormatFileInteger(1234567), "1234567");
}

TEST(NumberTextTest, LeadingNumberReadsLikeVal) {
    // An exponent letter without digits ends the number; blanks inside are passed over; 0.1 is
    // correctly rounded.
    // clang-format off
    const std::pair<const char*, double> cases[] = {
        {"3,5", 3.0}, {"12abc", 12.0}, {"  -.5", -0.5}, {"+7.", 7.0}, {"1.5E3x", 1500.0}, {"1.5e-2", 0.015},
        {"2D2", 200.0}, {"1e", 1.0}, {"1e+x", 1.0}, {"1 2 3", 123.0}, {"1.2.3", 1.2}, {"", 0.0}, {"-", 0.0},
        {".", 0.0}, {"abc1", 0.0}, {"--5", 0.0}, {"0.1", 0.1}, {"1e-400", 0.0},
        {"0.000000000000000000000000000000001e300", 1e267}};
    // clang-format on
    for (const auto& [text, value] : cases) {
        EXPECT_EQ(ParseLeadingNumber(text), value) << text;
    }
    EXPECT_THROW(ParseLeadingNumber("1e400"), CorvaneError);
}

// Plain file numbers take a shortcut; it must read exactly what the full scan reads.
TEST(NumberTextTest, PlainNumbersReadLikeTheFullScan) {
    // clang-format off
    std::vector<std::string> texts = {"0", "-0", "-.0", ".5", "5.", "-.5", "1.5E-05", "1E+15", "1e400", "-1e400",
                                      "1e-400", "4.9E-324", "2.4E-324", "1.7976931348623157E+308", "00012.50",
                                      "1.", "-", ".", "E5", "1E", "1E+", "1.2.3", "1E99999",
                                      "12345678901234567890123"};
    // clang-format on
    std::mt19937_64 random(1);
    std::uniform_int_distribution<int> length(1, 18);
    std::uniform_int_distribution<int> digit(0, 9);
    std::uniform_int_distribution<int> exponent(-330, 330);
    for (int i = 0; i < 20000; ++i) {
        std::string text = i % 2 != 0 ? "-" : "";
        const int n = length(random);
        const int point = length(random) % (n + 1);
        for (int j = 0; j < n; ++j) {
            if (j == point)
                text += '.';
            text += static_cast<char>('0' + digit(random));
        }
        if (i % 3 == 0)
            text += "E" + std::to_string(exponent(random));
        texts.push_back(text);
    }
    for (const std::string& text : texts) {
        double scanned = 0.0;
        bool overflow = false;
        try {
            scanned = ScanNumber(text, '.', true).value;
        } catch (const CorvaneError&) {
            overflow = true;
        }
        if (overflow) {
            EXPECT_THROW(ParseLeadingNumber(text), CorvaneError) << text;
            continue;
        }
        const double read = ParseLeadingNumber(text);
        EXPECT_EQ(std::signbit(read), std::signbit(scanned)) << text;
        EXPECT_EQ(read, scanned) << text;
    }
}

TEST(NumberTextTest, ScanReportsWhereTheNumberEnds) {
    const std::tuple<const char*, char, std::size_t> cases[] = {
        {"1,5", ',', 3}, {"1.5", ',', 1}, {"2e", '.', 1}, {"2e-3", '.', 4}};
    for (const auto& [text, separator, end] : cases) {
        EXPECT_EQ(ScanNumber(text, separator, false).end, end) << text;
    }
    EXPECT_EQ(ScanNumber("1,5", ',', false).value, 1.5);
    EXPECT_FALSE(ScanNumber("-.", '.', false).found);
}

// Qt sets the C locale from the user's; a comma locale must not change a byte of a file.
TEST(NumberTextTest, CommaLocaleChangesNothing) {
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    const char* chosen = nullptr;
    for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "fr_FR.UTF-8", "fr_FR.utf8", "de_DE"}) {
        if (chosen == nullptr && std::setlocale(LC_ALL, name) != nullptr) {
            chosen = name;
        }
    }
    ASSERT_NE(chosen, nullptr) << "no comma locale installed: scripts/deps generates de_DE.UTF-8";
    ASSERT_EQ(*std::localeconv()->decimal_point, ',');
    const std::string small = FormatFileFloat(-0.000015);
    const std::string plain = FormatFileFloat(1234.5);
    const double parsed = ParseLeadingNumber("1234.5");
    const double commaParsed = ParseLeadingNumber("3,5");
    std::setlocale(LC_ALL, previous.c_str());
    EXPECT_EQ(small, "-1.5E-05");
    EXPECT_EQ(plain, "1234.5");
    EXPECT_EQ(parsed, 1234.5);
    EXPECT_EQ(commaParsed, 3.0);
}

} // namespace
} // namespace corvane
