#include "CliTestProjects.h"
#include "common/FileBytes.h"
#include "common/ServicesFixture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace corvane::cli {
namespace {

using test::Cli;
using test::CliRun;
using test::Ideal;
using test::WriteProject;

class GraphCommandTest : public ::testing::Test {
protected:
    void SetUp() override { WriteProject(project, {Ideal(36.0)}); }

    corvane::test::TempFolder temp;
    std::string project = temp.File("ideal.cvpj");
};

TEST_F(GraphCommandTest, EveryViewIsWrittenInTheFormatItsNameAsksFor) {
    struct Row {
        std::vector<std::string> args;
        std::string file, head;
    };
    const std::vector<Row> rows = {
        {{"--view", "top", "--constant-pitch", "36"}, "top.png", "\x89PNG"},
        {{"--view", "pitch", "--size", "640x400"}, "pitch.SVG", "<?xml"},
        {{"--view", "pitch-summary", "--report"}, "summary.pdf", "%PDF"},
        {{"--view", "blade", "--blade", "2", "--zoom"}, "blade.png", "\x89PNG"},
        {{"--view", "radius", "--radius", "70R"}, "radius.png", "\x89PNG"},
        {{"--view", "path", "--radius", "0.5"}, "path.png", "\x89PNG"},
        {{"--view", "outline", "--class", "2"}, "outline.png", "\x89PNG"},
        {{"--view", "ARM"}, "arm.png", "\x89PNG"},
    };
    for (const Row& r : rows) {
        std::vector<std::string> args = {"graph", project, "-o", temp.File(r.file)};
        args.insert(args.end(), r.args.begin(), r.args.end());
        const CliRun run = Cli(args);
        EXPECT_EQ(run.code, 0) << r.file << ": " << run.err;
        EXPECT_EQ(run.out, "wrote " + temp.File(r.file) + "\n");
        EXPECT_EQ(corvane::test::FileBytes(temp.File(r.file)).substr(0, r.head.size()), r.head) << r.file;
    }
}

TEST_F(GraphCommandTest, WrongUsageAndFailuresKeepTheirExitCodes) {
    struct Row {
        std::vector<std::string> args;
        int code;
        std::string says;
    };
    const std::string out = temp.File("g.png");
    const std::vector<Row> rows = {
        {{"graph", project, "--view", "top", "-o", temp.File("g.jpg")}, 1, ".png, .svg or .pdf"},
        {{"graph", project, "--view", "side", "-o", out}, 1, "--view"},
        {{"graph", project, "-o", out}, 1, "--view"},
        {{"graph", project, "--view", "top", "-o", out, "--size", "20x20"}, 1, "64 to 8000"},
        {{"graph", project, "--view", "radius", "--blade", "5", "-o", out}, 2, "4 blades, not 5"},
        {{"graph", project, "--view", "radius", "--radius", "55", "-o", out}, 2, "no section at r/R 0.55"},
        {{"graph", temp.File("none.cvpj"), "--view", "top", "-o", out}, 2, "cannot read"},
        {{"graph", project, "--view", "top", "-o", temp.File("no/such/folder/g.png")}, 2, "cannot write"},
    };
    for (const Row& r : rows) {
        const CliRun run = Cli(r.args);
        EXPECT_EQ(run.code, r.code) << r.says << ": " << run.err;
        EXPECT_NE(run.err.find(r.says), std::string::npos) << run.err;
    }
    EXPECT_FALSE(std::filesystem::exists(out));
}

} // namespace
} // namespace corvane::cli
