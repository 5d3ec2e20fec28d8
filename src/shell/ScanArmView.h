#pragma once

// The scan arm graph of the Scan page as a widget. The page hands it the arm's angle, radius and
// the propeller's diameter on every tick of the acquisition timer; the view draws only the moving
// part (arm, marker and the sweeps of the blade being measured) on a ground image of the sweeps
// measured so far, which it draws once and again only after ScanChanged or a resize.
//
// To host it on the Scan page: create it in the page's layout, call MoveArm from the timer's
// tick (UpdateAndSaveScanData) with gProject, the active scan, ActiveBlade and ActiveRadius (the
// section being swept), and ScanChanged
// whenever a sweep ends, a scan is chosen or cleared, or the page is entered. SetOptions passes
// the station's scan mode and whether the graph surface is enabled (grey ground) or not.

#include "graphs/ScanArmGraph.h"

#include <QImage>
#include <QWidget>

#include <memory>

namespace corvane {

class QtDrawingSurface;
class clsCorvane;

class ScanArmView : public QWidget {
    Q_OBJECT

public:
    explicit ScanArmView(QWidget* parent = nullptr);
    ~ScanArmView() override;

    void SetOptions(const GraphOptions& options);
    // The sweeps have changed: the ground is drawn anew with the next MoveArm.
    void ScanChanged();
    // One tick: draws the arm and the sweep under way (`blade` and `section`, 0-based; -1 for
    // every section of the blade) on the ground and repaints.
    void MoveArm(const clsCorvane& project, int scanIndex, const ArmOnGraph& arm, int blade, int section);
    // The whole graph in one go (the arm, every sweep and the blade lines), for a still page.
    void DrawStill(const clsCorvane& project, int scanIndex, const ArmOnGraph& arm);

    // What the view shows.
    QImage Picture() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void EnsureSurface();

    GraphOptions options_;
    ScanArmGraph graph_;
    std::unique_ptr<QtDrawingSurface> surface_;
};

} // namespace corvane
