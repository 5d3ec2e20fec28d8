#include "acquisition/ManualEntry.h"
#include "common/ServicesFixture.h"
#include "model/clsSection.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

using ManualEntryTest = test::ServicesTest;

TEST_F(ManualEntryTest, PointsStartAtTheTrailingEdgeWhateverOrderWasTyped) {
    const struct {
        int rotation;
        std::vector<ManualEntryRow> rows;
        std::vector<double> angles; // as stored
        bool corrected;
    } cases[] = {
        {0, {{"10", "1"}, {"20", "2"}, {"30", "3"}}, {10, 20, 30}, false},
        {0, {{"30", "3"}, {"20", "2"}, {"10", "1"}}, {10, 20, 30}, true}, // reversed: outer two swap
        {0, {{"350", "1"}, {"10", "2"}}, {350, 10}, false},               // d = 340 is -20 through 0
        {1, {{"350", "1"}, {"10", "2"}}, {10, 350}, true},
        {0, {{"5", "1"}, {"", "9"}, {"6", "2"}, {"7", ""}}, {5, 6}, false}, // half rows drop silently
    };
    for (const auto& c : cases) {
        clsSection section;
        if (c.corrected)
            prompts.Expect(Answer::OK, "Note: Points are ordered from Leading edge to Trailing edge.");
        EXPECT_EQ(ApplyManualEntry(section, c.rows, c.rotation, 14.0), ManualEntryResult::Stored);
        EXPECT_EQ(section.ThetaDegArray(), c.angles);
        EXPECT_EQ(section.RadiusArray(), std::vector<double>(c.angles.size(), 14.0))
            << "the radius is nominal";
        if (c.corrected) {
            EXPECT_EQ(prompts.History().back().title, "Point order");
        }
    }
    EXPECT_EQ(prompts.History().size(), 2u);
}

TEST_F(ManualEntryTest, OneRowIsRefusedAndAnEmptyTableClearsTheSection) {
    clsSection section;
    section.SetThetaDegArray({1, 2, 3});
    prompts.Expect(Answer::OK, "A valid section requires at least 2 data points.");
    EXPECT_EQ(ApplyManualEntry(section, {{"1", "2"}, {"3", ""}}, 0, 5), ManualEntryResult::KeepOpen);
    EXPECT_EQ(prompts.History().back().title, "Data error");
    EXPECT_EQ(section.RawOffsetCount(), 3) << "nothing is stored";
    EXPECT_EQ(ApplyManualEntry(section, {{"", ""}}, 0, 5), ManualEntryResult::Cleared);
    EXPECT_EQ(section.RawOffsetCount(), 0);
    EXPECT_EQ(ManualEntryRows(section), std::vector<ManualEntryRow>{ManualEntryRow{}});
}

TEST_F(ManualEntryTest, PastedSpreadsheetCellsBecomeNumbers) {
    const auto cells = PastedCells("12.5\t0.25\n13\tabc\r\n14\t0.5");
    ASSERT_EQ(cells.size(), 3u);
    EXPECT_EQ(cells[0], (std::vector<std::string>{"12.5", "0.25"}));
    EXPECT_EQ(cells[1], (std::vector<std::string>{"13", "0"}));
    EXPECT_EQ(cells[2], (std::vector<std::string>{"14", "0.5"}));
    EXPECT_EQ(CellText("x1"), "0");
    EXPECT_EQ(CellText(" 2.5 "), "2.5");
    EXPECT_EQ(ManualEntryCaption(0.7, 1), "Radius = 0.7R - Blade 2");
    EXPECT_EQ(DeleteRowQuestion({"12.5", "0.25"}), "Delete data point 12.5, 0.25?");
}

} // namespace
} // namespace corvane
