#include "shell/ScanPageController.h"

#include "acquisition/ArmStation.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/MainToolStrip.h"
#include "shell/PageNavigator.h"
#include "shell/ScanArmView.h"
#include "shell/frmCorvane.h"
#include "shell/frmManualEntry.h"
#include "shell/frmPageScan.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <QFrame>
#include <QKeyEvent>
#include <QMenuBar>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace corvane {
namespace {

constexpr double kTickMs = 10; // the acquisition timer's period

bool ScanHoldsPoints(const clsCorvane& project) {
    const int active = project.ActiveScanIndex();
    if (active < 0 || active >= project.PropellerScanCount())
        return false;
    const auto scan = project.PropellerScan(active);
    for (int b = 0; b < scan->BladeCount(); ++b) {
        const auto blade = scan->Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (blade->Section(k)->RawOffsetCount() > 0)
                return true;
        }
    }
    return false;
}

} // namespace

ScanPageController::ScanPageController(frmCorvane& window, ArmStation& arm)
    : window_(window), arm_(arm), workflow_(arm.Box()) {
    session_.start();
    page_ = new frmPageScan();
    auto* armLayout = new QVBoxLayout(page_->ArmPictureSlot());
    armLayout->setContentsMargins(0, 0, 0, 0);
    armView_ = new ScanArmView(page_->ArmPictureSlot());
    armLayout->addWidget(armView_);
    QObject::connect(page_, &frmPageScan::ScanButtonClicked, page_, [this] { PressScanButton(); });
    QObject::connect(page_, &frmPageScan::OopsClicked, page_,
                     [this] { Run([this] { workflow_.ReScanLast(Context()); }); });
    QObject::connect(page_, &frmPageScan::AddClicked, page_, [this] { AddScan(); });
    QObject::connect(page_, &frmPageScan::HistoryClicked, page_, [this](int scan) {
        Run([this, scan] { workflow_.HistoryClick(Context(), scan); });
        RedrawGraphs();
    });
    QObject::connect(page_, &frmPageScan::HistoryPaged, page_,
                     [this](int step) { Run([this, step] { workflow_.HistoryPage(Context(), step); }); });
    QObject::connect(page_, &frmPageScan::RadiusClicked, page_, [this](int radius) {
        Run([this, radius] { workflow_.RadiusClick(Context(), radius); });
    });
    QObject::connect(page_, &frmPageScan::TipClicked, page_,
                     [this] { Run([this] { workflow_.TipClick(Context()); }); });
    QObject::connect(page_, &frmPageScan::DescriptionEdited, page_, [this](const QString& text) {
        Run([this, text] { workflow_.SetDescription(Context(), text.toStdString()); });
    });
    QObject::connect(page_, &frmPageScan::RulerClicked, page_,
                     [this] { Run([this] { workflow_.CloseRuler(); }); });
    QObject::connect(page_, &frmPageScan::KeyTyped, page_,
                     [this](int key, const QString& text) { KeyTyped(key, text); });
    if (gProject && gISO484) {
        Run([this] { workflow_.PageLoad(Context()); });
    }
}

ScanPageController::~ScanPageController() = default;

QWidget* ScanPageController::Widget() const {
    return page_;
}

ScanContext ScanPageController::Context() {
    station_ = gStation;
    if (arm_.Simulated()) {
        station_.footPedal = true;
    }
    return ScanContext{*gProject,   *gISO484,     station_,         gScanMode, gScanOrderMode,
                       ActiveBlade, ActiveRadius, gRadialPositions, gAppTitle};
}

template <class F> void ScanPageController::Run(F&& call) {
    if (busy_ || !gProject || !gISO484) {
        return;
    }
    busy_ = true;
    ErrorTail tail("working the scan page");
    tail.Step(std::forward<F>(call));
    busy_ = false;
    Apply();
}

