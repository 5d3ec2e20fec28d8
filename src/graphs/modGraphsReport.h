#pragma once

// The graphs of the inspection report: which builder draws each, under which file name it is
// written for the report pages, and the surface it is drawn on.

#include "graphs/modGraphs.h"

namespace corvane {

class DrawingSurface;

enum class ReportGraph {
    RakeOutline,
    Path,
    Top,
    Top2,
    PitchSum,
    PitchSum2,
    SectionPitch,
    SectionPitchCompare,
    PathCompare,
    FullTop,
    Map,
    Radius,
};

struct ReportGraphFile {
    const char* title;
    const char* fileName; // "" for a graph no report page takes as a file
};
ReportGraphFile ReportGraphFileOf(ReportGraph graph);

// The surface of a report graph in twips: twice the page's printable width less a gutter of 195
// twips across; as high as twice the page for the page-sized graphs, square for the top views,
// 0.6 of the width for the bar graphs.
void ReportGraphSize(ReportGraph graph, double pageWidthTwips, double pageHeightTwips, double& width,
                     double& height);

// Draws one report graph: the request's options are taken with the report flag on.
void CreateReportGraph(DrawingSurface& surface, const GraphRequest& request, ReportGraph graph);

} // namespace corvane
