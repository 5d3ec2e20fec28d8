#include "geometry/modLocalPitch.h"
#include "PropertiesFixture.h"

namespace corvane::test {
namespace {

class modLocalPitchTest : public ServicesTest {
protected:
    // One blade, GL at `gl` degrees and axial 0, diameter 2000: row 4 (r/R 0.6) unrolls at 600.
    void SetUp() override {
        ServicesTest::SetUp();
        prop.SetDiameter(2000.0);
        prop.SetBladeCount(1);
        prop.Blades(0)->SetSectionCount(8);
    }

    // Row 4 swept from relative angle `from` to `to` in `points` steps; the drop is
    // drop(relative angle).
    template <class F>
    std::shared_ptr<clsSection> Sweep(double gl, double from, double to, int points, F drop) {
        prop.Blades(0)->SetGLPositionThetaDeg(gl);
        auto s = prop.Blades(0)->Section(4);
        s->SetRawOffsetCount(points);
        for (int i = 0; i < points; ++i) {
            const double t = from + (to - from) * i / (points - 1);
            s->SetRadius(i, 600.0);
            s->SetThetaDeg(i, Wrap360(gl + t));
            s->SetAxialDropX(i, drop(t));
        }
        return s;
    }

    static void SetSegment(clsSection& s, double te, double le, double xte, double xle) {
        s.SetSegmentThetaTE(te);
        s.SetSegmentThetaLE(le);
        s.SetSegmentAxialXTE(xte);
        s.SetSegmentAxialXLE(xle);
    }