void ScanPageController::Apply() {
    const ScanPageView& view = workflow_.View();
    page_->Show(view);
    const ScanEvents events = workflow_.TakeEvents();
    if (events.projectChanged) {
        gProjectDirty = true;
    }
    if (events.graphsStale || events.projectChanged) {
        GraphsStale = true;
    }
    if (events.graphsStale || events.projectChanged || events.scansChanged || events.sweepsEnded > 0) {
        armView_->ScanChanged();
    }
    DrawArm();
    if (events.scansChanged) {
        window_.Navigator().NotifyStateChanged();
        window_.UpdateTitlebarCaption();
        if (window_.ActivePage() == frmCorvane::PageScan) {
            window_.SetBladeButtonState(1);
        }
    }
    if (events.sweepsEnded > 0 && arm_.Recording()) {
        std::string error;
        if (!arm_.SaveRecording(error)) {
            Prompts().MessageBox("The session could not be recorded to " + arm_.RecordingPath() + ": " +
                                     error + ".",
                                 MsgBox::Exclamation, gAppTitle);
        }
    }
    // A sweep locks the page buttons and the menus: nothing may break into it.
    window_.ToolStrip().setEnabled(view.topBarEnabled);
    window_.menuBar()->setEnabled(view.topBarEnabled);
    if (events.openManualEntry) {
        OpenManualEntry();
    }
}

void ScanPageController::Enter() {
    GraphsStale = true;
    CompareScanIndex = -1;
    gCheckPageMode = 0;
    Run([this] {
        workflow_.Activate(Context());
        if (startOnNewScan_ && gScanMode == 2 && ScanHoldsPoints(*gProject)) {
            workflow_.AddScan(Context(), Clock().Now());
        }
        startOnNewScan_ = false;
    });
    window_.SetBladeViewMode(0);
    window_.ctlAll_UpdateDisplay();
    window_.SetBladeButtonState(1);
    FollowTimer();
    page_->setFocus();
}

void ScanPageController::Refresh() {
    RefreshScanList();
    RedrawGraphs();
}

PageMenus ScanPageController::Menus() const {
    return {.scan = gScanMode == 1 || gScanMode == 2, .check = false, .tools = true};
}

void ScanPageController::RefreshScanList() {
    Run([this] { workflow_.RefreshScanFormData(Context()); });
}

void ScanPageController::RedrawGraphs() {
    armView_->ScanChanged();
    DrawArm();
}

void ScanPageController::DrawArm() {
    if (!gProject || !page_->isVisibleTo(&window_)) {
        return;
    }
    const int scan = gProject->ActiveScanIndex();
    if (scan < 0 || scan >= gProject->PropellerScanCount()) {
        return;
    }
    // New options redraw the ground: only when the scan mode or the page's enabling changed.
    if (armScanMode_ != gScanMode || armEnabled_ != page_->isEnabled()) {
        armScanMode_ = gScanMode;
        armEnabled_ = page_->isEnabled();
        GraphOptions options;
        options.scanMode = gScanMode;
        options.surfaceEnabled = armEnabled_;
        armView_->SetOptions(options);
    }
    const ScanPageView& view = workflow_.View();
    armView_->MoveArm(*gProject, scan,
                      ArmOnGraph{view.armAngleDeg, view.armRadius, gProject->MarkedDiameter()}, ActiveBlade,
                      ActiveRadius);
}

bool ScanPageController::AddScanEnabled() const {
    return workflow_.View().add.enabled;
}

void ScanPageController::ClearAcquisitionState() {
    Run([this] { workflow_.AcquireShutdown(); });
}

void ScanPageController::AddScan() {
    if (AddScanEnabled()) {
        Run([this] { workflow_.AddScan(Context(), Clock().Now()); });
        RedrawGraphs();
    }
}

void ScanPageController::OverwriteScan() {
    Run([this] { workflow_.OverwriteScan(Context()); });
    RedrawGraphs();
}

void ScanPageController::ResetScanBuffer() {
    Run([this] { workflow_.ResetScanBuffer(Context()); });
    RedrawGraphs();
}

int ScanPageController::AcquireInitialize() {
    int result = 0;
    Run([this, &result] { result = workflow_.AcquireInitialize(Context()); });
    return result;
}

int ScanPageController::ResetDropCounter() {
    int result = 0;
    Run([this, &result] { result = workflow_.ResetDropCounter(Context()); });
    return result;
}

void ScanPageController::AcquireStartRecord() {
    Run([this] { workflow_.AcquireStartRecord(); });
}

void ScanPageController::AcquireStopRecord() {
    Run([this] { workflow_.AcquireStopRecord(Context()); });
}

void ScanPageController::AcquireShutdown() {
    Run([this] { workflow_.AcquireShutdown(); });
    if (arm_.Recording()) {
        std::string error;
        arm_.SaveRecording(error);
    }
}

