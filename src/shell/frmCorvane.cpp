#include "shell/frmCorvane.h"

#include "acquisition/ArmStation.h"
#include "files/modLockFile.h"
#include "files/modProjectCommands.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "shell/CheckPageController.h"
#include "shell/FileCommands.h"
#include "shell/MainToolStrip.h"
#include "shell/MenuController.h"
#include "shell/PageNavigator.h"
#include "shell/ProjectPageController.h"
#include "shell/ReportPageController.h"
#include "shell/ScanCommands.h"
#include "shell/ScanPageController.h"
#include "shell/ToolsCommands.h"
#include "shell/Twips.h"
#include "shell/frmPageProject.h"
#include "shell/frmPageScan.h"
#include "support/ErrorTail.h"
#include "support/Services.h"
#include "support/modErrorHandler.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>
#include <QSettings>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

#include <initializer_list>

namespace corvane {
namespace {

// The window opens at 15360 by 11610 twips, centred, and never gets smaller than this.
constexpr int kInitialWidthTwips = 15360;
constexpr int kInitialHeightTwips = 11610;
constexpr int kMinimumWidthTwips = 12000;
constexpr int kMinimumHeightTwips = 9000;
// The acquisition timer's period; the arm is read at each tick.
constexpr int kAcquireIntervalMs = 10;

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

QSettings PlacementSettings() {
    return QSettings(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("Corvane"));
}

} // namespace

frmCorvane::frmCorvane(std::unique_ptr<ArmStation> arm, QWidget* parent)
    : QMainWindow(parent), arm_(arm ? std::move(arm) : std::make_unique<ArmStation>()) {
    setObjectName(QStringLiteral("frmCorvane"));
    ErrorTail tail("loading main interface");
    tail.Step([this] { PlaceWindow(); });
    // Error reports can go to support through the desktop's mail program.
    gShowEmailOption = true;
    gShowAbortOption = true;
    previousShutdownSteps_ = SetShutdownSteps([this] { RunShutdownSteps(false); });

    tail.Step([this] {
        auto* central = new QWidget(this);
        auto* layout = new QVBoxLayout(central);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        toolStrip_ = new MainToolStrip(central);
        layout->addWidget(toolStrip_);
        pages_ = new QStackedWidget(central);
        pages_->setObjectName(QStringLiteral("pages"));
        layout->addWidget(pages_, 1);
        setCentralWidget(central);

        projectPage_ = std::make_unique<ProjectPageController>(*this);
        scanPage_ = std::make_unique<ScanPageController>(*this, *arm_);
        checkPage_ = std::make_unique<CheckPageController>(*this);
        reportPage_ = std::make_unique<ReportPageController>(*this);
        // In the order of PageIndex, which is the order of the page buttons.
        navigator_ = std::make_unique<PageNavigator>(*this, *pages_);
        for (IPage* page : std::initializer_list<IPage*>{projectPage_.get(), scanPage_.get(),
                                                         checkPage_.get(), reportPage_.get()}) {
            navigator_->AddPage(*page);
        }
        files_ = std::make_unique<FileCommands>(*this);
        scans_ = std::make_unique<ScanCommands>(*this);
        tools_ = std::make_unique<ToolsCommands>(*this);
        menus_ = std::make_unique<MenuController>(*this, menuBar());

        lblFileName_ = new QLabel(this);
        lblFileName_->setObjectName(QStringLiteral("lblFileName"));
        statusBar()->addPermanentWidget(lblFileName_);

        connect(toolStrip_, &MainToolStrip::PageButtonClicked, navigator_.get(), &PageNavigator::Open);
        connect(toolStrip_, &MainToolStrip::AllClicked, this, &frmCorvane::ctlAll_Click);
        connect(toolStrip_, &MainToolStrip::BladeClicked, this, &frmCorvane::ctlBlades_Click);
    });
    tail.Step([this] { AcquireInitialize(); });
    if (toolStrip_ != nullptr && menus_ != nullptr) {
        ResizeMainToolbar();
        ctlProjButton_Click();
        SetBladeButtonState(0);
        UpdateTitlebarCaption();
    }
}

frmCorvane::~frmCorvane() {
    SetShutdownSteps(std::move(previousShutdownSteps_));
    // The child widgets outlive the controllers by a moment; nothing they signal on their way
    // out may reach the window. The menus hold references into the command objects.
    if (projectPage_) {
        projectPage_->Page()->disconnect();
    }
    if (scanPage_) {
        scanPage_->Page()->disconnect();
    }
    if (toolStrip_ != nullptr) {
        toolStrip_->disconnect(this);
    }
    menus_.reset();
}

QWidget* frmCorvane::PageWidget(int page) const {
    return navigator_->Page(page).Widget();
}

int frmCorvane::ActivePage() const {
    return navigator_ ? navigator_->CurrentPage() : -1;
}

void frmCorvane::PlaceWindow() {
    QSize size(TwipsToPixels(kInitialWidthTwips), TwipsToPixels(kInitialHeightTwips));
    setMinimumSize(TwipsToPixels(kMinimumWidthTwips), TwipsToPixels(kMinimumHeightTwips));
    const QScreen* screen = QGuiApplication::primaryScreen();
    const QRect available = screen != nullptr ? screen->availableGeometry() : QRect(0, 0, 1280, 1024);
    resize(size);
    move(available.center() - QPoint(size.width() / 2, size.height() / 2));

    QSettings settings = PlacementSettings();
    settings.beginGroup(QString::fromLatin1(kPlacementGroup));
    const QByteArray saved = settings.value(QStringLiteral("Geometry")).toByteArray();
    if (!saved.isEmpty()) {
        restoreGeometry(saved);
    }
}

void frmCorvane::SavePlacement() const {
    QSettings settings = PlacementSettings();
    settings.beginGroup(QString::fromLatin1(kPlacementGroup));
    settings.setValue(QStringLiteral("Geometry"), saveGeometry());
}

int frmCorvane::QuerySave() {
    if (!gProjectDirty) {
        return Answer::No;
    }
    const int answer = Prompts().MessageBox("Would you like to save the changes to the Project?",
                                            MsgBox::YesNoCancel | MsgBox::Question, "Save Project?");
    if (answer == Answer::Yes && mnuFileSave_Click() != 1) {
        // The save was refused or failed, and said why: the changes are still unsaved, and the
        // command that asked must not throw them away.
        gProjectDirty = true;
        return Answer::Cancel;
    }
    return answer;
}

void frmCorvane::UpdateTitlebarCaption() {
    std::string caption = gAppTitle + " [" + (gOfficeMode == 1 ? "Office" : "Shop") + "]";
    if (gProject && !gProject->ProjectID().empty()) {
        caption += " - " + gProject->ProjectID();
        if (!gProject->Customer().empty()) {
            caption += " - " + gProject->Customer();
        }
    }
    setWindowTitle(Q(caption));
    UpdateStatusBar();
}

void frmCorvane::UpdateStatusBar() {
    if (lblFileName_ != nullptr) {
        const bool readOnly = gProjectFileName == kReadOnlyUntitledFileName;
        lblFileName_->setText(readOnly ? QStringLiteral("Read-only (in use on another station)")
                                       : Q(CurrentProjectPath()));
    }
    if (toolStrip_ != nullptr) {
        const char* mode = gScanMode == 2 ? "DIGITAL DAQ" : gScanMode == 1 ? "MANUAL ENTRY" : "NO SCANNING";
        toolStrip_->SetStationCaption((gOfficeMode == 1 ? QStringLiteral("OFFICE") : QStringLiteral("SHOP")) +
                                      QChar('\n') + QString::fromLatin1(mode));
    }
}

void frmCorvane::ctlProjButton_Click() {
    navigator_->Open(PageProject);
}

void frmCorvane::ctlScanButton_Click() {
    navigator_->Open(PageScan);
}

void frmCorvane::ctlCheckButton_Click() {
    navigator_->Open(PageCheck);
}

void frmCorvane::ctlDocsButton_Click() {
    navigator_->Open(PageReport);
}

void frmCorvane::ResizeMainToolbar() {
    toolStrip_->updateGeometry();
    if (centralWidget() != nullptr && centralWidget()->layout() != nullptr) {
        centralWidget()->layout()->activate();
    }
}

int frmCorvane::mnuFileSave_Click() {
    return files_->mnuFileSave_Click();
}

void frmCorvane::mnuFileExport_Click() {
    files_->mnuFileExport_Click();
}

void frmCorvane::mnuFileImport_Click() {
    files_->mnuFileImport_Click();
}

void frmCorvane::mnuFileNew_Click() {
    files_->mnuFileNew_Click();
}

void frmCorvane::mnuFileOpen_Click() {
    files_->mnuFileOpen_Click();
}

void frmCorvane::mnuFileViewArchive_Click() {
    files_->mnuFileViewArchive_Click();
}

int frmCorvane::AcquireInitialize() {
    if (tmrAcquire_ == nullptr) {
        tmrAcquire_ = new QTimer(this);
        tmrAcquire_->setObjectName(QStringLiteral("tmrAcquire"));
        tmrAcquire_->setInterval(kAcquireIntervalMs);
        connect(tmrAcquire_, &QTimer::timeout, this, [this] {
            if (scanPage_) {
                scanPage_->Tick();
            }
        });
    }
    const int result = scanPage_ ? scanPage_->AcquireInitialize() : 0;
    FollowAcquisitionTimer();
    return result;
}

int frmCorvane::ResetDropCounter() {
    const int result = scanPage_ ? scanPage_->ResetDropCounter() : 0;
    FollowAcquisitionTimer();
    return result;
}

void frmCorvane::FollowAcquisitionTimer() {
    if (tmrAcquire_ != nullptr && scanPage_ && scanPage_->Workflow().TickRunning() &&
        !tmrAcquire_->isActive()) {
        tmrAcquire_->start();
    }
}

bool frmCorvane::AcquisitionRunning() const {
    return scanPage_ && scanPage_->Workflow().Recording();
}

void frmCorvane::AcquireStartRecord() {
    if (scanPage_) {
        scanPage_->AcquireStartRecord();
    }
}

void frmCorvane::AcquireStopRecord() {
    if (scanPage_) {
        scanPage_->AcquireStopRecord();
    }
}

void frmCorvane::AcquireShutdown() {
    if (scanPage_) {
        scanPage_->AcquireShutdown();
    }
}

void frmCorvane::closeEvent(QCloseEvent* event) {
    if (QuerySave() == Answer::Cancel) {
        event->ignore();
        return;
    }
    if (Prompts().MessageBox("OK to close " + gAppTitle + "?", MsgBox::OKCancel | MsgBox::Question,
                             "Close " + gAppTitle) != Answer::OK) {
        event->ignore();
        return;
    }
    RunShutdownSteps(true);
    SavePlacement();
    event->accept();
}

void frmCorvane::RunShutdownSteps(bool letEventsRun) {
    RemoveLockFile(CurrentProjectPath());
    for (QTimer* timer : findChildren<QTimer*>()) {
        timer->stop();
    }
    if (letEventsRun) {
        Events().DoEvents();
    }
    AcquireShutdown();
    if (letEventsRun) {
        Events().DoEvents();
    }
}

} // namespace corvane
