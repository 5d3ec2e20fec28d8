#pragma once

#include "acquisition/modCalibrationProcedure.h"
#include "files/modOptionsForm.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDoubleSpinBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;
class QStatusBar;
class QTabWidget;

namespace corvane {

struct DAQState;

// The Settings dialog: everything that is not part of a project, on four tabs (Project,
// Calibration, Administrator, Interface), with OK, Cancel and Help in the status bar. The rules
// behind the fields (bindings, enable rules, the trigger key, calibration) live in the core
// (modOptionsForm, modCalibrationProcedure); the dialog shows the fields and passes edits on.
// OK writes everything in one go; Cancel writes nothing, though a calibration saved itself and a
// dog-leg offset typed is already in force.
class frmOptions : public QDialog, private ICalibrationDialog {
    Q_OBJECT

public:
    // daq: the arm's box for the guided calibration; null without one.
    explicit frmOptions(DAQState* daq, QWidget* parent = nullptr);

    // The fields as they stand.
    OptionsForm Form();
    // True once OK wrote the settings.
    bool Saved() const { return saved_; }
    void ClickOK();
    void ClickCancel();

signals:
    // The Help panel was clicked: the help page on the settings.
    void HelpRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void BuildProjectTab(QWidget* tab);
    void BuildCalibrationTab(QWidget* tab);
    void BuildAdministratorTab(QWidget* tab);
    void BuildInterfaceTab(QWidget* tab);
    void BuildStatusBar();
    void Connect();

    void ShowForm();
    void ReadFields();
    void ShowPath(QLineEdit* field, const std::string& path);
    void UpdateEncoderFields();
    void ShowBladeOrderPicture();

    void cboReports_Click();
    void txtLogo_Click();
    void txtFolder_Click(bool archive);
    void cmdCalibrate_Click();
    void cmdModifyCalibration_Click();
    void cmdLoadCalibration_Click();
    void cmdSaveCalibration_Click();
    void cmdRecommendMessaging_Click();
    void cmdTestMessaging_Click();

    // ICalibrationDialog.
    void SaveOptions() override;
    void LockForCalibration(bool locked) override;
    void FieldsChanged() override;

    DAQState* daq_;
    OptionsForm form_;
    bool loading_ = false;
    bool saved_ = false;

    QTabWidget* tabOptions_ = nullptr;
    QStatusBar* staMenuBar_ = nullptr;
    // Project.
    QComboBox* cboUnits_ = nullptr;
    QLineEdit* txtInspectorName_ = nullptr;
    QLineEdit* txtRepairShopName_ = nullptr;
    QPlainTextEdit* txtRepairShopAddress_ = nullptr;
    QLineEdit* txtLogo_ = nullptr;
    QLineEdit* txtDefaultManufacturer_ = nullptr;
    QComboBox* cboReports_ = nullptr;
    // Calibration.
    QLineEdit* txtScanSourceDevice_ = nullptr;
    QComboBox* cboAngleEncoderType_ = nullptr;
    QComboBox* cboRadiusEncoderType_ = nullptr;
    QComboBox* cboDropEncoderType_ = nullptr;
    QCheckBox* chkAngleFlip_ = nullptr;
    QCheckBox* chkRadiusFlip_ = nullptr;
    QCheckBox* chkDropFlip_ = nullptr;
    QLineEdit* txtAngleCalib_ = nullptr;
    QLineEdit* txtRadiusCalibMM_ = nullptr;
    QLineEdit* txtDropCalib_ = nullptr;
    QLineEdit* txtStndOffset_ = nullptr;
    QLineEdit* txtDogLegOffset_ = nullptr;
    QLineEdit* txtCalibRad_ = nullptr;
    QLineEdit* txtCalibPulse_ = nullptr;
    QPushButton* cmdCalibrate_ = nullptr;
    QPushButton* cmdModifyCalibration_ = nullptr;
    QPushButton* cmdLoadCalibration_ = nullptr;
    QPushButton* cmdSaveCalibration_ = nullptr;
    // Administrator.
    QLineEdit* txtActiveFolder_ = nullptr;
    QLineEdit* txtArchiveFolder_ = nullptr;
    QComboBox* cboEmailMessaging_ = nullptr;
    QCheckBox* chkEmailResolveName_ = nullptr;
    QPushButton* cmdRecommendMessaging_ = nullptr;
    QPushButton* cmdTestMessaging_ = nullptr;
    // Interface.
    QComboBox* cboAudioFeedback_ = nullptr;
    QComboBox* cboFootPedal_ = nullptr;
    QLineEdit* txtTriggerKey_ = nullptr;
    QComboBox* cboRulerDisplay_ = nullptr;
    QCheckBox* chkRadiusRulerFlip_ = nullptr;
    QComboBox* cboBladeOrder_ = nullptr;
    QLabel* picBladeOrder_ = nullptr;
    QComboBox* cboInterfaceFont_ = nullptr;
    QDoubleSpinBox* txtInterfaceFontSize_ = nullptr;
};

} // namespace corvane
