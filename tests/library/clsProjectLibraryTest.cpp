#include "LibraryTestProjects.h"

#include "library/clsProjectLibrary.h"
#include "library/modLibraryFiles.h"

namespace corvane {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> Column(const clsProjectLibrary& list, int column) {
    std::vector<std::string> cells;
    for (const auto& row : list.Rows())
        cells.push_back(row.Cell(column));
    return cells;
}

using Ids = std::vector<std::string>;

using clsProjectLibraryTest = test::LibraryTest;

TEST_F(clsProjectLibraryTest, ListsTheReadableProjectFilesWithTheirColumns) {
    clsProjectLibrary empty;
    std::vector<int> none;
    EXPECT_EQ(empty.Load([&](int percent) { none.push_back(percent); }), 0);
    EXPECT_EQ(none, std::vector<int>{0});
    EXPECT_EQ(empty.Search("anything"), 0);
    EXPECT_EQ(empty.Open(""), 0);

    WriteThreeProjects();
    test::WriteBytes(library + "broken.cvpj", "not a project\r\n");
    test::WriteBytes(library + "notes.txt", "[Project]\r\nProjectID=x\r\n");
    fs::create_directories(library + "folder.cvpj");
    fs::copy_file(library + "bravo.cvpj", archive + "elsewhere.cvpj");

    clsProjectLibrary list;
    std::vector<int> progress;
    ASSERT_EQ(list.Load([&](int percent) { progress.push_back(percent); }), 3);
    EXPECT_EQ(progress.front(), 0);
    EXPECT_EQ(progress.back(), 100);
    EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));

    // Oldest first.
    EXPECT_EQ(Column(list, kColumnProjectID), (Ids{"Bravo-17", "alpha-02", "Charlie-9"}));
    const LibraryRow& bravo = list.Rows()[0];
    EXPECT_EQ(bravo.Cell(kColumnCustomer), "North Tug Co");
    EXPECT_EQ(bravo.Cell(kColumnPropeller), "1850 x 1400 - 4 - [mm] - Class 1");
    EXPECT_EQ(bravo.Cell(kColumnDateSaved), "2025-11-03 08:00");
    EXPECT_EQ(bravo.Cell(kColumnFilePath), library + "bravo.cvpj");
    EXPECT_NEAR(bravo.diameterMetres, 1.85, 1e-9);
    EXPECT_EQ(list.Rows()[1].Cell(kColumnPropeller), "6 x 4.5 - 5 - [ft] - Class S");
    EXPECT_NEAR(list.Rows()[1].diameterMetres, 6 * 0.3048, 1e-9);
    EXPECT_EQ(list.Rows()[2].Cell(kColumnPropeller), "2.1 x 1.7 - 3 - [m] - Class 2");
}

TEST_F(clsProjectLibraryTest, AFileWithoutAStampShowsTheFileDate) {
    test::WriteTestProject(clock, library + "nostamp.cvpj",
                           {"N-1", "Cust", 1, "1", 4, 1, 1, {2026, 1, 1, 0, 0, 0}});
    std::string bytes = test::FileBytes(library + "nostamp.cvpj");
    const auto at = bytes.find("LastModified=");
    ASSERT_NE(at, std::string::npos);
    bytes.erase(at + 13, bytes.find('\r', at) - at - 13);
    test::WriteBytes(library + "nostamp.cvpj", bytes);

    clsProjectLibrary list;
    ASSERT_EQ(list.Load(), 1);
    const DateTime fileDate = FileModifiedDate(library + "nostamp.cvpj");
    EXPECT_NE(fileDate, DateTime{});
    EXPECT_EQ(list.Rows()[0].dateSaved, fileDate);
}

// Sorting by the Propeller column's diameter is driven through the dialog in frmLibProjectTest.
TEST_F(clsProjectLibraryTest, SortsByValueInBothDirections) {
    WriteThreeProjects();
    clsProjectLibrary list;
    list.Load();
    EXPECT_EQ(list.SortColumn(), kColumnDateSaved);
    list.ToggleSort(kColumnDateSaved);
    EXPECT_FALSE(list.SortAscending());
    EXPECT_EQ(Column(list, kColumnProjectID), (Ids{"Charlie-9", "alpha-02", "Bravo-17"}));
    // A new column starts ascending; texts ignore case.
    list.ToggleSort(kColumnProjectID);
    EXPECT_EQ(Column(list, kColumnProjectID), (Ids{"alpha-02", "Bravo-17", "Charlie-9"}));
    list.Sort(kColumnCustomer, true);
    EXPECT_EQ(Column(list, kColumnCustomer), (Ids{"Coastal Lines", "Harbour Ferries", "North Tug Co"}));
}

TEST_F(clsProjectLibraryTest, EachSearchNarrowsTheRowsTheLastOneKept) {
    WriteThreeProjects();
    clsProjectLibrary list;
    list.Load();

    // Each text against the rows left by the ones before it, with the rows it leaves.
    const struct {
        std::string text;
        int found;
        Ids shown;
    } steps[] = {
        {"2026-", 2, {"alpha-02", "Charlie-9"}}, // the date as shown
        {"TUG", 0, {"alpha-02", "Charlie-9"}},   // only Bravo has it, and Bravo is gone
        {"[FT]", 1, {"alpha-02"}},               // the Propeller column, any case
        {"lines", 0, {"alpha-02"}},              // Charlie is gone too
        {"library", 0, {"alpha-02"}},            // the hidden path is not searched
    };
    for (const auto& step : steps) {
        EXPECT_EQ(list.Search(step.text), step.found) << step.text;
        EXPECT_EQ(Column(list, kColumnProjectID), step.shown) << step.text;
    }
    EXPECT_TRUE(list.Searching());

    // Sorting keeps the search; clearing it shows all rows in the present order.
    list.Sort(kColumnProjectID, false);
    EXPECT_EQ(Column(list, kColumnProjectID), (Ids{"alpha-02"}));
    list.ClearSearch();
    EXPECT_FALSE(list.Searching());
    EXPECT_EQ(Column(list, kColumnProjectID), (Ids{"Charlie-9", "Bravo-17", "alpha-02"}));
    EXPECT_EQ(list.Search("TUG"), 1); // a fresh search after the clearing looks at every row
    EXPECT_EQ(Column(list, kColumnProjectID), (Ids{"Bravo-17"}));
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(clsProjectLibraryTest, AFolderThatCannotBeWrittenIsRefused) {
    clsProjectLibrary list;
    list.SetArchiveMode(true);
    EXPECT_TRUE(list.CheckFolderWritable());
    EXPECT_EQ(list.Caption(), "Corvane Archive");
    // A folder that is missing, and one that nobody, root included, can create a file in.
    for (const std::string& folder : {temp->Folder() + "missing/", std::string("/proc/")}) {
        gArchiveDirectory = folder;
        prompts.Expect(Answer::OK, "does not have write permissions");
        EXPECT_FALSE(list.CheckFolderWritable()) << folder;
        EXPECT_EQ(prompts.History().back().title, "Access Error");
        EXPECT_EQ(prompts.History().back().text,
                  "The current project directory does not have write permissions. Please set the "
                  "File/Project directory using Tools > Settings from ...");
        EXPECT_EQ(prompts.History().back().style & MsgBox::IconMask, MsgBox::Critical);
    }
}

} // namespace
} // namespace corvane
