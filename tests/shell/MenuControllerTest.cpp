#include "WindowTestSupport.h"

#include "acquisition/DemoProject.h"
#include "model/clsBlades.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "shell/ScanCommands.h"
#include "shell/ToolsCommands.h"
#include "shell/frmHelp.h"
#include "shell/frmOptions.h"
#include "support/Services.h"

#include <QApplication>
#include <QComboBox>
#include <QKeySequence>
#include <QMenu>
#include <QTimer>

#include <fstream>

#include <tuple>

namespace corvane {
namespace {

class MenuControllerTest : public test::WindowTest {
protected:
    // The demo project with `scans` copies of its scan, lettered A, B, C...
    void UseDemoScans(int scans) {
        ASSERT_EQ(BuildDemoProject(6), 1);
        const auto first = gProject->PropellerScan(0);
        gProject->SetPropellerScanCount(static_cast<std::int16_t>(scans));
        for (int i = 0; i < scans; ++i) {
            auto copy = first->CopyClass();
            copy->SetScanID(static_cast<std::int16_t>(i));
            gProject->SetPropellerScan(i, copy);
        }
        window->ProjectPage().RefreshProjectFormData();
    }
    std::string Caption(const char* name) const { return Entry(name)->text().toStdString(); }
};

TEST_F(MenuControllerTest, MenusOpenByPageAndScanMode) {
    EXPECT_FALSE(Open("mnuScan"));
    EXPECT_FALSE(Open("mnuCheckPlot"));
    EXPECT_TRUE(Open("mnuTools"));
    EXPECT_TRUE(Entry("mnuViewPage_0")->isChecked());

    UseDemoScans(1);
    window->ctlScanButton_Click();
    EXPECT_TRUE(Open("mnuScan"));
    EXPECT_TRUE(Entry("mnuViewPage_1")->isChecked());
    EXPECT_TRUE(Entry("mnuScanModeManualEntry")->isChecked());
    EXPECT_FALSE(Entry("mnuScanOptions")->isEnabled()); // not in manual entry
    EXPECT_FALSE(Entry("mnuScanResetBuffer")->isEnabled());

    gDAQConnected = true;
    window->Scans().mnuScanModeDigitalDAQ_Click();
    EXPECT_EQ(gScanMode, 2);
    EXPECT_TRUE(Entry("mnuScanModeDigitalDAQ")->isChecked());
    EXPECT_FALSE(Entry("mnuScanModeManualEntry")->isChecked());
    EXPECT_TRUE(Entry("mnuScanOptions")->isEnabled());

    // Through the page list, with the gates.
    Entry("mnuViewPage_2")->trigger();
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageCheck);
    EXPECT_FALSE(Open("mnuScan"));
    EXPECT_TRUE(Open("mnuCheckPlot"));
    EXPECT_TRUE(Entry("mnuViewPage_2")->isChecked());
    Entry("mnuViewPage_3")->trigger();
    EXPECT_FALSE(Open("mnuCheckPlot"));
    EXPECT_TRUE(Open("mnuTools"));

