#include "geometry/modScanDataUtilities.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "geometry/clsSplineFit.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"

#include <cmath>

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;

bool IsLeftHand(std::int16_t rotation) {
    return rotation != 0;
}

// Angle of a point from the reference angle t0, in (-180, 180]: a section that straddles the
// +/-180 line relative to its GL still reads as one continuous run.
double Relative(double theta, double t0) {
    return Wrap180(theta - t0);
}

// Pitch angle of the helix of `pitch` on the cylinder of `radius`, radians.
double PitchAngle(double pitch, double radius) {
    return Atan2YX(pitch, 2.0 * gPi * radius);
}

// Pitch of the straight helix through two end points given by angle (relative to the GL) and
// axial position. Equal angles leave `result` alone.
void PitchBetweenEnds(std::int16_t rotation, double thetaLE, double thetaTE, double axialLE, double axialTE,
                      double& result) {
    const double a = Wrap180(thetaLE);
    const double b = Wrap180(thetaTE);
    const double dX = axialTE - axialLE;
    const double dT = b - a;
    if (dT != 0.0) {
        const double pitch = dX * 360.0 / dT;
        result = IsLeftHand(rotation) ? -pitch : pitch;
    }
}

} // namespace

std::int32_t CalcRadius(const clsSection& section, double& result) {
    std::int32_t status = 0;
    GuardedStep("calculating the radius from the 3D surfaces", [&] {
        const int n = section.RawOffsetCount();
        if (n < 1) {
            return;
        }
        double sum = 0.0;
        for (int i = 0; i < n; ++i) {
            sum += section.Radius(i);
        }
        result = sum / n;
        status = 1;
    });
    return status;
}

std::int32_t CalcPitch(std::int16_t rotation, const clsSection& section, double& result) {
    std::int32_t status = 0;
    GuardedStep("calculating the pitch from the 3D surfaces", [&] {
        PitchBetweenEnds(rotation, section.SegmentThetaLE(), section.SegmentThetaTE(),
                         section.SegmentAxialXLE(), section.SegmentAxialXTE(), result);
        status = 1;
    });
    return status;
}

std::int32_t CalcNoseTailPitch(std::int16_t rotation, const clsSection& section, double& result) {
    std::int32_t status = 0;
    GuardedStep("calculating the nose-tail pitch from the 3D surfaces", [&] {
        PitchBetweenEnds(rotation, section.RawThetaLE(), section.RawThetaTE(), section.RawAxialXLE(),
                         section.RawAxialXTE(), result);
        status = 1;
    });
    return status;
}

std::int32_t CalcRake(std::int16_t rotation, double pitch, const clsSection& section, double x0, double t0,
                      double& result) {
    std::int32_t status = 0;
    GuardedStep("calculating the rake from the 3D surfaces", [&] {
        const int n = section.RawOffsetCount() - 1;
        if (n < 0) {
            return;
        }
        // Follow the helix through the leading edge point back to the generator line.
        const double x = section.AxialDropX(n) - x0;
        const double t = Relative(section.ThetaDeg(n), t0);
        result = IsLeftHand(rotation) ? x - (-t * pitch) / 360.0 : x - pitch * t / 360.0;
        status = 1;
    });
    return status;
}

std::int32_t CalcChord(std::int16_t rotation, double rake, double pitch, const clsSection& section,
                       double /*x0*/, double t0, double& result) {
    std::int32_t status = 0;
    GuardedStep("calculating the Chord from the 3D surfaces", [&] {
        const int n = section.RawOffsetCount() - 1;
        if (n < 0) {
            return;
        }
        const double beta = PitchAngle(pitch, section.Radius(0));
        const double t0End = Relative(section.ThetaDeg(0), t0);
        const double tnEnd = Relative(section.ThetaDeg(n), t0);
        if (beta == 0.0) {
            result = std::fabs(t0End - tnEnd) * section.Radius(n) * gDegToRad;
            status = 1;
            return;
        }
        // Axial positions of the two ends on the pitch helix; the chord is their distance
        // along it.
        const double x0End = section.Radius(0) * t0End * gDegToRad * std::tan(beta) + rake;
        const double xnEnd = section.Radius(n) * tnEnd * gDegToRad * std::tan(beta) + rake;
        const double chord = (xnEnd - x0End) / std::sin(beta);
        result = IsLeftHand(rotation) ? -chord : chord;
        status = 1;
    });
    return status;
}

