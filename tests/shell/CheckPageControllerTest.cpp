#include "WindowTestSupport.h"

#include "acquisition/DemoProject.h"
#include "iso484/clsISO484.h"
#include "model/clsBlades.h"
#include "model/clsPropeller.h"
#include "model/modReferenceSource.h"
#include "shell/CheckGraphView.h"
#include "shell/CheckPageController.h"
#include "shell/ctlPanelButton.h"
#include "shell/frmPageCheck.h"
#include "shell/frmReferenceScanEditor.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTest>

namespace corvane {
namespace {

constexpr std::uint32_t kOrange = 0x0A6DE4; // RGB 228, 109, 10

class CheckPageControllerTest : public test::WindowTest {
protected:
    // The demo, checked: the Check page open on its one scan. dropEncoder 2 is a single-channel
    // drop counter.
    void OpenCheckPage(std::int16_t dropEncoder = 1) {
        ASSERT_EQ(BuildDemoProject(12), 1);
        gProject->PropellerScan(0)->SetScanDrop(dropEncoder);
        window->ProjectPage().RefreshProjectFormData();
        window->resize(1200, 800);
        window->show();
        window->ctlCheckButton_Click();
        ASSERT_EQ(window->ActivePage(), frmCorvane::PageCheck);
    }
    CheckPageController& Controller() const { return window->CheckPage(); }
    frmPageCheck& Page() const { return *Controller().Page(); }
    frmReferenceScanEditor& Panel() const { return *Page().picReferenceEditor; }
    static void Click(QWidget* widget) { QTest::mouseClick(widget, Qt::LeftButton); }
    // APPLY, ALL and "..." answer a moment after the press, as a real button does.
    static void ClickMomentary(ctlPanelButton* button) {
        Click(button);
        QTest::qWait(250);
    }
    // A scan reference at the given constant pitch, applied through the panel as a user would.
    void ApplyScanReference(const QString& pitch) {
        Click(Page().ctlReference);
        Panel().cboRepairSource->setCurrentIndex(kReferenceScan);
        Panel().cboPitchDefinition->setCurrentIndex(0);
        Panel().cboRepairToSectionPitch->setCurrentIndex(0);
        Panel().txtRepairReferencePitch->setText(pitch);
        emit Panel().txtRepairReferencePitch->editingFinished();
        ClickMomentary(Panel().ctlApply);
    }
};

TEST_F(CheckPageControllerTest, WalksThroughTheSixViews) {
    OpenCheckPage();
    struct Case {
        ctlPanelButton* button;
        int view;
        bool small;
        int elements;
    };
    const Case cases[] = {
        {Page().ctlSumPitch, kViewPitch, true, 1},     {Page().ctlBladePitch, kViewBlade, false, 1},
        {Page().ctlRadiusPitch, kViewRadius, true, 4}, {Page().ctlOutline, kViewOutline, false, 1},
        {Page().ctlPath, kViewPath, false, 1},         {Page().ctlTop, kViewTop, false, 1}};
    for (const Case& c : cases) {
        Click(c.button);
        SCOPED_TRACE(c.view);
        EXPECT_EQ(Controller().ActiveGraphModeIndex(), c.view);
        for (const Case& other : cases) {
            EXPECT_EQ(other.button->Pressed(), other.view == c.view);
        }
        if (c.small) {
            ASSERT_EQ(Page().graphArea->currentWidget(), Page().picSectionGraphs);
            for (int e = 0; e < c.elements; ++e) {
                EXPECT_FALSE(Page().SectionGraphs()[static_cast<std::size_t>(e)]->Picture().isNull());
            }
        } else {
            ASSERT_EQ(Page().graphArea->currentWidget(), Page().picGraph);
            EXPECT_FALSE(Page().picGraph->Picture().isNull());
        }
    }
    // In RADIUS LOCAL only the active radius is pressed.
    Click(Page().ctlRadiusPitch);
    Click(Page().ctlScanRadius[3]);
    for (int k = 0; k < 8; ++k) {
        EXPECT_EQ(Page().ctlScanRadius[static_cast<std::size_t>(k)]->Pressed(), k == 3);
    }
}

TEST_F(CheckPageControllerTest, ASingleChannelDropKeepsTheOutlineZoomedAndPathUnzoomable) {
    OpenCheckPage(2);
    Click(Page().ctlOutline);
    EXPECT_FALSE(Page().ctlZoom->Enabled());
    EXPECT_TRUE(Page().ctlZoom->Pressed());
    Click(Page().ctlPath);
    EXPECT_FALSE(Page().ctlZoom->Enabled());
    EXPECT_FALSE(Page().ctlZoom->Pressed());
    Click(Page().ctlBladePitch);
    ASSERT_TRUE(Page().ctlZoom->Enabled());
    Click(Page().ctlZoom);
    EXPECT_TRUE(ZoomActive);
}

TEST_F(CheckPageControllerTest, RedrawsOnlyWhatChanged) {
    OpenCheckPage();
    const int drawn = Controller().DrawCount();
    Controller().Redraw();
    EXPECT_EQ(Controller().DrawCount(), drawn);
    Click(Page().ctlZoom);
    EXPECT_EQ(Controller().DrawCount(), drawn + 1);
    window->resize(1000, 700);
    QCoreApplication::processEvents();
    Controller().Redraw();
    EXPECT_GT(Controller().DrawCount(), drawn + 1);
    // A click on a small graph zooms that graph and redraws the panel.
    Click(Page().ctlRadiusPitch);
    const int before = Controller().DrawCount();
    Click(Page().SectionGraphs()[1]);
    EXPECT_EQ(Controller().DrawCount(), before + 4);
}

TEST_F(CheckPageControllerTest, VerdictReadsQuickThenSearchesOnClick) {
    OpenCheckPage();
    EXPECT_EQ(Controller().VerdictText(), " N/A");
    EXPECT_FALSE(Page().lblMeetsClass->isEnabled());
    // 20 % under every pitch of the blades: no class is met.
    ApplyScanReference(QStringLiteral("29"));
    const std::vector<std::pair<int, std::string>> classes = {{4, " FAILS ALL"}, {1, " CLICK"}};
    for (const auto& [cls, quick] : classes) {
        Page().ctlSetISOClass->setCurrentIndex(cls);
        EXPECT_EQ(Controller().VerdictText(), quick);
    }
    Click(Page().lblMeetsClass);
    EXPECT_EQ(Controller().VerdictText(), " FAILS ALL");
    EXPECT_EQ(gISO484->ISOClassIndex(), 1);
    // The blades' own pitch, estimated: the search walks down and finds a class.
    Panel().cboRepairToSectionPitch->setCurrentIndex(1);
    Panel().cboPitchDefinition->setCurrentIndex(1);
    ClickMomentary(Panel().ctlApply);
    Page().ctlSetISOClass->setCurrentIndex(4);
    EXPECT_EQ(Controller().VerdictText(), " CLICK");
    Click(Page().lblMeetsClass);
    EXPECT_NE(Controller().VerdictText(), " FAILS ALL");
    EXPECT_NE(Controller().VerdictText(), " CLICK");
    EXPECT_EQ(gISO484->ISOClassIndex(), 4);
}

TEST_F(CheckPageControllerTest, ApplyIsPendingUntilClickedAndAnUnusableFileIsTold) {
    OpenCheckPage();
    Click(Page().ctlReference);
    ASSERT_TRUE(Panel().isVisible());
    EXPECT_NE(Panel().ctlApply->NormalColor(), kOrange);
    Panel().cboRepairSource->setCurrentIndex(kReferenceFile);
    EXPECT_TRUE(Panel().Pending());
    EXPECT_EQ(Panel().ctlApply->NormalColor(), kOrange);
    EXPECT_TRUE(Panel().txtRepairReferenceFile->isVisible());
    EXPECT_FALSE(Panel().dtbVariablePitch->isVisible());
    // A file reference without its file cannot be used: told once, and the page goes on alone.
    prompts.Expect(Answer::OK, "Reference file is invalid or incompatable with scan.");
    ClickMomentary(Panel().ctlApply);
    EXPECT_FALSE(Panel().Pending());
    EXPECT_NE(Panel().ctlApply->NormalColor(), kOrange);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), kReferenceNone);
    EXPECT_EQ(Controller().VerdictText(), " N/A");
    // Without messages nothing is said.
    gProject->SetReferenceSourceIndex(kReferenceFile);
    Controller().UpdateReference(false);
    EXPECT_EQ(gProject->ReferenceSourceIndex(), kReferenceFile);
}

