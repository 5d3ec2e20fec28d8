#include "QtTestApp.h"
#include "common/ServicesFixture.h"

#include "acquisition/DemoProject.h"
#include "graphs/modGraphs.h"
#include "model/Globals.h"
#include "shell/ScanArmView.h"

namespace corvane {
namespace {

class ScanArmViewTest : public test::ServicesTest {
protected:
    void SetUp() override {
        test::TestApp();
        ServicesTest::SetUp();
        ASSERT_EQ(BuildDemoProject(), 1);
        view = std::make_unique<ScanArmView>();
        view->resize(300, 300);
    }
    std::unique_ptr<ScanArmView> view;
};

TEST_F(ScanArmViewTest, EachTickMovesTheArmOverTheStoredSweeps) {
    view->MoveArm(*gProject, 0, ArmOnGraph{90, 16, 40}, 0, 3);
    QImage picture = view->Picture();
    ASSERT_EQ(picture.size(), QSize(300, 300));
    EXPECT_EQ(picture.pixelColor(2, 2), QColor(0xBA, 0xBA, 0xBA)); // enabled: grey ground
    // The arm runs from the centre to the right rim.
    EXPECT_EQ(picture.pixelColor(230, 150), QColor(Qt::black));
    EXPECT_NE(picture.pixelColor(150, 230), QColor(Qt::black));

    view->MoveArm(*gProject, 0, ArmOnGraph{180, 16, 40}, 0, 3);
    picture = view->Picture();
    EXPECT_EQ(picture.pixelColor(150, 230), QColor(Qt::black));
    EXPECT_NE(picture.pixelColor(230, 150), QColor(Qt::black)); // the ground came back
    EXPECT_EQ(test::Render(*view).pixelColor(150, 230), QColor(Qt::black));

    GraphOptions options;
    options.surfaceEnabled = false;
    view->SetOptions(options);
    view->resize(200, 200);
    view->MoveArm(*gProject, 0, ArmOnGraph{0, 16, 40}, 0, 3);
    EXPECT_EQ(view->Picture().size(), QSize(200, 200));
    EXPECT_EQ(view->Picture().pixelColor(2, 2), QColor(Qt::white));
}

} // namespace
} // namespace corvane
