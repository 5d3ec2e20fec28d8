#include "CliTestProjects.h"
#include "common/ServicesFixture.h"

#include "files/FileAccess.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace corvane::cli {
namespace {

using test::Cli;
using test::CliRun;
using test::Ideal;
using test::WriteProject;

// What a poppler tool prints for a file.
std::string Tool(const std::string& command) {
    std::string text;
    std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    if (!pipe)
        return text;
    std::array<char, 4096> buffer{};
    while (std::size_t n = std::fread(buffer.data(), 1, buffer.size(), pipe.get()))
        text.append(buffer.data(), n);
    return text;
}

class ReportCommandTest : public ::testing::Test {
protected:
    corvane::test::TempFolder temp;
    std::string project = temp.File("ideal.cvpj");
};

TEST_F(ReportCommandTest, ThePdfHasItsPagesTheVerdictAndTheReportIdOnEach) {
    // The second propeller's pitch is far off: the compare report judges it too.
    WriteProject(project, {Ideal(36.0), Ideal(30.0)});
    struct Row {
        std::vector<std::string> kind;
        std::vector<std::string> judged; // as evaluate takes them
        int pages;                       // 0: more than five
    };
    const std::vector<Row> rows = {
        {{"--kind", "status"}, {"--constant-pitch", "36"}, 2},
        {{"--kind", "full"}, {"--constant-pitch", "30", "--criteria", "secondary"}, 0},
        {{"--kind", "compare", "--compare-scan", "1"}, {"--constant-pitch", "36"}, 4},
    };
    for (const Row& r : rows) {
        const std::string pdf = temp.File("report.pdf");
        std::vector<std::string> args = {"report", project, "--pdf", pdf};
        args.insert(args.end(), r.kind.begin(), r.kind.end());
        args.insert(args.end(), r.judged.begin(), r.judged.end());
        const CliRun run = Cli(args);
        ASSERT_EQ(run.code, 0) << run.err;
        const std::string info = Tool("pdfinfo '" + pdf + "'");
        EXPECT_NE(info.find("612 x 792 pts (letter)"), std::string::npos) << info;
        const std::string text = Tool("pdftotext -layout '" + pdf + "' -");
        std::size_t pages = 0;
        for (std::size_t at = 0, next; at < text.size(); at = next + 1, ++pages) {
            next = text.find('\f', at);
            if (next == std::string::npos)
                break;
            EXPECT_NE(text.substr(at, next - at).find("Report ID "), std::string::npos)
                << "page " << pages + 1;
        }
        if (r.pages > 0)
            EXPECT_EQ(pages, static_cast<std::size_t>(r.pages)) << r.kind[1];
        else
            EXPECT_GT(pages, 5u);

        // The verdict line is evaluate's sentence.
        std::vector<std::string> evaluate = {"evaluate", project, "--json"};
        evaluate.insert(evaluate.end(), r.judged.begin(), r.judged.end());
        const std::string sentence = test::Json(Cli(evaluate))["BestClass"]["Sentence"].get<std::string>();
        EXPECT_NE(text.find(sentence), std::string::npos) << sentence;
    }
}

TEST_F(ReportCommandTest, CsvReadOnlyTargetsAndWrongUsage) {
    WriteProject(project, {Ideal(36.0)});
    const std::string csv = temp.File("report.csv");
    CliRun run = Cli(
        {"report", project, "--kind", "full", "--constant-pitch", "36", "--radii", "70,50", "--csv", csv});
    ASSERT_EQ(run.code, 0) << run.err;
    std::string bytes;
    ASSERT_TRUE(ReadFileBytes(csv, bytes));
    EXPECT_NE(bytes.find("Section Pitch [Rule 7b]"), std::string::npos);
    EXPECT_NE(bytes.find("70R,"), std::string::npos);
    EXPECT_EQ(bytes.find("90R,"), std::string::npos) << "a section not asked for has no row";

    // A read-only target keeps its content, whoever runs the command.
    const std::string locked = temp.File("locked.pdf");
    ASSERT_TRUE(WriteFileAtomically(locked, std::string_view("old")));
    std::filesystem::permissions(locked, std::filesystem::perms::owner_read);
    run = Cli({"report", project, "--pdf", locked});
    EXPECT_EQ(run.code, 2);
    EXPECT_NE(run.err.find("The report could not be saved. The selected file is Read-only."),
              std::string::npos);
    ASSERT_TRUE(ReadFileBytes(locked, bytes));
    EXPECT_EQ(bytes, "old");

    struct Row {
        std::vector<std::string> args;
        int code;
    };
    const std::vector<Row> rows = {
        {{"report", project}, 1},
        {{"report", project, "--pdf", "a.pdf", "--csv", "a.csv"}, 1},
        {{"report", project, "--kind", "weekly", "--pdf", "a.pdf"}, 1},
        {{"report", project, "--kind", "compare", "--pdf", temp.File("a.pdf")}, 2},
        {{"report", project, "--kind", "compare", "--compare-scan", "7", "--pdf", temp.File("a.pdf")}, 2},
        {{"report", temp.File("missing.cvpj"), "--pdf", temp.File("a.pdf")}, 2},
    };
    for (const Row& r : rows)
        EXPECT_EQ(Cli(r.args).code, r.code) << r.args.back();
}

} // namespace
} // namespace corvane::cli
