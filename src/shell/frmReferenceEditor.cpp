// The model comes before any Qt header: Qt's "slots" keyword macro would break its headers.
#include "check/ReferenceTablesFromScan.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"
#include "reference/modReferenceEditor.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include "shell/clsFileDialog.h"
#include "shell/frmReferenceEditor.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QItemSelectionModel>
#include <QLineEdit>
#include <QTableWidget>

namespace corvane {

namespace {

constexpr int kCvrfType = 0;

std::string Text(const QTableWidgetItem& item) {
    return item.text().toStdString();
}

} // namespace

bool frmReferenceEditor::QuerySave() {
    if (!tables_.Changed()) {
        return true;
    }
    const int answer = Prompts().MessageBox("Would you like to save the changes to the Reference File?",
                                            MsgBox::YesNoCancel | MsgBox::Question, "Save Project?");
    if (answer == Answer::Cancel) {
        return false;
    }
    return answer != Answer::Yes || ctlSaveAs_Click();
}

void frmReferenceEditor::closeEvent(QCloseEvent* event) {
    if (QuerySave()) {
        event->accept();
    } else {
        event->ignore();
    }
}

void frmReferenceEditor::ctlNew_Click() {
    if (!QuerySave()) {
        return;
    }
    tables_.Clear();
    Refresh();
}

void frmReferenceEditor::ctlReferenceFile_Click() {
    if (!gProject || !gISO484) {
        return;
    }
    const bool made = ReferenceTablesFromScan(*gProject, *gISO484, tables_) == 1;
    // The scan was recalculated with the raw section ends: what the pages show must be made again.
    GraphsStale = true;
    if (made) {
        Refresh();
    }
}

void frmReferenceEditor::ctlImport_Click() {
    if (!QuerySave()) {
        return;
    }
    clsFileDialog dialog;
    dialog.DialogTitle = "Open file...";
    dialog.Filters = {{"Norvelle Corvane (*.cvrf)", "*.cvrf"},
                      {"Propeller Pitch Progression (*.ppp)", "*.ppp"}};
    dialog.InitDir = gRootDirectory;
    dialog.Parent = this;
    if (!dialog.ShowOpen()) {
        return;
    }
    if (dialog.FilterIndex == kCvrfType) {
        ReadCvrfReferenceFile(dialog.FileName, tables_);
    } else {
        ReadMichWheelReferenceFile(dialog.FileName, tables_);
    }
    Refresh();
}

bool frmReferenceEditor::ctlSaveAs_Click() {
    clsFileDialog dialog;
    dialog.DialogTitle = "Save file...";
    dialog.Filters = {{"Norvelle Corvan  (*.cvrf)", "*.cvrf"}};
    dialog.InitDir = gRootDirectory;
    dialog.FileName = tables_.FileName();
    dialog.Parent = this;
    if (!dialog.ShowSave()) {
        return false;
    }
    if (!IsFolderWritable(FolderOf(dialog.FileName))) {
        Prompts().MessageBox("The current project directory does not have write permissions. Please select a "
                             "different location to save the File/Project.",
                             MsgBox::Critical, "Access Error");
        return false;
    }
    if (SaveCvrfFile(dialog.FileName, tables_) != 1) {
        return false;
    }
    tables_.SetFileName(dialog.FileName);
    tables_.SetChanged(false);
    return true;
}

void frmReferenceEditor::ctlAddSection_Click() {
    tables_.AddSection();
    Refresh();
}

void frmReferenceEditor::ctlAddSegment_Click() {
    tables_.AddSegment();
    Refresh();
}

void frmReferenceEditor::txtSectionCount_Change() {
    // A field losing its focus to the question it raised reports the same edit again.
    if (filling_ || txtSectionCount_->text().toStdString() == std::to_string(tables_.SectionCount())) {
        return;
    }
    filling_ = true;
    tables_.ChangeSectionCount(txtSectionCount_->text().toStdString());
    filling_ = false;
    Refresh();
}

void frmReferenceEditor::txtSegmentCount_Change() {
    if (filling_ || txtSegmentCount_->text().toStdString() == std::to_string(tables_.SegmentCount())) {
        return;
    }
    filling_ = true;
    tables_.ChangeSegmentCount(txtSegmentCount_->text().toStdString());
    filling_ = false;
    Refresh();
}

void frmReferenceEditor::chkUseConstantLocalPitch_Click() {
    if (filling_) {
        return;
    }
    filling_ = true;
    tables_.SetUseConstantLocalPitch(chkUseConstantLocalPitch_->isChecked());
    filling_ = false;
    Refresh();
}

void frmReferenceEditor::DeleteSection() {
    const int row = dtbSectionData_->currentRow();
    if (row >= 0 && tables_.DeleteSection(row)) {
        Refresh();
    }
}

void frmReferenceEditor::DeleteSegment() {
    // Column 0 holds the mean; the segments follow it.
    int segment = -1;
    const QModelIndexList columns = dtbLocalPitchData_->selectionModel()->selectedColumns();
    if (columns.size() == 1 && columns.front().column() > 0) {
        segment = columns.front().column() - 1;
    }
    if (tables_.DeleteSegment(segment)) {
        dtbLocalPitchData_->clearSelection();
        Refresh();
    }
}

void frmReferenceEditor::SectionCellChanged(QTableWidgetItem* item) {
    if (filling_ || item == nullptr) {
        return;
    }
    filling_ = true;
    const int row = tables_.SetSectionValue(item->row(), static_cast<SectionColumn>(item->column()),
                                            StringToDouble(Text(*item)));
    filling_ = false;
    Refresh();
    dtbSectionData_->setCurrentCell(row, item->column());
}

void frmReferenceEditor::LocalPitchCellChanged(QTableWidgetItem* item) {
    if (filling_ || item == nullptr || item->column() < 1) {
        return;
    }
    filling_ = true;
    tables_.SetLocalPitch(item->row(), item->column() - 1, StringToDouble(Text(*item)));
    filling_ = false;
    Refresh();
}

void frmReferenceEditor::DescriptionEdited() {
    const std::string text = txtDescription_->text().toStdString();
    if (!filling_ && text != tables_.Description()) {
        tables_.SetDescription(text);
    }
}

void frmReferenceEditor::DiameterEdited() {
    if (filling_ || txtDiameter_->text() == shownDiameter_) {
        return;
    }
    tables_.SetDiameter(StringToDouble(txtDiameter_->text().toStdString()));
    Refresh();
}

} // namespace corvane
