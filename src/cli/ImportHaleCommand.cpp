#include "cli/ImportHaleCommand.h"

#include "cli/ScanPreparation.h"
#include "files/FileAccess.h"
#include "files/modHaleMRIFile.h"
#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"

#include <filesystem>
#include <ostream>
#include <unistd.h>

namespace corvane::cli {
namespace {

constexpr const char* kCommand = "corvane-cli import-hale: ";

// Messages keep their CR LF line ends for the screen boxes; one line on a terminal each.
std::string OneLine(const std::string& text) {
    std::string line;
    for (const char c : text) {
        const char shown = c == '\r' || c == '\n' ? ' ' : c;
        if (shown != ' ' || (!line.empty() && line.back() != ' '))
            line.push_back(shown);
    }
    return line;
}

// The project written to a fresh file beside the target and renamed over it: a project file
// that is written again keeps blocks the new project does not write (another project's scans),
// and the target must stay as it was until the new file is whole.
bool WriteFreshProject(const std::filesystem::path& target) {
    std::filesystem::path fresh = target;
    fresh += ".import-" + std::to_string(::getpid());
    std::error_code ignored;
    std::filesystem::remove(fresh, ignored);
    if (WriteProjectFile(fresh.string()) != 1) {
        std::filesystem::remove(fresh, ignored);
        return false;
    }
    std::error_code error;
    std::filesystem::rename(fresh, target, error);
    if (error) {
        std::filesystem::remove(fresh, ignored);
        return false;
    }
    return SyncToDisk(target);
}

} // namespace

int RunImportHale(const std::string& halePath, const std::string& projectPath, std::ostream& out,
                  std::ostream& err) {
    const std::string cannotRead = std::string(kCommand) + "cannot read " + halePath + ": ";
    std::error_code error;
    if (!std::filesystem::is_regular_file(halePath, error)) {
        err << cannotRead << "no such file\n";
        return 2;
    }
    if (CreateNewProject() != 1) {
        err << cannotRead << "no new project could be made\n";
        return 2;
    }
    const FileReadResult read = ImportHaleMRIFile(halePath, *gProject, *gISO484);
    for (const Notice& notice : read.notices)
        err << kCommand << OneLine(notice.text) << "\n";
    if (!read.Usable()) {
        const std::string reason = read.Reason();
        err << cannotRead << (reason.empty() ? "the file is damaged" : reason) << "\n";
        return 2;
    }
    if (!WriteFreshProject(projectPath)) {
        err << kCommand << "cannot write " << projectPath << "\n";
        return 2;
    }
    const std::string missing = MissingFields(CheckProjectFields(*gProject, *gISO484));
    if (!missing.empty())
        err << kCommand << "the file gives no " << missing << "; enter them on the Project page before "
            << "evaluating\n";
    out << "wrote " << projectPath << "\n";
    return 0;
}

} // namespace corvane::cli
