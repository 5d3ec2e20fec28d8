#pragma once

// The arithmetic of the graph engine that needs no surface: axis steps and label texts, the walk
// of ticks from 0 outward, the cutting of a curve at the plot bounds, the dashed-line walk, the
// marker shapes and the legend's box. clsCoordinateGraph draws with these.

#include <functional>
#include <string>
#include <vector>

namespace corvane {

struct PointD {
    double X = 0;
    double Y = 0;
};

// Whole powers of ten below |v| (floor of log10), |v| floored at 1e-16.
int AxisExponent(double v);

// The tick step of an axis from lo to hi: the range in units of a tenth of its larger power of ten,
// widened asymmetrically (the upper end by 1, 5 or 10 units, the lower one by 5 or 10), gives a
// base step of 2, 4, 10, 20, 50 or 100 tenths. Labels stand at every fifth tick, so 0 to 1 gives
// ticks of 0.04 and labels every 0.2.
double TickStep(double lo, double hi);

// The text of an axis label at v on an axis from min to max with tick step `step`: plain with as
// many decimals as the step needs while the axis's exponent lies in -4 to 4, otherwise in the
// scientific form "1.5e-5" / "1.5e+6" (the exponent written only for positive values).
std::string AxisLabelText(double v, double min, double max, double step);

// Multiples of step from 0 outward in both directions that lie within lo to hi, each position
// rounded to 6 decimals after each step so that the sums do not drift; ascending. A step that is
// not above 0 gives none.
std::vector<double> StepsFromZero(double lo, double hi, double step);

// A value written with 15 significant digits and read back: how curve points reach a piece.
double Round15(double v);

// Runs of a curve inside the limits (already widened by the caller). A run ends at the first
// point outside and becomes a piece whatever its length; the run still open at the end becomes a
// piece only with more than one point. Points outside are dropped, so a crossing segment is not
// drawn up to the edge.
struct CurvePiece {
    std::vector<double> X, Y;
};
std::vector<CurvePiece> CutAtBounds(const std::vector<double>& xs, const std::vector<double>& ys, double xMin,
                                    double xMax, double yMin, double yMax);

// The dashed-line walk in twips: a 60-twip pattern unit, starting with a gap; style 1 is gap 60,
// dash 180; 2 gap 60, dash 60; 3 gap 60, dash 360, gap 60, dash 120. The phase carries over from
// segment to segment. `stroke` is called with both ends of each dash piece. Other styles draw the
// polyline solid.
void DashedWalk(const std::vector<PointD>& points, int style,
                const std::function<void(PointD, PointD)>& stroke);

// The unit outline of a marker type 0 to 11 (y upwards), scaled by the marker's size when drawn;
// empty for any other type.
const std::vector<PointD>& MarkerShape(int type);

// The legend box in world units, from the widest shown label (twips), the offset of the first
// entry (world), the entry count, the world ratios in twips per world unit and the plot bounds.
// Positions 0 top right, 1 top left, 2 bottom right, 3 bottom left stand inside the plot, 75
// twips from its edges; 4 is that inner rectangle itself.
struct LegendBox {
    double left = 0, top = 0, right = 0, bottom = 0; // world
    double width = 0, height = 0;                    // world
};
LegendBox LayoutLegend(int position, double largestTextWidth, double firstOffset, int entries, double ratioX,
                       double ratioY, double plotLeft, double plotBottom, double plotRight, double plotTop);

// A legend label longer than 30 characters is cut to 26 and "...]" added.
std::string LegendLabelText(const std::string& label);

} // namespace corvane
