#pragma once

#include "files/modProjectCommands.h"

#include <QWidget>

#include <array>

class QGridLayout;
class QLabel;
class QPlainTextEdit;
class QScrollArea;

namespace corvane {

class ctlComboField;
class ctlPanelButton;
class ctlTextField;

// The Project page: the job, the propeller as marked, the probe of the scan arm and the ISO
// settings. It keeps no data of its own: every field writes straight into gProject, gUnits or
// gISO484 as it changes and marks the graphs stale. A change the technician makes also marks the
// project unsaved; filling the fields from the model (RefreshProjectFormData) marks nothing.
//
// Required fields that fail their check show a red caption and a check mark beside them.
// The left bar carries the file commands, which the main window runs; the right bar is a
// read-only map of the radial sections, the inner one last.
class frmPageProject : public QWidget {
    Q_OBJECT

public:
    explicit frmPageProject(QWidget* parent = nullptr);

    // Fills every field from the model, leaving gProjectDirty and GraphsStale as they were.
    // 1, or 0 after a fault that the error handler was told of.
    int RefreshProjectFormData();

    // clearOnly: clears the marks of missing fields and gives 1. Otherwise clears them, marks
    // each required field that fails (Customer, Project ID, a diameter above 0, the pitch, and
    // an inner radius from 1 up to 40 when it is on) and gives 1 only when all hold.
    int CheckProjectData(bool clearOnly);

    // Save as requires a diameter and a customer: marks or clears those two.
    void MarkSaveAsFields(bool diameterMissing, bool customerMissing);

    // The marks shown now: a field without its mark holds (true).
    ProjectFieldCheck Marks() const;

    // Lays the panels out for the page's width: three columns, two, or one above another.
    void ResizeScreenElements();
    // Columns of panels in the present layout.
    int PanelColumns() const { return columns_; }

signals:
    // The left bar. The main window runs its New, Open, Save and Open archive commands.
    void newRequested();
    void openRequested();
    void saveRequested();
    void archiveRequested();
    // The blade count of the project changed (the window refreshes its blade buttons).
    void bladeCountChanged();
    // Project ID or customer changed, or the page was refreshed: the window title follows.
    void titleChanged();
    // The technician changed a field: the project is unsaved now.
    void projectChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr int kLowestBladeCount = 2; // the blade count list runs from 2 to 7

    // Counts the refreshes in progress, so that nested ones stay quiet too.
    class QuietScope {
    public:
        explicit QuietScope(int& depth) : depth_(depth) { ++depth_; }
        ~QuietScope() { --depth_; }
        QuietScope(const QuietScope&) = delete;
        QuietScope& operator=(const QuietScope&) = delete;

    private:
        int& depth_;
    };

    // Marks of the required fields, in the order of ProjectFieldCheck.
    enum Required { kCustomer, kProjectID, kDiameter, kPitch, kInnerRadius, kRequiredCount };

    // Building (frmPageProjectLayout.cpp).
    void BuildPage();
    QWidget* BuildLeftBar();
    QWidget* BuildRightBar();
    QWidget* NewPanel(const char* name, const QString& header, QGridLayout*& body, bool fillHeight = false);
    QLabel* AddCaption(QGridLayout* body, int row, const char* name, const QString& caption);
    ctlTextField* AddTextField(QGridLayout* body, int row, const char* name, const char* captionName,
                               const QString& caption);
    ctlComboField* AddComboField(QGridLayout* body, int row, const char* name, const char* captionName,
                                 const QString& caption);
    QLabel* AddCheckMark(QGridLayout* body, int row, const char* name);
    QPlainTextEdit* AddNotes(QGridLayout* body, const char* name);
    void FillComboLists();
    void ConnectFields();
    void ArrangePanels(int columns);

