#include "shell/WindowTestSupport.h"

#include "acquisition/DemoProject.h"
#include "files/FileAccess.h"
#include "reports/modReports.h"
#include "shell/ReportPageController.h"
#include "shell/ReportView.h"
#include "shell/ctlPanelButton.h"
#include "shell/frmPageDocs.h"

#include <QComboBox>
#include <QLabel>

namespace corvane {
namespace {

class ReportPageControllerTest : public test::WindowTest {
protected:
    void SetUp() override {
        WindowTest::SetUp();
        ASSERT_EQ(BuildDemoProject(6), 1);
        gProject->SetPropellerScanCount(2);
        auto copy = gProject->PropellerScan(0)->CopyClass();
        copy->SetScanID(1);
        gProject->SetPropellerScan(1, copy);
        window->ProjectPage().RefreshProjectFormData();
        window->ctlDocsButton_Click();
        ASSERT_EQ(window->ActivePage(), frmCorvane::PageReport);
    }
    ReportPageController& Page() const { return window->ReportPage(); }
    frmPageDocs& Docs() const { return Page().Docs(); }
    std::string Labels() const {
        return (Docs().lblPageIndex->text() + " " + Docs().lblPageOf->text()).toStdString();
    }
};

TEST_F(ReportPageControllerTest, ReportsBuildAndPageWithTheirButtons) {
    QComboBox& compare = *Docs().cboScanCompare;
    ASSERT_EQ(compare.count(), 3);
    EXPECT_EQ(compare.itemText(0).toStdString(), " None");
    EXPECT_EQ(compare.itemText(1).toStdString(), " [A] Active");
    EXPECT_EQ(compare.itemText(2).toStdString(), " B");
    EXPECT_FALSE(Docs().ctlRepairReport->Enabled()) << "no compare scan chosen";
    EXPECT_FALSE(Docs().ctlSaveReport->Enabled());

    Page().BuildReport(kReportKindStatus);
    EXPECT_EQ(Labels(), "1 OF 2");
    EXPECT_TRUE(Docs().ctlShowStatus->Pressed());
    EXPECT_FALSE(Docs().ctlPrevPage->Enabled());
    Docs().MyReports->NextPage();
    EXPECT_EQ(Labels(), "2 OF 2");
    EXPECT_FALSE(Docs().ctlNextPage->Enabled()) << "> on the last page";
    EXPECT_TRUE(Docs().ctlPrevPage->Enabled());

    CompareScanIndex = 1;
    Page().Refresh();
    EXPECT_TRUE(Docs().ctlRepairReport->Enabled());
    Page().BuildReport(kReportKindRepair);
    EXPECT_EQ(Labels(), "1 OF 4");
    EXPECT_TRUE(Docs().ctlRepairReport->Pressed());
    EXPECT_FALSE(Docs().ctlShowStatus->Pressed());
    EXPECT_EQ(gProject->ActiveScanIndex(), 0);
}

TEST_F(ReportPageControllerTest, BladeButtonsToggleTheirBladeAndMakeTheReportStale) {
    Page().BuildReport(0);
    EXPECT_TRUE(Docs().ctlPrintReport->Enabled());
    window->ctlBlades_Click(1);
    EXPECT_FALSE(gShowBladeFlags[1]);
    EXPECT_FALSE(Strip().ctlBlades[1]->Pressed());
    EXPECT_TRUE(Strip().ctlBlades[0]->Pressed());
    EXPECT_FALSE(Docs().ctlPrintReport->Enabled());
    window->ctlBlades_Click(1);
    EXPECT_TRUE(gShowBladeFlags[1]);
    EXPECT_TRUE(Strip().ctlBlades[1]->Pressed());

    // A change of the project blanks the report when the page opens again.
    Page().BuildReport(kReportKindStatus);
    window->ctlProjButton_Click();
    gProjectDirty = true;
    window->ctlDocsButton_Click();
    EXPECT_FALSE(Docs().MyReports->HasDocument());
    EXPECT_EQ(Labels(), "0 OF 0");
}

TEST_F(ReportPageControllerTest, SaveWritesPdfOrCsvAndLeavesAReadOnlyFileAlone) {
    Page().BuildReport(kReportKindStatus);
    const std::string csv = temp->File("report");
    dialogs.Choose(csv, 1);
    Page().SaveReport();
    std::string bytes;
    ASSERT_TRUE(ReadFileBytes(csv + ".csv", bytes));
    EXPECT_NE(bytes.find("Report ID 20261122-090507"), std::string::npos);
    EXPECT_EQ(dialogs.requests.back().title, "Save file...");

    const std::string locked = temp->File("locked.pdf");
    ASSERT_TRUE(WriteFileAtomically(locked, std::string_view("old")));
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read);
    dialogs.Choose(locked, 0);
    prompts.Expect(Answer::OK, "The report could not be saved. The selected file is Read-only.");
    Page().SaveReport();
    EXPECT_EQ(prompts.History().back().title, "Read-Only Error");
    ASSERT_TRUE(ReadFileBytes(locked, bytes));
    EXPECT_EQ(bytes, "old");

    EXPECT_TRUE(Page().SaveReportAs(temp->File("report.pdf"), 0));
    ASSERT_TRUE(ReadFileBytes(temp->File("report.pdf"), bytes));
    EXPECT_EQ(bytes.substr(0, 4), "%PDF");
}

} // namespace
} // namespace corvane
