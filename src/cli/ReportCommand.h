#pragma once

// corvane-cli report PROJECT --kind status|full|compare [--compare-scan N] [reference and class
// options as evaluate] [--radii 95,90,...] (--pdf OUT.pdf | --csv OUT.csv): runs the check as
// REPORT does, composes the report as the Docs page would and writes it. Draws offscreen.

#include "cli/EvaluateOptions.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace corvane::cli {

struct ReportCommandOptions {
    EvaluateOptions evaluate;
    std::string kind = "status";
    std::string compareScan;   // index in the set or letters, as --scan
    std::vector<double> radii; // r/R x 100 of the sections shown; empty: those the class requires
    std::string pdf;
    std::string csv;
};

void AddReportOptions(CLI::App& command, ReportCommandOptions& options);
// Exit 0 with "wrote OUT" on out; 2 with the reason on err when the project cannot be read or
// checked, the compare scan is missing, the target is read-only or cannot be written.
int RunReport(const ReportCommandOptions& options, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
