// What finding the best ISO 484 class costs: GetBestISOClass runs the whole evaluation chain four
// times (classes 3, 2, 1 and S), and each pass measures the active scan again, builds the scan
// reference (the mean section of every blade at the reference pitch, rebuilt from its panels on
// every blade), compares the two and evaluates every criterion. The Check page and the report
// run it whenever the data or a setting changes, so it must answer without a visible wait.
//
// Targets, release build: a typical scan (4 blades x 8 sections x 800 points) in at most 15 ms,
// a heavy one (7 x 8 x 2,000) in at most 60 ms.
// Measured (RelWithDebInfo, 2 cores at 2.1 GHz, other builds running) before the fitted curves
// were kept: typical 78 ms, heavy 293 ms. Every pass measured the scan and the reference copy of
// it again and fitted every raw curve anew, though only the panel grids and the windows change
// from class to class. Now each fit is kept, keyed on its exact input, for the whole search
// (clsSplineFitCache): typical 17-18 ms, heavy 70-85 ms. With the checked element access of the
// geometry code made small enough to inline (its error raised out of line), on a quiet machine
// (2026-11-23, medians of 5): typical 10.4 ms, heavy 43.3 ms, within the targets. Most of what
// is left is the work around the fits that every pass repeats on each raw point: wrapping the
// angles and loading the points of each fit (a kept fit is found by comparing its whole input),
// the spline queries of the resampling, the reference copy of the scan and its rebuilt sections, and the
// memory the first pass takes for its fits (some 15 MB for the heavy scan). On the same machine
// one check of the typical scan with its properties (bench_geometry_scan) takes 2.6 ms.
//
// The scans come from the virtual propeller quantised as the arm's encoders quantise (0.009
// degree, 0.01 mm); the reference is a scan reference on the variable pitch of the propeller.

#include <benchmark/benchmark.h>

#include "BenchProject.h"

#include "acquisition/clsVirtualPropeller.h"
#include "check/CalculationChain.h"
#include "check/modISO484BestClass.h"
#include "geometry/modCheckScanData.h"
#include "geometry/modPropellerProperties.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsUnits.h"

#include <cstdint>
#include <memory>

using namespace corvane;

namespace {

// A checked project in millimetres around a 3 m propeller swept with `points` points per section,
// with a scan reference on its own pitch. False when the scan does not calculate.
bool MakeProject(int blades, int points) {
    const clsVirtualPropeller prop = bench::BenchPropeller(blades);
    bench::StartBenchProject(prop, points);
    gProject->SetMarkedPitch("2300");

    gProject->SetReferenceSourceIndex(1);
    gProject->SetReferenceSectionPitchIndex(1);
    gProject->SetReferenceVariablePitchCount(8);
    for (int i = 0; i < 8; ++i) {
        const double q = kStandardRadialPositions[static_cast<std::size_t>(i)];
        gProject->SetReferenceVariablePitchEnabled(i, true);
        gProject->SetReferenceVariablePitchRadialPos(i, q);
        gProject->SetReferenceVariablePitch(i, prop.At(prop.Pitch, q));
    }
    for (int b = 0; b < blades; ++b) {
        gProject->SetReferenceScanBladesEnabled(b, 1);
    }
    std::int16_t verdict = 0;
    return CheckScanData(*gProject, 0) == 1 && RunISOEvaluationChain(*gProject, *gISO484, verdict) == 1 &&
           gProject->ReferenceSourceIndex() == 1;
}

void BestISOClass(benchmark::State& state) {
    const int blades = static_cast<int>(state.range(0));
    const int points = static_cast<int>(state.range(1));
    if (!MakeProject(blades, points)) {
        state.SkipWithError("the scan or its reference did not calculate");
        return;
    }
    ISOClassCodes codes;
    std::int16_t propellerCode = 0;
    for (auto _ : state) {
        const std::int16_t verdict = GetBestISOClass(*gProject, *gISO484, 0, ISOSelection{},
                                                     ISOBelowSizeLimit(*gProject), codes, propellerCode);
        if (verdict != 1 || gProject->ReferenceSourceIndex() != 1) {
            state.SkipWithError("the clean scan did not meet its class against the reference");
            break;
        }
        benchmark::DoNotOptimize(codes);
    }
    state.counters["points"] = static_cast<double>(blades) * 8 * points;
}

} // namespace

BENCHMARK(BestISOClass)->Args({4, 800})->Name("BestISOClass/Typical")->Unit(benchmark::kMillisecond);
BENCHMARK(BestISOClass)->Args({7, 2000})->Name("BestISOClass/Heavy")->Unit(benchmark::kMillisecond);
