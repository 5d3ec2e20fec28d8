#include "graphs/modGraphsScales.h"
#include "graphs/RecordingSurface.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

namespace corvane {
namespace {

using Kind = SurfaceCall::Kind;

TEST(modGraphsScalesTest, RulersNumberEveryUnitAndMarkTheirCentreInRed) {
    // An inch ruler centred on 3 runs 0 to 6 in sixteenths, a centimetre ruler on 2.5 runs 0 to 5
    // in tenths: the unit numbers, one tick line per step, the red centre line.
    for (const auto& [inches, centre, units, ticks] :
         {std::tuple{true, 3.0, 7, 6 * 16 + 1}, std::tuple{false, 2.5, 6, 5 * 10 + 1}}) {
        RecordingSurface surface(800, 80);
        GraphOptions options;
        if (inches) {
            CreateInchScale(surface, centre, options);
        } else {
            CreateCentimeterScale(surface, centre, options);
        }
        const auto texts = surface.Texts();
        for (int n = 0; n < units; ++n) {
            EXPECT_NE(std::find(texts.begin(), texts.end(), std::to_string(n)), texts.end()) << n;
        }
        const auto lines =
            std::count_if(surface.calls.begin(), surface.calls.end(), [](const SurfaceCall& c) {
                return c.kind == Kind::Polyline && c.colour == 0xFF000000;
            });
        EXPECT_GE(lines, ticks) << (inches ? "inch" : "centimetre");
        const auto red = std::find_if(surface.calls.begin(), surface.calls.end(), [](const SurfaceCall& c) {
            return c.kind == Kind::Polyline && c.colour == 0xFFFF0000;
        });
        ASSERT_NE(red, surface.calls.end());
        EXPECT_NEAR(red->points[0].X, 400, 1) << "the centre, in pixels";
    }
}

TEST(modGraphsScalesTest, NearestBinaryFractionInLowestTerms) {
    for (const auto& [value, text] :
         {std::pair{3.3125, "3 5/16"}, std::pair{0.5, "1/2"}, std::pair{2.0, "2"},
          std::pair{1.0 / 128, "1/128"}, std::pair{0.999, "1"}, std::pair{2.2, "2 13/64"}}) {
        EXPECT_EQ(NearestBinaryFraction(value), text) << value;
    }
}

} // namespace
} // namespace corvane
