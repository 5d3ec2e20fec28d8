#include "files/FileAccess.h"
#include "ProjectFileTestSupport.h"

#include <iterator>

namespace corvane {
namespace {

namespace fs = std::filesystem;

// Each step fails in turn, over an old file and where there was none: the folder is left as it
// was, and nothing runs after the failed step. Without a failure, the steps run in the order
// that makes the save survive a power cut.
TEST(FileAccessTest, ASaveReachesTheDiskOrLeavesTheFolderAsItWas) {
    test::TempFolder temp;
    const std::string path = temp.File("p.cvpj");
    for (const bool existed : {true, false}) {
        for (const std::string step : {"write", "sync", "rename", "sync folder", ""}) {
            fs::remove(path);
            ASSERT_TRUE(!existed || WriteFileAtomically(path, "old"));
            test::FailingWriteSteps steps(step);
            const ScopedFileWriteSteps scope(steps);
            EXPECT_EQ(WriteFileAtomically(path, "new"), step.empty()) << step;
            EXPECT_EQ(steps.log.back(), step.empty() ? "sync folder" : step);
            if (step.empty()) {
                EXPECT_EQ(steps.log, (std::vector<std::string>{"write", "sync", "rename", "sync folder"}));
            }
            const std::string expected = step.empty() ? "new" : existed ? "old" : "";
            EXPECT_EQ(fs::exists(path) ? test::FileBytes(path) : "", expected) << step << existed;
            EXPECT_EQ(std::distance(fs::directory_iterator(temp.Path()), {}), expected.empty() ? 0 : 1)
                << step;
        }
    }
}

} // namespace
} // namespace corvane
