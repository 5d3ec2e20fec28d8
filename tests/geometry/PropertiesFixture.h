#pragma once

#include "ScanFixture.h"
#include "geometry/modCheckScanData.h"
#include "geometry/modPropellerProperties.h"
#include "iso484/clsISO484.h"

#include <algorithm>
#include <numbers>

namespace corvane::test {

// |actual - expected| within rel of the larger of |expected| and `scale`.
inline ::testing::AssertionResult Near(double actual, double expected, double rel, double scale = 1.0) {
    const double tol = rel * std::max(std::fabs(expected), scale);
    if (std::isfinite(actual) && std::fabs(actual - expected) <= tol) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << actual << " is not " << expected << " within " << tol;
}

// What an ideal virtual propeller must give after the scan check and the properties driver,
// worked out from its tables. The check turns the scan so that blade 0's effective angle (its
// mean mid-chord angle) is theta 0 and gives slot s, which holds virtual blade (n - s) % n, the
// ideal GL angle of the slot. So relative to its GL a section's mid-chord lies at
// sense*(skew - mean skew) + the blade's spacing error against blade 0.
struct IdealScan {
    const clsVirtualPropeller& prop;
    // Rows every blade held with two points or more when the scan was turned (shiftRows) and
    // when the properties were calculated (commonRows): the check drops backward points only
    // after it has turned the scan.
    std::vector<int> shiftRows = {0, 1, 2, 3, 4, 5, 6, 7};
    std::vector<int> commonRows = {0, 1, 2, 3, 4, 5, 6, 7};

