// Speed of the reports: composed from a heavy scan checked against a reference, with every graph
// drawn into the working folder, and written as PDF.
//   FullReportToPdf     7 blades x 8 sections x 2,000 points, Primary and Secondary   target <= 1.5 s
//   StatusReportToPdf   the same scan, summary and top view                           target <= 0.5 s

#include "BenchDrawing.h"
#include "check/CheckRun.h"
#include "model/modReferenceSource.h"
#include "platform/render/QtReportGraphs.h"
#include "platform/render/ReportRenderer.h"
#include "reports/modReports.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <stdexcept>

namespace corvane::bench {
namespace {

template <bool Full> void ReportToPdf(benchmark::State& state) {
    EnsureGui();
    StartHeavyProject(
        [] {
            gProject->SetReferenceSourceIndex(kReferenceScan);
            gProject->SetReferenceConstantPitch(2300);
            for (int b = 0; b < 7; ++b)
                gProject->SetReferenceScanBladesEnabled(b, 1);
            gISO484->SetISOCriteriaIndex(1);
        },
        true);
    const std::filesystem::path folder = std::filesystem::temp_directory_path() / "corvane-bench-reports";
    std::filesystem::create_directories(folder);
    QtReportGraphs graphs(folder.string() + "/");
    ReportRequest request;
    request.graphs = &graphs;
    request.radii = ISOReportRadii(*gISO484);
    for (auto _ : state) {
        const ReportBuild build = Full ? BuildFullReport(*gProject, *gISO484, request)
                                       : BuildStatusReport(*gProject, *gISO484, request);
        std::string reason;
        if (!SaveReportPdf(build.document, (folder / "report.pdf").string(), reason))
            state.SkipWithError(reason.c_str());
    }
    std::filesystem::remove_all(folder);
}

void FullReportToPdf(benchmark::State& state) {
    ReportToPdf<true>(state);
}
void StatusReportToPdf(benchmark::State& state) {
    ReportToPdf<false>(state);
}
BENCHMARK(FullReportToPdf)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();
BENCHMARK(StatusReportToPdf)->Unit(benchmark::kMillisecond)->MeasureProcessCPUTime()->UseRealTime();

} // namespace
} // namespace corvane::bench
