// Speed of the graphs: the top view of a heavy scan into a large image, and the scan arm frame
// that the Scan page draws on every 10 ms tick of the acquisition timer.
//   TopViewHeavyScan   7 blades x 8 sections x 2,000 points into 1,600 x 1,600   target <= 30 ms
//   ScanArmFrame       arm, marker and the sweep under way on the stored ground  target <= 2 ms
//   CheckViewSwitch/v  one Check page view of the heavy scan, drawn as a view button draws
//                      it into a 1,200 x 800 graph area (RADIUS LOCAL: all seven small graphs)
//                                                                                target <= 50 ms

#include "BenchDrawing.h"
#include "check/CheckRun.h"
#include "checkpage/CheckPageRules.h"
#include "checkpage/CheckViewDrawing.h"
#include "graphs/ScanArmGraph.h"
#include "graphs/modGraphsTop.h"
#include "platform/render/QtDrawingSurface.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace corvane::bench {
namespace {

void TopViewHeavyScan(benchmark::State& state) {
    EnsureGui();
    StartHeavyProject();
    QtDrawingSurface surface(QSize(1600, 1600));
    GraphRequest request{*gProject, *gISO484, 0};
    for (auto _ : state) {
        CreateTopGraph(surface, request);
        surface.Finish();
        benchmark::DoNotOptimize(surface.Raster()->constBits());
    }
}
BENCHMARK(TopViewHeavyScan)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void ScanArmFrame(benchmark::State& state) {
    EnsureGui();
    StartHeavyProject();
    QtDrawingSurface surface(QSize(800, 800));
    ScanArmGraph graph;
    GraphOptions options;
    graph.Background(surface, *gProject, 0, options);
    double angle = 0;
    for (auto _ : state) {
        angle += 0.5;
        graph.Frame(surface, *gProject, 0, ArmOnGraph{angle, 1000, 3000}, 3, 4, options);
        surface.Finish();
        benchmark::DoNotOptimize(surface.Raster()->constBits());
    }
}
BENCHMARK(ScanArmFrame)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime();

void CheckViewSwitch(benchmark::State& state) {
    EnsureGui();
    StartHeavyProject();
    CheckViewDraw draw;
    draw.view = static_cast<int>(state.range(0));
    draw.activeRadius = 3;
    const CheckViewLayout layout = LayoutOfView(draw.view, false, *gProject->PropellerScan(0));
    // The small graphs share the area two to a row.
    const int rows = layout.sectionGraphs ? (layout.elements + 1) / 2 : 1;
    const QSize size = layout.sectionGraphs ? QSize(600, 800 / rows) : QSize(1200, 800);
    for (auto _ : state) {
        for (int element = 0; element < layout.elements; ++element) {
            QtDrawingSurface surface(size);
            draw.element = element;
            DrawCheckView(surface, *gProject, *gISO484, draw);
            surface.Finish();
            benchmark::DoNotOptimize(surface.Raster()->constBits());
        }
    }
}
BENCHMARK(CheckViewSwitch)
    ->Arg(kViewTop)
    ->Arg(kViewBlade)
    ->Arg(kViewPitch)
    ->Arg(kViewRadius)
    ->Arg(kViewPath)
    ->Arg(kViewOutline)
    ->Unit(benchmark::kMillisecond)
    ->MeasureProcessCPUTime();

} // namespace
} // namespace corvane::bench
