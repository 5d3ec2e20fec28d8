// Filling the Project page from the model and the marks of its required fields.

#include "shell/frmPageProject.h"

#include "iso484/clsISO484.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"
#include "shell/ColorRef.h"
#include "shell/ctlComboField.h"
#include "shell/ctlTextField.h"
#include "shell/modProjectPageRules.h"
#include "support/ErrorTail.h"

#include <QLabel>
#include <QPlainTextEdit>

namespace corvane {
namespace {

constexpr int kObjectNotSet = 91;
constexpr std::uint32_t kCaptionNormal = RGBColor(0, 0, 0);
constexpr std::uint32_t kCaptionMissing = RGBColor(255, 0, 0);

// The model holds CR LF line ends, as they are filed; the editor works with LF.
QString NotesFromModel(const std::string& text) {
    QString notes = QString::fromStdString(text);
    notes.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return notes;
}

} // namespace

void frmPageProject::ShowListIndex(ctlComboField* combo, int index) {
    combo->SetListIndex(index >= 0 && index < combo->ListCount() ? index : -1);
}

void frmPageProject::FillFieldsFromModel() {
    const clsCorvane& project = *gProject;
    const auto text = [](const std::string& value) { return QString::fromStdString(value); };
    txtRepairShopName_->SetText(text(project.RepairShop()));
    txtInspector_->SetText(text(project.Inspector()));
    txtCustomer_->SetText(text(project.Customer()));
    txtVessel_->SetText(text(project.Vessel()));
    txtJobNumber_->SetText(text(project.JobNumber()));
    txtProjectID_->SetText(text(project.ProjectID()));
    txtManufacturer_->SetText(text(project.Manufacturer()));
    txtModelNumber_->SetText(text(project.ModelNumber()));
    txtSerialNumber_->SetText(text(project.SerialNumber()));
    txtMaterial_->SetText(text(project.MaterialDescription()));
    txtBoreSize_->SetText(text(project.BoreSize()));
    txtPitch_->SetText(text(project.MarkedPitch()));
    ShowListIndex(cboRotation_, project.RotationIndex());
    ShowListIndex(cboBladeCount_, project.BladeCount() - kLowestBladeCount);
    ShowListIndex(cboUnits_, gUnits->PropLengthIndex());
    const double diameter = project.MarkedDiameter();
    txtDiameter_->SetText(diameter > 0 ? FormatProjectLength(diameter) : QString());
}

int frmPageProject::RefreshProjectFormData() {
    const bool stale = GraphsStale;
    ErrorTail tail("refreshing project form data");
    {
        QuietScope quiet(refreshing_);
        if (!tail.Step([] {
                if (!ModelReady()) {
                    throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
                }
            })) {
            GraphsStale = stale;
            return 0;
        }
        tail.Step([&] { FillFieldsFromModel(); });
        tail.Step([&] { SetISOStandardFromDiameter(); });
        tail.Step([&] {
            const bool on = gISO484->ISOIncludeInnerRadiusIndex() == 1;
            ShowListIndex(cboInnerRad_, on ? 1 : 0);
            txtInnerRad_->SetText(on ? QString::fromStdString(FormatNumber(gISO484->ISOInnerRadius(), "#"))
                                     : QString());
            SetInnerRadiusEnabled(on);
        });
        tail.Step([&] {
            // The probe in force follows the choice shown.
            const int item = ScanArmOffsetItemOfIndex(gScanArmOffsetIndex);
            ShowListIndex(cboScanArmOffset_, item);
            ApplyScanArmOffsetItem(item);
        });
        tail.Step([&] {
            ShowListIndex(cboISOTask_, gISO484->ISOTaskIndex());
            ShowListIndex(cboISOClass_, gISO484->ISOClassIndex());
            ShowListIndex(cboISOCriteria_, gISO484->ISOCriteriaIndex());
        });
        tail.Step([&] {
            txtJobNotes_->setPlainText(NotesFromModel(gProject->JobNotes()));
            txtNotes_->setPlainText(NotesFromModel(gProject->Notes()));
        });
        tail.Step([&] { RefreshRadiusMap(); });
        tail.Step([&] {
            for (int field = 0; field < kRequiredCount; ++field) {
                UpdateRequiredMark(static_cast<Required>(field));
            }
            StartDiameterSession();
        });
    }
    GraphsStale = stale;
    emit titleChanged();
    return tail.Failed() ? 0 : 1;
}

void frmPageProject::ShowRequiredMark(Required field, bool missing) {
    QLabel* caption = requiredCaptions_[static_cast<std::size_t>(field)];
    QPalette colours = caption->palette();
    colours.setColor(QPalette::WindowText, FromBGR(missing ? kCaptionMissing : kCaptionNormal));
    caption->setPalette(colours);
    requiredChecks_[static_cast<std::size_t>(field)]->setVisible(missing);
}

void frmPageProject::UpdateRequiredMark(Required field) {
    if (!ModelReady()) {
        return;
    }
    const ProjectFieldCheck check = CheckProjectFields(*gProject, *gISO484);
    const bool holds[kRequiredCount] = {check.customer, check.projectID, check.diameter, check.pitch,
                                        check.innerRadius};
    ShowRequiredMark(field, !holds[field]);
}

int frmPageProject::CheckProjectData(bool clearOnly) {
    for (int field = 0; field < kRequiredCount; ++field) {
        ShowRequiredMark(static_cast<Required>(field), false);
    }
    if (clearOnly) {
        return 1;
    }
    const ProjectFieldCheck check = CheckProjectFields(*gProject, *gISO484);
    ShowRequiredMark(kCustomer, !check.customer);
    ShowRequiredMark(kProjectID, !check.projectID);
    ShowRequiredMark(kDiameter, !check.diameter);
    ShowRequiredMark(kPitch, !check.pitch);
    ShowRequiredMark(kInnerRadius, !check.innerRadius);
    return check.AllHold() ? 1 : 0;
}

void frmPageProject::MarkSaveAsFields(bool diameterMissing, bool customerMissing) {
    ShowRequiredMark(kDiameter, diameterMissing);
    ShowRequiredMark(kCustomer, customerMissing);
}

ProjectFieldCheck frmPageProject::Marks() const {
    const auto holds = [this](Required field) {
        return requiredChecks_[static_cast<std::size_t>(field)]->isHidden();
    };
    return ProjectFieldCheck{holds(kCustomer), holds(kProjectID), holds(kDiameter), holds(kPitch),
                             holds(kInnerRadius)};
}

} // namespace corvane
