#include "WindowTestSupport.h"

#include "acquisition/ArmStation.h"
#include "acquisition/DemoProject.h"
#include "acquisition/SimulatedEncoderBox.h"
#include "model/clsSection.h"
#include "shell/ScanArmView.h"
#include "shell/ScanPageController.h"
#include "shell/ctlPanelButton.h"
#include "shell/frmManualEntry.h"
#include "shell/frmPageScan.h"

#include <QLabel>
#include <QMenuBar>
#include <QTableWidget>
#include <QTimer>

namespace corvane {
namespace {

class ScanPageControllerTest : public test::WindowTest {
protected:
    // The main window over the demo project, with the given arm in place of none.
    void OpenOnDemo(std::unique_ptr<ArmStation> arm) {
        ASSERT_EQ(BuildDemoProject(6), 1);
        gStation.audioFeedback = false;
        window = std::make_unique<frmCorvane>(std::move(arm));
        window->ProjectPage().RefreshProjectFormData();
    }
    frmPageScan& Page() const { return *window->ScanPage().Page(); }
    std::string Shown(QLabel* label) const { return label->text().toStdString(); }
    // The acquisition timer's tick: the simulated arm moves on 10 ms with each.
    void Tick() { window->ScanPage().Tick(); }
    // Pixels of the arm picture in blade 1's colour.
    int BluePixels() const {
        const QImage picture = Page().findChild<ScanArmView*>()->Picture();
        int blue = 0;
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = 0; x < picture.width(); ++x) {
                const QColor c = picture.pixelColor(x, y);
                blue += c.blue() > 200 && c.red() < 80 && c.green() < 80 ? 1 : 0;
            }
        }
        return blue;
    }
};

TEST_F(ScanPageControllerTest, TheScriptedDemoScansANewScanOnThePage) {
    gScanMode = 2;
    gDAQConnected = true;
    OpenOnDemo(ArmStation::ScriptedDemo());
    window->ScanPage().StartOnNewScan();
    window->ctlScanButton_Click();
    ASSERT_EQ(window->ActivePage(), frmCorvane::PageScan);
    ASSERT_EQ(gProject->PropellerScanCount(), 2) << "the demo's scan stays, a new one is made";
    EXPECT_EQ(Page().ctlScanZeroGoStop->Caption(), "HOME");
    EXPECT_TRUE(Page().picZeroInstructions->isVisibleTo(&Page()));
    EXPECT_EQ(Shown(Page().lblGuidance), "Retract to minimum, move to center of Blade 1, set Zero.");
    EXPECT_EQ(Page().ctlScanHistory.size(), 2u);
    EXPECT_EQ(Page().ctlScanHistory[1]->Caption(), "B");

    EXPECT_EQ(BluePixels(), 0) << "the new scan has no sweep to draw";
    emit Page().ScanButtonClicked(); // HOME: the scripted operator starts
    EXPECT_TRUE(window->tmrAcquire()->isActive());
    int ticks = 0;
    while (window->ScanPage().Workflow().ScanState() != 2 && ++ticks < 6000) {
        Tick();
    }
    ASSERT_EQ(window->ScanPage().Workflow().ScanState(), 2) << "GO by the pedal";
    EXPECT_EQ(Shown(Page().lblGuidance), "Sweep to leading edge of Blade 1.");
    EXPECT_FALSE(window->menuBar()->isEnabled()) << "no page or menu change breaks into a sweep";
    EXPECT_FALSE(Strip().isEnabled());
    while (window->ScanPage().Workflow().ScanState() == 2 && ++ticks < 6000) {
        Tick();
    }
    EXPECT_EQ(Shown(Page().lblGuidance), "Move to trailing edge of Blade 2.");
    EXPECT_TRUE(window->menuBar()->isEnabled());
    const auto swept = gProject->PropellerScan(1)->Blades(0)->Section(6);
    EXPECT_GT(swept->RawOffsetCount(), 100) << "the log's dense points";
    EXPECT_NE(Shown(Page().lblEncoderAngleDeg).find(" deg"), std::string::npos);
    EXPECT_TRUE(gProjectDirty);

    EXPECT_GT(BluePixels(), 0) << "the arm picture keeps the ended sweep in blade 1's blue";
}

TEST_F(ScanPageControllerTest, ManualEntryStoresTheTypedPointsOfTheActiveSection) {
    gScanMode = 1;
    OpenOnDemo(nullptr);
    window->ctlScanButton_Click();
    Entry("mnuScanHistoryAdd")->trigger();
    ASSERT_EQ(gProject->PropellerScanCount(), 2);
    EXPECT_EQ(Page().ctlScanZeroGoStop->Caption(), "ENTER");
    emit Page().RadiusClicked(3);
    EXPECT_EQ(ActiveRadius, 3);
    EXPECT_TRUE(Page().picRadiusRuler->isVisibleTo(&Page()));
    EXPECT_EQ(Page().lblRulerMeasurement->text(), QStringLiteral("14\"")) << "0.7 x 20 in";
    emit Page().RulerClicked();

    QTimer::singleShot(0, [this] {
        auto* entry = window->findChild<frmManualEntry*>();
        ASSERT_NE(entry, nullptr);
        EXPECT_EQ(entry->windowTitle(), QStringLiteral("Radius = 0.7R - Blade 1"));
        entry->Table()->setCurrentCell(0, 0);
        entry->Paste(QStringLiteral("30\t2.5\n20\t1.5\n10\t0.5"));
        entry->ctlEntryOK_Click();
    });
    prompts.Expect(Answer::OK, "The point order will now be corrected");
    emit Page().ScanButtonClicked();
    const auto section = gProject->PropellerScan(1)->Blades(0)->Section(3);
    EXPECT_EQ(section->ThetaDegArray(), (std::vector<double>{10, 20, 30}));
    EXPECT_EQ(section->RadiusArray(), (std::vector<double>(3, 14.0)));
    EXPECT_TRUE(gProjectDirty);
}

} // namespace
} // namespace corvane
