#include "shell/CheckPageController.h"

#include "checkpage/CheckViewDrawing.h"
#include "checkpage/ReferencePanel.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"
#include "platform/render/QtDrawingSurface.h"
#include "shell/CheckGraphView.h"
#include "shell/ColorRef.h"
#include "shell/MainToolStrip.h"
#include "shell/PageNavigator.h"
#include "shell/ReportPageController.h"
#include "shell/ctlPanelButton.h"
#include "shell/frmCorvane.h"
#include "shell/frmPageCheck.h"
#include "shell/frmReferenceScanEditor.h"

#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QSignalBlocker>
#include <QTimer>

namespace corvane {

namespace {

constexpr std::uint32_t kVerdictGrey = RGBColor(77, 77, 77);
constexpr std::uint32_t kVerdictRed = RGBColor(192, 0, 0);
constexpr std::uint32_t kVerdictBlack = RGBColor(0, 0, 0);

std::shared_ptr<clsPropeller> ActiveScan() {
    if (!gProject) {
        return nullptr;
    }
    const int scan = gProject->ActiveScanIndex();
    return scan >= 0 && scan < gProject->PropellerScanCount() ? gProject->PropellerScan(scan) : nullptr;
}

void ColourVerdict(frmPageCheck& page, std::uint32_t colour, bool enabled) {
    const QString style = QStringLiteral("color: %1;").arg(FromBGR(colour).name());
    page.lblMeetsClass->setStyleSheet(style);
    page.lblMeetsClass->setEnabled(enabled);
    page.ctlSetISOClass->setStyleSheet(style);
}

bool SingleRowView(int view) {
    return view == kViewRadius || view == kViewPath;
}

} // namespace

CheckPageController::CheckPageController(frmCorvane& window) : window_(window) {
    page_ = new frmPageCheck;
    QObject::connect(page_, &frmPageCheck::ViewClicked, page_, [this](int view) { SetView(view); });
    QObject::connect(page_, &frmPageCheck::RadiusClicked, page_, [this](int row) { ClickRadius(row); });
    QObject::connect(page_, &frmPageCheck::VerdictClicked, page_, [this] { ClickVerdict(); });
    QObject::connect(page_, &frmPageCheck::SectionGraphClicked, page_,
                     [this](int element) { ClickSectionGraph(element); });
    // A new size always needs a new picture; the graphs of the panel take their sizes one after
    // another, so the drawing waits until the layout has settled.
    QObject::connect(page_, &frmPageCheck::GraphResized, page_, [this] {
        drawn_.reset();
        if (!redrawQueued_) {
            redrawQueued_ = true;
            QTimer::singleShot(0, page_, [this] {
                redrawQueued_ = false;
                Redraw();
            });
        }
    });
    QObject::connect(page_->ctlZoom, &ctlPanelButton::Click, page_, [this] { ToggleZoom(); });
    QObject::connect(page_->ctlReference, &ctlPanelButton::Click, page_, [this] { ToggleReference(); });
    QObject::connect(page_->picReferenceEditor, &frmReferenceScanEditor::ApplyClicked, page_,
                     [this] { ApplyReference(); });
    QObject::connect(page_->ctlSetISOClass, &QComboBox::currentIndexChanged, page_, [this](int row) {
        if (!filling_ && row >= 0) {
            ChooseClass(page_->ctlSetISOClass->itemData(row).toInt());
        }
    });
    QObject::connect(page_->cboISOTask, &QComboBox::currentIndexChanged, page_, [this](int row) {
        if (!filling_ && row >= 0) {
            ChooseTask(row);
        }
    });
    QObject::connect(page_->cboScanCompare, &QComboBox::currentIndexChanged, page_, [this](int row) {
        if (!filling_ && row >= 0) {
            ChooseCompare(row);
        }
    });
    page_->ctlScanMaxRadius->SetEnabled(false);
}

QWidget* CheckPageController::Widget() const {
    return page_;
}

void CheckPageController::Enter() {
    ZoomActive = false;
    zoomedElements_ = 0;
    drawn_.reset();
    GraphsStale = true;
    window_.ShowEnabledBlades();
    if (const auto scan = ActiveScan()) {
        if (ActiveBlade < 0 || ActiveBlade >= scan->BladeCount() ||
            !scan->Blades(ActiveBlade)->BladeEnabled()) {
            const auto blades = BladesWithSections(*scan);
            ActiveBlade = static_cast<std::int16_t>(blades.empty() ? 0 : blades.front());
        }
    }
    window_.SetBladeButtonState(2);
    window_.Lock_Controls();
    page_->ctlZoom->SetPressed(false);
    page_->picReferenceEditor->SetContext(gProject.get(), gISO484.get());
    CompareScanIndex = -1;
    SetVariablePitchRadii(*gProject, gRadialPositions);
    FillCombos();
    if (page_->ctlReference->Pressed()) {
        page_->picReferenceEditor->LoadFrom(*gProject);
    }
    UpdateReference(true);
    UpdateRadiusButtons(-1);
    window_.UnLock_Controls();
    window_.ctlAll_Raise();
    window_.ctlAll_UpdateDisplay();
}

void CheckPageController::Leave() {
    window_.ToolStrip().ctlAll->SetClickAction(ctlPanelButton::ClickRadio);
}

void CheckPageController::FillCombos() {
    filling_ = true;
    const clsISO484& iso = *gISO484;
    page_->ctlSetISOClass->clear();
    for (int cls = 0; cls <= 4; ++cls) {
        page_->ctlSetISOClass->addItem(QString::fromStdString(iso.ISOClassLabel(cls)), cls);
    }
    page_->ctlSetISOClass->setCurrentIndex(page_->ctlSetISOClass->findData(iso.ISOClassIndex()));
    page_->cboISOTask->clear();
    for (int task = 0; task <= 2; ++task) {
        page_->cboISOTask->addItem(QString::fromStdString(iso.ISOTaskLabel(task)));
    }
    page_->cboISOTask->setCurrentIndex(iso.ISOTaskIndex() <= 2 ? iso.ISOTaskIndex() : -1);
    page_->cboScanCompare->clear();
    for (const std::string& row : ScanCompareTexts(*gProject)) {
        page_->cboScanCompare->addItem(QString::fromStdString(row));
    }
    page_->cboScanCompare->setCurrentIndex(CompareScanIndex + 1);
    // The radius captions follow the radial fractions of the project (the inner row may move).
    for (int k = 0; k < 8; ++k) {
        const double r = gRadialPositions[static_cast<std::size_t>(k)];
        page_->ctlScanRadius[static_cast<std::size_t>(k)]->SetCaption(
            QStringLiteral("R%1").arg(static_cast<int>(r * 100 + 0.5)));
    }
    filling_ = false;
}

void CheckPageController::SetView(int view) {
    if (!IsCheckView(view) || !gProject) {
        return;
    }
    view_ = view;
    window_.SetBladeButtonState(2);
    if (page_->ctlReference->Pressed()) {
        UpdatingReferenceData();
    }
    const auto scan = ActiveScan();
    if (scan && view == kViewRadius) {
        const auto blade =
            ActiveBlade >= 0 && ActiveBlade < scan->BladeCount() ? scan->Blades(ActiveBlade) : nullptr;
        if (!blade || ActiveRadius >= blade->SectionCount() ||
            blade->Section(ActiveRadius)->RawOffsetCount() <= 0) {
            ActiveRadius = static_cast<std::int16_t>(std::max(FirstMeasuredRow(*scan, ActiveBlade), 0));
        }
    }
    if (scan && view == kViewPath) {
        gShowRadiusFlags.fill(true);
        // A single-channel drop shows one blade's path at a time.
        if (scan->ScanDrop() == 2) {
            window_.Blade_Only(ActiveBlade);
        }
    }
    if (view == kViewBlade) {
        window_.Blade_Only(ActiveBlade);
    }
    UpdateRadiusButtons(-1);
}

void CheckPageController::UpdatingReferenceData() {
    if (page_->picReferenceEditor->Pending()) {
        page_->picReferenceEditor->Panel().Apply(*gProject);
        gProjectDirty = true;
        UpdateReference(true);
    }
    page_->picReferenceEditor->ShowState();
}

void CheckPageController::UpdateReference(bool showErrors) {
    if (!gProject || !gISO484 || !ActiveScan()) {
        return;
    }
    lastUpdate_ = UpdateCheckReference(*gProject, *gISO484, {CompareScanIndex, showErrors});
    CompareScanIndex = static_cast<std::int16_t>(lastUpdate_.compareScanIndex);
    filling_ = true;
    page_->cboScanCompare->setCurrentIndex(CompareScanIndex + 1);
    filling_ = false;
    if (lastUpdate_.referenceDropped && page_->ctlReference->Pressed()) {
        page_->picReferenceEditor->LoadFrom(*gProject);
    }
    GraphsStale = true;
    window_.ReportPage().MarkReportDirty();
    RefreshCheckFormData();
}

void CheckPageController::RefreshCheckFormData() {
    if (!lastUpdate_.referenceInForce) {
        page_->lblMeetsClass->setText(QStringLiteral(" N/A"));
        ColourVerdict(*page_, kVerdictGrey, false);
        return;
    }
    page_->lblMeetsClass->setText(
        QString::fromStdString(QuickClassText(*gISO484, lastUpdate_.referenceInForce, lastUpdate_.verdict)));
    ColourVerdict(*page_, lastUpdate_.verdict == 1 ? kVerdictBlack : kVerdictRed, true);
}

std::string CheckPageController::VerdictText() const {
    return page_->lblMeetsClass->text().toStdString();
}

void CheckPageController::ClickVerdict() {
    if (!lastUpdate_.referenceInForce || !gProject) {
        return;
    }
    QLabel* label = page_->lblMeetsClass;
    label->setText(QStringLiteral(" "));
    const ClassSearchResult found = SearchBestClass(*gProject, *gISO484, [label] {
        label->setText(label->text() + QLatin1Char('.'));
        label->repaint();
    });
    label->setText(QString::fromStdString(found.text));
    ColourVerdict(*page_, found.failsAll && gISO484->ISOClassIndex() == 4 ? kVerdictRed : kVerdictBlack,
                  true);
}

void CheckPageController::ChooseClass(int classIndex) {
    if (!gISO484 || classIndex == gISO484->ISOClassIndex()) {
        return;
    }
    gISO484->SetISOClassIndex(static_cast<std::int16_t>(classIndex));
    window_.SetBladeViewMode(1);
    window_.ctlAll_UpdateDisplay();
    if (page_->ctlReference->Pressed() && page_->picReferenceEditor->Pending()) {
        UpdatingReferenceData();
    } else {
        UpdateReference(true);
    }
    GraphsStale = true;
    UpdateRadiusButtons(-1);
}

void CheckPageController::ChooseTask(int taskIndex) {
    if (!gISO484 || taskIndex == gISO484->ISOTaskIndex()) {
        return;
    }
    gISO484->SetISOTaskIndex(static_cast<std::int16_t>(taskIndex));
    if (page_->ctlReference->Pressed() && page_->picReferenceEditor->Pending()) {
        UpdatingReferenceData();
    } else {
        UpdateReference(true);
    }
    GraphsStale = true;
    Redraw();
}

void CheckPageController::ChooseCompare(int row) {
    CompareScanIndex = static_cast<std::int16_t>(row - 1);
    UpdateReference(true);
    Redraw();
}

void CheckPageController::ToggleZoom() {
    ZoomActive = page_->ctlZoom->Pressed();
    window_.Navigator().NotifyStateChanged();
    Redraw();
}

void CheckPageController::ToggleReference() {
    frmReferenceScanEditor* panel = page_->picReferenceEditor;
    if (page_->ctlReference->Pressed()) {
        panel->SetContext(gProject.get(), gISO484.get());
        panel->LoadFrom(*gProject);
        panel->show();
        UpdateReference(true);
    } else {
        if (panel->Pending()) {
            UpdatingReferenceData();
        }
        panel->hide();
    }
    drawn_.reset();
    Redraw();
}

void CheckPageController::ShowReferencePanel() {
    if (!page_->ctlReference->Pressed()) {
        page_->ctlReference->SetPressed(true);
        ToggleReference();
    }
}

void CheckPageController::ApplyReference() {
    frmReferenceScanEditor* panel = page_->picReferenceEditor;
    panel->Panel().Apply(*gProject);
    gProjectDirty = true;
    UpdateReference(true);
    panel->LoadFrom(*gProject);
    window_.ShowEnabledBlades();
    window_.SetBladeButtonState(2);
    GraphsStale = true;
    UpdateRadiusButtons(-1);
}

void CheckPageController::ClickSectionGraph(int element) {
    if (element < 0 || element >= 32) {
        return;
    }
    zoomedElements_ ^= 1u << element;
    Redraw();
}

void CheckPageController::DepressPanels(int bladeViewMode) {
    const std::array<bool, 8> enabled = gProject ? RadiusButtonsEnabled(*gProject) : std::array<bool, 8>{};
    ISOSectionMask iso{};
    if (bladeViewMode == 1 && gISO484) {
        GetSectionMask(*gISO484, iso);
    }
    for (int k = 0; k < 8; ++k) {
        const auto i = static_cast<std::size_t>(k);
        // ALL shows every measured row; ISO the rows the class judges.
        const bool pressed = enabled[i] && (bladeViewMode != 1 || iso[i]);
        page_->ctlScanRadius[i]->SetPressed(pressed);
    }
}

void CheckPageController::UpdateRadiusButtons(int radius) {
    if (!gProject) {
        return;
    }
    if (radius >= 0) {
        ActiveRadius = static_cast<std::int16_t>(radius);
    }
    const std::array<bool, 8> enabled = RadiusButtonsEnabled(*gProject);
    for (int k = 0; k < 8; ++k) {
        page_->ctlScanRadius[static_cast<std::size_t>(k)]->SetEnabled(enabled[static_cast<std::size_t>(k)]);
    }
    if (SingleRowView(view_)) {
        for (int k = 0; k < 8; ++k) {
            page_->ctlScanRadius[static_cast<std::size_t>(k)]->SetPressed(k == ActiveRadius);
        }
        if (window_.BladeViewMode() == 2) {
            window_.SetBladeViewMode(0);
            window_.ctlAll_UpdateDisplay();
        }
    } else {
        if (window_.BladeViewMode() != 2) {
            DepressPanels(window_.BladeViewMode());
        }
        for (int k = 0; k < 8; ++k) {
            gShowRadiusFlags[static_cast<std::size_t>(k)] =
                page_->ctlScanRadius[static_cast<std::size_t>(k)]->Pressed();
        }
    }
    Redraw();
}

void CheckPageController::ClickRadius(int row) {
    if (page_->ctlReference->Pressed()) {
        UpdatingReferenceData();
    }
    if (!SingleRowView(view_)) {
        // The button has toggled itself: the rows shown are picked by hand from now on.
        window_.SetBladeViewMode(2);
        window_.ctlAll_UpdateDisplay();
    }
    UpdateRadiusButtons(row);
}

void CheckPageController::SetManualEntryFieldsVisible(bool visible) {
    (void)visible;
}

void CheckPageController::ShowViewButtons() {
    for (int view : {kViewTop, kViewBlade, kViewPitch, kViewRadius, kViewPath, kViewOutline}) {
        page_->ViewButton(view)->SetPressed(view == view_);
    }
}

CheckDrawState CheckPageController::CurrentState(const CheckViewLayout& layout) const {
    CheckDrawState state;
    state.view = view_;
    state.radius = ActiveRadius;
    state.blade = ActiveBlade;
    state.zoom = EffectiveZoom(layout, ZoomActive);
    state.referenceOpen = page_->ctlReference->Pressed();
    const QSize size = layout.sectionGraphs ? page_->picSectionGraphs->size() : page_->picGraph->size();
    state.width = size.width();
    state.height = size.height();
    state.blades = gShowBladeFlags;
    state.radii = gShowRadiusFlags;
    state.zoomedElements = zoomedElements_;
    return state;
}

void CheckPageController::Redraw() {
    // Drawn only while the page is the one shown.
    if (!gProject || window_.ActivePage() != frmCorvane::PageCheck || !ActiveScan()) {
        return;
    }
    ShowViewButtons();
    const CheckViewLayout layout = LayoutOfView(view_, page_->ctlReference->Pressed(), *ActiveScan());
    page_->ctlZoom->SetEnabled(layout.zoomEnabled);
    page_->ctlZoom->SetPressed(layout.zoomForced || (layout.zoomEnabled && ZoomActive));
    if (layout.sectionGraphs) {
        page_->ShowSectionGraphs(layout.elements);
        page_->picSectionGraphs->layout()->activate();
    } else {
        page_->ShowBigGraph();
    }
    const CheckDrawState state = CurrentState(layout);
    if (!NeedsRedraw(drawn_, state, GraphsStale)) {
        return;
    }
    DrawNow(state, layout);
    drawn_ = CurrentState(layout);
    GraphsStale = false;
}

void CheckPageController::DrawNow(const CheckDrawState& state, const CheckViewLayout& layout) {
    CheckViewDraw draw;
    draw.view = view_;
    draw.referenceOpen = state.referenceOpen;
    draw.activeBlade = ActiveBlade;
    draw.activeRadius = ActiveRadius;
    draw.selection.blades = gShowBladeFlags;
    draw.selection.radii = gShowRadiusFlags;
    draw.fontName = gUIFontName;
    draw.fontSize = gUIFontSize;
    const auto drawOn = [&](CheckGraphView& view, int element) {
        const QSize size = view.size().expandedTo(QSize(120, 90));
        QtDrawingSurface surface(size);
        draw.element = element;
        draw.zoom = state.zoom != ((zoomedElements_ >> element & 1u) != 0);
        DrawCheckView(surface, *gProject, *gISO484, draw);
        surface.Finish();
        view.SetPicture(*surface.Raster());
        ++drawCount_;
    };
    if (!layout.sectionGraphs) {
        drawOn(*page_->picGraph, 0);
        return;
    }
    const auto& views = page_->SectionGraphs();
    for (int element = 0; element < layout.elements && element < static_cast<int>(views.size()); ++element) {
        drawOn(*views[static_cast<std::size_t>(element)], element);
    }
}

} // namespace corvane
