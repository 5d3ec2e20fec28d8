// What pressing CHECK costs: the scan check (sweep assignment, GL alignment, backward points)
// and the properties driver (segment limits, section measures, blade pitches, local pitch panels,
// BCL values) on one scan. CHECK runs them on every press, so they must answer at once.
// Target, release build: a typical scan (4 blades x 8 sections x 800 points) in at most 3 ms, a
// heavy one (7 x 8 x 2,000) in at most 15 ms.
//
// The scans come from the virtual propeller quantised as the arm's encoders quantise (0.009
// degree, 0.01 mm), so sweeps carry the short straight runs and repeated angles of real data. The
// "per_point" counter is the time per raw point (SI suffix: n is nanoseconds).

#include <benchmark/benchmark.h>

#include "BenchProject.h"

#include "acquisition/clsVirtualPropeller.h"
#include "geometry/modCheckScanData.h"
#include "geometry/modPropellerProperties.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsUnits.h"

#include <cstdint>
#include <memory>
#include <stdexcept>
#include <vector>

using namespace corvane;

namespace {

// A project in millimetres around a 3 m propeller swept with `points` points per section.
std::shared_ptr<clsPropeller> MakeProject(int blades, int points) {
    bench::StartBenchProject(bench::BenchPropeller(blades), points);
    auto scan = gProject->PropellerScan(0);
    return scan->CopyClass();
}

void CheckScan(benchmark::State& state) {
    const int blades = static_cast<int>(state.range(0));
    const int points = static_cast<int>(state.range(1));
    const auto original = MakeProject(blades, points);
    for (auto _ : state) {
        state.PauseTiming();
        gProject->SetPropellerScan(0, original->CopyClass());
        state.ResumeTiming();
        if (CheckScanData(*gProject, 0) != 1 ||
            CalculatePropellerProperties(*gProject->PropellerScan(0), false, true) != 1) {
            state.SkipWithError("the scan did not calculate");
            break;
        }
    }
    const auto total = static_cast<std::int64_t>(blades) * 8 * points;
    state.SetComplexityN(total);
    state.counters["per_point"] =
        benchmark::Counter(static_cast<double>(total),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

} // namespace

BENCHMARK(CheckScan)->Args({4, 800})->Name("CheckScan/Typical")->Unit(benchmark::kMillisecond);
BENCHMARK(CheckScan)->Args({7, 2000})->Name("CheckScan/Heavy")->Unit(benchmark::kMillisecond);
BENCHMARK(CheckScan)
    ->ArgsProduct({{4}, {200, 400, 800, 1600, 3200}})
    ->Name("CheckScan/PointsPerSection")
    ->Complexity(benchmark::oN)
    ->Unit(benchmark::kMillisecond);