    // An office station has no Scan menu on the Scan page.
    gOfficeMode = 1;
    gScanMode = 0;
    window->ctlScanButton_Click();
    ASSERT_EQ(window->ActivePage(), frmCorvane::PageScan);
    EXPECT_FALSE(Open("mnuScan"));
}

TEST_F(MenuControllerTest, DigitalDAQWithoutTheBoxFallsBackToManualEntry) {
    gDAQConnected = false;
    gScanMode = 2;
    prompts.Expect(Answer::OK, "The DAQ is not connected! Scan mode will be setup as Manual entry.");
    window->Scans().mnuScanModeDigitalDAQ_Click();
    EXPECT_EQ(prompts.History().back().title, "Error");
    EXPECT_EQ(gScanMode, 1);
    EXPECT_TRUE(Entry("mnuScanModeManualEntry")->isChecked());
}

TEST_F(MenuControllerTest, CheckMenuTicksFollowTheSwitches) {
    ASSERT_TRUE(gPitchIgnoreTrack);
    window->Tools().mnuCheckPitchOnly_Click();
    EXPECT_FALSE(gPitchIgnoreTrack);
    EXPECT_FALSE(Entry("mnuCheckPitchOnly")->isChecked());
    window->Tools().mnuCheckPlotZoom_Click(1);
    EXPECT_TRUE(ZoomActive);
    EXPECT_TRUE(Entry("mnuCheckPlotZoom_1")->isChecked());
    EXPECT_FALSE(Entry("mnuCheckPlotZoom_0")->isChecked());
    EXPECT_FALSE(gProjectDirty); // view settings, not project data
}

TEST_F(MenuControllerTest, DeletingAScanShiftsTheLaterOnesDownButTheOnlyOneStays) {
    UseDemoScans(1);
    window->ctlScanButton_Click();
    prompts.Expect(Answer::Yes, "Are you sure you want to delete Scan A?");
    window->Scans().mnuScanHistoryDelete_Click();
    EXPECT_EQ(prompts.History().back().title, "Delete scan...");
    EXPECT_EQ(gProject->PropellerScanCount(), 1);
    EXPECT_GT(gProject->PropellerScan(0)->Blades(0)->Section(0)->RawOffsetCount(), 0);
    EXPECT_FALSE(gProjectDirty);

    UseDemoScans(3);
    gProject->SetActiveScanIndex(1);
    prompts.Expect(Answer::No, "Are you sure you want to delete Scan B?");
    window->Scans().mnuScanHistoryDelete_Click();
    EXPECT_EQ(gProject->PropellerScanCount(), 3);

    prompts.Expect(Answer::Yes, "Scan B?");
    window->Scans().mnuScanHistoryDelete_Click();
    ASSERT_EQ(gProject->PropellerScanCount(), 2);
    EXPECT_EQ(gProject->PropellerScan(1)->ScanID(), 2);
    EXPECT_TRUE(gProjectDirty);

    gProject->SetActiveScanIndex(1);
    prompts.Expect(Answer::Yes, "Scan C?");
    window->Scans().mnuScanHistoryDelete_Click();
    EXPECT_EQ(gProject->ActiveScanIndex(), 0); // no longer below the count
    gProject->SetActiveScanIndex(4);
    prompts.Expect(Answer::OK, "The selected scan does not exist.");
    window->Scans().mnuScanHistoryDelete_Click();

    // Off the Scan page the command does nothing.
    window->ctlProjButton_Click();
    window->Scans().mnuScanHistoryDelete_Click();
}

TEST_F(MenuControllerTest, ResettingTheScanBufferAsksWithTheStationAndBlade) {
    UseDemoScans(1);
    gScanMode = 2;
    window->ctlScanButton_Click();
    ActiveBlade = 1;
    ActiveRadius = 3;
    const auto section = gProject->PropellerScan(0)->Blades(1)->Section(3);
    prompts.Expect(Answer::Yes,
                   "Warning! There are 6 points in the buffer. Erase the buffer and re-scan the 70R "
                   "for blade 2?");
    window->Scans().mnuScanResetBuffer_Click();
    EXPECT_EQ(section->RawOffsetCount(), 0);
    EXPECT_TRUE(gProjectDirty);
    window->Scans().mnuScanResetBuffer_Click(); // an empty buffer asks nothing
}

// The Settings dialog opens over the Scan page; what OK saved is in force when it closes.
TEST_F(MenuControllerTest, SettingsSavedOnOKAreInForceAfterwards) {
    UseDemoScans(1);
    window->ctlScanButton_Click();
    ASSERT_FALSE(gFootPedal);
    QTimer::singleShot(0, [] {
        auto* dialog = qobject_cast<frmOptions*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        dialog->findChild<QComboBox*>(QStringLiteral("cboFootPedal"))->setCurrentIndex(1);
        dialog->ClickOK();
    });
    gScanOrderMode = 1;
    Entry("mnuToolsSettings")->trigger();
    EXPECT_TRUE(gFootPedal);
    EXPECT_EQ(gScanOrderMode, 0);
}

TEST_F(MenuControllerTest, HelpOpensThePagesInstalledWithTheProgram) {
    gHelpFileFound = true;
    gHelpFilePath = CORVANE_SOURCE_DIR "/data/help/index.html";
    Entry("mnuHelpTechSupport")->trigger();
    frmHelp* help = window->Tools().HelpWindow();
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(help->CurrentPage(), QStringLiteral("support.html"));
    Entry("mnuHelpContents")->trigger();
    EXPECT_EQ(window->Tools().HelpWindow(), help);
    EXPECT_EQ(help->CurrentPage(), QStringLiteral("index.html"));
}

TEST_F(MenuControllerTest, ImportingAScanAddsItAfterSayingHowTheFileDiffers) {
    UseDemoScans(1);
    window->ctlScanButton_Click();
    const std::string hale = temp->File("other.txt");
    std::ofstream(hale) << "H,C,,M,42,36,L,,,J,,1/2/2025,,S,,,I,,,,,Mk,P,Br\r\n2,95,1,2,95,3,4\r\n"
                        << "10.0,0.5\r\n20.0,0.5\r\n102\r\n10.0,0.5\r\n20.0,0.5\r\n102\r\n";
    dialogs.Choose(hale);
    prompts.Expect(Answer::OK, " File has propeller diameter of 42 But a diameter of 40 is required \r\n"
                               " File has propeller Blade count Of 2 But 4 blades are required \r\n"
                               " File has propeller with Left hand rotation, But a propeller with Right hand "
                               "rotation is required ");
    Entry("mnuScanHistoryImport")->trigger();
    EXPECT_EQ(dialogs.requests.back().filters.at(0).description, "Hale MRI (*.txt)");
    ASSERT_EQ(gProject->PropellerScanCount(), 2);
    EXPECT_EQ(gProject->ActiveScanIndex(), 1);
    const auto scan = gProject->PropellerScan(1);
    EXPECT_EQ(scan->ScanID(), 1);
    EXPECT_EQ(scan->BladeCount(), 4);
    EXPECT_EQ(scan->Blades(1)->Section(0)->RawOffsetCount(), 2);
    EXPECT_EQ(scan->Blades(2)->SectionCount(), 8);
    EXPECT_TRUE(gProjectDirty);
}

TEST_F(MenuControllerTest, ReferencePanelWithoutScansDropsTheReference) {
    gProject->SetReferenceSourceIndex(2);
    prompts.Expect(Answer::OK, "No scans are availible ");
    window->Tools().mnuToolsOpenReferencePage_Click();
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);
}

TEST_F(MenuControllerTest, EntriesWithoutTheirFeatureSaySo) {
    UseDemoScans(1);
    window->ctlScanButton_Click();
    gHelpFileFound = false;
    // clang-format off
    const std::vector<std::tuple<const char*, const char*, const char*>> cases = {
        {"mnuHelpContents", "Corvane Help file not found.", "Corvane Help File Error"},
        {"mnuHelpAbout", "Corvane 1.", "About Corvane"}};
    // clang-format on
    for (const auto& [entry, text, title] : cases) {
        prompts.Expect(Answer::OK, text);
        Entry(entry)->trigger();
        EXPECT_EQ(prompts.History().back().title, title) << entry;
    }
}

} // namespace
} // namespace corvane
