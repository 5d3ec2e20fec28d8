// Deep copy of scans. Every resize of a scan set pays one CopyClass per scan, and the
// acquisition timer runs on the same thread, so a copy must stay short.
// Target: CopyClass of a heavy scan (7 blades x 8 sections x 2,000 raw points) takes at most
// 2 ms in a release build; a typical scan is 4 x 8 x 800.
//
// Section point buffers are shared between copies until written, so CopyClass itself is
// O(sections). CopyThenWrite adds a write to every section of the copy, which forces each
// buffer to be copied: that is the full cost of a copy that is then changed everywhere, and
// it is bound by fresh pages (about 4.5 MB for the heavy scan), not by the copy loop.

#include <benchmark/benchmark.h>

#include "model/clsPropeller.h"

using namespace corvane;

namespace {

std::shared_ptr<clsPropeller> MakeScan(int blades, int sections, int points) {
    auto scan = std::make_shared<clsPropeller>();
    scan->SetBladeCount(static_cast<std::int16_t>(blades));
    for (int b = 0; b < blades; ++b) {
        auto blade = scan->Blades(b);
        blade->SetSectionCount(static_cast<std::int16_t>(sections));
        for (int k = 0; k < sections; ++k) {
            auto section = blade->Section(k);
            // Appended point by point, as acquisition does.
            for (int i = 0; i < points; ++i) {
                section->SetRawOffsetCount(i + 1);
                section->SetRadius(i, 100.0 + 0.01 * i);
                section->SetThetaDeg(i, 0.05 * i);
                section->SetAxialDropX(i, 0.001 * i);
            }
            blade->SetChord(k, 1.0);
        }
    }
    return scan;
}

void CopyScan(benchmark::State& state) {
    const auto scan = MakeScan(static_cast<int>(state.range(0)), static_cast<int>(state.range(1)),
                               static_cast<int>(state.range(2)));
    for (auto _ : state) {
        auto copy = scan->CopyClass();
        benchmark::DoNotOptimize(copy.get());
    }
}

void CopyThenWrite(benchmark::State& state) {
    const auto blades = static_cast<int>(state.range(0));
    const auto sections = static_cast<int>(state.range(1));
    const auto scan = MakeScan(blades, sections, static_cast<int>(state.range(2)));
    for (auto _ : state) {
        auto copy = scan->CopyClass();
        for (int b = 0; b < blades; ++b) {
            for (int k = 0; k < sections; ++k) {
                copy->Blades(b)->Section(k)->SetRadius(0, 1.0);
            }
        }
        benchmark::DoNotOptimize(copy.get());
    }
}

void AppendPoints(benchmark::State& state) {
    const auto points = static_cast<int>(state.range(0));
    for (auto _ : state) {
        clsSection section;
        for (int i = 0; i < points; ++i) {
            section.SetRawOffsetCount(i + 1);
            section.SetRadius(i, 1.0);
        }
        benchmark::DoNotOptimize(&section);
    }
    state.SetItemsProcessed(state.iterations() * points);
}

} // namespace

BENCHMARK(CopyScan)->Args({7, 8, 2000})->Name("CopyClass/heavy_7x8x2000")->Unit(benchmark::kMillisecond);
BENCHMARK(CopyScan)->Args({4, 8, 800})->Name("CopyClass/typical_4x8x800")->Unit(benchmark::kMillisecond);
BENCHMARK(CopyThenWrite)
    ->Args({7, 8, 2000})
    ->Name("CopyThenWrite/heavy_7x8x2000")
    ->Unit(benchmark::kMillisecond);
BENCHMARK(AppendPoints)->Arg(2000)->Unit(benchmark::kMicrosecond);
