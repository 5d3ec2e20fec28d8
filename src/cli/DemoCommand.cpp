#include "cli/DemoCommand.h"

#include "acquisition/DemoProject.h"
#include "files/modProjectFile.h"
#include "support/FixedClock.h"
#include "support/Services.h"

#include <charconv>
#include <filesystem>
#include <ostream>

namespace corvane::cli {

int RunDemo(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::string path;
    int points = 40;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--points" && i + 1 < args.size()) {
            const std::string& text = args[++i];
            const auto result = std::from_chars(text.data(), text.data() + text.size(), points);
            if (result.ec != std::errc() || result.ptr != text.data() + text.size() || points < 2 ||
                points > 5000) {
                err << "corvane-cli demo: --points takes a whole number from 2 to 5000\n";
                return 1;
            }
        } else if (path.empty() && !args[i].empty() && args[i][0] != '-') {
            path = args[i];
        } else {
            err << "corvane-cli demo: unexpected argument '" << args[i] << "'\n";
            return 1;
        }
    }
    if (path.empty()) {
        err << "usage: corvane-cli demo OUT.cvpj [--points N]\n";
        return 1;
    }
    // A fixed moment: the demo file is the same on every machine and every run.
    FixedClock clock{DateTime{2026, 11, 22, 9, 0, 0}};
    Services services = InstalledServices();
    services.clock = &clock;
    ServiceScope scope(services);

    if (BuildDemoProject(points) != 1) {
        err << "corvane-cli demo: the demo project could not be built\n";
        return 2;
    }
    // A stale file would keep blocks this project does not write.
    std::error_code ignored;
    std::filesystem::remove(path, ignored);
    if (WriteProjectFile(path) != 1) {
        err << "corvane-cli demo: cannot write " << path << "\n";
        return 2;
    }
    out << "wrote " << path << "\n";
    return 0;
}

} // namespace corvane::cli
