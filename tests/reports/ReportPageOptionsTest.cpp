#include "common/ServicesFixture.h"

#include "reports/ReportPageOptions.h"

namespace corvane {
namespace {

class ReportPageOptionsTest : public test::ServicesTest {
protected:
    void Store(const std::vector<std::pair<std::string, std::string>>& values) {
        for (const auto& [name, value] : values)
            settings.SetValue("Software\\Corvane\\Report", name, value);
    }
};

TEST_F(ReportPageOptionsTest, StoredValuesAreReadWithTheirRules) {
    struct Row {
        const char* what;
        std::vector<std::pair<std::string, std::string>> stored;
        double width, height, left, top; // paper in inches, margins in the unit kept
        std::int16_t units, paper;
    };
    const std::vector<Row> rows = {
        {"nothing stored: Letter, 0.6 in", {}, 8.5, 11, 0.6, 0.6, 5, 1},
        {"margins cut at a quarter of the paper",
         {{"MarginLeft", "5"}, {"MarginTop", "5"}, {"MarginRight", "5"}, {"MarginBottom", "5"}},
         8.5,
         11,
         2.125,
         2.75,
         5,
         1},
        {"an unknown paper is Letter", {{"PaperSizeIndex", "77"}}, 8.5, 11, 0.6, 0.6, 5, 1},
        {"landscape A4",
         {{"PaperSizeIndex", "9"}, {"PaperOrientationIndex", "2"}},
         11.69,
         8.27,
         0.6,
         0.6,
         5,
         9},
        {"an unknown orientation is portrait", {{"PaperOrientationIndex", "3"}}, 8.5, 11, 0.6, 0.6, 5, 1},
        {"the user paper's height is read from the width's key",
         {{"PaperSizeIndex", "256"}, {"PaperSizeUserWidth", "6"}, {"PaperSizeUserHeight", "9"}},
         6,
         6,
         0.6,
         0.6,
         5,
         256},
        {"an empty value counts as missing",
         {{"MarginLeft", ""}, {"UnitsIndex", ""}},
         8.5,
         11,
         0.6,
         0.6,
         5,
         1},
        {"millimetres default to 15", {{"UnitsIndex", "6"}}, 8.5, 11, 15, 15, 6, 1},
        {"twips are cut in twips", {{"UnitsIndex", "1"}, {"MarginLeft", "9999"}}, 8.5, 11, 3060, 864, 1, 1},
        {"an unknown unit is inch, limited with the twips factor",
         {{"UnitsIndex", "3"}, {"MarginLeft", "5"}},
         8.5,
         11,
         5,
         0.6,
         5,
         1},
    };
    for (const Row& r : rows) {
        for (const char* name :
             {"UnitsIndex", "MarginTop", "MarginBottom", "MarginLeft", "MarginRight", "PaperSizeIndex",
              "PaperOrientationIndex", "PaperSizeUserWidth", "PaperSizeUserHeight"})
            settings.SetValue("Software\\Corvane\\Report", name, "");
        Store(r.stored);
        const ReportPageOptions o = LoadReportPageOptions();
        EXPECT_DOUBLE_EQ(o.PaperWidthInches(), r.width) << r.what;
        EXPECT_DOUBLE_EQ(o.PaperHeightInches(), r.height) << r.what;
        EXPECT_DOUBLE_EQ(o.MarginLeft, r.left) << r.what;
        EXPECT_DOUBLE_EQ(o.MarginTop, r.top) << r.what;
        EXPECT_EQ(o.UnitsIndex, r.units) << r.what;
        EXPECT_EQ(o.PaperSizeIndex, r.paper) << r.what;
    }
}

TEST_F(ReportPageOptionsTest, SavedOptionsComeBack) {
    ReportPageOptions o;
    o.UnitsIndex = 6;
    o.MarginTop = 12.5;
    o.MarginLeft = 20;
    o.PaperSizeIndex = 9;
    o.PaperOrientationIndex = 2;
    SaveReportPageOptions(o);
    EXPECT_EQ(settings.GetValue("Software\\Corvane\\Report", "MarginTop"), "12.5");
    const ReportPageOptions back = LoadReportPageOptions();
    EXPECT_EQ(back.UnitsIndex, 6);
    EXPECT_DOUBLE_EQ(back.MarginTop, 12.5);
    EXPECT_DOUBLE_EQ(back.MarginLeft, 20);
    EXPECT_DOUBLE_EQ(back.PaperWidthInches(), 11.69);
}

} // namespace
} // namespace corvane
