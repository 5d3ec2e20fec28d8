// One station of the shared-library test: opens a project of the library folder the way the
// library dialog does, tries to save it, and reports what it was told. With a ready and a
// release file it keeps the project open (and its lock held) until the release file appears,
// so that a second station can try the same project meanwhile.
//
//   corvane_library_station <library folder> <file name> <user> <report file> [<ready> <release>]
//
// Report lines: "open <result>", "file <name the project is open under>", "save <result>",
// "prompt <title>|<text>" for every message, "closed".

#include "files/modProjectCommands.h"
#include "model/Globals.h"
#include "support/FixedClock.h"
#include "support/FixedEnvironment.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingEventPump.h"
#include "support/ScriptedPrompts.h"

#include <chrono>
#include <filesystem>
#include <fstream>
#include <thread>

namespace {

std::string OneLine(std::string text) {
    for (char& c : text) {
        if (c == '\r' || c == '\n')
            c = ' ';
    }
    return text;
}

} // namespace

int main(int argc, char** argv) {
    using namespace corvane;
    if (argc != 5 && argc != 7)
        return 2;
    const std::string library = argv[1];
    const std::string fileName = argv[2];
    const std::string user = argv[3];
    std::ofstream report(argv[4], std::ios::trunc);

    ScriptedPrompts prompts;
    prompts.SetAnswerFreely(true);
    MemorySettingsStore settings;
    settings.SetValue("Software\\Corvane\\DefaultOptions", "RootDirectory", library);
    settings.SetValue("Software\\Corvane\\DefaultOptions", "ArchiveDirectory", library + "archive/");
    settings.SetValue("Software\\Corvane\\DefaultOptions", "RepairShopName", "Harbour Props");
    FixedClock clock(DateTime{2026, 5, 6, 7, 8, 9});
    FixedEnvironment environment;
    environment.userName = user;
    environment.computerName = user + "-PC";
    RecordingEventPump events;
    SilentSound sound;
    ServiceScope scope(Services{&prompts, &settings, &clock, &environment, &events, &sound});

    CreateNewProject();
    report << "open " << OpenProjectFile(library + fileName) << "\n";
    report << "file " << gProjectFileName << "\n";
    ProjectCommandHost host;
    report << "save " << SaveProject(host) << "\n";
    report.flush();

    if (argc == 7) {
        { std::ofstream ready(argv[5]); }
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        std::error_code ec;
        while (!std::filesystem::exists(argv[6], ec) && std::chrono::steady_clock::now() < deadline)
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    // Closing the program: a new project drops the lock of the one that was open.
    CreateNewProject();
    for (const auto& shown : prompts.History())
        report << "prompt " << shown.title << "|" << OneLine(shown.text) << "\n";
    report << "closed\n";
    return 0;
}
