#pragma once

// The report's graph pictures drawn with Qt into the working folder (the platform's cache
// location), under the fixed file names the pages know them by.

#include "reports/modReports.h"

#include <string>

namespace corvane {

class QtReportGraphs : public IReportGraphs {
public:
    // folder ends with a separator; empty takes GraphWorkingFolder().
    explicit QtReportGraphs(std::string folder = {});

    std::string GraphFile(ReportGraph graph, const GraphRequest& request, double pageWidthTwips,
                          double pageHeightTwips) override;
    std::string CompoundImage(const std::string& first, const std::string& second,
                              const std::string& outName) override;
    const std::string& Folder() const { return folder_; }

private:
    std::string folder_;
};

// Joins two pictures side by side on one surface at twice their size: each takes half the width
// less the gutter; a missing one leaves its half empty. Written as a BMP under
// folder + outName; the path, or "" when nothing could be written.
std::string BuildCompoundImage(const std::string& folder, const std::string& first, const std::string& second,
                               const std::string& outName);

} // namespace corvane
