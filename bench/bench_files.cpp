// Block files. A project file holds a block per section of each blade of each scan, and a block
// may hold many tags; reading and writing must grow linearly with the tag count.
// Target: doubling the tags (50,000 -> 100,000 in one block) at most doubles the time of a read
// (parse, load the block, look up every tag) and of a write (set every tag, write atomically);
// the Complexity line of each group should report O(N).
//
// ReadFresh parses the file in every iteration, as the first read of a project does. ReadCached
// re-reads the block through one object whose parsed file is still valid, as every further
// block of that project does: it pays the block copy and the tag look-ups only.

#include <benchmark/benchmark.h>

#include "files/clsFileINI.h"
#include "model/NumberText.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <system_error>

using namespace corvane;

namespace {

namespace fs = std::filesystem;

class ScratchFile {
public:
    explicit ScratchFile(const std::string& name) {
        folder_ = fs::temp_directory_path() /
                  ("corvane-bench-" + name + "-" +
                   std::to_string(std::chrono::steady_clock::now().time_since_epoch().count()));
        fs::create_directories(folder_);
    }
    ~ScratchFile() {
        std::error_code ec;
        fs::remove_all(folder_, ec);
    }
    std::string Path() const { return (folder_ / "bench.cvpj").string(); }

private:
    fs::path folder_;
};

std::string TagName(int i) {
    return "Offset" + std::to_string(i);
}

void SetTags(clsFileINI& ini, int count) {
    bool flag = false;
    std::string text;
    for (int i = 0; i < count; ++i) {
        ini.SetFloatToBlockTag(TagName(i), 0.001 * i - 12.5, flag, text);
    }
}

// A file with a small block before and after the big one, aged so that its stamp is trusted.
void MakeFile(const std::string& path, int tags) {
    clsFileINI ini;
    bool flag = false;
    std::string text;
    ini.SetStringToBlockTag("Name", "bench", flag, text);
    ini.WriteBlock("Project", path);
    SetTags(ini, tags);
    ini.WriteBlock("Section", path);
    ini.SetIntegerToBlockTag("Count", 1, flag, text);
    ini.WriteBlock("Tail", path);
    fs::last_write_time(path, fs::last_write_time(path) - std::chrono::hours(1));
}

double ReadAllTags(clsFileINI& ini, const std::string& path, int tags) {
    bool flag = false;
    std::string text;
    double sum = 0.0;
    ini.ReadBlock("Section", path);
    for (int i = 0; i < tags; ++i) {
        sum += ini.GetFloatFromBlockTag(TagName(i), flag, text);
    }
    return sum;
}

void ReadFresh(benchmark::State& state) {
    const int tags = static_cast<int>(state.range(0));
    ScratchFile scratch("read");
    MakeFile(scratch.Path(), tags);
    for (auto _ : state) {
        clsFileINI ini;
        benchmark::DoNotOptimize(ReadAllTags(ini, scratch.Path(), tags));
    }
    state.SetComplexityN(tags);
}

void ReadCached(benchmark::State& state) {
    const int tags = static_cast<int>(state.range(0));
    ScratchFile scratch("cached");
    MakeFile(scratch.Path(), tags);
    clsFileINI ini;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReadAllTags(ini, scratch.Path(), tags));
    }
    state.SetComplexityN(tags);
}

void WriteBlock(benchmark::State& state) {
    const int tags = static_cast<int>(state.range(0));
    ScratchFile scratch("write");
    MakeFile(scratch.Path(), tags);
    clsFileINI ini;
    for (auto _ : state) {
        SetTags(ini, tags);
        benchmark::DoNotOptimize(ini.WriteBlock("Section", scratch.Path()));
    }
    state.SetComplexityN(tags);
}

} // namespace

BENCHMARK(ReadFresh)->Arg(50'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK(ReadCached)->Arg(50'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
BENCHMARK(WriteBlock)->Arg(50'000)->Arg(100'000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);
