#pragma once

// The reference panel of the Check page (REF): what the scan is compared with. It edits the
// panel state of ReferencePanel and shows it; APPLY turns orange while an edit waits. The page
// applies the panel and recalculates when APPLY is clicked.

#include "checkpage/ReferencePanel.h"

#include <QWidget>

#include <array>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace corvane {

class clsCorvane;
class clsISO484;
class ctlPanelButton;

class frmReferenceScanEditor : public QWidget {
    Q_OBJECT

public:
    explicit frmReferenceScanEditor(QWidget* parent = nullptr);

    // Loads the project's settings into the panel (nothing pending) and shows them.
    void LoadFrom(const clsCorvane& project);
    // Shows the panel state: the fields of its source, the values and APPLY's colour.
    void ShowState();
    ReferencePanel& Panel() { return panel_; }
    bool Pending() const { return panel_.Pending(); }

    // The project and ISO object the estimate reads; set by the page before each use.
    void SetContext(clsCorvane* project, clsISO484* iso) {
        project_ = project;
        iso_ = iso;
    }

    // Picks the reference file: the dialog, then the file is read into the project.
    void ChooseFile();

    QComboBox* cboRepairSource = nullptr;
    QComboBox* cboReferenceScanIndex = nullptr;
    ctlPanelButton* ctlLockScan = nullptr;
    std::array<QCheckBox*, kPanelBlades> chkAvgBlade{};
    ctlPanelButton* ctlRefAllBlades = nullptr;
    QComboBox* cboPitchDefinition = nullptr;
    ctlPanelButton* ctlEstimatePitch = nullptr;
    QComboBox* cboRepairToSectionPitch = nullptr;
    QLineEdit* txtRepairReferencePitch = nullptr;
    QTableWidget* dtbVariablePitch = nullptr;
    QComboBox* cboRepairToLocalPitch = nullptr;
    QLineEdit* txtRepairReferenceFile = nullptr;
    QLabel* lblReferenceFileInfo = nullptr;
    QLineEdit* txtCupExclusion = nullptr;
    QLineEdit* txtLEExclusion = nullptr;
    ctlPanelButton* ctlApply = nullptr;
    QWidget* picApplyBackGround = nullptr;

signals:
    void ApplyClicked();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Edited();
    void Estimate();
    QString Length(double value) const;

    ReferencePanel panel_;
    clsCorvane* project_ = nullptr;
    clsISO484* iso_ = nullptr;
    QWidget* scanGroup_ = nullptr;
    QWidget* pitchGroup_ = nullptr;
    QWidget* fileGroup_ = nullptr;
    bool showing_ = false;
};

} // namespace corvane
