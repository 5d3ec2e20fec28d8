#include "WindowTestSupport.h"

#include "acquisition/DemoProject.h"
#include "files/modLockFile.h"
#include "iso484/clsISO484.h"
#include "shell/ctlTextField.h"
#include "support/ErrorTail.h"

#include <QCloseEvent>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>

namespace corvane {
namespace {

namespace fs = std::filesystem;

class frmCorvaneTest : public test::WindowTest {
protected:
    // The demo project: job data that passes the Project page and one four-bladed scan that
    // passes the scan check.
    void UseDemoProject() {
        ASSERT_EQ(BuildDemoProject(12), 1);
        window->ProjectPage().RefreshProjectFormData();
        window->SetBladeButtonState(0);
    }

    // A blade that was never measured: it takes no part in the evaluation.
    static void ClearBlade(int blade) {
        auto cleared = std::make_shared<clsBlades>();
        cleared->SetSectionCount(8);
        gProject->PropellerScan(0)->SetBlades(blade, cleared);
    }

    bool BladeShown(int blade) const { return Strip().ctlBlades[static_cast<std::size_t>(blade)]->Visible(); }
    bool BladePressed(int blade) const {
        return Strip().ctlBlades[static_cast<std::size_t>(blade)]->Pressed();
    }
};

TEST_F(frmCorvaneTest, OpensCentredOnTheProjectPageWithTheStationInTheTitle) {
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageProject);
    EXPECT_TRUE(Strip().ctlProjButton->Pressed());
    EXPECT_EQ(Strip().ctlProjButton->ForeColor(), kCaptionBlack);
    EXPECT_EQ(Strip().ctlScanButton->ForeColor(), kCaptionWhite);
    EXPECT_EQ(Title(), "Corvane [Shop]");

    gProject->SetProjectID("TUG-0417");
    window->UpdateTitlebarCaption();
    EXPECT_EQ(Title(), "Corvane [Shop] - TUG-0417");
    gProject->SetCustomer("Atlantic Tug");
    gOfficeMode = 1;
    window->UpdateTitlebarCaption();
    EXPECT_EQ(Title(), "Corvane [Office] - TUG-0417 - Atlantic Tug");
    // A customer without an ID does not show.
    gProject->SetProjectID("");
    window->UpdateTitlebarCaption();
    EXPECT_EQ(Title(), "Corvane [Office]");
}

TEST_F(frmCorvaneTest, ScanButtonWithAMissingFieldStaysOnTheProjectPageWithTheFieldMarked) {
    FillRequiredFields();
    gProject->SetCustomer("  ");
    window->ctlScanButton_Click();
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageProject);
    EXPECT_TRUE(Strip().ctlProjButton->Pressed());
    EXPECT_FALSE(Strip().ctlScanButton->Pressed());
    EXPECT_FALSE(window->ProjectPage().Marks().customer);
    EXPECT_TRUE(window->ProjectPage().Marks().projectID);
    EXPECT_TRUE(prompts.History().empty()); // the marks say it; no box

    // An inner radius outside 1..39 fails the gate as well.
    gProject->SetCustomer("Atlantic Tug");
    gISO484->SetISOIncludeInnerRadiusIndex(1);
    gISO484->SetISOInnerRadius(40.0);
    window->ctlCheckButton_Click();
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageProject);
    EXPECT_FALSE(window->ProjectPage().Marks().innerRadius);
    gISO484->SetISOInnerRadius(1.0);
    window->ctlScanButton_Click();
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageScan);
    EXPECT_EQ(window->PageWidget(frmCorvane::PageScan),
              window->findChild<QStackedWidget*>()->currentWidget());
    EXPECT_TRUE(window->ProjectPage().Marks().AllHold());
    EXPECT_EQ(window->BladeViewMode(), 0);
    EXPECT_EQ(Strip().ctlAll->Caption(), QStringLiteral("ALL"));
    EXPECT_TRUE(Strip().ctlAll->Pressed());
}

TEST_F(frmCorvaneTest, CheckButtonWithoutScanDataLandsOnTheScanPage) {
    FillRequiredFields();
    window->ctlCheckButton_Click(); // no scan at all: silently
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageScan);
    window->ctlDocsButton_Click();
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageScan);
    EXPECT_TRUE(prompts.History().empty());

    window->ctlProjButton_Click();
    gProject->SetPropellerScanCount(1); // an empty scan: after the messages
    prompts.Expect(Answer::Yes, "Blades [1, 2, 3, 4] have no sections. Do you wish to proceed?");
    prompts.Expect(Answer::OK, "The scan has no data and is unable to proceed.");
    window->ctlCheckButton_Click();
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageScan);
    ASSERT_EQ(prompts.History().size(), 2u);
    EXPECT_EQ(prompts.History()[1].title, "Scan Data Error");
}

