#include "geometry/modScanDataUtilities.h"

#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"

namespace corvane {
namespace {

using test::ServicesTest;

constexpr double kPi = 3.14159265358979323846;
constexpr std::int16_t kRight = 0;
constexpr std::int16_t kLeft = 1;

// A section lying on the helix of `pitch` on the cylinder of `radius`: the axial drop grows
// by pitch * angle / 360 from the trailing to the leading edge, and the helix passes the
// generator line (x0, t0) at axial x0 + rake. teRel and leRel are the edge angles from t0 in
// the direction of a right-hand blade; a left-hand blade runs the other way round.
struct Helix {
    double radius = 1000;
    double pitch = 1500;
    double x0 = 5;
    double t0 = 30;
    double rake = 12;
    double teRel = -40;
    double leRel = 25;
    int points = 21;
    std::int16_t rotation = kRight;

    double Drop(double rel) const { return x0 + rake + pitch * rel / 360.0; }
    double Theta(double rel) const { return Wrap360(t0 + (rotation == kRight ? rel : -rel)); }

    // Expected measures, with the exact pi.
    double Beta() const { return std::atan(pitch / (2.0 * kPi * radius)); }
    double Chord() const {
        return (leRel - teRel) / 360.0 * std::sqrt(pitch * pitch + 4.0 * kPi * kPi * radius * radius);
    }
    double Skew() const { return -radius * (teRel + leRel) * kPi / 180.0 / 2.0 / std::cos(Beta()); }

    std::shared_ptr<clsSection> Section() const {
        auto s = std::make_shared<clsSection>();
        s->SetRawOffsetCount(points);
        for (int i = 0; i < points; ++i) {
            const double rel = points > 1 ? teRel + (leRel - teRel) * i / (points - 1) : teRel;
            s->SetRadius(i, radius);
            s->SetThetaDeg(i, Theta(rel));
            s->SetAxialDropX(i, Drop(rel));
        }
        // The ends as the properties driver leaves them: angles from the GL; raw drops from
        // the GL, segment drops absolute.
        const double sign = rotation == kRight ? 1.0 : -1.0;
        s->SetRawThetaTE(sign * teRel);
        s->SetRawThetaLE(sign * leRel);
        s->SetRawAxialXTE(Drop(teRel) - x0);
        s->SetRawAxialXLE(Drop(leRel) - x0);
        s->SetSegmentThetaTE(sign * teRel);
        s->SetSegmentThetaLE(sign * leRel);
        s->SetSegmentAxialXTE(Drop(teRel));
        s->SetSegmentAxialXLE(Drop(leRel));
        return s;
    }
};

struct Measures {
    double radius = 0, pitch = 0, noseTail = 0, rake = 0, chord = 0, skew = 0;
};

class modScanDataUtilitiesTest : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        gAppDataPath = environment.appDataFolder;
    }

    static Measures Measure(const Helix& h, const clsSection& s) {
        Measures m;
        EXPECT_EQ(CalcRadius(s, m.radius), 1);
        EXPECT_EQ(CalcPitch(h.rotation, s, m.pitch), 1);
        EXPECT_EQ(CalcNoseTailPitch(h.rotation, s, m.noseTail), 1);
        EXPECT_EQ(CalcRake(h.rotation, m.pitch, s, h.x0, h.t0, m.rake), 1);
        EXPECT_EQ(CalcChord(h.rotation, m.rake, m.pitch, s, h.x0, h.t0, m.chord), 1);
        EXPECT_EQ(CalcSkew(h.rotation, m.radius, m.rake, m.pitch, s, h.x0, h.t0, m.skew), 1);
        return m;
    }

    static void ExpectIdeal(const Helix& h) {
        const Measures m = Measure(h, *h.Section());
        const double pitchTolerance = 1e-9 * std::fabs(h.pitch);
        EXPECT_NEAR(m.radius, h.radius, 1e-9 * h.radius);
        EXPECT_NEAR(m.pitch, h.pitch, pitchTolerance);
        EXPECT_NEAR(m.noseTail, h.pitch, pitchTolerance);
        EXPECT_NEAR(m.rake, h.rake, pitchTolerance);
        EXPECT_NEAR(m.chord, h.Chord(), 1e-9 * h.Chord());
        EXPECT_NEAR(m.skew, h.Skew(), 1e-9 * h.Chord());
    }
};

TEST_F(modScanDataUtilitiesTest, HelicalSectionGivesItsOwnPitchRakeChordAndSkew) {
    // Both hands (the mirror image measures the same), a negative pitch carried through, and
    // sections that run over 0/360 or over 180 from their GL, read as one run by Wrap180.
    for (const double t0 : {30.0, 350.0, 5.0, 170.0, -150.0}) {
        for (const std::int16_t rotation : {kRight, kLeft}) {
            for (const double pitch : {1500.0, -900.0}) {
                Helix h;
                h.t0 = t0;
                h.rotation = rotation;
                h.pitch = pitch;
                SCOPED_TRACE(testing::Message() << "t0 " << t0 << " hand " << rotation << " pitch " << pitch);
                ExpectIdeal(h);
            }
        }
    }
}

