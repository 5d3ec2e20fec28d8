#include "geometry/clsSplineFitCache.h"

#include "SplineFitFixture.h"

#include <cmath>

namespace corvane {
namespace {

class clsSplineFitCacheTest : public test::SplineFitTest {
protected:
    using Tangents = test::SplineTangents;

    // Everything a fit answers, read across and beyond its span: value, tangent and curvature
    // angles at X, the point at a length fraction, and the length.
    static std::vector<double> Answers(clsSplineFit& spline) {
        std::vector<double> out{static_cast<double>(spline.count())};
        for (int i = -2; i <= 42; ++i) {
            double tangent = 0.0;
            double curvature = 0.0;
            double y = 0.0;
            spline.EvalAtX(i * 0.25, tangent, curvature, y);
            out.insert(out.end(), {y, tangent, curvature});
        }
        for (int i = 0; i <= 10; ++i) {
            double x = 0.0;
            double y = 0.0;
            double tangent = 0.0;
            double curvature = 0.0;
            spline.EvalAtT(i / 10.0, x, y, tangent, curvature);
            out.insert(out.end(), {x, y, tangent, curvature});
        }
        double length = 0.0;
        spline.ArcLength(length);
        out.push_back(length);
        return out;
    }

    // A swept curve with a straight run, a repeated point and a bend: every path of the fit.
    static std::vector<PointDouble> Sweep() {
        std::vector<PointDouble> points;
        for (int i = 0; i <= 40; ++i) {
            const double x = i * 0.25;
            const double y = i < 12 ? 0.5 * x : std::sin(x) + 0.2 * x * x;
            points.push_back({x, y});
            if (i == 20) {
                points.push_back({x, y});
            }
        }
        return points;
    }

    // Exact equality, NaN included: a kept fit must answer bit for bit as a fresh one.
    static void ExpectSameBits(const std::vector<double>& a, const std::vector<double>& b) {
        ASSERT_EQ(a.size(), b.size());
        for (std::size_t i = 0; i < a.size(); ++i) {
            EXPECT_TRUE(a[i] == b[i] || (std::isnan(a[i]) && std::isnan(b[i])))
                << "answer " << i << ": " << a[i] << " against " << b[i];
        }
    }
};

TEST_F(clsSplineFitCacheTest, AKeptFitAnswersExactlyAsAFreshOne) {
    clsSplineFit fresh = Fit(Sweep());
    const std::vector<double> expected = Answers(fresh);
    ASSERT_EQ(expected[0], static_cast<double>(Sweep().size() - 1)); // the repeat was dropped
    // Chord spacing with natural ends hands computed tangents back: they must come back too.
    Tangents freshTangents;
    const std::int16_t natural = clsSplineFit::kChordSpacing | clsSplineFit::kNaturalEndX |
                                 clsSplineFit::kNaturalEndY | clsSplineFit::kNaturalStartX |
                                 clsSplineFit::kNaturalStartY;
    clsSplineFit freshChord = Fit(Sweep(), natural, freshTangents);
    ASSERT_NE(freshTangents.endX, kSplineUnset); // the bent end hands its tangent back

    const auto hold = HoldSplineFits();
    ASSERT_NE(clsSplineFitCache::Active(), nullptr);
    for (int pass = 0; pass < 2; ++pass) {
        // The second pass is answered from the cache: it keeps nothing new.
        const std::size_t entries = clsSplineFitCache::Active()->Entries();
        clsSplineFit again = Fit(Sweep());
        Tangents tangents;
        clsSplineFit chord = Fit(Sweep(), natural, tangents);
        EXPECT_EQ(clsSplineFitCache::Active()->Entries(), entries + (pass == 0 ? 2u : 0u));
        ExpectSameBits(Answers(again), expected);
        ExpectSameBits(Answers(chord), Answers(freshChord));
        ExpectSameBits({tangents.startX, tangents.startY, tangents.endX, tangents.endY},
                       {freshTangents.startX, freshTangents.startY, freshTangents.endX, freshTangents.endY});
    }

    // Resizing a spline whose control points came from the cache keeps them, as it keeps its own.
    for (const std::int32_t count : {fresh.count(), 6}) {
        clsSplineFit kept = Fit(Sweep());
        clsSplineFit own = fresh;
        kept.SetCount(count);
        own.SetCount(count);
        ExpectSameBits(Answers(kept), Answers(own));
    }
}

TEST_F(clsSplineFitCacheTest, OneBitOfInputOrASettingMakesAnotherFit) {
    std::vector<PointDouble> nudged = Sweep();
    nudged[30].Y = std::nextafter(nudged[30].Y, 1e9);
    // Each differs from the plain sweep in one thing: a bit of one point, the spacing, a tangent.
    auto fits = [&] {
        Tangents tangent{1.0, 0.0};
        std::vector<clsSplineFit> out{Fit(nudged), Fit(Sweep(), clsSplineFit::kUniformSpacing),
                                      Fit(Sweep(), clsSplineFit::kSpacingAlongX, tangent)};
        return out;
    };
    std::vector<clsSplineFit> fresh = fits();

    const auto hold = HoldSplineFits();
    Fit(Sweep()); // kept first: none of the fits below may be answered with it
    std::vector<clsSplineFit> held = fits();
    EXPECT_EQ(clsSplineFitCache::Active()->Entries(), 4u);
    for (std::size_t i = 0; i < held.size(); ++i) {
        ExpectSameBits(Answers(held[i]), Answers(fresh[i]));
    }
}

TEST_F(clsSplineFitCacheTest, AFitThatRanIntoAnErrorIsFittedAndToldAgain) {
    // Equal X with different Y: the handler hears of it on every fit, held or not.
    prompts.Expect(Answer::Ignore, "A mathematical error has occurred interpolating spline 2d.");
    prompts.Expect(Answer::Ignore, "A mathematical error has occurred interpolating spline 2d.");
    const auto hold = HoldSplineFits();
    const std::vector<PointDouble> broken = {{0, 0}, {1, 1}, {1, 2}, {3, 0}};
    clsSplineFit first = Fit(broken);
    clsSplineFit second = Fit(broken);
    EXPECT_EQ(clsSplineFitCache::Active()->Entries(), 0u);
    ExpectSameBits(Answers(second), Answers(first));
}

} // namespace
} // namespace corvane
