#include "geometry/modLocalPitch.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "geometry/clsSplineFit.h"
#include "geometry/modSplineFit.h"
#include "model/Globals.h"
#include "model/modUtilities.h"

#include <cmath>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

namespace {

constexpr const char* kLocalPitchContext = "calculating ISO local pitch";

bool IsLeftHand(std::int16_t rotation) {
    return rotation != 0;
}

std::size_t Slot(int i) {
    return static_cast<std::size_t>(i);
}

// The two ends the stations are spread between: angles relative to the GL, absolute drops.
struct StationEnds {
    double thetaTE = 0;
    double thetaLE = 0;
    double axialTE = 0;
    double axialLE = 0;
};

StationEnds EndsOf(const clsSection& section, bool useRawEnds) {
    if (useRawEnds) {
        return {section.RawThetaTE(), section.RawThetaLE(), section.RawAxialXTE(), section.RawAxialXLE()};
    }
    return {section.SegmentThetaTE(), section.SegmentThetaLE(), section.SegmentAxialXTE(),
            section.SegmentAxialXLE()};
}

// Station i of n, evenly from the trailing edge end (i = 0) to the leading edge end (i = n).
double Station(double te, double le, int i, int n) {
    return te + (le - te) * i / n;
}

// Pitch of the helix through each pair of neighbouring stations, from the stored stations. A
// pair at one angle has no pitch and reads 0. The sign makes a right-hand blade's pitch positive
// when the drop grows with the angle, a left-hand blade's when it grows against it.
void StorePanelPitches(std::int16_t rotation, clsSection& section, int n, double t0) {
    section.SetSegmentPanelCount(n);
    for (int i = 0; i < n; ++i) {
        const double dX = section.SegmentOffsetAxialDropX(i + 1) - section.SegmentOffsetAxialDropX(i);
        const double dT = Wrap180(section.SegmentOffsetThetaDeg(i + 1) - t0) -
                          Wrap180(section.SegmentOffsetThetaDeg(i) - t0);
        const double pitch = dT != 0.0 ? dX * 360.0 / dT : 0.0;
        // 0.0 - pitch rather than -pitch: a flat panel reads 0, never -0.
        section.SetSegmentPanelPitch(i, IsLeftHand(rotation) ? 0.0 - pitch : pitch);
    }
}

// The section-long rows of CalcLocalPitchByNormal and the spline of the turned curve. They are
// as long as the sweep (thousands of points) and one calculation measures every section in
// turn: kept per thread, they are not allocated and given back for each section.
struct NormalWork {
    std::vector<double> rawT, rawX, rawU, lineU, lineX;
    clsSplineFit line;
};

NormalWork& Work() {
    thread_local NormalWork work;
    return work;
}

} // namespace

std::int32_t CalcLocalPitchByNormal(std::int16_t rotation, clsPropeller& propeller, int blade, int section,
                                    int panels, bool useRawEnds) {
    return CalcLocalPitchByNormal(rotation, propeller, blade, section, panels, useRawEnds, nullptr);
}

