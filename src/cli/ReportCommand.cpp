#include "cli/ReportCommand.h"

#include "check/CheckRun.h"
#include "cli/ConsoleClock.h"
#include "cli/OffscreenGui.h"
#include "cli/ProjectLoader.h"
#include "cli/ReferenceOptions.h"
#include "cli/ScanPreparation.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "platform/render/QtReportGraphs.h"
#include "platform/render/ReportRenderer.h"
#include "reports/modReports.h"
#include "support/Services.h"

#include <CLI/CLI.hpp>

#include <cmath>
#include <cstdio>
#include <memory>
#include <ostream>

namespace corvane::cli {

namespace {

constexpr const char* kCommand = "report";

// The radius toggles of the Docs page from "95,70,50": a row is shown when its r/R x 100 is
// listed.
std::array<bool, 8> RadiiOf(const clsPropeller& scan, const std::vector<double>& percent) {
    std::array<bool, 8> radii{};
    for (int b = 0; b < scan.BladeCount(); ++b) {
        const auto blade = scan.Blades(b);
        for (int k = 0; k < blade->SectionCount() && k < 8; ++k)
            for (double p : percent)
                if (std::abs(blade->RadialPos(k) * 100 - p) < 0.5)
                    radii[static_cast<std::size_t>(k)] = true;
    }
    return radii;
}

} // namespace

void AddReportOptions(CLI::App& command, ReportCommandOptions& options) {
    AddEvaluateOptions(command, options.evaluate, false);
    command.add_option("--kind", options.kind, "which report")
        ->type_name("status|full|compare")
        ->check(CLI::IsMember({"status", "full", "compare"}, CLI::ignore_case).description(""));
    command.add_option("--compare-scan", options.compareScan, "the scan compared in the compare report")
        ->type_name("N");
    command.add_option("--radii", options.radii, "the sections shown, r/R x 100 (95,90,...)")
        ->delimiter(',')
        ->type_name("K,...")
        ->check(CLI::Range(1.0, 100.0).description(""));
    auto* pdf = command.add_option("--pdf", options.pdf, "write the report as PDF")->type_name("OUT.pdf");
    auto* csv =
        command.add_option("--csv", options.csv, "write the report's tables as CSV")->type_name("OUT.csv");
    pdf->excludes(csv);
    command.callback([pdf, csv] {
        if (pdf->count() == 0 && csv->count() == 0)
            throw CLI::RequiredError("--pdf or --csv");
    });
}

int RunReport(const ReportCommandOptions& options, std::ostream& out, std::ostream& err) {
    // The report's stamp and date are the station's time.
    ConsoleClock clock;
    Services services = InstalledServices();
    services.clock = &clock;
    ServiceScope scope(services);
    const EvaluateOptions& e = options.evaluate;
    if (!LoadProject(kCommand, e.projectPath, err))
        return 2;
    const bool compare = options.kind == "compare";
    int compareIndex = -1;
    if (compare) {
        if (options.compareScan.empty()) {
            err << "corvane-cli report: the compare report needs --compare-scan\n";
            return 2;
        }
        const std::int16_t active = gProject->ActiveScanIndex();
        if (!SelectScan(kCommand, e.rotationIndex, options.compareScan, err, compareIndex))
            return 2;
        gProject->SetActiveScanIndex(active);
    }
    int scanIndex = 0;
    if (!SelectScan(kCommand, e.rotationIndex, e.scan, err, scanIndex))
        return 2;
    if (compare && compareIndex == scanIndex) {
        err << "corvane-cli report: the compare scan is the scan itself\n";
        return 2;
    }
    if (!ApplyCheckOptions(e, err))
        return 2;
    const std::string target = options.pdf.empty() ? options.csv : options.pdf;
    if (IsReadOnlyFile(target)) {
        err << "corvane-cli report: " << kReportReadOnlyMessage << "\n";
        return 2;
    }
    CheckRequest check;
    check.scanIndex = scanIndex;
    check.forReport = true;
    if (!CheckPassed(kCommand, RunCheck(*gProject, *gISO484, check), err))
        return 2;

    const OffscreenGui gui("report");
    QtReportGraphs graphs;
    ReportRequest request;
    const clsPropeller& scan = *gProject->PropellerScan(scanIndex);
    request.selection.blades = EnabledBlades(scan);
    request.radii = options.radii.empty() ? ISOReportRadii(*gISO484) : RadiiOf(scan, options.radii);
    request.compareScanIndex = compareIndex;
    request.graphs = &graphs;
    request.options = LoadReportPageOptions();
    const ReportBuild build = options.kind == "full" ? BuildFullReport(*gProject, *gISO484, request)
                              : compare              ? BuildRepairReport(*gProject, *gISO484, request)
                                                     : BuildStatusReport(*gProject, *gISO484, request);
    std::string reason;
    bool written = false;
    if (!build.Complete())
        reason = "the report failed while " + build.failure;
    else if (!options.pdf.empty())
        written = SaveReportPdf(build.document, options.pdf, reason);
    else if (!(written = SaveReportCsv(build.document, options.csv)))
        reason = "cannot write " + options.csv;
    if (!written) {
        err << "corvane-cli report: " << reason << "\n";
        return 2;
    }
    out << "wrote " << target << "\n";
    return 0;
}

} // namespace corvane::cli
