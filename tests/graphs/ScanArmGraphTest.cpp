#include "GraphsFixture.h"

#include "graphs/GraphColours.h"
#include "graphs/ScanArmGraph.h"

namespace corvane {
namespace {

using Kind = SurfaceCall::Kind;

class ScanArmGraphTest : public test::GraphsTest {};

TEST_F(ScanArmGraphTest, TheLiveGraphShowsArmSweepsAndBladeNumbers) {
    Check(Ideal(), 0);
    options.scanMode = 2;
    CreateScanArmGraph(surface, *gProject, 0, ArmOnGraph{90, 10, 40}, options);
    ASSERT_FALSE(surface.calls.empty());
    EXPECT_EQ(surface.calls[0].kind, Kind::Cls);
    EXPECT_EQ(surface.calls[0].colour, 0xBABABAu); // enabled surface: grey
    // The arm: a black line from the centre to the rim at 90 degrees, i.e. to the right.
    const auto black = surface.InColour(0);
    ASSERT_FALSE(black.empty());
    const SurfaceCall& arm = *black.front();
    ASSERT_EQ(arm.points.size(), 2u);
    EXPECT_GT(arm.points[1].X, arm.points[0].X + 100);
    EXPECT_NEAR(arm.points[1].Y, arm.points[0].Y, 1);
    for (int b = 0; b < 4; ++b) {
        EXPECT_FALSE(surface.InColour(kBladeColours[static_cast<std::size_t>(b)]).empty());
        EXPECT_TRUE(surface.Printed(std::to_string(b + 1)));
    }

    surface.calls.clear();
    options.scanMode = 1;
    options.surfaceEnabled = false;
    gProject->SetMarkedDiameter(0); // no diameter: no sweeps, the blade lines stay
    CreateScanArmGraph(surface, *gProject, 0, ArmOnGraph{90, 10, 40}, options);
    EXPECT_EQ(surface.calls[0].colour, 0xFFFFFFu);
    EXPECT_TRUE(surface.InColour(kBladeColours[0]).empty());
    EXPECT_TRUE(surface.Printed("1"));
    EXPECT_TRUE(surface.InColour(0).empty()); // no arm without digital acquisition
}

TEST_F(ScanArmGraphTest, FramesDrawOnlyTheMovingPartOnTheStoredGround) {
    Check(Ideal(), 0);
    ScanArmGraph arm;
    arm.Background(surface, *gProject, 0, options);
    ASSERT_TRUE(arm.HasBackground());
    EXPECT_FALSE(surface.InColour(kBladeColours[3]).empty());

    surface.calls.clear();
    arm.Frame(surface, *gProject, 0, ArmOnGraph{45, 15, 40}, 2, -1, options);
    EXPECT_NE(surface.Picture(), nullptr);
    EXPECT_EQ(surface.calls[0].kind, Kind::Cls);
    EXPECT_FALSE(surface.InColour(kBladeColours[2]).empty());
    for (int b : {0, 1, 3}) {
        EXPECT_TRUE(surface.InColour(kBladeColours[static_cast<std::size_t>(b)]).empty()) << b;
    }
    EXPECT_FALSE(surface.InColour(0).empty());
    EXPECT_EQ(std::count_if(surface.calls.begin(), surface.calls.end(),
                            [](const SurfaceCall& c) { return c.kind == Kind::Clear; }),
              0); // the ground is not erased
}

} // namespace
} // namespace corvane
