#include "cli/EvaluateCommand.h"

#include "check/CheckRun.h"
#include "cli/EvaluateOptions.h"
#include "cli/EvaluationSummary.h"
#include "cli/ProjectLoader.h"
#include "cli/ReferenceOptions.h"
#include "cli/ScanPreparation.h"
#include "iso484/clsISO484.h"
#include "iso484/modISO484.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/modReferenceSource.h"

#include <ostream>

namespace corvane::cli {
namespace {

constexpr const char* kCommand = "evaluate";

} // namespace

int RunEvaluate(const EvaluateOptions& options, std::ostream& out, std::ostream& err) {
    if (!LoadProject(kCommand, options.projectPath, err))
        return 2;
    EvaluationSummary summary;
    if (!SelectScan(kCommand, options.rotationIndex, options.scan, err, summary.scanIndex))
        return 2;
    summary.scanLabel = ScanLabel(gProject->PropellerScan(summary.scanIndex)->ScanID());
    if (!ApplyCheckOptions(options, err))
        return 2;

    const std::int16_t requested = gProject->ReferenceSourceIndex();
    CheckRequest request;
    request.scanIndex = summary.scanIndex;
    const CheckOutcome outcome = RunCheck(*gProject, *gISO484, request);
    if (!CheckPassed(kCommand, outcome, err))
        return 2;
    if (requested != kReferenceNone && gProject->ReferenceSourceIndex() == kReferenceNone)
        err << "corvane-cli evaluate: the reference could not be calculated; the scan is evaluated without "
               "it\n";

    // The blades the user looks at are the enabled ones, as the main window shows them after CHECK.
    ISOSelection selection;
    selection.blades = EnabledBlades(*gProject->PropellerScan(summary.scanIndex));
    const BestClass best = FindBestClass(*gProject, *gISO484, selection);
    summary.classStatus = outcome.verdict;
    summary.bestClass = best.code;
    summary.classCodes = best.codes;
    summary.propellerCode = best.propellerCode;
    summary.standardText = best.standardText;
    summary.sentence = best.sentence;
    summary.isoEvaluated = true;
    if (options.json)
        WriteEvaluationJson(out, summary);
    else
        WriteEvaluationTable(out, summary);
    return 0;
}

} // namespace corvane::cli
