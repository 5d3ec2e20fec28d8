#include "cli/ProjectLoader.h"

#include "files/modProjectCommands.h"
#include "files/modProjectFile.h"
#include "files/modTesselbyFile.h"
#include "support/ScriptedPrompts.h"
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

// The last line that says something: a reader stops at the item it could not do without, which
// it notes last.
std::string LastLine(const std::string& text) {
    const auto end = text.find_last_not_of(" \r\n");
    if (end == std::string::npos)
        return {};
    const auto start = text.find_last_of("\r\n", end);
    const std::size_t from = start == std::string::npos ? 0 : start + 1;
    return text.substr(from, end + 1 - from);
}

} // namespace

bool LoadProject(const std::string& command, const std::string& path, std::ostream& err) {
    const std::string prefix = "corvane-cli " + command + ": cannot read " + path + ": ";
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        err << prefix << "no such file\n";
        return false;
    }
    // The reader's notices are collected first: a failed read is told in one line.
    ScriptedPrompts notices;
    notices.SetAnswerFreely(true);
    int result = 0;
    {
        Services services = InstalledServices();
        services.prompts = &notices;
        ServiceScope scope(services);
        if (CreateNewProject() != 1) {
            err << prefix << "no new project could be made\n";
            return false;
        }
        notices.Clear();
        const bool tesselby = Lower(FileExtensionOf(path)) == "tbsc";
        result = tesselby ? ReadTesselbyFile(path, true) : ReadProjectFile(path, true);
    }
    if (!HoldsProjectBlocks(path)) {
        err << prefix << "not a Corvane project file\n";
        return false;
    }
    if (result != 1) {
        const std::string reason =
            notices.History().empty() ? std::string() : LastLine(notices.History().back().text);
        err << prefix << (reason.empty() ? "the file is damaged" : reason) << "\n";
        return false;
    }
    for (const auto& shown : notices.History())
        err << (shown.title.empty() ? std::string() : shown.title + ": ") << OneLine(shown.text) << "\n";
    return true;
}

} // namespace corvane::cli