TEST_F(frmCorvaneTest, CheckPageShowsTheEnabledBladesAndDropsAnUnusableReferenceWithoutDirtying) {
    UseDemoProject();
    ClearBlade(2);
    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceSectionPitchIndex(0);
    gProject->SetReferenceConstantPitch(0);
    ASSERT_FALSE(gProjectDirty);

    prompts.Expect(Answer::Yes, "Blade 3 has no sections. Do you wish to proceed?");
    window->ctlCheckButton_Click();
    ASSERT_EQ(window->ActivePage(), frmCorvane::PageCheck);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), 0);
    EXPECT_FALSE(gProjectDirty);
    EXPECT_TRUE(Strip().ctlCheckButton->Pressed());
    EXPECT_EQ(
        (std::array<bool, 4>{gShowBladeFlags[0], gShowBladeFlags[1], gShowBladeFlags[2], gShowBladeFlags[3]}),
        (std::array<bool, 4>{true, true, false, true}));
    EXPECT_TRUE(BladeShown(1));
    EXPECT_FALSE(BladeShown(2));
    EXPECT_FALSE(BladeShown(4)); // above the blade count
    EXPECT_TRUE(BladePressed(0));
}

TEST_F(frmCorvaneTest, BladeButtonsOnTheCheckPageSwitchBladesAndIgnoreDisabledOnes) {
    UseDemoProject();
    ClearBlade(3);
    // The check numbers the blades against rotation: the demo's stored blade 4 stands where
    // blade 2 belongs, so the empty blade is asked about, and disabled, as blade 2.
    prompts.Expect(Answer::Yes, "Blade 2 has no sections.");
    window->ctlCheckButton_Click();
    ASSERT_EQ(window->ActivePage(), frmCorvane::PageCheck);

    window->ctlBlades_Click(3);
    EXPECT_EQ(window->BladeViewMode(), 2);
    EXPECT_EQ(Strip().ctlAll->Caption(), QStringLiteral("ANY"));
    EXPECT_FALSE(gShowBladeFlags[3]);
    EXPECT_FALSE(BladePressed(3));
    window->ctlBlades_Click(3);
    EXPECT_TRUE(gShowBladeFlags[3]);
    EXPECT_TRUE(BladePressed(3));
    window->ctlBlades_Click(1);
    EXPECT_FALSE(gShowBladeFlags[1]);
    EXPECT_FALSE(BladePressed(1));

    // ctlAll flips between ALL and ISO; ANY goes to ISO.
    window->ctlAll_Click();
    EXPECT_EQ(window->BladeViewMode(), 1);
    window->ctlAll_Click();
    EXPECT_EQ(window->BladeViewMode(), 0);
    EXPECT_EQ(Strip().ctlAll->Caption(), QStringLiteral("ALL"));
    EXPECT_TRUE(Strip().ctlAll->Pressed());
    // Back on the Project page the ALL button does nothing; leaving the Check page gave it
    // its radio click back.
    window->ctlProjButton_Click();
    EXPECT_EQ(window->BladeViewMode(), 1);
    EXPECT_EQ(Strip().ctlAll->ClickAction(), ctlPanelButton::ClickRadio);
    window->ctlAll_Click();
    EXPECT_EQ(window->BladeViewMode(), 1);
}

TEST_F(frmCorvaneTest, BladeButtonsFollowTheBladeCountAndPickTheBladeInManualEntry) {
    UseDemoProject();
    EXPECT_TRUE(BladeShown(3));
    EXPECT_FALSE(BladeShown(4));
    gProject->SetBladeCount(6);
    window->SetBladeButtonState(0);
    EXPECT_TRUE(BladeShown(5));
    EXPECT_FALSE(BladeShown(6));

    window->ctlBlades_Click(2); // the Project page ignores blade buttons
    EXPECT_EQ(ActiveBlade, 0);
    window->ctlScanButton_Click();
    window->ctlBlades_Click(2);
    EXPECT_EQ(ActiveBlade, 2);
    EXPECT_TRUE(BladePressed(2));
    EXPECT_FALSE(BladePressed(0));
    EXPECT_FALSE(Strip().ctlAll->Pressed());
}

