#include "shell/frmPageProject.h"

#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"
#include "shell/ColorRef.h"
#include "shell/ctlComboField.h"
#include "shell/ctlPanelButton.h"
#include "shell/ctlTextField.h"
#include "shell/modProjectPageRules.h"
#include "support/Services.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace corvane {
namespace {

constexpr int kMetres = 1;
constexpr std::uint32_t kFieldOpen = RGBColor(255, 255, 255);
constexpr std::uint32_t kFieldLocked = RGBColor(223, 223, 223);

// Notes are held with CR LF line ends, as they are filed; the editor works with LF.
std::string NotesToModel(const QString& text) {
    QString notes = text;
    notes.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    notes.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return notes.toStdString();
}

bool ProjectHasScans() {
    return gProject->RightScanCount() > 0 || gProject->LeftScanCount() > 0;
}

} // namespace

frmPageProject::frmPageProject(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmPageProject"));
    BuildPage();
    FillComboLists();
    ConnectFields();
    txtDiameter_->TextBox()->installEventFilter(this);
    SetInnerRadiusEnabled(false);
    CheckProjectData(true);
}

bool frmPageProject::ModelReady() {
    return gProject && gUnits && gISO484 && gProject->Units();
}

void frmPageProject::UserChanged() {
    GraphsStale = true;
    gProjectDirty = true;
    emit projectChanged();
}

void frmPageProject::SetTextQuietly(ctlTextField* field, const QString& text) {
    QuietScope quiet(refreshing_);
    field->SetText(text);
}

// --- text fields ---

void frmPageProject::TextField_Change(ctlTextField* field) {
    if (Quiet()) {
        return;
    }
    const std::string text = field->Text().toStdString();
    clsCorvane& project = *gProject;
    if (field == txtInspector_) {
        project.SetInspector(text);
    } else if (field == txtCustomer_) {
        project.SetCustomer(text);
        UpdateRequiredMark(kCustomer);
        emit titleChanged();
    } else if (field == txtVessel_) {
        project.SetVessel(text);
    } else if (field == txtJobNumber_) {
        project.SetJobNumber(text);
    } else if (field == txtProjectID_) {
        project.SetProjectID(text);
        UpdateRequiredMark(kProjectID);
        emit titleChanged();
    } else if (field == txtManufacturer_) {
        project.SetManufacturer(text);
    } else if (field == txtModelNumber_) {
        project.SetModelNumber(text);
    } else if (field == txtSerialNumber_) {
        project.SetSerialNumber(text);
    } else if (field == txtMaterial_) {
        project.SetMaterialDescription(text);
    } else if (field == txtBoreSize_) {
        project.SetBoreSize(text);
    } else if (field == txtPitch_) {
        project.SetMarkedPitch(text);
        UpdateRequiredMark(kPitch);
    } else {
        return;
    }
    UserChanged();
}

void frmPageProject::Notes_Change(QPlainTextEdit* notes) {
    if (Quiet()) {
        return;
    }
    if (notes == txtJobNotes_) {
        gProject->SetJobNotes(NotesToModel(notes->toPlainText()));
    } else {
        gProject->SetNotes(NotesToModel(notes->toPlainText()));
    }
    UserChanged();
}

// --- diameter ---

void frmPageProject::StartDiameterSession() {
    diameterFreeSession_ = !ModelReady() || !(gProject->MarkedDiameter() > 0);
}

bool frmPageProject::DiameterGuardApplies() const {
    return !diameterFreeSession_ && !diameterGuardPass_ && gProject->MarkedDiameter() > 0 &&
           ProjectHasScans();
}

void frmPageProject::RunDiameterGuard() {
    const QString present = FormatProjectLength(gProject->MarkedDiameter());
    const int answer = Prompts().MessageBox(DiameterChangeWarning(present),
                                            MsgBox::OKCancel | MsgBox::Exclamation, kDiameterChangeTitle);
    if (answer != Answer::OK) {
        SetTextQuietly(txtDiameter_, present);
        return;
    }
    const std::optional<std::string> entered =
        Prompts().InputBox(kNewDiameterPrompt, kNewDiameterTitle, present.toStdString());
    if (!entered || !(StringToDouble(*entered) > 0)) {
        return;
    }
    diameterGuardPass_ = true;
    txtDiameter_->SetText(QString::fromStdString(*entered).trimmed());
    diameterGuardPass_ = false;
}