TEST_F(modScanDataUtilitiesTest, DegenerateSectionsFailOrGiveFiniteValues) {
    clsSection empty;
    double result = 7.0;
    EXPECT_EQ(CalcRadius(empty, result), 0);
    EXPECT_EQ(CalcRake(kRight, 1000, empty, 0, 0, result), 0);
    EXPECT_EQ(CalcChord(kRight, 0, 1000, empty, 0, 0, result), 0);
    EXPECT_EQ(CalcSkew(kRight, 500, 0, 1000, empty, 0, 0, result), 0);
    EXPECT_EQ(Surface3DToOffsets2D(kRight, empty, 1000, 0, 0, 0, 1), 0);
    EXPECT_EQ(result, 7.0);

    // One point has no length; a section on the axis (radius 0) stands on a vertical helix.
    Helix one;
    one.points = 1;
    Helix axis;
    axis.radius = 0.0;
    EXPECT_EQ(Measure(one, *one.Section()).chord, 0.0);
    EXPECT_TRUE(std::isfinite(Measure(axis, *axis.Section()).skew));

    // End angles that are one once wrapped leave the pitch as it was.
    clsSection s;
    s.SetRawOffsetCount(2);
    s.SetSegmentThetaTE(-170.0);
    s.SetSegmentThetaLE(190.0);
    s.SetSegmentAxialXLE(9.0);
    double pitch = 123.0;
    EXPECT_EQ(CalcPitch(kRight, s, pitch), 1);
    EXPECT_EQ(CalcNoseTailPitch(kLeft, s, pitch), 1); // raw ends all 0
    EXPECT_EQ(pitch, 123.0);
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(modScanDataUtilitiesTest, OffsetsRoundTripThroughTheSurface) {
    // A cambered section wrapped round the cylinder and unrolled again; the wrapped surface
    // measures the chord, skew and rake it was built with.
    const double radius = 800, pitch = 1200, chord = 450, rake = -7, skew = 35, x0 = 3, t0 = 200;
    for (const std::int16_t rotation : {kRight, kLeft}) {
        clsSection s;
        s.SetRawOffsetCount(17);
        for (int i = 0; i < 17; ++i) {
            const double x = chord * i / 16.0;
            s.SetRawOffsetX(i, x);
            s.SetRawOffsetY(i, 0.08 * 4.0 * x * (chord - x) / chord);
        }
        const clsSection flat = s;
        ASSERT_EQ(Offsets2DToSurface3D(rotation, s, radius, pitch, chord, rake, skew, x0, t0), 1);
        double measuredRake = 0, measuredChord = 0, measuredSkew = 0;
        ASSERT_EQ(CalcRake(rotation, pitch, s, x0, t0, measuredRake), 1);
        ASSERT_EQ(CalcChord(rotation, measuredRake, pitch, s, x0, t0, measuredChord), 1);
        ASSERT_EQ(CalcSkew(rotation, radius, measuredRake, pitch, s, x0, t0, measuredSkew), 1);
        EXPECT_NEAR(measuredRake, rake, 1e-9);
        EXPECT_NEAR(measuredChord, chord, 1e-9);
        EXPECT_NEAR(measuredSkew, skew, 1e-9);

        ASSERT_EQ(Surface3DToOffsets2D(rotation, s, pitch, rake, x0, t0, 1), 1);
        for (int i = 0; i < 17; ++i) {
            EXPECT_NEAR(s.RawOffsetX(i), flat.RawOffsetX(i), 1e-9) << i;
            EXPECT_NEAR(s.RawOffsetY(i), flat.RawOffsetY(i), 1e-9) << i;
        }

        EXPECT_EQ(Surface3DToOffsets2D(rotation, s, 0.0, rake, x0, t0, 1), 0) << "zero pitch";
    }
    EXPECT_TRUE(prompts.History().empty());
}

TEST_F(modScanDataUtilitiesTest, WrappingOnTheAxisGoesToTheHandler) {
    prompts.Expect(Answer::Ignore,
                   "A mathematical error has occurred converting the 2D section offsets to a 3D surface.");
    clsSection s;
    s.SetRawOffsetCount(2);
    EXPECT_EQ(Offsets2DToSurface3D(kRight, s, 0.0, 1000, 100, 0, 0, 0, 0), 0);
}

// Measuring sections in place on a propeller is checked with the properties of virtual
// propellers (modPropellerPropertiesTest); here its failure without an r/R.
TEST_F(modScanDataUtilitiesTest, ASectionWithoutRadialPositionGoesToTheHandler) {
    gProject = std::make_shared<clsCorvane>();
    clsPropeller propeller;
    propeller.SetBladeCount(3);
    propeller.Blades(1)->SetSectionCount(8);
    propeller.Blades(1)->SetSection(3, Helix{}.Section());
    prompts.Expect(Answer::Ignore,
                   "A mathematical error has occurred processing the 3D surface measurement.");
    EXPECT_EQ(ProcessSectionMeasures(propeller, 1, 3), 0);
    EXPECT_EQ(ProcessSectionMeasures(propeller, 3, 3), 0);
}

} // namespace
} // namespace corvane