    int Count() const { return prop.BladeCount; }
    double Sense() const { return prop.RotationIndex == 1 ? -1.0 : 1.0; }
    int VirtualBlade(int slot) const { return (Count() - slot) % Count(); }
    double Q(int row) const { return kStandardRadialPositions[static_cast<std::size_t>(row)]; }
    double R(int row) const { return Q(row) * prop.Diameter / 2.0; }
    double P(int slot, int row) const { return prop.PitchAt(VirtualBlade(slot), Q(row)); }
    double Span(int slot, int row) const { return prop.SpanDeg(VirtualBlade(slot), Q(row)); }
    double Chord(int row) const { return prop.At(prop.Chord, Q(row)); }
    double Skew(int row) const { return prop.At(prop.SkewDeg, Q(row)); }
    double Offset(int blade) const {
        return static_cast<std::size_t>(blade) < prop.BladeOffsetDeg.size()
                   ? prop.BladeOffsetDeg[static_cast<std::size_t>(blade)]
                   : 0.0;
    }
    double SpacingError(int slot) const { return Offset(VirtualBlade(slot)) - Offset(0); }
    double MeanSkew(const std::vector<int>& rows) const {
        double sum = 0.0;
        for (int k : rows) {
            sum += Skew(k);
        }
        return sum / static_cast<double>(rows.size());
    }
    // The turn put blade 0's mean mid-chord over shiftRows on theta 0; a blade's effective angle
    // is its mean mid-chord over commonRows.
    double Effective(int slot) const {
        return GL(slot) + SpacingError(slot) + Sense() * (MeanSkew(commonRows) - MeanSkew(shiftRows));
    }
    double GL(int slot) const {
        const double spacing = 360.0 / Count();
        if (prop.RotationIndex == 0) {
            return Wrap360(-spacing * slot);
        }
        return slot == 0 ? 0.0 : spacing * slot;
    }
    // Mid-chord angle relative to the slot's GL.
    double Mid(int slot, int row) const {
        return Sense() * (Skew(row) - MeanSkew(shiftRows)) + SpacingError(slot);
    }
    // Angle span all blades of a row share.
    double SegmentSpan(int row) const {
        double lead = 1e300;
        double trail = -1e300;
        for (int s = 0; s < Count(); ++s) {
            lead = std::min(lead, Sense() * SpacingError(s) + Span(s, row) / 2.0);
            trail = std::max(trail, Sense() * SpacingError(s) - Span(s, row) / 2.0);
        }
        return lead - trail;
    }
    double SegmentChord(int slot, int row) const {
        const double arc = gDegToRad * R(row);
        const double rise = P(slot, row) / 360.0;
        return SegmentSpan(row) * std::sqrt(arc * arc + rise * rise);
    }
    double Rake(int slot, int row) const {
        return prop.GLDrop + prop.At(prop.Rake, Q(row)) - Sense() * P(slot, row) * Mid(slot, row) / 360.0;
    }
    double SkewHelix(int slot, int row) const {
        const double tanBeta = P(slot, row) / (2.0 * std::numbers::pi * R(row));
        return -(Skew(row) - MeanSkew(commonRows)) * gDegToRad * R(row) * std::sqrt(1.0 + tanBeta * tanBeta);
    }
    double LEArc(int slot, int row) const {
        return (Skew(row) - MeanSkew(commonRows) + Span(slot, row) / 2.0) * gDegToRad * R(row);
    }
    double BladePitch(int slot) const {
        double sum = 0.0;
        for (int k = 0; k < 8; ++k) {
            sum += P(slot, k);
        }
        return sum / 8.0;
    }
    // Pitch weighted by chord and r/R, by trapezoids from the tip row down to the hub row.
    double EffectivePitch(int slot) const {
        double num = 0.0;
        double den = 0.0;
        for (int k = 1; k < 8; ++k) {
            const double dq = Q(k - 1) - Q(k);
            den += dq * (Chord(k) * Q(k) + Chord(k - 1) * Q(k - 1)) / 2.0;
            num += dq * (P(slot, k) * Chord(k) * Q(k) + P(slot, k - 1) * Chord(k - 1) * Q(k - 1)) / 2.0;
        }
        return num / den;
    }
};

constexpr double kExact = 1e-9;

// One measured section of slot `slot`, row `row` against the ideal. `panels`: the panel count the
// section's chord must take.
inline void ExpectIdealSection(const IdealScan& ideal, clsPropeller& scan, int slot, int row,
                               int panels = 4) {
    SCOPED_TRACE("slot " + std::to_string(slot) + ", row " + std::to_string(row));
    auto blade = scan.Blades(slot);
    auto section = blade->Section(row);
    const double length = ideal.R(row);
    EXPECT_TRUE(Near(blade->RadialPos(row), ideal.Q(row), kExact));
    EXPECT_TRUE(Near(blade->Pitch(row), ideal.P(slot, row), kExact));
    EXPECT_TRUE(Near(blade->Chord(row), ideal.Chord(row), kExact));
    EXPECT_TRUE(Near(blade->RakeAft(row), ideal.Rake(slot, row), kExact, length));
    EXPECT_TRUE(Near(blade->SkewHelix(row), ideal.SkewHelix(slot, row), kExact, length));
    EXPECT_TRUE(Near(section->ISOLEArcLengthPerSection(), ideal.LEArc(slot, row), kExact, length));
    EXPECT_TRUE(Near(blade->ISOTotalAxialRakeToBCL(row),
                     ideal.prop.GLDrop + ideal.prop.At(ideal.prop.Rake, ideal.Q(row)), kExact, length));
    EXPECT_TRUE(
        SameAngle(blade->ISOTotalThetaDegToBCL(row), ideal.GL(slot) + ideal.Mid(slot, row), kExact * 360.0));
    ASSERT_EQ(section->SegmentPanelCount(), panels);
    ASSERT_EQ(section->SegmentOffsetCount(), panels + 1);
    for (int j = 0; j < panels; ++j) {
        EXPECT_TRUE(Near(section->SegmentPanelPitch(j), ideal.P(slot, row), kExact)) << "panel " << j;
    }
}

// Every result of the scan is a finite number.
inline void ExpectAllFinite(clsPropeller& scan) {
    EXPECT_TRUE(std::isfinite(scan.ISOPropellerPitch()));
    EXPECT_TRUE(std::isfinite(scan.PitchMean()));
    for (int b = 0; b < scan.BladeCount(); ++b) {
        auto blade = scan.Blades(b);
        for (double v : {blade->ISOBladePitch(), blade->EffectivePitch(), blade->ISOEffectiveBladeAngleDeg(),
                         blade->ISOEffectiveBladeAxialPosition(), blade->GLPositionThetaDeg()}) {
            EXPECT_TRUE(std::isfinite(v)) << "blade " << b;
        }
        for (int k = 0; k < blade->SectionCount(); ++k) {
            auto s = blade->Section(k);
            for (double v :
                 {blade->RadialPos(k), blade->Pitch(k), blade->Chord(k), blade->RakeAft(k),
                  blade->SkewHelix(k), blade->ISOTotalAxialRakeToBCL(k), blade->ISOTotalThetaDegToBCL(k),
                  s->SegmentChord(), s->ISOLEArcLengthPerSection(), s->SegmentThetaTE(), s->SegmentThetaLE(),
                  s->SegmentAxialXTE(), s->SegmentAxialXLE(), s->RawThetaBCL(), s->RawAxialXBCL()}) {
                EXPECT_TRUE(std::isfinite(v)) << "blade " << b << ", row " << k;
            }
            for (int j = 0; j < s->SegmentPanelCount(); ++j) {
                EXPECT_TRUE(std::isfinite(s->SegmentPanelPitch(j))) << "blade " << b << ", row " << k;
            }
        }
    }
}

// A project in millimetres with the ISO settings at their defaults (ISO 484-1, class S, panels
// by class), swept from a virtual propeller.
class PropertiesTest : public ScanTest {
protected:
    std::shared_ptr<clsPropeller> SweepProject(const clsVirtualPropeller& prop, int points) {
        auto scan = Sweep(prop, points);
        gProject->Units()->SetPropLengthIndex(3);
        gProject->SetMarkedDiameter(prop.Diameter);
        gProject->SetMarkedPitch("2400");
        gISO484 = std::make_shared<clsISO484>();
        gISO484->SetUnits(gProject->Units());
        return scan;
    }

    // What pressing CHECK runs on scan 0; the checked scan, or null when the check refused it.
    std::shared_ptr<clsPropeller> Check(std::int32_t expectedStatus = 1) {
        if (CheckScanData(*gProject, 0) != 1) {
            return nullptr;
        }
        auto scan = gProject->PropellerScan(0);
        EXPECT_EQ(CalculatePropellerProperties(*scan, false, true), expectedStatus);
        return scan;
    }

    // A propeller of realistic size: 3 m, chords of 450 to 800 mm, so four panels per section.
    static clsVirtualPropeller ShopPropeller(std::int16_t rotation, std::int16_t blades) {
        clsVirtualPropeller prop;
        prop.Diameter = 3000.0;
        prop.MillimetresPerUnit = 1.0;
        prop.RotationIndex = rotation;
        prop.BladeCount = blades;
        prop.Pitch = {{0.0, 2400.0}};
        prop.Chord = {{0.3, 450.0}, {0.7, 800.0}, {0.95, 500.0}};
        prop.Rake = {{0.3, 0.0}, {0.95, 60.0}};
        prop.SkewDeg = {{0.3, -2.0}, {0.95, 15.0}};
        prop.FirstBladeThetaDeg = 350.0; // blade 0 crosses 0/360 both before and after the turn
        prop.GLDrop = 25.0;
        return prop;
    }
};

} // namespace corvane::test