    // Field events.
    void TextField_Change(ctlTextField* field);
    void txtDiameter_Change();
    void txtDiameter_KeyPress(int& keyCode);
    void txtDiameter_LostFocus();
    void txtInnerRad_Change();
    void txtInnerRad_KeyPress(int& keyCode);
    void cboRotation_Click();
    void cboBladeCount_Click();
    void cboUnits_Click();
    void cboScanArmOffset_Click();
    void cboISOTask_Click();
    void cboISOClass_Click();
    void cboISOCriteria_Click();
    void cboInnerRad_Click();
    void Notes_Change(QPlainTextEdit* notes);

    // A change the technician made: the graphs are stale and the project unsaved.
    void UserChanged();
    // The field's own handlers see a refresh and do not write or mark anything.
    bool Quiet() const { return refreshing_ > 0 || !ModelReady(); }
    static bool ModelReady();
    void SetTextQuietly(ctlTextField* field, const QString& text);
    bool DiameterGuardApplies() const;
    void StartDiameterSession();
    void RunDiameterGuard();
    void SetInnerRadiusEnabled(bool on);
    void ShowRequiredMark(Required field, bool missing);
    void UpdateRequiredMark(Required field);
    void SetISOStandardFromDiameter();
    void RefreshRadiusMap();
    void FillFieldsFromModel();
    // Selects the row, or none when the model holds a value the list does not offer.
    static void ShowListIndex(ctlComboField* combo, int index);

    int refreshing_ = 0;
    // Set while the page itself puts an accepted diameter into the field.
    bool diameterGuardPass_ = false;
    // The diameter was empty when this spell of editing began: the first diameter of a
    // project with scans is typed freely, a change of an existing one goes through the guard.
    bool diameterFreeSession_ = true;
    int columns_ = 0;

    QScrollArea* scroller_ = nullptr;
    QWidget* content_ = nullptr;
    QGridLayout* grid_ = nullptr;
    QWidget* picInspector_ = nullptr;
    QWidget* picClient_ = nullptr;
    QWidget* picPropeller_ = nullptr;
    QWidget* picDeviceSetup_ = nullptr;
    QWidget* picJobNotes_ = nullptr;
    QWidget* picInspectNotes_ = nullptr;

    ctlTextField* txtRepairShopName_ = nullptr;
    ctlTextField* txtInspector_ = nullptr;
    ctlTextField* txtCustomer_ = nullptr;
    ctlTextField* txtVessel_ = nullptr;
    ctlTextField* txtJobNumber_ = nullptr;
    ctlTextField* txtProjectID_ = nullptr;
    ctlTextField* txtManufacturer_ = nullptr;
    ctlTextField* txtModelNumber_ = nullptr;
    ctlTextField* txtSerialNumber_ = nullptr;
    ctlTextField* txtMaterial_ = nullptr;
    ctlTextField* txtBoreSize_ = nullptr;
    ctlComboField* cboRotation_ = nullptr;
    ctlComboField* cboBladeCount_ = nullptr;
    ctlComboField* cboUnits_ = nullptr;
    ctlTextField* txtDiameter_ = nullptr;
    ctlTextField* txtPitch_ = nullptr;
    ctlComboField* cboScanArmOffset_ = nullptr;
    ctlComboField* cboISOTask_ = nullptr;
    ctlComboField* cboISOClass_ = nullptr;
    ctlComboField* cboISOCriteria_ = nullptr;
    ctlComboField* cboInnerRad_ = nullptr;
    ctlTextField* txtInnerRad_ = nullptr;
    QLabel* lblInnerRad_ = nullptr;
    QPlainTextEdit* txtJobNotes_ = nullptr;
    QPlainTextEdit* txtNotes_ = nullptr;

    std::array<QLabel*, kRequiredCount> requiredCaptions_{};
    std::array<QLabel*, kRequiredCount> requiredChecks_{};

    ctlPanelButton* ctlProjectNew_ = nullptr;
    ctlPanelButton* ctlProjectOpen_ = nullptr;
    ctlPanelButton* ctlProjectSave_ = nullptr;
    ctlPanelButton* ctlViewArchive_ = nullptr;
    ctlPanelButton* ctlScanMaxRadius_ = nullptr;
    std::array<ctlPanelButton*, 8> ctlScanRadius_{};
};

} // namespace corvane
