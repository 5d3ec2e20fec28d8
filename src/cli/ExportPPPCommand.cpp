#include "cli/ExportPPPCommand.h"

#include "cli/ProjectLoader.h"
#include "cli/ScanPreparation.h"
#include "iso484/clsISO484.h"
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
    CheckRequest request;
    if (!SelectScan(kCommand, std::nullopt, "", err, request.scanIndex) ||
        !CheckPassed(kCommand, RunCheck(*gProject, *gISO484, request), err))
        return 2;
    if (ExportPPPFile(pppPath) != 1) {
        err << "corvane-cli export-ppp: cannot write " << pppPath << "\n";
        return 2;
    }
    out << "wrote " << pppPath << "\n";
    return 0;
}

} // namespace corvane::cli
