#include "CliTestProjects.h"
#include "common/FileBytes.h"
#include "common/ServicesFixture.h"

#include <fstream>

namespace corvane::cli {
namespace {

using test::Cli;
using test::CliRun;

int CountLines(const std::string& text) {
    return static_cast<int>(std::count(text.begin(), text.end(), '\n'));
}

using CliCommandsTest = corvane::test::ServicesTest;

// The demo's bytes are pinned by DemoGoldenTest.
TEST_F(CliCommandsTest, InfoDescribesTheDemo) {
    const std::string a = temp->File("a.cvpj");
    ASSERT_EQ(Cli({"demo", a}).code, 0);

    const CliRun text = Cli({"info", a});
    ASSERT_EQ(text.code, 0) << text.err;
    EXPECT_NE(text.out.find("ProjectID:      DEMO-4B"), std::string::npos);
    EXPECT_NE(text.out.find("blade 4: 8 sections, points 40 40 40 40 40 40 40 40"), std::string::npos);

    const CliRun json = Cli({"info", a, "--json"});
    ASSERT_EQ(json.code, 0) << json.err;
    for (const char* expected :
         {"\"ProjectID\": \"DEMO-4B\"", "\"MarkedDiameter\": 40", "\"ClassIndex\": \"ClassI\"",
          "\"Notice\": \"\"", "\"Hand\": \"Right\"", "\"SectionCount\": 8"})
        EXPECT_NE(json.out.find(expected), std::string::npos) << expected;
}

TEST_F(CliCommandsTest, InfoTakesTheHeaderOfAnOlderScanFileFromItsOtherBlocks) {
    const CliRun run = Cli({"info", std::string(CORVANE_SOURCE_DIR) + "/data/legacy/schema0.tbsc"});
    ASSERT_EQ(run.code, 0) << run.err;
    EXPECT_NE(run.out.find("Customer:       Harbour"), std::string::npos) << run.out;
    EXPECT_NE(run.out.find("BladeCount:     3"), std::string::npos) << run.out;
}

TEST_F(CliCommandsTest, InfoCollectsTheReadersNotice) {
    const std::string path = temp->File("demo.cvpj");
    ASSERT_EQ(Cli({"demo", path, "--points", "3"}).code, 0);
    std::string bytes = corvane::test::FileBytes(path);
    const auto at = bytes.find("ClassIndex=ClassI\r\n");
    ASSERT_NE(at, std::string::npos);
    bytes.erase(at, std::string("ClassIndex=ClassI\r\n").size());
    std::ofstream(path, std::ios::binary) << bytes;

    const CliRun json = Cli({"info", path, "--json"});
    ASSERT_EQ(json.code, 0) << json.err;
    EXPECT_NE(json.out.find("[ClassIndex] tag [] not recognized."), std::string::npos) << json.out;
}

TEST_F(CliCommandsTest, UnreadableFilesGiveOneLineAndExitTwo) {
    const std::string garbage = temp->File("garbage.cvpj");
    std::ofstream(garbage, std::ios::binary) << "\x01\x02 not a project\r\n[Other]\r\nA=1\r\n";
    for (const std::string command : {"info", "evaluate"}) {
        for (const std::string& path : {temp->File("missing.cvpj"), garbage, temp->Path().string()}) {
            const CliRun run = Cli({command, path, "--json"});
            EXPECT_EQ(run.code, 2) << command << " " << path;
            EXPECT_EQ(CountLines(run.err), 1) << run.err;
            EXPECT_EQ(run.err.rfind("corvane-cli " + command + ": cannot read " + path + ": ", 0), 0u)
                << run.err;
            if (path == garbage) {
                EXPECT_NE(run.err.find(": not a Corvane project file\n"), std::string::npos) << run.err;
            }
            EXPECT_TRUE(run.out.empty());
        }
    }
    EXPECT_EQ(Cli({"info"}).code, 1);
    EXPECT_EQ(Cli({"demo", temp->File("x.cvpj"), "--points", "many"}).code, 1);
    EXPECT_EQ(Cli({"frobnicate"}).code, 1);
}

TEST_F(CliCommandsTest, VersionAndHelp) {
    const CliRun version = Cli({"--version"});
    EXPECT_EQ(version.code, 0);
    EXPECT_EQ(version.out.rfind("corvane-cli ", 0), 0u);
    EXPECT_NE(Cli({"--help"}).out.find("info FILE [--json]"), std::string::npos);
}

} // namespace
} // namespace corvane::cli