std::int32_t CalcSkew(std::int16_t rotation, double radius, double /*rake*/, double pitch,
                      const clsSection& section, double /*x0*/, double t0, double& result) {
    std::int32_t status = 0;
    GuardedStep("calculating the skew from the 3D surfaces", [&] {
        const int n = section.RawOffsetCount() - 1;
        if (n < 0) {
            return;
        }
        const double beta = PitchAngle(pitch, radius);
        const double t0End = Relative(section.ThetaDeg(0), t0);
        const double tnEnd = Relative(section.ThetaDeg(n), t0);
        if (beta == 0.0) {
            result = (t0End + tnEnd) * section.Radius(n) / 2.0 * gDegToRad;
            status = 1;
            return;
        }
        // Lengths along the pitch helix from the reference angle to each end.
        const double l0 = radius * t0End * gDegToRad / std::cos(beta);
        const double ln = radius * tnEnd * gDegToRad / std::cos(beta);
        const double skew = -(ln + l0) / 2.0;
        result = IsLeftHand(rotation) ? -skew : skew;
        status = 1;
    });
    return status;
}

std::int32_t Offsets2DToSurface3D(std::int16_t rotation, clsSection& section, double radius, double pitch,
                                  double chord, double rake, double skew, double x0, double t0) {
    std::int32_t status = 0;
    GuardedStep("converting the 2D section offsets to a 3D surface", [&] {
        if (radius == 0.0) {
            geometry::ThrowDivisionByZero();
        }
        const double beta = std::atan(pitch / (2.0 * gPi * radius));
        const double c = std::cos(beta);
        const double s = std::sin(beta);
        // Offset X runs from the trailing edge; m puts mid-chord at `skew` along the helix.
        const double m = chord / 2.0 + skew;
        const int n = section.RawOffsetCount();
        for (int i = 0; i < n; ++i) {
            const double u = m - section.RawOffsetX(i);
            const double y = section.RawOffsetY(i);
            const double arc = (-u * c - y * s) / radius; // radians round the cylinder
            const double axial = (-u * s + y * c) + rake;
            section.SetRadius(i, radius);
            section.SetAxialDropX(i, axial + x0);
            section.SetThetaDeg(i, Wrap360((IsLeftHand(rotation) ? -arc : arc) / gDegToRad + t0));
        }
        status = 1;
    });
    return status;
}

std::int32_t Surface3DToOffsets2D(std::int16_t rotation, clsSection& section, double pitch, double rake,
                                  double x0, double t0, std::int16_t useDrop) {
    std::int32_t status = 0;
    GuardedStep("converting the 3D surfaces to 2D section offsets", [&] {
        const int n = section.RawOffsetCount();
        if (n < 1) {
            return;
        }
        const double beta = PitchAngle(pitch, section.Radius(0));
        if (beta == 0.0) {
            return;
        }
        const double sinBeta = std::sin(beta);
        const double cosBeta = std::cos(beta);
        const double tanBeta = std::tan(beta);
        // Per point: L, the length along the pitch helix from the GL, and the height h above
        // that helix (which passes the GL at axial `rake`).
        auto along = [&](int i, double& length, double& height) {
            const double rel = section.ThetaDeg(i) - t0;
            const double t = IsLeftHand(rotation) ? Wrap180(-rel) : Wrap180(rel);
            const double arc = section.Radius(i) * t * gDegToRad;
            length = arc / cosBeta;
            height = (section.AxialDropX(i) - x0) - (arc * tanBeta + rake);
        };
        double l0 = 0.0;
        double h0 = 0.0;
        along(0, l0, h0);
        const double base = h0 * sinBeta + l0;
        double xFirst = 0.0;
        for (int i = 0; i < n; ++i) {
            double length = 0.0;
            double height = 0.0;
            along(i, length, height);
            if (useDrop == 0) {
                height = 0.0;
            }
            const double x = base - (height * sinBeta + length);
            if (i == 0) {
                xFirst = x;
            }
            // Flipped and shifted so that X runs from 0 at the trailing edge.
            section.SetRawOffsetX(i, -x + xFirst);
            section.SetRawOffsetY(i, height * cosBeta);
        }
        status = 1;
    });
    return status;
}

