#pragma once

#include <QWidget>

#include <array>
#include <vector>

class QComboBox;
class QFrame;
class QLabel;

namespace corvane {

class ctlPanelButton;
struct PanelView;
struct ScanPageView;

// The Scan page: the one big scan button with RE-SCAN LAST, ADD and the scan letters in the left
// bar, the guidance line, the arm picture, the read-outs of angle, radius and drop with the
// radius window and the panels for zeroing, the tips and the ruler in the middle, and the radius
// buttons in the right bar. It decides nothing: Show copies what the scan workflow decided onto
// the controls, writing a control only when its value differs, and the clicks and keys go out as
// signals. The arm picture's slot (picGraph) is left to the graphs.
class frmPageScan : public QWidget {
    Q_OBJECT

public:
    explicit frmPageScan(QWidget* parent = nullptr);

    void Show(const ScanPageView& view);
    // Where the arm picture is drawn.
    QFrame* ArmPictureSlot() const { return picGraph; }

    ctlPanelButton* ctlScanZeroGoStop = nullptr;
    ctlPanelButton* ctlScanOops = nullptr;
    ctlPanelButton* ctlScanAdd = nullptr;
    ctlPanelButton* ctlScanUp = nullptr;
    ctlPanelButton* ctlScanDown = nullptr;
    std::vector<ctlPanelButton*> ctlScanHistory;
    std::array<ctlPanelButton*, 8> ctlScanRadius{};
    ctlPanelButton* ctlScanMaxRadius = nullptr;
    ctlPanelButton* cmdGet = nullptr;
    QComboBox* txtScanDescription = nullptr;
    QFrame* picGraph = nullptr;
    QLabel* lblGuidance = nullptr;
    QLabel* lblEncoderAngleDeg = nullptr;
    QLabel* lblEncoderRadius = nullptr;
    QLabel* lblEncoderAxialDrop = nullptr;
    QLabel* lblFIFOCount = nullptr;
    QFrame* picZeroInstructions = nullptr;
    std::array<QLabel*, 3> lblZeroLines{};
    QFrame* picDisplayRadialPos = nullptr;
    QLabel* lblDisplayRad = nullptr;
    QWidget* picTolerance = nullptr;
    QFrame* picDiameterCheck = nullptr;
    QLabel* lblDiamCheckBlade = nullptr;
    QFrame* picRadiusRuler = nullptr;
    QLabel* lblRulerRadius = nullptr;
    QLabel* lblRulerMeasurement = nullptr;

signals:
    void ScanButtonClicked();
    void OopsClicked();
    void AddClicked();
    void HistoryClicked(int scan);
    void HistoryPaged(int step);
    void RadiusClicked(int radius);
    void TipClicked();
    void DescriptionEdited(const QString& text);
    void RulerClicked();
    // A key typed on the page: its code and the character it makes.
    void KeyTyped(int key, const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* BuildLeftBar();
    QWidget* BuildCentre();
    QWidget* BuildRightBar();
    QFrame* NewCard(const char* name);
    ctlPanelButton* NewButton(QWidget* parent, const char* name, const QString& caption, int clickAction);
    void ShowHistory(const ScanPageView& view);
    static void ShowPanel(ctlPanelButton* button, const PanelView& panel, int clickAction);

    QWidget* historyRow_ = nullptr;
    bool showing_ = false; // the description box is being filled, not edited
};

} // namespace corvane