TEST_F(CheckPageControllerTest, AutoPitchLocksTheTableAndTheAverageKeepsABlade) {
    OpenCheckPage();
    Click(Page().ctlReference);
    // A new project's pitch is Auto: choosing a scan reference estimates it at once.
    Panel().cboRepairToSectionPitch->setCurrentIndex(1);
    Panel().cboRepairSource->setCurrentIndex(kReferenceScan);
    QTableWidget& table = *Panel().dtbVariablePitch;
    ASSERT_TRUE(table.isVisible());
    for (int row = 0; row < 7; ++row) {
        const QTableWidgetItem* pitch = table.item(row, 1);
        EXPECT_EQ(pitch->background().color(), QColor(223, 223, 223));
        EXPECT_FALSE(pitch->flags() & Qt::ItemIsEditable);
        // The demo's pitch runs from 34 in at the root to 36 in at 0.7R.
        EXPECT_GE(pitch->text().toDouble(), 33.5) << row;
        EXPECT_LE(pitch->text().toDouble(), 36.5) << row;
    }
    Panel().cboPitchDefinition->setCurrentIndex(0);
    EXPECT_TRUE(table.item(0, 1)->flags() & Qt::ItemIsEditable);
    EXPECT_EQ(table.item(0, 1)->background().color(), QColor(Qt::white));
    for (QCheckBox* box : Panel().chkAvgBlade) {
        box->setChecked(false);
    }
    EXPECT_TRUE(Panel().chkAvgBlade[0]->isChecked());
    EXPECT_FALSE(Panel().chkAvgBlade[1]->isChecked());
}

TEST_F(CheckPageControllerTest, ComparisonComboNamesEachScan) {
    ASSERT_EQ(BuildDemoProject(12), 1);
    gProject->SetPropellerScanCount(2);
    gProject->PropellerScan(1)->SetScanID(1);
    gProject->PropellerScan(1)->SetBladeCount(4);
    window->ProjectPage().RefreshProjectFormData();
    window->ctlCheckButton_Click();
    ASSERT_EQ(window->ActivePage(), frmCorvane::PageCheck);
    QComboBox& compare = *Page().cboScanCompare;
    ASSERT_EQ(compare.count(), 3);
    EXPECT_EQ(compare.itemText(0), QStringLiteral(" None"));
    EXPECT_EQ(compare.itemText(1), QStringLiteral("Demo scan [A] Active"));
    EXPECT_EQ(compare.itemText(2), QStringLiteral(" [B] Empty"));
    prompts.SetAnswerFreely(true);
    compare.setCurrentIndex(2);
    EXPECT_EQ(prompts.Texts().back(), "An error occurred calculating previous scan data.");
    EXPECT_EQ(compare.currentIndex(), 0);
}

} // namespace
} // namespace corvane
