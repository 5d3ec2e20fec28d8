#include "cli/EvaluateCommand.h"

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
#include "reference/CalculationChain.h"

#include <ostream>

namespace corvane::cli {
namespace {

constexpr const char* kCommand = "evaluate";

// The blades the user looks at are the enabled ones, as the main window sets them when its
// Check page opens; the per-blade class search only looks at these.
void ShowEnabledBlades(int scanIndex) {
    const auto scan = gProject->PropellerScan(scanIndex);
    for (std::size_t b = 0; b < gShowBladeFlags.size(); ++b)
        gShowBladeFlags[b] =
            static_cast<int>(b) < scan->BladeCount() && scan->Blades(static_cast<int>(b))->BladeEnabled();
}

// The ISO chain behind the Check page, then the best class and its sentence. false with a line
// on err when the data could not be calculated.
bool EvaluateISO(EvaluationSummary& summary, std::ostream& err) {
    // Settings the Check page would refuse are dropped there too: the scan is shown alone.
    if (!UsableReferenceSettings())
        gProject->SetReferenceSourceIndex(0);
    const std::int16_t requested = gProject->ReferenceSourceIndex();
    if (RunISOEvaluationChain(summary.classStatus) != 1) {
        err << "corvane-cli evaluate: the ISO 484 data could not be calculated\n";
        return false;
    }
    if (requested != 0 && gProject->ReferenceSourceIndex() == 0)
        err << "corvane-cli evaluate: the reference could not be calculated; the scan is evaluated without "
               "it\n";
    ShowEnabledBlades(summary.scanIndex);
    summary.bestClass = GetBestISOClass(summary.scanIndex, ISOBelowSizeLimit(*gProject), summary.classCodes,
                                        summary.propellerCode);
    GetEvaluationSentence(summary.standardText, summary.sentence, summary.bestClass);
    summary.isoEvaluated = true;
    return true;
}

} // namespace

int RunEvaluate(const EvaluateOptions& options, std::ostream& out, std::ostream& err) {
    if (!LoadProject(kCommand, options.projectPath, err))
        return 2;
    EvaluationSummary summary;
    if (!SelectScan(kCommand, options.rotationIndex, options.scan, err, summary.scanIndex))
        return 2;
    if (options.classIndex)
        gISO484->SetISOClassIndex(*options.classIndex);
    if (options.criteriaIndex)
        gISO484->SetISOCriteriaIndex(*options.criteriaIndex);
    summary.scanLabel = ScanLetterLabel(gProject->PropellerScan(summary.scanIndex)->ScanID());

    // A reference file is read against the calculated scan, as the window reads one only after
    // CHECK: a scan saved before its first check has no diameter yet.
    if (!CalculateScanGeometry(kCommand, summary.scanIndex, err))
        return 2;
    if (!ApplyReferenceOptions(options, err))
        return 2;
    ShowEnabledBlades(summary.scanIndex);
    if (!EvaluateISO(summary, err))
        return 2;
    if (options.json)
        WriteEvaluationJson(out, summary);
    else
        WriteEvaluationTable(out, summary);
    return 0;
}

} // namespace corvane::cli
