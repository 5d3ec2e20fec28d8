#pragma once

// The Check page's controls: the view buttons, ZOOM, the radius buttons and TIP in the left bar,
// the class combo with the verdict, the ISO task and the comparison scan above the graphs, the
// big graph picGraph or the panel of small graphs picSectionGraphs, and the reference panel on
// the right. It decides nothing: CheckPageController drives it.

#include <QWidget>

#include <array>
#include <vector>

class QComboBox;
class QGridLayout;
class QLabel;
class QStackedWidget;

namespace corvane {

class CheckGraphView;
class ctlPanelButton;
class frmReferenceScanEditor;

class frmPageCheck : public QWidget {
    Q_OBJECT

public:
    explicit frmPageCheck(QWidget* parent = nullptr);

    // The view buttons by ActiveGraphModeIndex (3 has none).
    ctlPanelButton* ViewButton(int view) const;
    // Shows the big graph or `count` small graphs, creating those missing; gives the small ones.
    void ShowBigGraph();
    const std::vector<CheckGraphView*>& ShowSectionGraphs(int count);
    const std::vector<CheckGraphView*>& SectionGraphs() const { return sectionGraphs_; }

    ctlPanelButton* ctlTop = nullptr;
    ctlPanelButton* ctlSumPitch = nullptr;
    ctlPanelButton* ctlBladePitch = nullptr;
    ctlPanelButton* ctlRadiusPitch = nullptr;
    ctlPanelButton* ctlOutline = nullptr;
    ctlPanelButton* ctlPath = nullptr;
    ctlPanelButton* ctlReference = nullptr;
    ctlPanelButton* ctlZoom = nullptr;
    ctlPanelButton* ctlScanMaxRadius = nullptr;
    std::array<ctlPanelButton*, 8> ctlScanRadius{};
    QComboBox* ctlSetISOClass = nullptr;
    QLabel* lblMeetsClass = nullptr;
    QComboBox* cboISOTask = nullptr;
    QComboBox* cboScanCompare = nullptr;
    QStackedWidget* graphArea = nullptr;
    CheckGraphView* picGraph = nullptr;
    QWidget* picSectionGraphs = nullptr;
    frmReferenceScanEditor* picReferenceEditor = nullptr;

signals:
    void ViewClicked(int view);
    void RadiusClicked(int row);
    void VerdictClicked();
    void SectionGraphClicked(int element);
    void GraphResized();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QGridLayout* sectionLayout_ = nullptr;
    std::vector<CheckGraphView*> sectionGraphs_;
};

} // namespace corvane
