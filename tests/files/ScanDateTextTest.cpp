#include "files/ScanDateText.h"

#include <gtest/gtest.h>

#include <optional>
#include <utility>

namespace corvane {
namespace {

TEST(ScanDateTextTest, DatesOfOtherMachinesBecomeScanDates) {
    const std::pair<const char*, const char*> cases[] = {{"3/5/2024 2:30 PM", "05-Mar-2024 02:30 PM"},
                                                         {"25/12/24", "25-Dec-2024 12:00 AM"},
                                                         {"2024-03-05 14:30:10", "05-Mar-2024 02:30 PM"},
                                                         {"5-mar-1999 12:05am", "05-Mar-1999 12:05 AM"}};
    for (const auto& [text, formatted] : cases) {
        const std::optional<DateTime> date = ParseScanDate(text);
        ASSERT_TRUE(date.has_value()) << text;
        EXPECT_EQ(FormatScanDate(*date), formatted) << text;
    }
    for (const char* wrong : {"", "yesterday", "2/30/2024", "13/13/2024", "3/5/2024 25:00"}) {
        EXPECT_FALSE(ParseScanDate(wrong).has_value()) << wrong;
    }
}

} // namespace
} // namespace corvane
