#include "graphs/GraphsFixture.h"

#include "files/FileAccess.h"
#include "graphs/modGraphsTop.h"
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
    std::string Head(const std::string& path, std::size_t n) {
        std::string bytes;
        EXPECT_TRUE(ReadFileBytes(path, bytes)) << path;
        return bytes.substr(0, n);
    }
    GraphDrawing Top() {
        return [this](DrawingSurface& s) { CreateTopGraph(s, Request()); };
    }
};

TEST_F(GraphFileTest, EachFormatIsWrittenWhole) {
    struct Row {
        const char* name;
        std::size_t length;
        std::string head;
    };
    for (const Row& r : {Row{"top.png", 4, "\x89PNG"}, Row{"top.SVG", 5, "<?xml"}, Row{"top.pdf", 4, "%PDF"},
                         Row{"top.bmp", 2, "BM"}}) {
        const std::string path = temp->File(r.name);
        std::string reason;
        const auto format = GraphFileFormatOf(path);
        ASSERT_TRUE(format) << r.name;
        ASSERT_TRUE(WriteGraphFile(path, *format, QSize(300, 300), Top(), reason)) << reason;
        EXPECT_EQ(Head(path, r.length), r.head) << r.name;
    }
    EXPECT_FALSE(GraphFileFormatOf("top.jpg"));
}

TEST_F(GraphFileTest, AFolderThatIsNotThereLeavesNothingBehind) {
    const std::string path = temp->File("missing/top.png");
    std::string reason;
    EXPECT_FALSE(WriteGraphFile(path, GraphFileFormat::Png, QSize(100, 100), Top(), reason));
    EXPECT_NE(reason.find("cannot write"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(GraphFileTest, ReportGraphsGoUnderTheirFileNames) {
    std::string reason;
    GraphRequest request = Request();
    const std::string path =
        WriteReportGraphFile(temp->Folder(), ReportGraph::FullTop, request, 12240, 15840, reason);
    ASSERT_EQ(path, temp->File("FullTop.bmp")) << reason;
    EXPECT_EQ(Head(path, 2), "BM");
    EXPECT_TRUE(
        WriteReportGraphFile(temp->Folder(), ReportGraph::Map, request, 12240, 15840, reason).empty());
    const std::string folder = GraphWorkingFolder();
    EXPECT_TRUE(std::filesystem::is_directory(folder));
    EXPECT_NE(folder.find("graphs"), std::string::npos);
}

} // namespace
} // namespace corvane
