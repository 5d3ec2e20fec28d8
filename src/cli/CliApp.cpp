#include "cli/CliApp.h"

#include "cli/ConsolePrompts.h"
#include "cli/DemoCommand.h"
#include "cli/EvaluateCommand.h"
#include "cli/ExportPPPCommand.h"
#include "cli/InfoCommand.h"
#include "model/AppVersion.h"
#include "model/Globals.h"
#include "support/MemorySettingsStore.h"

#include <ostream>

namespace corvane::cli {
namespace {

void PrintUsage(std::ostream& out) {
    out << "Usage: corvane-cli <command> [options]\n"
           "\n"
           "Commands:\n"
           "  info FILE [--json]         header, scans, blades and points of a cvpj or tbsc file\n"
           "  demo OUT.cvpj [--points N] write the built-in demo project\n"
           "  evaluate PROJECT [--hand right|left] [--scan N] [--json]\n"
           "           [--reference FILE | --constant-pitch P | --variable-pitch r1:p1,r2:p2,...]\n"
           "           [--class S|1|1a|2|3] [--criteria primary|secondary]\n"
           "                             run what CHECK runs: geometry and ISO 484 class of a scan\n"
           "  export-ppp PROJECT OUT.ppp write the reference (or the active scan) as a ppp file\n"
           "  --version                  print the program version\n"
           "  --help                     print this text\n"
           "\n"
           "Exit status: 0 done, 1 wrong usage, 2 the command failed (for evaluate and export-ppp\n"
           "also a wrong option).\n";
}

} // namespace

int RunCli(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    // The command line never touches the station's settings and never waits for an answer.
    ConsolePrompts prompts(err);
    MemorySettingsStore settings;
    Services services = InstalledServices();
    services.prompts = &prompts;
    services.settings = &settings;
    ServiceScope scope(services);

    if (args.empty()) {
        PrintUsage(err);
        return 1;
    }
    gAppTitle = "Corvane";
    gAppExeName = "corvane-cli";
    const std::string& command = args[0];
    const std::vector<std::string> rest(args.begin() + 1, args.end());
    if (command == "info")
        return RunInfo(rest, out, err);
    if (command == "demo")
        return RunDemo(rest, out, err);
    if (command == "evaluate")
        return RunEvaluate(rest, out, err);
    if (command == "export-ppp")
        return RunExportPPP(rest, out, err);
    if (command == "--version" || command == "version") {
        out << "corvane-cli " << kVersionText << "\n";
        return 0;
    }
    if (command == "--help" || command == "-h" || command == "help") {
        PrintUsage(out);
        return 0;
    }
    err << "corvane-cli: unknown command '" << command << "'\n";
    PrintUsage(err);
    return 1;
}

} // namespace corvane::cli
