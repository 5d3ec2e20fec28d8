#include "cli/CliApp.h"

#include "cli/ConsolePrompts.h"
#include "cli/DemoCommand.h"
#include "cli/EvaluateCommand.h"
#include "cli/EvaluateOptions.h"
#include "cli/ExportPPPCommand.h"
#include "cli/GraphCommand.h"
#include "cli/ImportHaleCommand.h"
#include "cli/InfoCommand.h"
#include "cli/ReportCommand.h"
#include "cli/ScanCommand.h"
#include "cli/SimulateArmCommand.h"
#include "model/AppVersion.h"
#include "model/Globals.h"
#include "support/MemorySettingsStore.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <ostream>
#include <sstream>

namespace corvane::cli {
namespace {

constexpr std::size_t kHelpWidth = 100;

// What an option takes after its name, " right|left"; nothing for a flag.
std::string ValueText(const CLI::Option& option) {
    const std::string type = option.get_type_name();
    return type.empty() ? "" : " " + type;
}

// A command as it is typed: its arguments, then each option with the value it takes, in
// brackets unless it is required; options that exclude each other share one bracket, split by |.
std::vector<std::string> ArgumentWords(const CLI::App& command) {
    std::vector<std::string> words;
    const auto options = command.get_options();
    for (const CLI::Option* option : options) {
        if (option->get_positional())
            words.push_back(option->get_name(true));
    }
    const CLI::Option* previous = nullptr;
    for (const CLI::Option* option : options) {
        if (option->get_positional() || option == command.get_help_ptr())
            continue;
        // A required option is typed by its short name and stands without brackets.
        if (option->get_required() && !option->get_snames().empty()) {
            words.push_back("-" + option->get_snames().front() + ValueText(*option));
            previous = option;
            continue;
        }
        const std::string text = option->get_name() + ValueText(*option);
        const auto excludes = option->get_excludes();
        if (previous && std::find(excludes.begin(), excludes.end(), previous) != excludes.end())
            words.back().insert(words.back().size() - 1, " | " + text);
        else
            words.push_back(option->get_required() ? text : "[" + text + "]");
        previous = option;
    }
    return words;
}

// The words on lines of at most kHelpWidth columns, the later lines indented.
std::string Wrap(const std::vector<std::string>& words, std::size_t indent) {
    std::string text, line;
    for (const std::string& word : words) {
        if (line.empty()) {
            line = word;
        } else if (line.size() + 1 + word.size() > kHelpWidth) {
            text += line + "\n";
            line = std::string(indent, ' ') + word;
        } else {
            line += " " + word;
        }
    }
    return text + line;
}

std::string Usage(const CLI::App& command, const std::string& path) {
    std::vector<std::string> words{"usage:", path};
    if (command.get_parent()) {
        const auto arguments = ArgumentWords(command);
        words.insert(words.end(), arguments.begin(), arguments.end());
    } else {
        words.insert(words.end(), {"COMMAND", "[options]"});
    }
    return Wrap(words, 9) + "\n";
}

// Help that shows each command with its arguments, in the top-level list as in its own help.
class SynopsisFormatter : public CLI::Formatter {
public:
    std::string make_usage(const CLI::App* app, std::string name) const override { return Usage(*app, name); }

    // The usage line already marks the arguments as required and joins the options that exclude
    // each other; each line of the list only adds the value an option takes.
    std::string make_option_opts(const CLI::Option* option) const override {
        return option->get_positional() ? "" : ValueText(*option);
    }