void frmPageProject::txtDiameter_KeyPress(int& keyCode) {
    if (Quiet()) {
        return;
    }
    if (keyCode == 13) {
        keyCode = 0;
        focusNextChild();
        return;
    }
    if (DiameterGuardApplies()) {
        keyCode = 0;
        RunDiameterGuard();
        return;
    }
    keyCode = FilterNumberKey(*txtDiameter_->TextBox(), keyCode, true, static_cast<char>(gDecimalChar));
}

void frmPageProject::txtDiameter_Change() {
    if (Quiet()) {
        return;
    }
    if (DiameterGuardApplies()) {
        // A change that came past the key filter (a paste, Delete, undo) is put back and asked
        // about like a typed key.
        SetTextQuietly(txtDiameter_, FormatProjectLength(gProject->MarkedDiameter()));
        RunDiameterGuard();
        return;
    }
    gProject->SetMarkedDiameter(StringToDouble(txtDiameter_->Text().toStdString()));
    SetISOStandardFromDiameter();
    UpdateRequiredMark(kDiameter);
    UserChanged();
}

void frmPageProject::txtDiameter_LostFocus() {
    if (Quiet()) {
        return;
    }
    const QString text = txtDiameter_->Text().trimmed();
    if (!IsNumericText(text.toStdString(), static_cast<char>(gDecimalChar))) {
        return;
    }
    const QString formatted = FormatProjectLength(StringToDouble(text.toStdString()));
    if (formatted != txtDiameter_->Text()) {
        diameterGuardPass_ = true;
        txtDiameter_->SetText(formatted);
        diameterGuardPass_ = false;
    }
    StartDiameterSession();
}

void frmPageProject::SetISOStandardFromDiameter() {
    gISO484->SetISOStandardIndex(ISOStandardForDiameter(gProject->MarkedDiameter(kMetres)));
}

// --- inner radius ---

void frmPageProject::txtInnerRad_KeyPress(int& keyCode) {
    if (Quiet()) {
        return;
    }
    if (keyCode == 13) {
        keyCode = 0;
        focusNextChild();
        return;
    }
    keyCode = FilterNumberKey(*txtInnerRad_->TextBox(), keyCode, true, static_cast<char>(gDecimalChar));
}

void frmPageProject::txtInnerRad_Change() {
    if (Quiet()) {
        return;
    }
    const InnerRadiusEdit edit = CheckInnerRadiusText(txtInnerRad_->Text());
    if (edit.empty) {
        gISO484->SetISOInnerRadius(edit.value);
        gProjectDirty = true;
        UpdateRequiredMark(kInnerRadius);
        return;
    }
    if (!edit.message.empty()) {
        Prompts().MessageBox(edit.message, MsgBox::OKOnly | MsgBox::Exclamation, gAppTitle);
        SetTextQuietly(txtInnerRad_, edit.replacement);
    }
    gISO484->SetISOInnerRadius(edit.value);
    ApplyInnerRadiusRow(*gISO484);
    ctlScanRadius_[7]->SetCaption(RadiusCaption(edit.value));
    UpdateRequiredMark(kInnerRadius);
    UserChanged();
}

void frmPageProject::SetInnerRadiusEnabled(bool on) {
    txtInnerRad_->SetLocked(!on);
    txtInnerRad_->SetBackcolor(on ? kFieldOpen : kFieldLocked);
    txtInnerRad_->TextBox()->setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
    lblInnerRad_->setEnabled(on);
    ctlScanRadius_[7]->SetEnabled(on);
}

void frmPageProject::cboInnerRad_Click() {
    if (Quiet()) {
        return;
    }
    const int index = cboInnerRad_->ListIndex();
    if (index < 0) {
        return;
    }
    gISO484->SetISOIncludeInnerRadiusIndex(static_cast<std::int16_t>(index));
    ApplyInnerRadiusRow(*gISO484);
    const bool on = index == 1;
    SetInnerRadiusEnabled(on);
    // The field shows what the setting holds; the value itself stays as it is.
    const double radius = gISO484->ISOInnerRadius();
    SetTextQuietly(txtInnerRad_,
                   on && radius > 0 ? QString::fromStdString(FormatNumber(radius, "#")) : QString());
    UserChanged();
    RefreshRadiusMap();
    UpdateRequiredMark(kInnerRadius);
}

