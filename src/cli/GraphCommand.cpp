#include "cli/GraphCommand.h"

#include "check/CheckRun.h"
#include "cli/GraphViews.h"
#include "cli/OffscreenGui.h"
#include "cli/ProjectLoader.h"
#include "cli/ReferenceOptions.h"
#include "cli/ScanPreparation.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "platform/render/GraphFile.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <memory>
#include <ostream>

namespace corvane::cli {
namespace {

constexpr const char* kCommand = "graph";
constexpr int kMaxPixels = 8000;

// "1200x800"; throws the reason for anything else.
std::pair<int, int> ParseSize(const std::string& text) {
    const std::size_t x = text.find_first_of("xX");
    int w = 0, h = 0;
    const auto parse = [](std::string_view part, int& value) {
        const auto r = std::from_chars(part.data(), part.data() + part.size(), value);
        return !part.empty() && r.ec == std::errc() && r.ptr == part.data() + part.size();
    };
    if (x == std::string::npos || !parse(std::string_view(text).substr(0, x), w) ||
        !parse(std::string_view(text).substr(x + 1), h))
        throw CLI::ValidationError("--size", "takes WIDTHxHEIGHT in pixels, not '" + text + "'");
    if (w < 64 || h < 64 || w > kMaxPixels || h > kMaxPixels)
        throw CLI::ValidationError("--size", "takes 64 to 8000 pixels each way, not '" + text + "'");
    return {w, h};
}

double ParseRadius(std::string text) {
    if (!text.empty() && (text.back() == 'R' || text.back() == 'r'))
        text.pop_back();
    double value = 0;
    const auto r = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || r.ec != std::errc() || r.ptr != text.data() + text.size() || !(value > 0) ||
        value > 100)
        throw CLI::ValidationError("--radius", "takes r/R as 0.7, 70 or 70R, not '" + text + "'");
    return value;
}

} // namespace

void AddGraphOptions(CLI::App& command, GraphCommandOptions& options) {
    AddEvaluateOptions(command, options.evaluate, false);
    command.add_option("--view", options.view, "what to draw")
        ->required()
        ->type_name(CLI::detail::join(GraphViewNames(), "|"))
        ->check(CLI::IsMember(GraphViewNames(), CLI::ignore_case).description(""));
    command.add_option("--blade", options.blade, "only this blade (1 and up); the blade of blade and radius")
        ->type_name("N")
        ->check(CLI::Range(1, 7).description(""));
    command
        .add_option_function<std::string>(
            "--radius", [&options](const std::string& text) { options.radius = ParseRadius(text); },
            "only the section at this r/R; the section of radius and path")
        ->type_name("K");
    command.add_flag("--zoom", options.zoom, "as with the Check page's ZOOM pressed");
    command.add_flag("--report", options.report, "in the report's sizes");
    command
        .add_option_function<std::string>(
            "--size",
            [&options](const std::string& text) {
                const auto [w, h] = ParseSize(text);
                options.width = w;
                options.height = h;
            },
            "the picture in pixels (the view's own size)")
        ->type_name("WxH");
    command.add_option("-o,--output", options.output, "the file to write: png, svg or pdf")
        ->required()
        ->type_name("OUT")
        ->check(CLI::Validator(
            [](std::string& path) {
                const auto format = GraphFileFormatOf(path);
                return format && *format != GraphFileFormat::Bmp
                           ? std::string()
                           : std::string("takes a file ending in .png, .svg or .pdf, not '" + path + "'");
            },
            ""));
}

int RunGraph(const GraphCommandOptions& options, std::ostream& out, std::ostream& err) {
    const EvaluateOptions& e = options.evaluate;
    if (!LoadProject(kCommand, e.projectPath, err))
        return 2;
    int scanIndex = 0;
    if (!SelectScan(kCommand, e.rotationIndex, e.scan, err, scanIndex))
        return 2;
    if (!ApplyCheckOptions(e, err))
        return 2;
    CheckRequest check;
    check.scanIndex = scanIndex;
    if (!CheckPassed(kCommand, RunCheck(*gProject, *gISO484, check), err))
        return 2;

    GraphViewRequest view;
    const auto& names = GraphViewNames();
    view.view = static_cast<GraphView>(std::find(names.begin(), names.end(), options.view) - names.begin());
    view.zoom = options.zoom;
    view.report = options.report;
    const clsPropeller& scan = *gProject->PropellerScan(scanIndex);
    if (options.blade) {
        if (*options.blade > scan.BladeCount()) {
            err << "corvane-cli graph: the scan has " << scan.BladeCount() << " blades, not "
                << *options.blade << "\n";
            return 2;
        }
        view.blade = *options.blade - 1;
    }
    if (options.radius) {
        std::string reason;
        view.row = RowAtRadius(scan, *options.radius, reason);
        if (!view.row) {
            err << "corvane-cli graph: " << reason << "\n";
            return 2;
        }
    }
    int width = options.width, height = options.height;
    if (width == 0)
        DefaultGraphSize(view.view, view.report, width, height);

    const OffscreenGui gui("graph");
    std::string reason;
    const auto format = GraphFileFormatOf(options.output);
    const bool written = WriteGraphFile(
        options.output, *format, QSize(width, height),
        [&](DrawingSurface& surface) { DrawGraphView(surface, *gProject, *gISO484, scanIndex, view); },
        reason);
    if (!written) {
        err << "corvane-cli graph: " << reason << "\n";
        return 2;
    }
    out << "wrote " << options.output << "\n";
    return 0;
}

} // namespace corvane::cli
