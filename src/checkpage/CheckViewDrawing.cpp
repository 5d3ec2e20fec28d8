#include "checkpage/CheckViewDrawing.h"

#include "checkpage/CheckPageRules.h"
#include "graphs/DrawingSurface.h"
#include "graphs/modGraphsBars.h"
#include "graphs/modGraphsMap.h"
#include "graphs/modGraphsOutline.h"
#include "graphs/modGraphsPath.h"
#include "graphs/modGraphsRadius.h"
#include "graphs/modGraphsTop.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"

#include <algorithm>

namespace corvane {

namespace {

// The span of the unrolled offsets over the blade's sections: the zoomed map fills each
// section's height with it.
double OffsetRange(const clsPropeller& scan, int blade) {
    if (blade < 0 || blade >= scan.BladeCount()) {
        return 0;
    }
    const auto b = scan.Blades(blade);
    double lo = 0, hi = 0;
    bool any = false;
    for (int k = 0; k < b->SectionCount(); ++k) {
        const auto s = b->Section(k);
        for (int i = 0; i < s->RawOffsetCount(); ++i) {
            const double x = s->RawOffsetX(i);
            lo = any ? std::min(lo, x) : x;
            hi = any ? std::max(hi, x) : x;
            any = true;
        }
    }
    return hi - lo;
}

} // namespace

void DrawCheckView(DrawingSurface& surface, const clsCorvane& project, const clsISO484& iso,
                   const CheckViewDraw& draw) {
    const int scanIndex = project.ActiveScanIndex();
    if (scanIndex < 0 || scanIndex >= project.PropellerScanCount() || !IsCheckView(draw.view)) {
        surface.BackColor = 0xFFFFFF;
        surface.SetPicture(nullptr);
        surface.Cls();
        surface.Refresh();
        return;
    }
    const clsPropeller& scan = *project.PropellerScan(scanIndex);
    GraphRequest request{project, iso, scanIndex, draw.selection};
    GraphOptions& o = request.options;
    o.zoom = draw.zoom;
    o.fontName = draw.fontName;
    o.fontSize = draw.fontSize;
    o.blade = draw.activeBlade;
    o.section = draw.activeRadius;
    switch (draw.view) {
    case kViewTop:
        if (draw.referenceOpen && draw.element == 0) {
            CreatePitchBarSections(surface, request, 1.0);
        } else {
            CreateTopGraph(surface, request);
        }
        break;
    case kViewPitch:
        CreatePitchBarSections(surface, request, 1.0);
        break;
    case kViewBlade:
        CreateMapGraph(surface, request, draw.zoom ? OffsetRange(scan, draw.activeBlade) : 0);
        break;
    case kViewRadius: {
        const std::vector<int> blades = BladesWithSections(scan);
        if (draw.element < 0 || draw.element >= static_cast<int>(blades.size())) {
            break;
        }
        // One scale for every blade's graph, so that the small graphs compare by eye.
        double low = 0, high = 0;
        if (!GetYOffsetRange(request, draw.activeRadius, low, high)) {
            low = high = 0;
        }
        o.blade = blades[static_cast<std::size_t>(draw.element)];
        request.selection.blades.fill(false);
        request.selection.blades[static_cast<std::size_t>(o.blade)] = true;
        CreateRadiusGraph(surface, request, low, high);
        break;
    }
    case kViewPath:
        if (scan.ScanDrop() == 2) {
            // Without an absolute drop the paths of different blades do not share a datum.
            request.selection.blades.fill(false);
            if (draw.activeBlade >= 0 && draw.activeBlade < 7) {
                request.selection.blades[static_cast<std::size_t>(draw.activeBlade)] = true;
            }
        }
        CreatePathPlotSection(surface, request);
        break;
    case kViewOutline:
        CreateRakeOutlineGraph(surface, request);
        break;
    default:
        break;
    }
}

} // namespace corvane
