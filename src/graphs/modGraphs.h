#pragma once

// The graph builders: they turn the evaluated project into series of a clsCoordinateGraph and
// draw them on a surface. Every builder takes what it draws as parameters (the project, the ISO
// object whose Results() the last evaluation filled, the scan, the selection and the options) and
// keeps no state, so the Check page, the reports and the command line draw the same pictures.
// This header holds what all builders share; each family has its own header.
//
// Conventions: colours 0xBBGGRR; lengths in the project unit; angles in degrees measured from
// the top of the graph clockwise, so that a point at radius ratio r (Radius / (MarkedDiameter /
// 2)) and angle theta stands at X = r sin(theta), Y = r cos(theta). Values outside their ISO
// window are written "[<b>" value "]" (bold, boxed in brackets) when there is a reference.

#include "iso484/ISOResults.h"

#include <array>
#include <cstdint>
#include <string>

namespace corvane {

class clsCorvane;
class clsISO484;
class clsPropeller;

using GraphColour = std::int32_t;

// Blade colours by blade index; the eighth place and any beyond are black.
inline constexpr std::array<GraphColour, 8> kBladeColours = {0xFF0000, 0x800080, 0x257A09, 0x0000C0,
                                                             0x0080FF, 0xC0C000, 0x00C0C0, 0x000000};
GraphColour BladeColour(int blade);
inline constexpr GraphColour kReferenceColour = 0x4D4D4D; // reference and construction lines
inline constexpr GraphColour kBladeLineColour = 0x404040; // generator lines of the blades
inline constexpr GraphColour kWhite = 0xFFFFFF;
inline constexpr GraphColour kScanSurfaceGrey = 0xBABABA;
inline constexpr GraphColour kPropellerBarColour = 0x916037;

// What a graph is drawn for, besides the data.
struct GraphOptions {
    bool report = false;        // a report graph: large surface, report sizes
    bool zoom = false;          // the Check page's ZOOM
    int graphSize = 0;          // the screen graph size setting: 0 normal, 1 large
    bool rakeAlignment = false; // radius graphs shift each blade by its rake difference to the reference
    std::string fontName = "Arial";
    double fontSize = 9;
    // The scan arm graph: the station's scan mode (2 digital acquisition shows the arm) and
    // whether the Scan page's graph surface is enabled (grey ground) or not (white).
    int scanMode = 2;
    bool surfaceEnabled = true;
    // The blade and section a single-blade or single-section view draws (0-based).
    int blade = 0;
    int section = 0;
};

// Everything a builder reads: the project (its selected scan set), the ISO object of the last
// evaluation, the scan, which blades and radial rows are shown, and the options.
struct GraphRequest {
    const clsCorvane& project;
    const clsISO484& iso;
    int scanIndex = 0;
    ISOSelection selection{};
    GraphOptions options{};
};

// Sizes of texts, lines and markers: report graphs 28/24/6/10/2, screen 16/12/2/5/1, screen at
// the large setting 28/24/8/11/4 (title size, label size, line width, marker size, thin width).
struct GraphStyle {
    double titleSize = 16;
    double labelSize = 12;
    int lineWidth = 2;
    int markerSize = 5;
    int thinWidth = 1;
};
GraphStyle GraphStyleSettings(bool report, int graphSize);

// Label alignment code for a blade's number by the angle of its generator line; the sector from
// 247.5 to 292.5 degrees takes 6 in the top view and 1 in the scan arm graph.
int BladeLabelCode(double thetaDeg, bool scanArm);

// The tolerance limits are compared at: the project's length format with `suffix` added, read as
// a number ("0.00" and "001" give 0.00001).
double FormatTolerance(const std::string& lengthFormat, const std::string& suffix = "001");

// value + suffix, or "[<b>" value suffix "]" when it lies outside its window.
std::string Bracketed(const std::string& value, const std::string& suffix, bool outside);

// Whether a window is broken, compared at the format tolerance; never without a reference.
bool OutsideWindow(const ISOWindow& window, double tolerance, bool reference);

// A length in the project's format ("0.00" for inches...).
std::string FormatLength(const clsCorvane& project, double value);
std::string LengthFormat(const clsCorvane& project);
// The project unit's label ("in", "mm"...).
std::string UnitLabel(const clsCorvane& project);

// Plot margins given in twips turned into the four ratios of SetWin2PlotRatio (left, top, right,
// bottom) for a surface of the given size in twips. When left + right does not fit in the width,
// the left ratio is guardLeft and the plot reaches guardRight of the width; the same on the
// height with guardTop and guardBottom.
struct PlotMarginTwips {
    double left = 1000, right = 800, top = 375, bottom = 375;
    double guardLeft = 0.15, guardRight = 0.95, guardTop = 0.05, guardBottom = 0.9;
};
std::array<double, 4> PlotMarginRatios(const PlotMarginTwips& margins, double widthTwips, double heightTwips);

// The scan a request names, or null.
const clsPropeller* RequestScan(const GraphRequest& request);
// The reference the scan is compared with: the project's ReferenceScan when a reference is in
// force and the evaluation was made against it, else null.
const clsPropeller* RequestReference(const GraphRequest& request);
// Whether blade b and radial row k are shown.
bool BladeShown(const GraphRequest& request, int blade);
bool RowShown(const GraphRequest& request, int row);
// The ISO results of a blade or section, or null when the evaluation has none.
const ISOBladeResults* BladeResults(const GraphRequest& request, int blade);
const ISOSectionResults* SectionResults(const GraphRequest& request, int blade, int section);

} // namespace corvane
