#pragma once

// corvane-cli graph PROJECT --view VIEW [--blade N] [--radius K] [--zoom] [--report] [--size WxH]
// [reference and class options as evaluate] -o OUT.png|OUT.svg|OUT.pdf: runs the check as
// evaluate does, draws the view as the Check page or the report would and writes it. The only
// command that draws: it starts Qt's offscreen platform for itself, so no display is needed.

#include "cli/EvaluateOptions.h"

#include <iosfwd>
#include <optional>
#include <string>

namespace CLI {
class App;
}

namespace corvane::cli {

struct GraphCommandOptions {
    EvaluateOptions evaluate;
    std::string view;
    std::optional<int> blade;     // as the user counts, 1 and up
    std::optional<double> radius; // r/R, a fraction or a percentage
    bool zoom = false;
    bool report = false;
    int width = 0, height = 0; // 0: the view's own size
    std::string output;
};

void AddGraphOptions(CLI::App& command, GraphCommandOptions& options);

// Exit 0 with "wrote OUT" on out; 2 with the reason on err when the project cannot be read or
// checked, the blade or radius does not exist, or the file cannot be written.
int RunGraph(const GraphCommandOptions& options, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
