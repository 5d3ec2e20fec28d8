// Spline fitting of one section. The properties driver fits every measured section of every
// blade (up to 7 x 8) and the local pitch panels refit each of them, so a fit of a long sweep
// must stay cheap for CHECK to answer at once.
// Target: fitting a 2,000-point sweep takes at most 1 ms in a release build; resampling it at
// the 49 stations of a 48-panel section at most 2 ms, fit included.

#include <benchmark/benchmark.h>

#include "geometry/clsSplineFit.h"
#include "geometry/modSplineFit.h"

#include <cmath>
#include <cstdint>
#include <vector>

using namespace corvane;

namespace {

// A sweep as the arm gives it: drop over the angle from the GL, a helix of pitch 1500 at
// radius 1000 with a thickness bump and a little encoder noise, so no run is quite straight.
struct Sweep {
    std::vector<double> theta;
    std::vector<double> drop;
};

Sweep MakeSweep(int points) {
    Sweep sweep;
    std::uint32_t noise = 12345;
    for (int i = 0; i < points; ++i) {
        const double f = static_cast<double>(i) / (points - 1);
        const double theta = -40.0 + 65.0 * f;
        noise = noise * 1664525u + 1013904223u; // deterministic, so every run fits the same data
        const double jitter = ((noise >> 8) / 16777216.0 - 0.5) * 0.002;
        sweep.theta.push_back(theta);
        sweep.drop.push_back(1500.0 * theta / 360.0 + 30.0 * std::sin(3.14159265358979 * f) + jitter);
    }
    return sweep;
}

void FitSection(benchmark::State& state) {
    const Sweep sweep = MakeSweep(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        clsSplineFit spline;
        spline.SetCount(static_cast<std::int32_t>(sweep.theta.size()));
        for (std::size_t i = 0; i < sweep.theta.size(); ++i) {
            spline.SetX(static_cast<int>(i), sweep.theta[i]);
            spline.SetY(static_cast<int>(i), sweep.drop[i]);
        }
        double startX = kSplineUnset;
        double startY = kSplineUnset;
        double endX = kSplineUnset;
        double endY = kSplineUnset;
        spline.MakeControlWithLinearSections(startX, startY, endX, endY, clsSplineFit::kSpacingAlongX);
        benchmark::DoNotOptimize(&spline);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void ResampleSection(benchmark::State& state) {
    const Sweep sweep = MakeSweep(static_cast<int>(state.range(0)));
    const int stations = static_cast<int>(state.range(1));
    std::vector<double> at;
    for (int i = 0; i < stations; ++i) {
        at.push_back(-38.0 + 61.0 * i / (stations - 1));
    }
    std::vector<double> out(at.size());
    const int n = static_cast<int>(sweep.theta.size());
    for (auto _ : state) {
        const bool ok = SplineOffsetValues(n, sweep.theta, sweep.drop, stations, at, out, 0);
        benchmark::DoNotOptimize(ok);
        benchmark::DoNotOptimize(out.data());
    }
}

} // namespace

BENCHMARK(FitSection)->Arg(2000)->Name("FitSection")->Unit(benchmark::kMicrosecond);
BENCHMARK(ResampleSection)->Args({2000, 49})->Name("SplineOffsetValues")->Unit(benchmark::kMicrosecond);
