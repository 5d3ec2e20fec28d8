#include "graphs/GraphsFixture.h"

#include "graphs/GraphColours.h"
#include "graphs/clsCoordinateGraph.h"
#include "graphs/modGraphsTop.h"
#include "platform/render/QtDrawingSurface.h"

#include <QGuiApplication>

namespace corvane {
namespace {

QGuiApplication& Gui() {
    static int argc = 1;
    static char name[] = "corvane_render_tests";
    static char* argv[] = {name, nullptr};
    static QGuiApplication* app = new QGuiApplication(argc, argv);
    return *app;
}

// Pixels of the picture within a few steps of a colour, by 0xBBGGRR.
int Count(const QImage& image, std::uint32_t bgr, QRect area = {}) {
    const QColor want = QColor::fromRgba(BGRToARGB(bgr, 255));
    if (area.isNull()) {
        area = image.rect();
    }
    int n = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor c = image.pixelColor(x, y);
            n += std::abs(c.red() - want.red()) + std::abs(c.green() - want.green()) +
                     std::abs(c.blue() - want.blue()) <
                 40;
        }
    }
    return n;
}

class QtDrawingSurfaceTest : public test::GraphsTest {
protected:
    void SetUp() override {
        Gui();
        GraphsTest::SetUp();
    }
};

TEST_F(QtDrawingSurfaceTest, TheTopViewPaintsEachBladeInItsColourInsideThePlot) {
    Check(Ideal(), 36.0);
    QtDrawingSurface raster(QSize(600, 600));
    CreateTopGraph(raster, Request());
    raster.Finish();
    const QImage& image = *raster.Raster();
    // Blade 0 stands at the top, blade 1 at the left (the check turns blade 0 onto 0 degrees).
    EXPECT_GT(Count(image, kBladeColours[0], QRect(200, 40, 200, 200)), 200);
    EXPECT_GT(Count(image, kBladeColours[1], QRect(40, 200, 200, 200)), 200);
    EXPECT_EQ(Count(image, kBladeColours[0], QRect(0, 300, 600, 300)), 0);
    // The margins stay white.
    EXPECT_EQ(image.pixelColor(3, 3), QColor(Qt::white));
    EXPECT_EQ(image.pixelColor(596, 300), QColor(Qt::white));
}

TEST_F(QtDrawingSurfaceTest, LinesBeyondTheSurfaceStopAtItsEdge) {
    QtDrawingSurface raster(QSize(200, 200));
    clsCoordinateGraph graph;
    graph.CreateGraph(raster, 1, 0xFFFFFF);
    graph.SetPercentWindow(0, 0, 1, 1);
    graph.EqualAxes(0, 0, -1, 1, -1, 1, false, -1, -1, false, 0, 0, false, -1);
    graph.SetDataSeriesConfiguration(0, true, true, false, false, false, false, false);
    graph.SetLineStyle(0, 0, 0, 3, 0x0000FF);
    graph.SetLineData(0, {0, 0.9}, {0, 0});
    graph.SetDataSeriesConfiguration(1, true, true, false, false, false, false, false);
    graph.SetLineStyle(1, 0, 0, 3, 0x0000FF);
    graph.SetLineData(1, {-0.5, 1e9}, {0.5, 0.5}); // cut at the plot: only the run inside
    graph.PlotAll();
    raster.Finish();
    const QImage& image = *raster.Raster();
    EXPECT_GT(Count(image, 0x0000FF, QRect(100, 98, 80, 4)), 100);
    EXPECT_EQ(Count(image, 0x0000FF, QRect(0, 0, 200, 40)), 0);
    EXPECT_EQ(Count(image, 0x0000FF, QRect(0, 120, 200, 80)), 0);
}

TEST_F(QtDrawingSurfaceTest, ASurfaceBeyondTheTwipRangeIsDrawnWholeAtAFinerScale) {
    Check(Ideal(), 36.0);
    QtDrawingSurface raster(QSize(2400, 2400)); // 36,000 twips at 15 to the pixel
    EXPECT_LT(raster.ScaleHeight(), 32001);
    CreateTopGraph(raster, Request());
    raster.Finish();
    // The labels under the plot and the caption stand beyond the 2,133 pixels of a cut at 32,000
    // twips.
    EXPECT_GT(Count(*raster.Raster(), 0, QRect(0, 2140, 2400, 260)), 50);
}

TEST_F(QtDrawingSurfaceTest, PicturesComeBackAsTheGroundOfTheNextDrawing) {
    QtDrawingSurface raster(QSize(100, 100));
    raster.BackColor = 0x0000FF;
    raster.Cls();
    const auto picture = raster.Image();
    raster.BackColor = 0xFFFFFF;
    raster.Cls();
    raster.SetPicture(picture);
    raster.Cls();
    raster.Finish();
    EXPECT_EQ(raster.Raster()->pixelColor(50, 50), QColor(255, 0, 0));
}

} // namespace
} // namespace corvane