TEST_F(frmCorvaneTest, ReportButtonOpensTheReportWithEveryRadiusShown) {
    UseDemoProject();
    window->ctlDocsButton_Click();
    EXPECT_EQ(window->ActivePage(), frmCorvane::PageReport);
    EXPECT_TRUE(Strip().ctlDocsButton->Pressed());
    for (bool shown : gShowRadiusFlags) {
        EXPECT_TRUE(shown);
    }
    EXPECT_EQ(Strip().ctlBlades[0]->ClickAction(), ctlPanelButton::ClickToggle);
}

TEST_F(frmCorvaneTest, LockedStripIgnoresClicksUntilUnlocked) {
    window->Lock_Controls();
    for (int page = 0; page < 4; ++page) {
        EXPECT_EQ(Strip().PageButton(page)->ClickAction(), ctlPanelButton::ClickNone);
    }
    EXPECT_EQ(Strip().ctlBlades[0]->ClickAction(), ctlPanelButton::ClickNone);
    window->UnLock_Controls();
    EXPECT_EQ(Strip().ctlScanButton->ClickAction(), ctlPanelButton::ClickRadio);
    EXPECT_EQ(Strip().ctlAll->ClickAction(), ctlPanelButton::ClickMomentary);
}

TEST_F(frmCorvaneTest, ClosingAsksToSaveThenConfirmsRemovesTheLockAndRemembersThePlace) {
    FillRequiredFields();
    gProjectFileName = "TUG-0417_20261122_090507.cvpj";
    ASSERT_EQ(WriteLockFile(InLibrary(gProjectFileName)), 1);
    gProjectDirty = true;
    window->move(40, 30);

    prompts.Expect(Answer::No, "Would you like to save the changes to the Project?");
    prompts.Expect(Answer::Cancel, "OK to close Corvane?");
    EXPECT_FALSE(window->close());
    EXPECT_TRUE(fs::exists(LockFilePath(InLibrary(gProjectFileName))));

    prompts.Expect(Answer::Cancel, "Would you like to save");
    EXPECT_FALSE(window->close());

    prompts.Expect(Answer::No, "Would you like to save");
    prompts.Expect(Answer::OK, "OK to close Corvane?");
    EXPECT_TRUE(window->close());
    EXPECT_EQ(prompts.History().back().title, "Close Corvane");
    EXPECT_FALSE(fs::exists(LockFilePath(InLibrary(gProjectFileName))));
    EXPECT_FALSE(fs::exists(InLibrary(gProjectFileName))); // No saved nothing

    QSettings placement(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Corvane"));
    EXPECT_FALSE(placement.value(QStringLiteral("Window/Geometry")).toByteArray().isEmpty());
    frmCorvane again;
    EXPECT_EQ(again.pos(), window->pos());
}

// Abort in the critical error dialog ends the program without the closing's questions and
// without a save, but the open project is freed and the acquisition stopped on the way out. The
// dialog offers both its options.
TEST_F(frmCorvaneTest, AbortInTheErrorDialogFreesTheProjectWithoutAsking) {
    FillRequiredFields();
    gProjectFileName = "TUG-0417_20261122_090507.cvpj";
    ASSERT_EQ(WriteLockFile(InLibrary(gProjectFileName)), 1);
    gProjectDirty = true;
    window->tmrAcquire()->start();

    prompts.Expect(Answer::Abort); // OK with "Abort and close application" ticked
    ErrorTail tail("drawing the check graphs");
    EXPECT_FALSE(tail.Step([] { throw std::out_of_range("blade 9"); }));
    EXPECT_TRUE(tail.Aborted());
    EXPECT_EQ(events.endRequests, 1);
    ASSERT_EQ(prompts.History().size(), 1u);
    EXPECT_EQ(prompts.History()[0].kind, ScriptedPrompts::Kind::CriticalError);
    EXPECT_EQ(prompts.History()[0].style, 3); // abort and e-mail shown
    EXPECT_FALSE(fs::exists(LockFilePath(InLibrary(gProjectFileName))));
    EXPECT_FALSE(fs::exists(InLibrary(gProjectFileName)));
    EXPECT_FALSE(window->tmrAcquire()->isActive());
}

} // namespace
} // namespace corvane
