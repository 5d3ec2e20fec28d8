#include "reports/modReports.h"

#include "check/CheckRun.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/NumberFormat.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "reports/ReportComposer.h"
#include "support/Services.h"

#include <memory>

namespace corvane {

namespace {

// "yyyymmdd-hhmmss", taken once at the start of a build.
std::string Stamp() {
    const DateTime t = Clock().Now();
    return FormatNumber(t.year, "0000") + FormatNumber(t.month, "00") + FormatNumber(t.day, "00") + "-" +
           FormatNumber(t.hour, "00") + FormatNumber(t.minute, "00") + FormatNumber(t.second, "00");
}

// Clears the document and applies the page options and the title.
ReportBuild InitializeReport(const ReportRequest& request, const std::string& title) {
    ReportBuild build;
    build.document.Clear();
    build.document.PageSetup(request.options, title);
    return build;
}

void Finish(ReportBuild& build, const ReportComposer& composer, const std::string& stamp) {
    build.reportId = ReportIdText(stamp);
    if (build.failure.empty())
        build.failure = composer.Failure();
}

} // namespace

std::array<bool, 8> ISOReportRadii(const clsISO484& iso) {
    ISOSectionMask mask{};
    GetSectionMask(iso, mask);
    std::array<bool, 8> radii{};
    for (std::size_t k = 0; k < radii.size() && k < mask.size(); ++k)
        radii[k] = mask[k];
    return radii;
}

ReportBuild BuildStatusReport(clsCorvane& project, clsISO484& iso, const ReportRequest& request) {
    ReportBuild build = InitializeReport(request, "Corvane Report");
    const std::string stamp = Stamp();
    ReportComposer composer(project, iso, request, build.document, stamp);
    composer.SetKind(kReportKindStatus);
    composer.Evaluate();
    build.sentence = composer.Sentence();
    composer.Page("adding summary page", [&] { composer.AddSummaryPage(); });
    composer.Page("adding Graph page", [&] { composer.AddGraphPageTop(); });
    Finish(build, composer, stamp);
    return build;
}

ReportBuild BuildFullReport(clsCorvane& project, clsISO484& iso, const ReportRequest& request) {
    ReportBuild build = InitializeReport(request, "TesselbyTBSC Report");
    const std::string stamp = Stamp();
    ReportComposer composer(project, iso, request, build.document, stamp);
    composer.SetKind(iso.ISOCriteriaIndex());
    composer.Evaluate();
    build.sentence = composer.Sentence();
    composer.Page("adding summary page", [&] { composer.AddSummaryPage(); });
    composer.Page("adding Graph page", [&] { composer.AddGraphPageTop(); });
    composer.Page("adding Graph page", [&] { composer.AddGraphPageOutline(); });
    composer.Page("adding Pitch pages", [&] { composer.AddPitchPages(); });
    composer.Page("adding Radius pages", [&] { composer.AddRadiusPages(); });
    if (iso.ISOCriteriaIndex() == 1) {
        // The appendix: Sum & Diff only against a reference and in a class other than 3.
        if (project.ReferenceSourceIndex() != 0 && iso.ISOClassIndex() != 4)
            composer.Page("adding Sum/Diff pages", [&] { composer.AddSumDiffPages(); });
        composer.Page("adding technical Appendix pages", [&] { composer.AddAppendixPages(); });
    }
    Finish(build, composer, stamp);
    return build;
}

ReportBuild BuildRepairReport(clsCorvane& project, clsISO484& iso, const ReportRequest& request) {
    ReportBuild build = InitializeReport(request, "TesselbyTBSC Report");
    const std::string stamp = Stamp();
    const int former = project.ActiveScanIndex();
    const int compare = request.compareScanIndex;
    if (compare < 0 || compare >= project.PropellerScanCount() || !project.PropellerScan(compare)) {
        build.failure = "writing full report";
        return build;
    }
    ReportComposer composer(project, iso, request, build.document, stamp);
    composer.SetKind(kReportKindStatus);
    composer.Evaluate();
    build.sentence = composer.Sentence();
    composer.Page("adding summary page", [&] { composer.AddSummaryPage(); });
    composer.Page("adding Graph page", [&] { composer.AddGraphPageTop(); });

    // The second pass: the compared scan, judged with the blades it measured.
    // The check may put a turned copy of the scan in its place: the blade switches are put back
    // on whatever the project holds afterwards.
    const std::shared_ptr<clsPropeller> scan = project.PropellerScan(compare);
    const int blades = scan->BladeCount();
    std::vector<std::int32_t> referenceBlades;
    std::vector<bool> scanBlades;
    for (int b = 0; b < blades; ++b) {
        referenceBlades.push_back(project.ReferenceScanBladesEnabled(b));
        scanBlades.push_back(scan->Blades(b)->BladeEnabled());
        bool measured = false;
        const auto blade = scan->Blades(b);
        for (int k = 0; k < blade->SectionCount() && !measured; ++k)
            measured = blade->Section(k)->RawOffsetCount() > 0;
        project.SetReferenceScanBladesEnabled(b, measured ? 1 : 0);
        blade->SetBladeEnabled(measured);
    }
    CheckRequest check;
    check.scanIndex = compare;
    check.forReport = true;
    if (RunCheck(project, iso, check).Passed()) {
        composer.SetKind(kReportKindRepair);
        composer.Evaluate();
        composer.Page("adding summary page", [&] { composer.AddSummaryPage(); });
        composer.Page("adding Graph page", [&] { composer.AddGraphPageTop(); });
    } else {
        build.failure = "writing full report";
    }
    // Everything back as it was, and the ISO data of the former scan again.
    const std::shared_ptr<clsPropeller> compared = project.PropellerScan(compare);
    for (int b = 0; b < blades; ++b) {
        project.SetReferenceScanBladesEnabled(b, referenceBlades[static_cast<std::size_t>(b)]);
        if (compared && b < compared->BladeCount())
            compared->Blades(b)->SetBladeEnabled(scanBlades[static_cast<std::size_t>(b)]);
    }
    check.scanIndex = former;
    (void)RunCheck(project, iso, check);
    Finish(build, composer, stamp);
    return build;
}

} // namespace corvane
