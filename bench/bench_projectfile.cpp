// Project files. A heavy project holds both hands: 5 right and 5 left scans of 7 blades x 8
// sections x 2,000 points, some 2.2 million filed numbers in 560 section blocks.
// Target: a write and a read of the heavy project take at most 200 ms each, and time grows
// linearly with the file: the points argument halves and doubles the size of every section, so
// the Complexity line of each group should report O(N).
// The read includes the new project it is read into, as opening a project does.
// Measured 2026-11-23 on the 2-core build VM (medians of 5): write 80 / 144 / 253 ms and read
// 52 / 96 / 227-309 ms at 1,000 / 2,000 / 4,000 points; the VM's page faults make the largest
// read noisy. A filed number costs about 45 ns to write and 16 ns to read.
// The write includes putting the file on the disk (data, then the rename). Measured 2026-11-25:
// write 70 / 131-139 / 257-262 ms and read 53 / 101-108 / 199-208 ms with the disk otherwise
// idle; at 2,000 points the write took 162-185 ms while other builds were writing to the disk.
// Run with the allocator settings the programs use: without them the section arrays of 4,000
// points cross the C library's mapping threshold and every pass pays fresh page faults, which
// bends the growth on virtual machines.

#include <benchmark/benchmark.h>

#include "acquisition/clsVirtualPropeller.h"
#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "model/Globals.h"
#include "model/NumberText.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/modUtilities.h"
#include "support/ProcessMemory.h"
#include "support/ScriptedPrompts.h"
#include "support/Services.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

using namespace corvane;

namespace {

namespace fs = std::filesystem;

struct Scratch {
    fs::path folder = fs::temp_directory_path() /
                      ("corvane-bench-project-" +
                       std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
    Scratch() { fs::create_directories(folder); }
    ~Scratch() {
        std::error_code ec;
        fs::remove_all(folder, ec);
    }
    std::string Path() const { return (folder / "heavy.cvpj").string(); }
};

// A new project with 5 right and 5 left scans of the virtual propeller, each section swept with
// `points` points.
void BuildHeavyProject(int points) {
    CreateNewProject();
    gProject->SetProjectID("HEAVY");
    gProject->SetCustomer("Bench");
    gProject->SetMarkedDiameter(40);
    gProject->SetMarkedPitch("36");
    gProject->SetBladeCount(7);
    clsVirtualPropeller prop;
    prop.BladeCount = 7;
    const std::vector<double> radii(kStandardRadialPositions.begin(), kStandardRadialPositions.end());
    for (std::int16_t hand : {0, 1}) {
        gProject->SetRotationIndex(hand);
        prop.RotationIndex = hand;
        gProject->SetPropellerScanCount(5);
        for (int i = 0; i < 5; ++i)
            prop.FillScan(*gProject->PropellerScan(i), radii, points);
    }
    gProject->SetRotationIndex(0);
}

void BM_WriteProject(benchmark::State& state) {
    Scratch scratch;
    BuildHeavyProject(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        // Each save starts from no file, as a first save does: nothing to merge.
        state.PauseTiming();
        fs::remove(scratch.Path());
        state.ResumeTiming();
        if (WriteProjectFile(scratch.Path()) != 1)
            state.SkipWithError("write failed");
    }
    state.SetComplexityN(state.range(0));
    state.counters["MB"] = static_cast<double>(fs::file_size(scratch.Path())) / 1e6;
}

void BM_ReadProject(benchmark::State& state) {
    Scratch scratch;
    BuildHeavyProject(static_cast<int>(state.range(0)));
    WriteProjectFile(scratch.Path());
    for (auto _ : state) {
        CreateNewProject();
        if (ReadProjectFile(scratch.Path()).status != 1)
            state.SkipWithError("read failed");
    }
    state.SetComplexityN(state.range(0));
}

// One filed number each way, the unit both groups above are made of: a heavy project holds
// 3.4 million of them, so 60 ns a number is the whole 200 ms.
std::vector<double> SampleValues() {
    std::vector<double> values;
    for (int i = 0; i < 4096; ++i)
        values.push_back((i % 2 != 0 ? -1.0 : 1.0) * (0.37 + 1.618 * i) * (i % 3 == 0 ? 1e-3 : 1.0));
    return values;
}

void BM_FileNumber(benchmark::State& state) {
    const std::vector<double> values = SampleValues();
    std::string out;
    for (auto _ : state) {
        out.clear();
        for (const double v : values)
            AppendRoundedFileFloat(out, v, 9);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long long>(values.size()));
}

void BM_ReadNumber(benchmark::State& state) {
    std::vector<std::string> texts;
    for (const double v : SampleValues())
        texts.push_back(FormatFileFloat(RoundSignificant(v, 9)));
    for (auto _ : state) {
        double sum = 0.0;
        for (const std::string& text : texts)
            sum += ParseLeadingNumber(text);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long long>(texts.size()));
}

// Quiet services: no settings of the machine are read, no prompt waits.
struct QuietServices {
    ScriptedPrompts prompts;
    QuietServices() {
        PrepareAllocatorForLargeProjects(); // as the programs do at start
        prompts.SetAnswerFreely(true);
        Services services;
        services.prompts = &prompts;
        InstallServices(services);
    }
} quiet;

} // namespace

BENCHMARK(BM_FileNumber);
BENCHMARK(BM_ReadNumber);
BENCHMARK(BM_WriteProject)->Arg(1000)->Arg(2000)->Arg(4000)->Unit(benchmark::kMillisecond)->Complexity();
BENCHMARK(BM_ReadProject)->Arg(1000)->Arg(2000)->Arg(4000)->Unit(benchmark::kMillisecond)->Complexity();