void ScanPageController::Tick() {
    if (window_.ActivePage() != frmCorvane::PageScan || !page_->isVisibleTo(&window_)) {
        return;
    }
    if (arm_.Simulated()) {
        arm_.AdvanceTo(simulatedMs_ += kTickMs);
    } else {
        arm_.AdvanceTo(static_cast<double>(session_.elapsed()));
    }
    Run([this] { workflow_.Tick(Context()); });
}

ILiveArm* ScanPageController::LiveArm() {
    return gProject && gISO484 ? workflow_.LiveArmForCheck(Context()) : nullptr;
}

void ScanPageController::PressScanButton() {
    Run([this] {
        if (workflow_.ScanState() == 0 && gScanMode == 2) {
            // HOME zeroes the counters where the arm stands: a simulated arm goes home first.
            arm_.PrepareHome(Context());
        }
        workflow_.PressScanButton(Context());
    });
    FollowTimer();
    RedrawGraphs();
}

void ScanPageController::FollowTimer() {
    // HOME (or the drop counter's reset) may find a box that was not there when the window
    // opened: the acquisition timer starts with the tick.
    QTimer* timer = window_.tmrAcquire();
    if (workflow_.TickRunning() && timer != nullptr && !timer->isActive()) {
        timer->start();
    }
}

void ScanPageController::OpenManualEntry() {
    if (!gProject || gProject->ActiveScanIndex() < 0 ||
        gProject->ActiveScanIndex() >= gProject->PropellerScanCount()) {
        return;
    }
    const auto scan = gProject->PropellerScan(gProject->ActiveScanIndex());
    if (ActiveBlade < 0 || ActiveBlade >= scan->BladeCount() || ActiveRadius < 0 ||
        ActiveRadius >= scan->Blades(ActiveBlade)->SectionCount()) {
        return;
    }
    const double fraction = gRadialPositions[static_cast<std::size_t>(ActiveRadius)];
    frmManualEntry entry(*scan->Blades(ActiveBlade)->Section(ActiveRadius), fraction, ActiveBlade,
                         gProject->RotationIndex(), gProject->MarkedDiameter() / 2 * fraction, &window_);
    entry.exec();
    if (entry.Stored()) {
        gProjectDirty = true;
        GraphsStale = true;
    }
    RedrawGraphs();
    page_->setFocus();
}

void ScanPageController::KeyTyped(int key, const QString& text) {
    const bool arrow =
        key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
    if (workflow_.View().ruler &&
        (key == Qt::Key_Space || key == Qt::Key_Escape || key == Qt::Key_Backspace || arrow)) {
        Run([this] { workflow_.CloseRuler(); });
        return;
    }
    if (gScanMode == 1 && gProject) {
        const int blades = std::max<int>(1, gProject->BladeCount());
        const bool inner = gISO484->ISOIncludeInnerRadiusIndex() == 1;
        switch (key) {
        case Qt::Key_Backspace:
            Run([this] { workflow_.ReScanLast(Context()); });
            return;
        case Qt::Key_Left:
        case Qt::Key_Right:
            window_.ctlBlades_Click(((ActiveBlade + (key == Qt::Key_Left ? -1 : 1)) % blades + blades) %
                                    blades);
            OpenManualEntry();
            return;
        case Qt::Key_Up:
            if (ActiveRadius == 0) {
                Run([this] { workflow_.TipClick(Context()); });
            } else {
                Run([this] { workflow_.RadiusClick(Context(), ActiveRadius - 1); });
            }
            return;
        case Qt::Key_Down:
            if (ActiveRadius < (inner ? 7 : 6)) {
                const int next = workflow_.View().tip.pressed ? 0 : ActiveRadius + 1;
                Run([this, next] { workflow_.RadiusClick(Context(), next); });
            }
            return;
        default:
            break;
        }
    }
    if (text.size() == 1 && text.at(0).unicode() < 128) {
        const char typed = static_cast<char>(text.at(0).unicode());
        bool pressed = false;
        Run([this, typed, &pressed] {
            if (workflow_.ScanState() == 0 && gScanMode == 2 &&
                workflow_.TriggersScanButton(Context(), typed)) {
                arm_.PrepareHome(Context());
            }
            pressed = workflow_.KeyTyped(Context(), typed);
        });
        if (pressed) {
            FollowTimer();
            RedrawGraphs();
        }
    }
}

} // namespace corvane
