#include "graphs/GraphsFixture.h"

#include "common/FileBytes.h"

#include "platform/render/GraphFile.h"

#include <QGuiApplication>

namespace corvane {
namespace {

class GraphFileTest : public test::GraphsTest {
protected:
    void SetUp() override {
        static int argc = 1;
        static char name[] = "corvane_render_tests";
        static char* argv[] = {name, nullptr};
        if (QCoreApplication::instance() == nullptr) {
            new QGuiApplication(argc, argv);
        }
        GraphsTest::SetUp();
        Check(Ideal(), 36.0);
    }
};

// The formats of the graph command's files are checked with the command (GraphCommandTest).
TEST_F(GraphFileTest, ReportGraphsGoUnderTheirFileNames) {
    std::string reason;
    GraphRequest request = Request();
    const std::string path =
        WriteReportGraphFile(temp->Folder(), ReportGraph::FullTop, request, 12240, 15840, reason);
    ASSERT_EQ(path, temp->File("FullTop.bmp")) << reason;
    EXPECT_EQ(test::FileBytes(path).substr(0, 2), "BM");
    EXPECT_EQ(GraphFileFormatOf("top.bmp"), GraphFileFormat::Bmp);
    EXPECT_TRUE(
        WriteReportGraphFile(temp->Folder(), ReportGraph::Map, request, 12240, 15840, reason).empty());
    const std::string folder = GraphWorkingFolder();
    EXPECT_TRUE(std::filesystem::is_directory(folder));
    EXPECT_NE(folder.find("graphs"), std::string::npos);
}

} // namespace
} // namespace corvane
