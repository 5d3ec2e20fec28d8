#include "cli/ExportPPPCommand.h"

#include "cli/ProjectLoader.h"
#include "cli/ReferenceOptions.h"
#include "cli/ScanPreparation.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "reference/modImportFile.h"

#include <ostream>

namespace corvane::cli {
namespace {

constexpr const char* kCommand = "export-ppp";

} // namespace

int RunExportPPP(const std::string& projectPath, const std::string& pppPath, std::ostream& out,
                 std::ostream& err) {
    if (!LoadProject(kCommand, projectPath, err))
        return 2;
    int scanIndex = 0;
    if (!SelectScan(kCommand, std::nullopt, "", err, scanIndex) ||
        !CalculateScanGeometry(kCommand, scanIndex, err))
        return 2;
    if (!UsableReferenceSettings())
        gProject->SetReferenceSourceIndex(0);
    if (ExportPPPFile(pppPath) != 1) {
        err << "corvane-cli export-ppp: cannot write " << pppPath << "\n";
        return 2;
    }
    out << "wrote " << pppPath << "\n";
    return 0;
}

} // namespace corvane::cli