void frmPageProject::RefreshRadiusMap() {
    for (int i = 0; i < 7; ++i) {
        ctlScanRadius_[static_cast<std::size_t>(i)]->SetEnabled(true);
        ctlScanRadius_[static_cast<std::size_t>(i)]->SetCaption(
            RadiusCaption(100.0 * gRadialPositions[static_cast<std::size_t>(i)]));
    }
    ctlScanMaxRadius_->SetEnabled(true);
    const bool inner = gISO484->ISOIncludeInnerRadiusIndex() == 1 && gISO484->ISOInnerRadius() > 0;
    ApplyInnerRadiusRow(*gISO484);
    if (inner) {
        ctlScanRadius_[7]->SetCaption(RadiusCaption(100.0 * gRadialPositions[7]));
    }
    ctlScanRadius_[7]->SetEnabled(inner);
}

// --- lists ---

void frmPageProject::cboRotation_Click() {
    if (Quiet() || cboRotation_->ListIndex() < 0) {
        return;
    }
    gProject->SetRotationIndex(static_cast<std::int16_t>(cboRotation_->ListIndex()));
    UserChanged();
}

void frmPageProject::cboBladeCount_Click() {
    if (Quiet() || cboBladeCount_->ListIndex() < 0) {
        return;
    }
    const auto count = static_cast<std::int16_t>(cboBladeCount_->ListIndex() + kLowestBladeCount);
    clsCorvane& project = *gProject;
    if (count == project.BladeCount()) {
        return;
    }
    if (ProjectHasScans()) {
        if (Prompts().MessageBox(kBladeCountQuestion, MsgBox::YesNo | MsgBox::Question, kBladeCountTitle) !=
            Answer::Yes) {
            ShowListIndex(cboBladeCount_, project.BladeCount() - kLowestBladeCount);
            return;
        }
    }
    // The selected set follows the project; the other hand's scans are brought along too.
    project.SetBladeCount(count);
    for (int i = 0; i < project.RightScanCount(); ++i) {
        if (const auto scan = project.RightScan(i); scan && scan->BladeCount() != count) {
            scan->SetBladeCount(count);
        }
    }
    for (int i = 0; i < project.LeftScanCount(); ++i) {
        if (const auto scan = project.LeftScan(i); scan && scan->BladeCount() != count) {
            scan->SetBladeCount(count);
        }
    }
    UserChanged();
    emit bladeCountChanged();
}

void frmPageProject::cboUnits_Click() {
    if (Quiet() || cboUnits_->ListIndex() < 0) {
        return;
    }
    gUnits->SetPropLengthIndex(static_cast<std::int16_t>(cboUnits_->ListIndex()));
    // The number stays as it is; only its format follows the unit.
    if (gProject->MarkedDiameter() > 0) {
        SetTextQuietly(txtDiameter_, FormatProjectLength(gProject->MarkedDiameter()));
    }
    SetISOStandardFromDiameter();
    RefreshRadiusMap();
    UserChanged();
}

void frmPageProject::cboScanArmOffset_Click() {
    if (Quiet() || cboScanArmOffset_->ListIndex() < 0) {
        return;
    }
    ApplyScanArmOffsetItem(cboScanArmOffset_->ListIndex());
    UserChanged();
}

void frmPageProject::cboISOTask_Click() {
    if (Quiet() || cboISOTask_->ListIndex() < 0) {
        return;
    }
    gISO484->SetISOTaskIndex(static_cast<std::int16_t>(cboISOTask_->ListIndex()));
    UserChanged();
}

void frmPageProject::cboISOClass_Click() {
    if (Quiet() || cboISOClass_->ListIndex() < 0) {
        return;
    }
    gISO484->SetISOClassIndex(static_cast<std::int16_t>(cboISOClass_->ListIndex()));
    UserChanged();
}

void frmPageProject::cboISOCriteria_Click() {
    if (Quiet() || cboISOCriteria_->ListIndex() < 0) {
        return;
    }
    gISO484->SetISOCriteriaIndex(static_cast<std::int16_t>(cboISOCriteria_->ListIndex()));
    UserChanged();
}

// --- events ---

void frmPageProject::showEvent(QShowEvent* event) {
    StartDiameterSession();
    QWidget::showEvent(event);
}

bool frmPageProject::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtDiameter_->TextBox() && event->type() == QEvent::FocusIn) {
        StartDiameterSession();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace corvane
