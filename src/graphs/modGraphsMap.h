#pragma once

// The local pitch map of one blade (BLADE LOCAL): the expanded outline of the blade with the
// reference's, each measured section laid along its chord at its radius with its offsets drawn
// small over it and the pitch of every panel written on it, the section pitch in a column on the
// right and the r/R ruler on the left.

#include "graphs/modGraphs.h"

#include <vector>

namespace corvane {

class DrawingSurface;
class clsCoordinateGraph;

// Short level lines at the given radii (fractions of the radius `half`) centred on centreX, each
// labelled "95R" when `labels` is on.
void CreateRRLine(clsCoordinateGraph& graph, int& series, double centreX, double halfLength, double half,
                  const std::vector<double>& radii, bool labels, const GraphOptions& options);

// One section of the map: the reference's and the blade's offsets along the chord from x0 to x1
// at radius r, offsets scaled by `scale`, and the panel pitches over it ("36.00 P", or boxed with
// the excess and " P LOW" or " P HIGH" on a second line).
void CreateRadiusLine(clsCoordinateGraph& graph, int& series, const GraphRequest& request, int blade,
                      int section, double x0, double x1, double r, double scale);

// Blade options.blade. offsetRange, when above 0, is the span of offsets that fills the height
// given to each section (the zoomed Check page passes the range of the sections' offsets);
// otherwise the largest span of the blade's sections does.
void CreateMapGraph(DrawingSurface& surface, const GraphRequest& request, double offsetRange = 0);

} // namespace corvane
