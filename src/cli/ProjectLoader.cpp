#include "cli/ProjectLoader.h"

#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "files/modTesselbyFile.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <filesystem>
#include <ostream>

namespace corvane::cli {
namespace {

std::string Lower(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

// Messages keep their CR LF line ends for the screen boxes; one line on a terminal each.
std::string OneLine(const std::string& text) {
    std::string line;
    for (char c : text) {
        if (c == '\r')
            continue;
        line.push_back(c == '\n' ? ' ' : c);
    }
    while (!line.empty() && line.back() == ' ')
        line.pop_back();
    return line;
}

} // namespace

bool ReadProject(const std::string& command, const std::string& path, std::ostream& err,
                 FileReadResult& read) {
    const std::string prefix = "corvane-cli " + command + ": cannot read " + path + ": ";
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        err << prefix << "no such file\n";
        return false;
    }
    if (CreateNewProject() != 1) {
        err << prefix << "no new project could be made\n";
        return false;
    }
    const bool tesselby = Lower(FileExtensionOf(path)) == "tbsc";
    read = tesselby ? ReadTesselbyFile(path) : ReadProjectFile(path);
    if (!HoldsProjectBlocks(path)) {
        err << prefix << "not a Corvane project file\n";
        return false;
    }
    if (!read.Usable()) {
        const std::string reason = read.Reason();
        err << prefix << (reason.empty() ? "the file is damaged" : reason) << "\n";
        return false;
    }
    return true;
}

bool LoadProject(const std::string& command, const std::string& path, std::ostream& err) {
    FileReadResult read;
    if (!ReadProject(command, path, err, read))
        return false;
    for (const Notice& notice : read.notices)
        err << (notice.title.empty() ? std::string() : notice.title + ": ") << OneLine(notice.text) << "\n";
    return true;
}

} // namespace corvane::cli
