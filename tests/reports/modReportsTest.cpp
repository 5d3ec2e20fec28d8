#include "common/ServicesFixture.h"

#include "acquisition/DemoProject.h"
#include "check/CheckRun.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/modReferenceSource.h"
#include "reports/modReports.h"

#include <clocale>
#include <regex>

namespace corvane {
namespace {

// The demo propeller (pitch 35.0 to 36.0 in along the radius), checked against a constant
// reference pitch, or none.
class modReportsTest : public test::ServicesTest {
protected:
    void Check(std::optional<double> pitch, std::int16_t criteria = 0, std::int16_t isoClass = 1) {
        ASSERT_EQ(BuildDemoProject(), 1);
        gISO484->SetISOCriteriaIndex(criteria);
        gISO484->SetISOClassIndex(isoClass);
        if (pitch) {
            gProject->SetReferenceSourceIndex(kReferenceScan);
            gProject->SetReferenceSectionPitchSourceIndex(0);
            gProject->SetReferenceSectionPitchIndex(0);
            gProject->SetReferenceConstantPitch(*pitch);
            for (int b = 0; b < 4; ++b)
                gProject->SetReferenceScanBladesEnabled(b, 1);
        }
        CheckRequest request;
        request.forReport = true;
        ASSERT_TRUE(RunCheck(*gProject, *gISO484, request).Passed());
        report.selection.blades = EnabledBlades(*gProject->PropellerScan(0));
        report.radii = ISOReportRadii(*gISO484);
    }
    static std::vector<std::string> PageNames(const ReportDocument& d) {
        std::vector<std::string> names;
        for (int p = 0; p < d.PageCount(); ++p) {
            const std::string title = d.Page(p).rows.at(0).cells.at(0).text;
            const std::string name = title.substr(title.find('[') + 1, title.size() - title.find('[') - 2);
            if (names.empty() || names.back() != name)
                names.push_back(name);
        }
        return names;
    }
    // Every cell of the document whose text starts so.
    static std::vector<const ReportCell*> Cells(const ReportDocument& d, const std::string& start) {
        std::vector<const ReportCell*> found;
        for (int p = 0; p < d.PageCount(); ++p)
            for (const ReportRow& row : d.Page(p).rows)
                for (const ReportCell& cell : row.cells)
                    if (cell.text.rfind(start, 0) == 0)
                        found.push_back(&cell);
        return found;
    }
    ReportRequest report;
};

TEST_F(modReportsTest, EachKindHasItsPagesInOrder) {
    using Names = std::vector<std::string>;
    const Names full = {"Summary", "Graphs", "Diam & Pitch", "Sections"};
    const auto with = [&full](Names more) {
        Names all = full;
        all.insert(all.end(), more.begin(), more.end());
        return all;
    };
    struct Row {
        const char* what;
        char kind;
        std::optional<double> pitch;
        std::int16_t criteria, isoClass;
        Names pages;
    };
    const std::vector<Row> rows = {
        {"status", 's', 35.5, 1, 1, {"Summary", "Graphs"}},
        {"full, primary", 'f', 35.5, 0, 1, full},
        {"full, secondary", 'f', 35.5, 1, 1, with({"Sum & Diff", "Rake & Skew"})},
        {"full, secondary without reference", 'f', std::nullopt, 1, 1, with({"Rake & Skew"})},
        {"full, secondary in class 3", 'f', 35.5, 1, 4, with({"Rake & Skew"})},
    };
    for (const Row& r : rows) {
        Check(r.pitch, r.criteria, r.isoClass);
        const ReportBuild build = r.kind == 's' ? BuildStatusReport(*gProject, *gISO484, report)
                                                : BuildFullReport(*gProject, *gISO484, report);
        EXPECT_TRUE(build.Complete()) << r.what << ": " << build.failure;
        EXPECT_EQ(PageNames(build.document), r.pages) << r.what;
        EXPECT_EQ(build.document.Title(), r.kind == 's' ? "Corvane Report" : "TesselbyTBSC Report") << r.what;
        // The report ID closes every page, the same on all.
        EXPECT_EQ(build.reportId,
                  "Report ID 20261122-090507 Corvane " + std::string(build.reportId.substr(34)));
        for (int p = 0; p < build.document.PageCount(); ++p)
            EXPECT_EQ(build.document.Page(p).rows.back().cells.at(0).text, build.reportId)
                << r.what << " page " << p;
    }
}

TEST_F(modReportsTest, TheRepairReportJudgesBothScansAndPutsTheProjectBack) {
    Check(35.5);
    gProject->SetPropellerScanCount(2);
    DemoPropeller().FillScan(*gProject->PropellerScan(1), {0.95, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3}, 40);
    report.compareScanIndex = 1;
    const ReportBuild build = BuildRepairReport(*gProject, *gISO484, report);
    EXPECT_TRUE(build.Complete()) << build.failure;
    EXPECT_EQ(PageNames(build.document),
              (std::vector<std::string>{"Summary", "Graphs", "Summary", "Graphs"}));
    EXPECT_EQ(Cells(build.document, "ISO 484-").size(), 2u);
    EXPECT_NE(Cells(build.document, "ISO 484-").back()->text.find("Repair"), std::string::npos);
    EXPECT_EQ(gProject->ActiveScanIndex(), 0);

    report.compareScanIndex = -1;
    EXPECT_FALSE(BuildRepairReport(*gProject, *gISO484, report).Complete());
}

TEST_F(modReportsTest, CellsShowFailuresMissingDataAndTheReference) {
    // A reference pitch far below the blades': every pitch fails.
    Check(30.0);
    report.selection.blades = {true, false, true, true, true, true, true};
    const ReportBuild build = BuildFullReport(*gProject, *gISO484, report);
    EXPECT_EQ(build.sentence.rfind("Fails to meet ", 0), 0u) << build.sentence;
    const auto verdict = Cells(build.document, "Fails to meet ");
    ASSERT_EQ(verdict.size(), 1u);
    EXPECT_EQ(verdict[0]->fill, kReportPaleRed);
    const auto sectionCell = Cells(build.document, "[X]\r\nSection\r\nPitch");
    ASSERT_EQ(sectionCell.size(), 1u);
    EXPECT_EQ(sectionCell[0]->fill, kReportPaleRed);
    EXPECT_EQ(Cells(build.document, "OK\r\nBlade\r\nSpacing").size(), 1u);

    const auto failed = Cells(build.document, "35.");
    ASSERT_FALSE(failed.empty());
    for (const ReportCell* cell : failed)
        if (cell->text.find(" [X]") != std::string::npos) {
            EXPECT_EQ(cell->fill, kReportPaleRed) << cell->text;
            EXPECT_EQ(cell->textColour, kReportRed) << cell->text;
            EXPECT_TRUE(cell->borders[0] && cell->borders[3]) << cell->text;
        }
    EXPECT_EQ(Cells(build.document, "Blade 2").size(), 0u) << "a blade left out has no column";
    EXPECT_GT(Cells(build.document, "Blade 3").size(), 3u);
    const auto headings = [](const ReportDocument& d) {
        const auto found = Cells(d, "Ref");
        return std::count_if(found.begin(), found.end(),
                             [](const ReportCell* c) { return c->text == "Ref"; });
    };
    EXPECT_GT(headings(build.document), 3);
    EXPECT_GT(Cells(build.document, "-").size(), 0u) << "the propeller has no spacing of its own";

    // Without a reference nothing is judged and there is no reference column.
    Check(std::nullopt);
    const ReportBuild alone = BuildFullReport(*gProject, *gISO484, report);
    EXPECT_EQ(headings(alone.document), 0);
    for (const ReportCell* cell : Cells(alone.document, "3"))
        EXPECT_EQ(cell->text.find(" [X]"), std::string::npos) << cell->text;
}

TEST_F(modReportsTest, ACellIsJudgedByItsValueAsPrinted) {
    struct Row {
        double value, lower, upper;
        const char* format;
        bool outside;
    };
    const std::vector<Row> rows = {
        {35.0004, 34, 35, "0.000", false}, // prints 35.000: at the limit
        {35.0006, 34, 35, "0.000", true},    {33.9996, 34, 35, "0.000", false},
        {33.9994, 34, 35, "0.000", true},    {0.0504, -0.05, 0.05, "0.0%", false},
        {0.0551, -0.05, 0.05, "0.0%", true}, {-0.0504, -0.05, 0.05, "0.0%", false},
        {1.04, 0, 1, "0.0", false},          {1.06, 0, 1, "0.0", true},
    };
    for (const Row& r : rows)
        EXPECT_EQ(ReportCellOutside(ISOWindow{r.lower, r.upper, r.value, false}, r.format), r.outside)
            << r.value << " " << r.format;
}

TEST_F(modReportsTest, TheCsvHoldsTheCellsWithPointDecimalsInAnyLocale) {
    Check(35.5);
    const char* previous = std::setlocale(LC_ALL, nullptr);
    const std::string saved = previous ? previous : "C";
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr) << "scripts/deps makes the de_DE.UTF-8 locale";
    const ReportBuild build = BuildFullReport(*gProject, *gISO484, report);
    const std::string csv = ReportCsvText(build.document);
    std::setlocale(LC_ALL, saved.c_str());
    EXPECT_NE(csv.find("Propeller Inspection [Summary]\r\n"), std::string::npos);
    EXPECT_NE(csv.find("40.000 / "), std::string::npos);
    EXPECT_NE(csv.find("\"OK\r\nISO\r\nRadii\""), std::string::npos);
    const std::regex decimalComma(R"re((^|,)"-?[0-9]+,[0-9]+%?")re");
    EXPECT_FALSE(std::regex_search(csv, decimalComma)) << "no decimal comma";

    ReportDocument doc;
    const int page = doc.AddPage();
    doc.SetCellText(page, doc.AddRow(page, 3), 0, "a,b");
    const int row = doc.AddRow(page, 3);
    doc.SetCellText(page, row, 0, "say \"x\"");
    doc.SetCellText(page, row, 2, "1.5");
    EXPECT_EQ(ReportCsvText(doc), "\"a,b\",,\r\n\"say \"\"x\"\"\",,1.5\r\n");
}

TEST_F(modReportsTest, AMissingLogoOrPictureLeavesItsCellEmpty) {
    Check(35.5);
    report.programFolder = temp->Folder();
    const ReportBuild build = BuildStatusReport(*gProject, *gISO484, report);
    for (int p = 0; p < build.document.PageCount(); ++p)
        for (const ReportRow& row : build.document.Page(p).rows)
            for (const ReportCell& cell : row.cells)
                EXPECT_TRUE(cell.image.empty()) << cell.image;
}

} // namespace
} // namespace corvane