    std::string make_subcommand(const CLI::App* sub) const override {
        std::vector<std::string> words{sub->get_name()};
        const auto arguments = ArgumentWords(*sub);
        words.insert(words.end(), arguments.begin(), arguments.end());
        std::ostringstream out;
        CLI::detail::format_help(out, Wrap(words, 6), sub->get_description(), get_column_width());
        return out.str();
    }
};

// The reason on one line, then the usage of the command it concerns. A wrong option of evaluate
// or export-ppp counts as the command failing (2), as their usage has always said; elsewhere
// wrong usage is 1.
int ReportUsageError(const CLI::App& app, const CLI::ParseError& error, const std::vector<std::string>& args,
                     std::ostream& err) {
    const auto commands = app.get_subcommands();
    if (commands.empty()) {
        // Only a first word that is no command leaves the parser without one.
        err << "corvane-cli: unknown command '" << args.front() << "'\n" << app.help();
        return 1;
    }
    const std::string& name = commands.front()->get_name();
    err << "corvane-cli " << name << ": " << error.what() << "\n"
        << Usage(*commands.front(), "corvane-cli " + name);
    return name == "evaluate" || name == "export-ppp" ? 2 : 1;
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

    CLI::App app("Corvane's propeller measurement core from a terminal. corvane-cli COMMAND --help\n"
                 "explains the options of a command.",
                 "corvane-cli");
    auto formatter = std::make_shared<SynopsisFormatter>();
    formatter->label("Positionals", "Arguments");
    app.formatter(formatter);
    app.set_help_flag("-h,--help", "print this text");
    app.set_version_flag("--version", std::string("corvane-cli ") + kVersionText,
                         "print the program version");
    app.footer("Exit status: 0 done, 1 wrong usage, 2 the command failed (for evaluate and export-ppp\n"
               "also a wrong option).");
    app.require_subcommand(1);

    std::string infoPath;
    bool infoJson = false;
    CLI::App* info = app.add_subcommand("info", "header, scans, blades and points of a cvpj or tbsc file");
    info->add_option("FILE", infoPath, "the cvpj project or tbsc scan file")->required();
    info->add_flag("--json", infoJson, "one JSON object instead of the text");

    std::string demoPath;
    int demoPoints = 40;
    CLI::App* demo = app.add_subcommand("demo", "write the built-in demo project");
    demo->add_option("OUT.cvpj", demoPath, "the project file to write")->required();
    demo->add_option("--points", demoPoints, "points per section, 2 to 5000 (40)")
        ->type_name("N")
        ->check(CLI::Range(2, 5000).description(""));

    EvaluateOptions evaluateOptions;
    CLI::App* evaluate =
        app.add_subcommand("evaluate", "run what CHECK runs: geometry and ISO 484 class of a scan");
    AddEvaluateOptions(*evaluate, evaluateOptions);

    std::string exportProject, exportPath;
    CLI::App* exportPPP =
        app.add_subcommand("export-ppp", "write the reference (or the active scan) as a ppp file");
    exportPPP->add_option("PROJECT", exportProject, "the cvpj project")->required();
    exportPPP->add_option("OUT.ppp", exportPath, "the ppp file to write")->required();

    ScanOptions scanOptions;
    CLI::App* scan = app.add_subcommand(
        "scan", "add a scan to a project, measured by the simulated arm playing a trajectory");
    scan->add_option("PROJECT", scanOptions.projectPath, "the cvpj project")->required();
    scan->add_option("--arm", scanOptions.armPath, "the arm trajectory to play (cvarm)")
        ->type_name("TRAJECTORY.cvarm")
        ->required();
    scan->add_option("--calibration", scanOptions.calibrationPath,
                     "the arm's calibration (cvst); without it the settings' defaults")
        ->type_name("FILE.cvst");
    scan->add_option("-o,--out", scanOptions.outPath, "the project file to write, with the new scan")
        ->type_name("OUT.cvpj")
        ->required();

    std::string simulateProject, simulateOut, simulateCalibration;
    CLI::App* simulateArm = app.add_subcommand(
        "simulate-arm", "write the arm trajectory of a scripted scan of the project's propeller");
    simulateArm->add_option("PROJECT", simulateProject, "the cvpj project")->required();
    simulateArm->add_option("-o,--out", simulateOut, "the trajectory file to write")
        ->type_name("TRAJECTORY.cvarm")
        ->required();
    simulateArm
        ->add_option("--calibration", simulateCalibration,
                     "the arm's calibration (cvst); without it the settings' defaults")
        ->type_name("FILE.cvst");

    std::string halePath, haleProject;
    CLI::App* importHale =
        app.add_subcommand("import-hale", "a Hale MRI measuring machine's file as a new project of one scan");
    importHale->add_option("FILE", halePath, "the Hale MRI text file")->required();
    importHale->add_option("-o,--output", haleProject, "the project file to write")
        ->type_name("OUT.cvpj")
        ->required();

    std::vector<CLI::App*> commands{info, demo, evaluate, exportPPP, importHale, scan, simulateArm};
#if CORVANE_CLI_GRAPHS
    GraphCommandOptions graphOptions;
    CLI::App* graph = app.add_subcommand(
        "graph", "draw a view of the checked scan (as CHECK shows it) into a png, svg or pdf");
    AddGraphOptions(*graph, graphOptions);
    commands.push_back(graph);
    ReportCommandOptions reportOptions;
    CLI::App* report = app.add_subcommand(
        "report", "compose the status, full or compare report of the checked scan as PDF or CSV");
    AddReportOptions(*report, reportOptions);
    commands.push_back(report);
#endif
    for (CLI::App* command : commands)
        command->group("Commands");

    if (args.empty()) {
        err << app.help();
        return 1;
    }
    try {
        // CLI11 takes the arguments last first.
        app.parse(std::vector<std::string>(args.rbegin(), args.rend()));
    } catch (const CLI::Success& done) {
        return app.exit(done, out, err);
    } catch (const CLI::ParseError& error) {
        return ReportUsageError(app, error, args, err);
    }
    gAppTitle = "Corvane";
    gAppExeName = "corvane-cli";
    if (info->parsed())
        return RunInfo(infoPath, infoJson, out, err);
    if (demo->parsed())
        return RunDemo(demoPath, demoPoints, out, err);
    if (evaluate->parsed())
        return RunEvaluate(evaluateOptions, out, err);
    if (scan->parsed())
        return RunScan(scanOptions, out, err);
    if (simulateArm->parsed())
        return RunSimulateArm(simulateProject, simulateOut, simulateCalibration, out, err);
    if (importHale->parsed())
        return RunImportHale(halePath, haleProject, out, err);
#if CORVANE_CLI_GRAPHS
    if (graph->parsed())
        return RunGraph(graphOptions, out, err);
    if (report->parsed())
        return RunReport(reportOptions, out, err);
#endif
    return RunExportPPP(exportProject, exportPath, out, err);
}

} // namespace corvane::cli
