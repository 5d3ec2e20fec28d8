// The demo project shipped in data/ is Corvane's own output: regenerating it must give the same
// file. Byte equality is expected on this build; another compiler or maths library may round a
// sine differently, so numbers may differ by at most 1e-7 relative (files keep 9 significant
// digits) and everything else must match exactly.
//
// After a deliberate change to the generator or the file writer, regenerate with
//     build/release/bin/corvane-cli demo data/demo.cvpj
// and review the difference before committing it.

#include "CliTestProjects.h"
#include "common/ServicesFixture.h"
#include "model/NumberText.h"

#include <cmath>
#include <fstream>
#include <sstream>

namespace corvane::cli {
namespace {

std::vector<std::string> Lines(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

std::vector<std::string> Split(const std::string& text) {
    std::vector<std::string> parts;
    std::stringstream stream(text);
    for (std::string part; std::getline(stream, part, ',');)
        parts.push_back(part);
    return parts;
}

bool IsNumber(const std::string& text) {
    const NumberScan scan = ScanNumber(text, '.', false);
    return scan.found && scan.end == text.size();
}

// Equal text, or equal numbers within the tolerance, field by field.
bool SameLine(const std::string& golden, const std::string& fresh) {
    if (golden == fresh)
        return true;
    const std::size_t eqGolden = golden.find('='), eqFresh = fresh.find('=');
    if (eqGolden == std::string::npos || golden.substr(0, eqGolden + 1) != fresh.substr(0, eqFresh + 1))
        return false;
    const std::vector<std::string> a = Split(golden.substr(eqGolden + 1)),
                                   b = Split(fresh.substr(eqFresh + 1));
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i])
            continue;
        if (!IsNumber(a[i]) || !IsNumber(b[i]))
            return false;
        const double x = ParseLeadingNumber(a[i]), y = ParseLeadingNumber(b[i]);
        if (std::fabs(x - y) > 1e-7 * std::max(std::fabs(x), std::fabs(y)) + 1e-12)
            return false;
    }
    return true;
}

using DemoGoldenTest = corvane::test::ServicesTest;

TEST_F(DemoGoldenTest, RegeneratingTheShippedDemoGivesTheSameProject) {
    const std::string fresh = temp->File("demo.cvpj");
    const test::CliRun run = test::Cli({"demo", fresh});
    ASSERT_EQ(run.code, 0) << run.err;

    const std::vector<std::string> golden = Lines(CORVANE_SOURCE_DIR "/data/demo.cvpj");
    const std::vector<std::string> made = Lines(fresh);
    ASSERT_FALSE(golden.empty());
    ASSERT_EQ(golden.size(), made.size());
    for (std::size_t i = 0; i < golden.size(); ++i)
        EXPECT_TRUE(SameLine(golden[i], made[i]))
            << "line " << i + 1 << "\n golden: " << golden[i] << "\n fresh:  " << made[i];
}

} // namespace
} // namespace corvane::cli
