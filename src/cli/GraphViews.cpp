#include "cli/GraphViews.h"

#include "check/CheckRun.h"
#include "graphs/ScanArmGraph.h"
#include "graphs/modGraphsBars.h"
#include "graphs/modGraphsMap.h"
#include "graphs/modGraphsOutline.h"
#include "graphs/modGraphsPath.h"
#include "graphs/modGraphsRadius.h"
#include "graphs/modGraphsTop.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"

#include <cmath>

namespace corvane::cli {

namespace {

bool Measured(clsPropeller& scan, int b, int k) {
    const auto blade = scan.Blades(b);
    return k < blade->SectionCount() && blade->Section(k)->RawOffsetCount() > 0;
}

int FirstRowWithData(clsPropeller& scan, int blade) {
    for (int k = 0; blade < scan.BladeCount() && k < scan.Blades(blade)->SectionCount(); ++k) {
        if (Measured(scan, blade, k)) {
            return k;
        }
    }
    return 0;
}

// Where the arm was left: the last point of the last sweep of the scan.
ArmOnGraph LastArmPosition(const clsCorvane& project, clsPropeller& scan) {
    ArmOnGraph arm;
    arm.diameter = project.MarkedDiameter();
    for (int b = 0; b < scan.BladeCount(); ++b) {
        for (int k = 0; k < scan.Blades(b)->SectionCount(); ++k) {
            const auto s = scan.Blades(b)->Section(k);
            if (s->RawOffsetCount() > 0) {
                arm.angleDeg = s->ThetaDeg(s->RawOffsetCount() - 1);
                arm.radius = s->Radius(s->RawOffsetCount() - 1);
            }
        }
    }
    return arm;
}

} // namespace

const std::vector<std::string>& GraphViewNames() {
    static const std::vector<std::string> names = {"top",    "pitch", "pitch-summary", "blade",
                                                   "radius", "path",  "outline",       "arm"};
    return names;
}

void DefaultGraphSize(GraphView view, bool report, int& width, int& height) {
    switch (view) {
    case GraphView::Top:
        width = height = 1000;
        break;
    case GraphView::Arm:
        width = height = 800;
        break;
    case GraphView::Pitch:
    case GraphView::PitchSummary:
        width = 1400, height = 840;
        break;
    case GraphView::Blade:
        width = 1100, height = 1100;
        break;
    case GraphView::Outline:
        width = 1000, height = 1200;
        break;
    default:
        width = 1400, height = 850;
        break;
    }
    if (report) {
        width *= 2;
        height *= 2;
    }
}

std::optional<int> RowAtRadius(const clsPropeller& scan, double value, std::string& reason) {
    const double ratio = value > 1 ? value / 100 : value;
    int best = -1;
    double distance = 1e300;
    for (int k = 0; k < static_cast<int>(kStandardRadialPositions.size()); ++k) {
        double at = kStandardRadialPositions[static_cast<std::size_t>(k)];
        for (int b = 0; b < scan.BladeCount(); ++b) {
            const auto blade = scan.Blades(b);
            if (k < blade->SectionCount() && blade->RadialPos(k) > 0) {
                at = blade->RadialPos(k);
                break;
            }
        }
        if (std::fabs(at - ratio) < distance) {
            distance = std::fabs(at - ratio);
            best = k;
        }
    }
    if (best < 0 || distance > 0.01) {
        reason = "no section at r/R " + std::to_string(ratio).substr(0, 4);
        return std::nullopt;
    }
    return best;
}

void DrawGraphView(DrawingSurface& surface, const clsCorvane& project, const clsISO484& iso, int scanIndex,
                   const GraphViewRequest& view) {
    clsPropeller& scan = *project.PropellerScan(scanIndex);
    GraphRequest request{project, iso, scanIndex};
    request.selection.blades = EnabledBlades(scan);
    if (view.blade) {
        request.selection.blades.fill(false);
        if (*view.blade < static_cast<int>(request.selection.blades.size())) {
            request.selection.blades[static_cast<std::size_t>(*view.blade)] = true;
        }
    }
    int firstBlade = 0;
    while (firstBlade + 1 < scan.BladeCount() && !scan.Blades(firstBlade)->BladeEnabled()) {
        ++firstBlade;
    }
    GraphOptions& o = request.options;
    o.blade = view.blade.value_or(firstBlade);
    o.section = view.row.value_or(FirstRowWithData(scan, o.blade));
    o.zoom = view.zoom;
    o.report = view.report;
    o.fontName = gUIFontName;
    o.fontSize = gUIFontSize;
    if (view.row && view.view != GraphView::Radius) {
        request.selection.radii.fill(false);
        request.selection.radii[static_cast<std::size_t>(*view.row)] = true;
    }
    switch (view.view) {
    case GraphView::Top:
        CreateTopGraph(surface, request);
        break;
    case GraphView::Pitch:
        CreatePitchBarSections(surface, request, 1.0);
        break;
    case GraphView::PitchSummary:
        CreatePitchBarSummary(surface, request);
        break;
    case GraphView::Blade:
        CreateMapGraph(surface, request, 0);
        break;
    case GraphView::Radius:
        CreateRadiusGraph(surface, request, 0, 0);
        break;
    case GraphView::Path:
        if (view.row) {
            CreatePathPlotSection(surface, request);
        } else {
            CreatePathPlotAll(surface, request);
        }
        break;
    case GraphView::Outline:
        CreateRakeOutlineGraph(surface, request);
        break;
    case GraphView::Arm:
        o.scanMode = 2;
        o.surfaceEnabled = true;
        CreateScanArmGraph(surface, project, scanIndex, LastArmPosition(project, scan), o);
        break;
    }
}

} // namespace corvane::cli
