#pragma once

// The scan arm graph of the Scan page: the propeller seen from above with every raw sweep of the
// scan, the generator lines of the blades and the arm itself, following the encoders live.
//
// Drawn whole it is CreateScanArmGraph. While the arm runs the page keeps a ScanArmGraph: the
// fixed part (the sweeps measured so far) is drawn once into an image by Background, and every
// tick of the acquisition timer draws only the moving part (arm, marker and the sweep being
// measured) on that image with Frame.

#include "graphs/clsCoordinateGraph.h"
#include "graphs/modGraphs.h"

#include <memory>

namespace corvane {

class clsCorvane;
class DrawingSurface;

// Where the arm stands: its angle in degrees, its radius and the propeller's diameter (the
// marker sits at radius / (diameter / 2) of the graph's unit circle; 0 without a diameter).
struct ArmOnGraph {
    double angleDeg = 0;
    double radius = 0;
    double diameter = 0;
};

// The live graph in one call: the arm (digital acquisition only), every raw sweep of the scan in
// its blade's colour (with a MarkedDiameter above 0) and each blade's generator line with its
// number.
void CreateScanArmGraph(DrawingSurface& surface, const clsCorvane& project, int scanIndex,
                        const ArmOnGraph& arm, const GraphOptions& options);

class ScanArmGraph {
public:
    // Draws the raw sweeps of the scan and keeps the surface's image as the frames' ground.
    void Background(DrawingSurface& surface, const clsCorvane& project, int scanIndex,
                    const GraphOptions& options);
    // The arm and the sweep of `blade` at `section` (every section of the blade for -1) on the
    // stored ground; the surface must have the size the ground was drawn at. Without a ground
    // the frame is drawn on the back colour. Only the sweep under way needs to follow the arm:
    // the others are in the ground.
    void Frame(DrawingSurface& surface, const clsCorvane& project, int scanIndex, const ArmOnGraph& arm,
               int blade, int section, const GraphOptions& options);
    bool HasBackground() const { return background_ != nullptr; }
    // Drops the ground: the next Background draws it anew.
    void Forget() { background_.reset(); }

private:
    clsCoordinateGraph graph_;
    std::shared_ptr<const SurfaceImage> background_;
};

} // namespace corvane
