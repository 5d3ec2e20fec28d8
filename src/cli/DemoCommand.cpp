#include "cli/DemoCommand.h"

#include "acquisition/DemoProject.h"
#include "files/modProjectFile.h"
#include "support/FixedClock.h"
#include "support/Services.h"

#include <filesystem>
#include <ostream>

namespace corvane::cli {

int RunDemo(const std::string& path, int points, std::ostream& out, std::ostream& err) {
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
