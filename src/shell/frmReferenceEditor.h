#pragma once

#include "reference/clsReferenceTables.h"

#include <QDialog>

class QCheckBox;
class QLineEdit;
class QPushButton;
class QTableWidget;
class QTableWidgetItem;

namespace corvane {

// The custom reference editor (Tools menu): a tool window for making and changing reference
// files, an ideal propeller told by its sections and their local pitch. It works on its own
// tables (clsReferenceTables, which holds the rules) and changes neither the project nor its
// scans; "From scan" only reads the project's current reference. The two tables are
// dtbSectionData (r/R, chord, rake, skew, pitch per section) and dtbLocalPitchData (the mean
// pitch, then one column per segment from the leading edge); Delete removes the selected section
// row or segment column. Closing with unsaved changes asks to save them.
class frmReferenceEditor : public QDialog {
    Q_OBJECT

public:
    explicit frmReferenceEditor(QWidget* parent = nullptr);

    const clsReferenceTables& Tables() const { return tables_; }

    // The commands, by their controls.
    void ctlNew_Click();
    void ctlReferenceFile_Click();
    void ctlImport_Click();
    // True when the tables were saved.
    bool ctlSaveAs_Click();
    void ctlAddSection_Click();
    void ctlAddSegment_Click();
    void txtSectionCount_Change();
    void txtSegmentCount_Change();
    void chkUseConstantLocalPitch_Click();
    // The selected section row, and the segment column selected by its header.
    void DeleteSection();
    void DeleteSegment();

    // Asks to save unsaved changes: false when the user cancelled (or a save he asked for did
    // not happen), and whatever asked must stop.
    bool QuerySave();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void BuildLayout();
    // The tables and fields from clsReferenceTables, without change events.
    void Refresh();
    void FillSectionTable();
    void FillLocalPitchTable();
    void SectionCellChanged(QTableWidgetItem* item);
    void LocalPitchCellChanged(QTableWidgetItem* item);
    void DescriptionEdited();
    void DiameterEdited();

    clsReferenceTables tables_;
    // While set, edits of the widgets are the window's own and not the user's.
    bool filling_ = false;
    // The diameter as the field shows it: leaving the field unchanged changes nothing.
    QString shownDiameter_;

    QLineEdit* txtDescription_;
    QLineEdit* txtDiameter_;
    QLineEdit* txtPropPitch_;
    QLineEdit* txtSectionCount_;
    QLineEdit* txtSegmentCount_;
    QCheckBox* chkUseConstantLocalPitch_;
    QTableWidget* dtbSectionData_;
    QTableWidget* dtbLocalPitchData_;
};

} // namespace corvane
