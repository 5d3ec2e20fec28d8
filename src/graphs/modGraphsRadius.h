#pragma once

// The radius graph: one section of the blades along its nose-tail line, the measured sweep and
// the fitted segment of each blade with the reference's, the panel pitches over the plot (boxed
// with " P LOW" or " P HIGH" when a panel leaves its window) and the section's nose-tail pitch.
// Also the transform every section-profile view uses.

#include "graphs/modGraphs.h"

#include <vector>

namespace corvane {

class DrawingSurface;
class clsBlades;

// A section unrolled along its nose-tail line: x along the chord from the end that lies first on
// the unrolled arc, y the offset from the line (positive towards greater drop). The raw sweep
// and the segment points.
struct SectionProfile {
    bool valid = false;
    std::vector<double> rawX, rawY, segX, segY;
};

// The section's points at arc length (half diameter x r/R x angle from the generator line, in
// radians) and drop, moved to the first segment end and turned by the nose-tail angle. Invalid
// without raw points or without two segment points.
SectionProfile SectionOffsets(const clsBlades& blade, int section, double halfDiameter);

// Lowest and highest profile offset of a section over the reference and every enabled blade, so
// that all radius graphs of a section share one scale. False when none has data.
bool GetYOffsetRange(const GraphRequest& request, int section, double& low, double& high);

// The fixed label step of a zoomed radius graph by the span of its data; -1 for automatic.
double RadiusZoomStep(double span);

// Blade options.blade (its panels and pitch are written) and every other blade the selection
// shows, at section options.section. yLow and yHigh, when they differ by more than 0.0001, fix
// the Y range (the report's common scale); otherwise the data and the other blades set it.
void CreateRadiusGraph(DrawingSurface& surface, const GraphRequest& request, double yLow = 0,
                       double yHigh = 0);

} // namespace corvane