std::int32_t CalcSectionAxialDrop(clsPropeller& propeller, int blade, int section, double theta,
                                  double& result) {
    std::int32_t status = 0;
    GuardedStep("calculating 2D section axial drop", [&] {
        if (blade < 0 || blade >= propeller.BladeCount()) {
            return;
        }
        const std::shared_ptr<clsBlades> b = propeller.Blades(blade);
        if (section < 0 || section >= b->SectionCount()) {
            return;
        }
        const std::shared_ptr<clsSection> s = b->Section(section);
        const int n = s->RawOffsetCount();
        if (n < 2) {
            return;
        }
        const double t0 = b->GLPositionThetaDeg();
        clsSplineFit spline;
        spline.SetCount(n);
        for (int i = 0; i < n; ++i) {
            spline.SetX(i, Relative(s->ThetaDeg(i), t0));
            spline.SetY(i, s->AxialDropX(i));
        }
        double startTanX = kSplineUnset;
        double startTanY = kSplineUnset;
        double endTanX = kSplineUnset;
        double endTanY = kSplineUnset;
        spline.MakeControlWithLinearSections(startTanX, startTanY, endTanX, endTanY,
                                             clsSplineFit::kSpacingAlongX);
        // Only within the measured angles, although the spline could extrapolate.
        const double q = Relative(theta, t0);
        const double first = spline.x(0);
        const double last = spline.x(spline.count() - 1);
        if (q < std::fmin(first, last) || q > std::fmax(first, last)) {
            return;
        }
        result = spline.EvalAtX(q);
        status = 1;
    });
    return status;
}

std::int32_t ProcessSectionMeasures(clsPropeller& propeller, int blade, int section) {
    std::int32_t status = 0;
    GuardedStep("processing the 3D surface measurement", [&] {
        if (blade < 0 || blade >= propeller.BladeCount()) {
            return;
        }
        const std::shared_ptr<clsBlades> b = propeller.Blades(blade);
        if (section < 0 || section >= b->SectionCount()) {
            return;
        }
        const std::shared_ptr<clsSection> s = b->Section(section);
        if (s->RawOffsetCount() < 1) {
            status = 1;
            return;
        }
        if (!gProject) {
            throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
        }
        const std::int16_t rotation = gProject->RotationIndex();
        const double x0 = b->GLPositionAxialX();
        const double t0 = b->GLPositionThetaDeg();

        double radius = 0.0;
        if (CalcRadius(*s, radius) == 0) {
            return;
        }
        if (propeller.Diameter() == 0.0) {
            geometry::ThrowDivisionByZero();
        }
        b->SetRadialPos(section, radius / (propeller.Diameter() / 2.0));
        double pitch = 0.0;
        if (CalcPitch(rotation, *s, pitch) == 0) {
            return;
        }
        b->SetPitch(section, pitch);
        double rake = 0.0;
        if (CalcRake(rotation, b->Pitch(section), *s, x0, t0, rake) == 0) {
            return;
        }
        b->SetRakeAft(section, rake);
        double chord = 0.0;
        if (CalcChord(rotation, b->RakeAft(section), b->Pitch(section), *s, x0, t0, chord) == 0) {
            return;
        }
        b->SetChord(section, chord);
        double skew = 0.0;
        if (CalcSkew(rotation, radius, b->RakeAft(section), b->Pitch(section), *s, x0, t0, skew) == 0) {
            return;
        }
        b->SetSkewHelix(section, skew);
        status = 1;
    });
    return status;
}

} // namespace corvane
