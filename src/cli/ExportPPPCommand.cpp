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
constexpr const char* kUsage = "usage: corvane-cli export-ppp PROJECT OUT.ppp\n";

} // namespace

int RunExportPPP(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::vector<std::string> paths;
    for (const auto& arg : args) {
        if (arg.empty() || arg[0] == '-' || paths.size() == 2) {
            err << "corvane-cli export-ppp: unexpected argument '" << arg << "'\n" << kUsage;
            return 2;
        }
        paths.push_back(arg);
    }
    if (paths.size() != 2) {
        err << "corvane-cli export-ppp: a project and an output file are needed\n" << kUsage;
        return 2;
    }
    if (!LoadProject(kCommand, paths[0], err))
        return 2;
    CheckRequest request;
    if (!SelectScan(kCommand, std::nullopt, "", err, request.scanIndex) ||
        !CheckPassed(kCommand, RunCheck(*gProject, *gISO484, request), err))
        return 2;
    if (ExportPPPFile(paths[1]) != 1) {
        err << "corvane-cli export-ppp: cannot write " << paths[1] << "\n";
        return 2;
    }
    out << "wrote " << paths[1] << "\n";
    return 0;
}

} // namespace corvane::cli