std::int32_t CalcLocalPitchByNormal(std::int16_t rotation, clsPropeller& propeller, int blade, int section,
                                    int panels, bool useRawEnds, clsSectionDropCurve* rawCurve) {
    std::int32_t status = 0;
    GuardedStep(kLocalPitchContext, [&] {
        status = 0;
        if (!(propeller.Diameter() > 0.0) || propeller.BladeCount() <= 0 || blade < 0 ||
            blade >= propeller.BladeCount()) {
            return;
        }
        const std::shared_ptr<clsBlades> b = propeller.Blades(blade);
        if (section < 0 || section >= b->SectionCount()) {
            return;
        }
        const std::shared_ptr<clsSection> s = b->Section(section);
        const int count = s->RawOffsetCount();
        if (count < 2 || panels < 1) {
            status = 1;
            return;
        }
        if (static_cast<std::size_t>(section) >= gRadialPositions.size()) {
            throw CorvaneError(ErrorNumber::SubscriptOutOfRange, "Subscript out of range");
        }
        // Radius of the cylinder the section is unrolled on: the row's standard radius.
        const double rq = propeller.Diameter() / 2.0 * gRadialPositions[Slot(section)];
        if (rq == 0.0) {
            geometry::ThrowDivisionByZero();
        }
        const double t0 = b->GLPositionThetaDeg();
        const double x0 = b->GLPositionAxialX();
        const int n = panels;
        const std::size_t stations = Slot(n) + 1;

        const StationEnds ends = EndsOf(*s, useRawEnds);
        std::vector<double> theta(stations);
        std::vector<double> u(stations);
        std::vector<double> x(stations);
        for (int i = 0; i <= n; ++i) {
            theta[Slot(i)] = Station(ends.thetaTE, ends.thetaLE, i, n);
            x[Slot(i)] = Station(ends.axialTE, ends.axialLE, i, n);
            u[Slot(i)] = gDegToRad * theta[Slot(i)] * rq;
        }

        // The raw curve unrolled: U along the circumference, X axial, both from the GL.
        NormalWork& work = Work();
        std::vector<double>& rawT = work.rawT;
        std::vector<double>& rawX = work.rawX;
        std::vector<double>& rawU = work.rawU;
        for (std::vector<double>* v : {&rawT, &rawX, &rawU, &work.lineU, &work.lineX}) {
            v->resize(Slot(count));
        }
        for (int j = 0; j < count; ++j) {
            rawT[Slot(j)] = Wrap180(s->ThetaDeg(j) - t0);
            rawX[Slot(j)] = s->AxialDropX(j) - x0;
            rawU[Slot(j)] = gDegToRad * rawT[Slot(j)] * rq;
        }

        // Turn the unrolled plane so that the nose-tail line from A (the end with the smaller U)
        // to B lies on the U axis; X is then the offset of the surface from that line.
        double aU = u.front();
        double aX = x.front();
        double bU = u.back();
        double bX = x.back();
        if (bU < aU) {
            std::swap(aU, bU);
            std::swap(aX, bX);
        }
        const double angle = -Atan2YX(bX - aX, bU - aU);
        const double cosA = std::cos(angle);
        const double sinA = std::sin(angle);
        auto alongLine = [&](double pu, double px) { return cosA * (pu - aU) - sinA * (px - aX); };
        auto offLine = [&](double pu, double px) { return sinA * (pu - aU) + cosA * (px - aX); };
        std::vector<double>& lineU = work.lineU;
        std::vector<double>& lineX = work.lineX;
        for (std::size_t j = 0; j < lineU.size(); ++j) {
            lineU[j] = alongLine(rawU[j], rawX[j]);
            lineX[j] = offLine(rawU[j], rawX[j]);
        }
        std::vector<double> stationU(stations);
        for (std::size_t i = 0; i < stations; ++i) {
            stationU[i] = alongLine(u[i], x[i]);
        }

        // SplineOffsetValues of the turned curve, on a spline kept for the next section.
        std::vector<double> normal(stations);
        if (!OffsetQueriesWithinData(count, lineU, lineX, n + 1, stationU, 0)) {
            return;
        }
        FitDistinctX(work.line, count, lineU, lineX, 0);
        for (std::size_t i = 0; i < stations; ++i) {
            double tangent = kSplineUnset;
            double curvature = kSplineUnset;
            work.line.EvalAtX(stationU[i], tangent, curvature, normal[i]);
        }
        // The circumferential share of the normal offset moves each station round the cylinder.
        std::vector<double> moved(stations);
        for (std::size_t i = 0; i < stations; ++i) {
            moved[i] = theta[i] + (sinA * normal[i] / rq) / gDegToRad;
        }
        std::vector<double> drop(stations);
        const bool fitted = rawCurve != nullptr && rawCurve->Fitted() && x0 == 0.0;
        if (!(fitted ? rawCurve->OffsetValues(moved, drop)
                     : SplineOffsetValues(count, rawT, rawX, n + 1, moved, drop, 0))) {
            return;
        }

        s->SetSegmentOffsetCount(n + 1);
        for (int i = 0; i <= n; ++i) {
            s->SetSegmentOffsetThetaDeg(i, Wrap360(t0 + moved[Slot(i)]));
            s->SetSegmentOffsetAxialDropX(i, x0 + drop[Slot(i)]);
        }
        StorePanelPitches(rotation, *s, n, t0);
        status = 1;
    });
    return status;
}