    clsPropeller prop;
};

// A section made of two helices of different pitch meeting at the GL. The normal to the
// nose-tail line through each evenly spaced station meets the section at one point; that point
// is the station, and the panels wholly on one helix carry its pitch.
TEST_F(modLocalPitchTest, ByNormalCarriesEachStationAlongTheNormalOfTheNoseTailLine) {
    const double rq = 600.0;
    const double p1 = 1500.0; // trailing edge half
    const double p2 = 2500.0; // leading edge half
    for (std::int16_t rotation : {0, 1}) {
        SCOPED_TRACE("rotation " + std::to_string(rotation));
        const double sense = rotation == 0 ? 1.0 : -1.0;
        // Drop grows from the trailing edge in the sense of the hand.
        auto drop = [&](double t) { return sense * t * (sense * t < 0 ? p1 : p2) / 360.0; };
        auto s = Sweep(200.0, -sense * 20.0, sense * 20.0, 81, drop);
        const double te = -sense * 18.0;
        const double le = sense * 18.0;
        SetSegment(*s, te, le, drop(te), drop(le));
        ASSERT_EQ(CalcLocalPitchByNormal(rotation, prop, 0, 4, 4, false), 1);
        ASSERT_EQ(s->SegmentPanelCount(), 4);
        ASSERT_EQ(s->SegmentOffsetCount(), 5);

        // The same construction by plain plane geometry, in the unrolled (u, x) plane.
        const double au = gDegToRad * te * rq, ax = drop(te);
        const double bu = gDegToRad * le * rq, bx = drop(le);
        const double length = std::hypot(bu - au, bx - ax);
        const double nu = -(bx - ax) / length, nx = (bu - au) / length; // unit normal
        for (int i = 0; i <= 4; ++i) {
            const double su = au + (bu - au) * i / 4.0;
            const double sx = ax + (bx - ax) * i / 4.0;
            // Meet each helix x = k u; keep the point on the helix's own side of the GL.
            double qu = 0.0, qx = 0.0;
            for (double p : {p1, p2}) {
                const double k = sense * p / 360.0 / (gDegToRad * rq);
                const double t = (k * su - sx) / (nx - k * nu);
                const double u = su + t * nu;
                if ((p == p1) == (sense * u < 0)) {
                    qu = u;
                    qx = sx + t * nx;
                }
            }
            EXPECT_TRUE(SameAngle(s->SegmentOffsetThetaDeg(i), 200.0 + qu / (gDegToRad * rq), 1e-9)) << i;
            EXPECT_NEAR(s->SegmentOffsetAxialDropX(i), qx, 1e-9) << i;
        }
        // The nose-tail line passes above the kink, so the normal of the middle station meets the
        // leading edge helix: only panel 1 spans both.
        EXPECT_NEAR(s->SegmentPanelPitch(0), p1, 1e-7);
        EXPECT_GT(s->SegmentPanelPitch(1), p1);
        EXPECT_LT(s->SegmentPanelPitch(1), p2);
        EXPECT_NEAR(s->SegmentPanelPitch(2), p2, 1e-7);
        EXPECT_NEAR(s->SegmentPanelPitch(3), p2, 1e-7);
    }
}

TEST_F(modLocalPitchTest, ByNormalRefusesWhatItCannotMeasure) {
    auto helix = [](double t) { return 2000.0 * t / 360.0; };
    auto s = Sweep(30.0, -10.0, 10.0, 21, helix);
    // Raw ends instead of a segment that reaches beyond the sweep.
    SetSegment(*s, -12.0, 12.0, helix(-12.0), helix(12.0));
    s->SetRawThetaTE(-10.0);
    s->SetRawThetaLE(10.0);
    s->SetRawAxialXTE(helix(-10.0));
    s->SetRawAxialXLE(helix(10.0));
    EXPECT_EQ(CalcLocalPitchByNormal(0, prop, 0, 4, 4, false), 0) << "10% beyond the sweep";
    ASSERT_EQ(CalcLocalPitchByNormal(0, prop, 0, 4, 4, true), 1);
    EXPECT_NEAR(s->SegmentPanelPitch(2), 2000.0, 1e-9);
    EXPECT_NEAR(s->SegmentOffsetThetaDeg(4), 40.0, 1e-9);

    EXPECT_EQ(CalcLocalPitchByNormal(0, prop, 0, 4, 0, true), 1) << "no panels: nothing to do";
    EXPECT_EQ(CalcLocalPitchByNormal(0, prop, 1, 4, 4, true), 0) << "no such blade";
    EXPECT_EQ(CalcLocalPitchByNormal(0, prop, 0, 8, 4, true), 0) << "no such section";
    s->SetRawOffsetCount(1);
    EXPECT_EQ(CalcLocalPitchByNormal(0, prop, 0, 4, 4, true), 1) << "one point: nothing to do";
    prop.SetDiameter(0.0);
    EXPECT_EQ(CalcLocalPitchByNormal(0, prop, 0, 4, 4, true), 0);
}

TEST_F(modLocalPitchTest, ByDropReadsTheRawCurveAtEvenAngles) {
    // Left hand: the drop grows as the angle falls; stations are stored relative + t0, unwrapped.
    auto s = Sweep(350.0, 15.0, -15.0, 31, [](double t) { return 5.0 - 1800.0 * t / 360.0; });
    SetSegment(*s, 12.0, -12.0, 0.0, 0.0);
    ASSERT_EQ(CalcLocalPitchByDrop(1, *s, 0.0, 0.0, 0.0, 0.0, 6, 2.0, 350.0, false), 1);
    ASSERT_EQ(s->SegmentPanelCount(), 6);
    for (int i = 0; i <= 6; ++i) {
        const double t = 12.0 - 4.0 * i;
        EXPECT_NEAR(s->SegmentOffsetThetaDeg(i), 350.0 + t, 1e-9);
        EXPECT_NEAR(s->SegmentOffsetAxialDropX(i), 2.0 + 5.0 - 1800.0 * t / 360.0, 1e-9);
    }
    for (int i = 0; i < 6; ++i) {
        EXPECT_NEAR(s->SegmentPanelPitch(i), 1800.0, 1e-9);
    }
    SetSegment(*s, 17.0, -12.0, 0.0, 0.0);
    EXPECT_EQ(CalcLocalPitchByDrop(1, *s, 0.0, 0.0, 0.0, 0.0, 6, 2.0, 350.0, false), 0);
}

TEST_F(modLocalPitchTest, DeviationsSumAndDifferNeighbouringPanels) {
    clsPropeller reference = *prop.CopyClass();
    auto s = Sweep(0.0, -10.0, 10.0, 11, [](double t) { return t; });
    auto f = reference.Blades(0)->Section(4);
    s->SetSegmentOffsetCount(5);
    s->SetSegmentPanelPitchArray({2000.0, 2100.0, 1900.0, 2000.0});
    f->SetSegmentPanelPitchArray({2000.0, 2000.0, 0.0, 2000.0});
    ASSERT_EQ(CalcLocalPitchDeviations(prop, 0, 4, reference), 1);
    // Deviations by panel: 0, 0.05, 1000 (flat reference panel), 0.
    const double sums[] = {0.0, 0.05, 1000.05, 1000.0, 0.0};
    const double diffs[] = {0.0, -0.05, 0.05 - 1000.0, 1000.0, 0.0};
    for (int j = 0; j <= 4; ++j) {
        EXPECT_NEAR(s->SegmentOffsetDeviationSum(j), sums[j], 1e-12) << j;
        EXPECT_NEAR(s->SegmentOffsetDeviationDiff(j), diffs[j], 1e-12) << j;
    }

    // One panel: only station 0 is written, with 0.
    s->SetSegmentOffsetDeviationSum(0, 7.0);
    s->SetSegmentPanelPitchArray({2100.0});
    ASSERT_EQ(CalcLocalPitchDeviations(prop, 0, 4, reference), 1);
    EXPECT_EQ(s->SegmentOffsetDeviationSum(0), 0.0);

    s->SetSegmentPanelPitchArray({2000.0, 2100.0, 1900.0, 2000.0});
    f->SetSegmentPanelPitchArray({2000.0, 2000.0});
    EXPECT_EQ(CalcLocalPitchDeviations(prop, 0, 4, reference), 0) << "reference short of panels";
}

} // namespace
} // namespace corvane::test
