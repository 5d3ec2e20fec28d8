#include "graphs/modGraphsReport.h"

#include "graphs/modGraphsBars.h"
#include "graphs/modGraphsMap.h"
#include "graphs/modGraphsOutline.h"
#include "graphs/modGraphsPath.h"
#include "graphs/modGraphsRadius.h"
#include "graphs/modGraphsTop.h"
#include "support/ErrorTail.h"

namespace corvane {

namespace {

constexpr double kGutter = 195;     // twips
constexpr double kSurfaceScale = 2; // report graphs are drawn at twice the page

} // namespace

ReportGraphFile ReportGraphFileOf(ReportGraph graph) {
    switch (graph) {
    case ReportGraph::RakeOutline:
        return {"Rake and Outline", "RakOtlCrd.bmp"};
    case ReportGraph::Path:
        return {"Path", "Path.bmp"};
    case ReportGraph::Top:
        return {"Top", "Top.bmp"};
    case ReportGraph::Top2:
        return {"Top2", "Top2.bmp"};
    case ReportGraph::PitchSum:
        return {"PitchSum", "PitchSum.bmp"};
    case ReportGraph::PitchSum2:
        return {"PitchSum2", "PitchSum2.bmp"};
    case ReportGraph::SectionPitch:
        return {"Section Pitch", "SectionPitch.bmp"};
    case ReportGraph::SectionPitchCompare:
        return {"Section Pitch comparison", "SectionPitchCompare.bmp"};
    case ReportGraph::PathCompare:
        return {"Path comparison", "Path2.bmp"};
    case ReportGraph::FullTop:
        return {"Full Top", "FullTop.bmp"};
    case ReportGraph::Map:
        return {"Map", ""};
    case ReportGraph::Radius:
        return {"Radius", ""};
    }
    return {"", ""};
}

void ReportGraphSize(ReportGraph graph, double pageWidthTwips, double pageHeightTwips, double& width,
                     double& height) {
    width = (pageWidthTwips - kGutter) * kSurfaceScale;
    switch (graph) {
    case ReportGraph::Top:
    case ReportGraph::Top2:
    case ReportGraph::FullTop:
        height = width;
        break;
    case ReportGraph::PitchSum:
    case ReportGraph::PitchSum2:
    case ReportGraph::SectionPitch:
    case ReportGraph::SectionPitchCompare:
        height = width * 0.6;
        break;
    default:
        height = pageHeightTwips * kSurfaceScale;
        break;
    }
}

void CreateReportGraph(DrawingSurface& surface, const GraphRequest& request, ReportGraph graph) {
    ErrorTail tail("creating report graphs");
    tail.Step([&] {
        GraphRequest report = request;
        report.options.report = true;
        switch (graph) {
        case ReportGraph::Path:
        case ReportGraph::PathCompare:
            CreatePathPlotAll(surface, report);
            break;
        case ReportGraph::Map:
            CreateMapGraph(surface, report);
            break;
        case ReportGraph::Radius:
            CreateRadiusGraph(surface, report, 0, 0);
            break;
        case ReportGraph::RakeOutline:
            CreateRakeOutlineGraph(surface, report);
            break;
        case ReportGraph::Top:
        case ReportGraph::Top2:
        case ReportGraph::FullTop:
            CreateTopGraph(surface, report);
            break;
        case ReportGraph::PitchSum:
        case ReportGraph::PitchSum2:
            CreatePitchBarSummary(surface, report);
            break;
        case ReportGraph::SectionPitch:
        case ReportGraph::SectionPitchCompare:
            CreatePitchBarSections(surface, report, 1.0);
            break;
        }
    });
}

} // namespace corvane