std::int32_t CalcLocalPitchByDrop(std::int16_t rotation, clsSection& section, double /*radius*/,
                                  double /*pitch*/, double /*rake*/, double /*chord*/, int panels, double x0,
                                  double t0, bool useRawEnds) {
    std::int32_t status = 0;
    GuardedStep(kLocalPitchContext, [&] {
        status = 0;
        const int count = section.RawOffsetCount();
        if (count < 2 || panels < 1) {
            status = 1;
            return;
        }
        const int n = panels;
        const std::size_t stations = Slot(n) + 1;
        const StationEnds ends = EndsOf(section, useRawEnds);
        std::vector<double> theta(stations);
        for (int i = 0; i <= n; ++i) {
            theta[Slot(i)] = Station(ends.thetaTE, ends.thetaLE, i, n);
        }
        std::vector<double> rawT(Slot(count));
        std::vector<double> rawX(Slot(count));
        for (int j = 0; j < count; ++j) {
            rawT[Slot(j)] = Wrap180(section.ThetaDeg(j) - t0);
            rawX[Slot(j)] = section.AxialDropX(j);
        }
        std::vector<double> drop(stations);
        if (!SplineOffsetValues(count, rawT, rawX, n + 1, theta, drop, 0)) {
            return;
        }
        section.SetSegmentOffsetCount(n + 1);
        for (int i = 0; i <= n; ++i) {
            section.SetSegmentOffsetThetaDeg(i, theta[Slot(i)] + t0);
            section.SetSegmentOffsetAxialDropX(i, x0 + drop[Slot(i)]);
        }
        StorePanelPitches(rotation, section, n, t0);
        status = 1;
    });
    return status;
}

std::int32_t CalcLocalPitchDeviations(clsPropeller& scan, int blade, int section, clsPropeller& reference) {
    std::int32_t status = 0;
    GuardedStep("calculating ISO local pitch deviations, sums, and differences", [&] {
        status = 0;
        for (const clsPropeller* p : {&scan, &reference}) {
            if (!(p->Diameter() > 0.0) || p->BladeCount() <= 0 || blade < 0 || blade >= p->BladeCount()) {
                return;
            }
        }
        const std::shared_ptr<clsBlades> scanBlade = scan.Blades(blade);
        const std::shared_ptr<clsBlades> refBlade = reference.Blades(blade);
        if (scanBlade->SectionCount() <= 1 || section < 0 || section >= scanBlade->SectionCount() ||
            section >= refBlade->SectionCount()) {
            return;
        }
        const std::shared_ptr<clsSection> s = scanBlade->Section(section);
        const std::shared_ptr<clsSection> f = refBlade->Section(section);
        const int n = s->SegmentPanelCount();
        if (s->RawOffsetCount() < 2 || f->SegmentPanelCount() < 1) {
            return;
        }
        if (n < 1) {
            status = 1;
            return;
        }
        // The reference must cover every panel of the scan and the scan hold a station beyond
        // each panel; the panel grid is the same on both sides when they were built together.
        if (f->SegmentPanelCount() < n || s->SegmentOffsetCount() < n + 1) {
            return;
        }
        if (n == 1) {
            s->SetSegmentOffsetDeviationSum(0, 0.0);
            s->SetSegmentOffsetDeviationDiff(0, 0.0);
            status = 1;
            return;
        }
        std::vector<double> deviation(Slot(n));
        for (int i = 0; i < n; ++i) {
            const double measured = s->SegmentPanelPitch(i);
            const double nominal = f->SegmentPanelPitch(i);
            // A flat reference panel has no relative deviation; 1000 fails any tolerance.
            deviation[Slot(i)] = nominal != 0.0 ? (measured - nominal) / nominal : 1000.0;
        }
        s->SetSegmentOffsetDeviationSum(0, 0.0);
        s->SetSegmentOffsetDeviationDiff(0, 0.0);
        s->SetSegmentOffsetDeviationSum(n, 0.0);
        s->SetSegmentOffsetDeviationDiff(n, 0.0);
        for (int j = 0; j + 1 < n; ++j) {
            s->SetSegmentOffsetDeviationSum(j + 1, deviation[Slot(j)] + deviation[Slot(j) + 1]);
            s->SetSegmentOffsetDeviationDiff(j + 1, deviation[Slot(j)] - deviation[Slot(j) + 1]);
        }
        status = 1;
    });
    return status;
}

std::int32_t CalcLEArcLength(std::int16_t rotation, double& result, double angleDeg, double radius,
                             const clsSection& section) {
    std::int32_t status = 0;
    GuardedStep("calculating the LE arc length (LE contour) for blade.", [&] {
        const int last = section.RawOffsetCount() - 1;
        if (last < 0) {
            result = 0.0;
            status = 1;
            return;
        }
        const double t = IsLeftHand(rotation) ? Wrap180(angleDeg - section.ThetaDeg(last))
                                              : Wrap180(section.ThetaDeg(last) - angleDeg);
        result = t * gDegToRad * radius;
        status = 1;
    });
    return status;
}

} // namespace corvane
