// Importing another machine's scan (Hale MRI file). A file holds every point of every section of
// every blade as two comma-delimited fields, so the import must grow linearly with the points.
// Target: a seven-bladed propeller with 2,000 points per section (112,000 points, 2.2 MB) imports
// in under 250 ms, and the Complexity line reports O(N) over the points per section.

#include <benchmark/benchmark.h>

#include "files/modHaleMRIFile.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsUnits.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

using namespace corvane;

namespace {

namespace fs = std::filesystem;

// A plain-layout file: seven blades of the eight standard sections, each swept over 30 degrees.
std::string WriteFile(int points) {
    const fs::path path =
        fs::temp_directory_path() /
        ("corvane-bench-hale-" + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()) +
         ".txt");
    std::ofstream out(path, std::ios::binary);
    out << "HALE,Bench,,FP,40,36,R,,,J,,1/2/2025 9:00 AM,,S,,,I,,,,,Maker,BENCH,Bronze\r\n7";
    const int radii[] = {95, 90, 80, 70, 60, 50, 40, 30};
    for (int b = 0; b < 7; ++b) {
        for (const int r : radii) {
            out << "," << r << ",1," << points;
        }
    }
    out << "\r\n";
    char line[64];
    for (int s = 0; s < 7 * 8; ++s) {
        for (int i = 0; i < points; ++i) {
            const double angle = 10.0 + 30.0 * i / points;
            std::snprintf(line, sizeof line, "%.6f,%.6f\r\n", angle, 0.1 * angle);
            out << line;
        }
        out << "102\r\n";
    }
    return path.string();
}

void BM_ImportHaleMRIFile(benchmark::State& state) {
    const int points = static_cast<int>(state.range(0));
    const std::string path = WriteFile(points);
    for (auto _ : state) {
        auto units = std::make_shared<clsUnits>();
        units->SetPropLengthIndex(3);
        clsCorvane project;
        project.SetLinkedClasses(units);
        clsISO484 iso;
        iso.SetLinkedClasses(units);
        const FileReadResult read = ImportHaleMRIFile(path, project, iso);
        if (!read.Usable()) {
            state.SkipWithError("the file did not import");
        }
        benchmark::DoNotOptimize(project.PropellerScan(0));
    }
    state.SetComplexityN(points);
    state.counters["bytes"] = static_cast<double>(fs::file_size(path));
    fs::remove(path);
}
BENCHMARK(BM_ImportHaleMRIFile)
    ->Arg(250)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity();

} // namespace
