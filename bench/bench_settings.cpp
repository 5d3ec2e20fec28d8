// What the Settings dialog and the error report cost. Opening and closing the dialog reads and
// writes every setting (target: well under a millisecond, the dialog must open at once); the
// Help menu's error report encodes a full-HD desktop picture at quality 100 and hands it over
// (target: under a second, the user waits with the wait cursor).
#include "files/modOptionsForm.h"
#include "reports/clsImageDIB.h"
#include "reports/modErrorReport.h"
#include "support/FixedClock.h"
#include "support/FixedEnvironment.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingEventPump.h"
#include "support/ScriptedPrompts.h"
#include "support/Services.h"

#include <benchmark/benchmark.h>

#include <filesystem>

using namespace corvane;

namespace {

struct BenchServices {
    ScriptedPrompts prompts;
    MemorySettingsStore settings;
    FixedClock clock{DateTime{2026, 11, 22, 9, 5, 7}};
    FixedEnvironment environment;
    RecordingEventPump events;
    SilentSound sound;
    RecordingMailTransport mail;
    ServiceScope scope{Services{&prompts, &settings, &clock, &environment, &events, &sound, &mail}};

    BenchServices() {
        prompts.SetAnswerFreely(true);
        const auto folder = std::filesystem::temp_directory_path() / "corvane-bench-settings";
        std::filesystem::create_directories(folder);
        environment.appDataFolder = folder.string() + "/";
        environment.tempFolder = folder.string() + "/";
    }
};

void LoadAndSaveOptions(benchmark::State& state) {
    BenchServices services;
    OptionsForm form = LoadOptionsForm();
    for (auto _ : state) {
        SaveOptions(form);
        form = LoadOptionsForm();
        benchmark::DoNotOptimize(form.repairShopName.data());
    }
}
BENCHMARK(LoadAndSaveOptions)->Unit(benchmark::kMicrosecond);

void ErrorReportFullHD(benchmark::State& state) {
    BenchServices services;
    const DesktopCapture capture = [](clsImageDIB& picture) {
        picture.Create(1920, 1080);
        for (int y = 0; y < 1080; y += 3) {
            for (int x = 0; x < 1920; x += 7) {
                picture.SetPixel(x, y, static_cast<std::uint32_t>(x * 2654435761u ^ y));
            }
        }
        return true;
    };
    for (auto _ : state) {
        benchmark::DoNotOptimize(SendErrorReport(capture, {}));
        services.mail.sent.clear();
        services.mail.attachmentsPresent.clear();
    }
}
BENCHMARK(ErrorReportFullHD)->Unit(benchmark::kMillisecond);

} // namespace
