#include "GraphsFixture.h"

#include "graphs/GraphColours.h"
#include "graphs/modGraphsBars.h"
#include "graphs/modGraphsMap.h"
#include "graphs/modGraphsOutline.h"
#include "graphs/modGraphsPath.h"
#include "graphs/modGraphsRadius.h"
#include "graphs/modGraphsReport.h"
#include "graphs/modGraphsTop.h"

namespace corvane {
namespace {

using Kind = SurfaceCall::Kind;

class modGraphsTest : public test::GraphsTest {
protected:
    // One blade of the demo propeller 4 % over pitch: its panels, sections and mean pitch leave
    // their class I windows, and so does the propeller's mean. The check numbers the blades from
    // the one it turns onto 0 degrees, so the virtual blade 1 is blade index 3, "4" on the graphs.
    static constexpr int kFailing = 3;
    void CheckFailing(std::int16_t rotation = 0) {
        clsVirtualPropeller prop = Ideal(rotation);
        prop.BladePitchFactor = {1.0, 1.04, 1.0, 1.0};
        Check(prop, 36.0);
    }
    bool Drawn(GraphColour colour) const {
        return !surface.InColour(static_cast<std::uint32_t>(colour)).empty();
    }
};

TEST_F(modGraphsTest, TopViewOfAnIdealPropellerShowsEveryBladeAndNoBrackets) {
    Check(Ideal(), 36.0);
    CreateTopGraph(surface, Request());
    for (int b = 0; b < 4; ++b) {
        EXPECT_TRUE(Drawn(kBladeColours[static_cast<std::size_t>(b)])) << "blade " << b;
        EXPECT_TRUE(surface.Printed(std::to_string(b + 1))) << Joined(surface);
    }
    EXPECT_FALSE(Drawn(kBladeColours[4]));
    EXPECT_TRUE(surface.Printed("36.000 P")) << Joined(surface);
    EXPECT_TRUE(surface.Printed("90.0")); // spacing of each neighbouring pair
    EXPECT_TRUE(surface.Printed(kTopViewCaption));
    EXPECT_FALSE(PrintedWith(surface, "["));

    surface.calls.clear();
    options.report = true;
    CreateTopGraph(surface, Request());
    EXPECT_FALSE(surface.Printed(kTopViewCaption));
}

TEST_F(modGraphsTest, TopViewMarksTheBladeOutOfPitch) {
    CheckFailing();
    CreateTopGraph(surface, Request());
    EXPECT_TRUE(surface.Printed("[37.440 P]")) << Joined(surface);
    EXPECT_TRUE(surface.Printed("[36.360 P]")); // the propeller's mean at the centre
    // Pitch high: filled circles in the blade's own colour, opaque.
    const std::uint32_t high = BGRToARGB(kBladeColours[kFailing], 255);
    const auto filled = std::count_if(surface.calls.begin(), surface.calls.end(), [&](const SurfaceCall& c) {
        return c.kind == Kind::Polygon && c.brush && c.fill == high && c.points.size() == 20;
    });
    EXPECT_GT(filled, 0);
    // The bracketed value is bold, the others plain.
    const SurfaceCall* bracket = nullptr;
    for (const SurfaceCall& c : surface.calls) {
        if (c.kind == Kind::Print && c.text.find("P]") != std::string::npos) {
            bracket = &c;
        }
    }
    ASSERT_NE(bracket, nullptr);
    EXPECT_TRUE(bracket->bold);
}

TEST_F(modGraphsTest, WithoutAReferenceNothingIsMarked) {
    CheckFailing();
    gProject->SetReferenceSourceIndex(kReferenceNone);
    CreateTopGraph(surface, Request());
    EXPECT_FALSE(PrintedWith(surface, "["));
    const std::uint32_t boundary = BGRToARGB(0, 150);
    for (const SurfaceCall& c : surface.calls) {
        EXPECT_FALSE(c.brush && c.fill == boundary) << "a panel mark";
    }
}

TEST_F(modGraphsTest, RadiusGraphWritesPanelPitchesAndTheEdgesByHand) {
    CheckFailing();
    options.blade = kFailing;
    options.section = 2;
    CreateRadiusGraph(surface, Request());
    EXPECT_TRUE(PrintedWith(surface, " P HIGH")) << Joined(surface);
    EXPECT_FALSE(PrintedWith(surface, " P LOW"));
    const SurfaceCall* te = PrintOf(surface, "TE");
    const SurfaceCall* le = PrintOf(surface, "LE");
    ASSERT_TRUE(te != nullptr && le != nullptr);
    EXPECT_LT(te->points[0].X, le->points[0].X); // right hand: trailing edge on the left

    surface.calls.clear();
    Check(Ideal(1), 36.0);
    options.blade = 0;
    CreateRadiusGraph(surface, Request());
    te = PrintOf(surface, "TE");
    le = PrintOf(surface, "LE");
    ASSERT_TRUE(te != nullptr && le != nullptr);
    EXPECT_GT(te->points[0].X, le->points[0].X);
    EXPECT_FALSE(PrintedWith(surface, " P HIGH"));
    EXPECT_TRUE(surface.Printed("36.000 P"));

    // Every panel well under a reference of 37.5.
    surface.calls.clear();
    Check(Ideal(), 37.5);
    CreateRadiusGraph(surface, Request());
    EXPECT_TRUE(PrintedWith(surface, " P LOW")) << Joined(surface);
    EXPECT_FALSE(PrintedWith(surface, " P HIGH"));
}

TEST_F(modGraphsTest, PathPlotsNameTheirAxesEdgesAndSections) {
    Check(Ideal(), 36.0);
    options.section = 3;
    CreatePathPlotSection(surface, Request());
    EXPECT_TRUE(surface.Printed("Angular Sweep [in]")) << Joined(surface);
    EXPECT_TRUE(surface.Printed("Drop [in]"));
    const SurfaceCall* te = PrintOf(surface, "[TE]");
    const SurfaceCall* le = PrintOf(surface, "[LE]");
    ASSERT_TRUE(te != nullptr && le != nullptr);
    EXPECT_LT(te->points[0].X, le->points[0].X);
    for (int b = 0; b < 4; ++b) {
        EXPECT_TRUE(Drawn(kBladeColours[static_cast<std::size_t>(b)]));
    }

    surface.calls.clear();
    CreatePathPlotAll(surface, Request());
    EXPECT_TRUE(surface.Printed("Sweep [in]"));
    EXPECT_TRUE(surface.Printed("95R"));
    EXPECT_TRUE(surface.Printed("30R"));
}

TEST_F(modGraphsTest, BarsMapAndOutlineCarryTheirCaptions) {
    CheckFailing();
    CreatePitchBarSections(surface, Request());
    for (const char* text : {"[Prop]", "[Blades]", "[95R]", "[30R]", "36.000",
                             "\xC2\xB1"
                             "0.540"}) {
        EXPECT_TRUE(surface.Printed(text)) << text << ": " << Joined(surface);
    }
    EXPECT_TRUE(Drawn(kPropellerBarColour));

    surface.calls.clear();
    options.blade = kFailing;
    CreateMapGraph(surface, Request());
    EXPECT_TRUE(surface.Printed("Local Pitch Map [ Blade 4 ]")) << Joined(surface);
    EXPECT_TRUE(surface.Printed("Section Pitch"));
    EXPECT_TRUE(PrintedWith(surface, " P HIGH"));

    surface.calls.clear();
    CreateRakeOutlineGraph(surface, Request());
    for (const char* text : {"TE", "LE", "LE Skew", "Chord", "FWD ", "AFT ", "Rake BCL"}) {
        EXPECT_TRUE(surface.Printed(text)) << text << ": " << Joined(surface);
    }
}

TEST_F(modGraphsTest, EveryReportGraphDrawsAndNamesItsFile) {
    Check(Ideal(), 36.0);
    for (int g = 0; g <= static_cast<int>(ReportGraph::Radius); ++g) {
        surface.calls.clear();
        CreateReportGraph(surface, Request(), static_cast<ReportGraph>(g));
        EXPECT_GT(surface.InColour(kBladeColours[0]).size(), 0u)
            << ReportGraphFileOf(static_cast<ReportGraph>(g)).title;
    }
    EXPECT_STREQ(ReportGraphFileOf(ReportGraph::FullTop).fileName, "FullTop.bmp");
    double w = 0, h = 0;
    ReportGraphSize(ReportGraph::Top, 12240, 15840, w, h);
    EXPECT_EQ(w, (12240 - 195) * 2);
    EXPECT_EQ(h, w);
}

} // namespace
} // namespace corvane
