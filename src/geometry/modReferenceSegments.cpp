#include "geometry/modReferenceSegments.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "geometry/modSplineFit.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <vector>

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;

bool IsLeftHand(std::int16_t rotation) {
    return rotation != 0;
}

// Axial rise of the helix of `pitch` over an arc of `arc` at `radius`.
double Rise(double pitch, double arc, double radius) {
    return pitch * arc / (2.0 * gPi * radius);
}

} // namespace

std::int32_t CopySegmentLimitsToReference(clsPropeller& reference) {
    std::int32_t status = 0;
    GuardedStep("copying the segment limits to the reference", [&] {
        status = 0;
        if (!gProject || !gProject->PropellerScan(gProject->ActiveScanIndex())) {
            throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
        }
        clsPropeller& scan = *gProject->PropellerScan(gProject->ActiveScanIndex());
        const bool leftHand = IsLeftHand(gProject->RotationIndex());
        int rows = 0;
        for (int b = 0; b < scan.BladeCount(); ++b) {
            rows = std::max<int>(rows, scan.Blades(b)->SectionCount());
        }
        for (int k = 0; k < rows; ++k) {
            bool found = false;
            double le = 0.0;
            double te = 0.0;
            for (int b = 0; b < scan.BladeCount(); ++b) {
                const std::shared_ptr<clsBlades> blade = scan.Blades(b);
                if (k >= blade->SectionCount() || blade->Section(k)->RawOffsetCount() <= 0) {
                    continue;
                }
                const std::shared_ptr<clsSection> s = blade->Section(k);
                if (!found) {
                    le = s->SegmentThetaLE();
                    te = s->SegmentThetaTE();
                    found = true;
                } else if (leftHand) {
                    le = std::max(le, s->SegmentThetaLE());
                    te = std::min(te, s->SegmentThetaTE());
                } else {
                    le = std::min(le, s->SegmentThetaLE());
                    te = std::max(te, s->SegmentThetaTE());
                }
            }
            if (!found) {
                continue;
            }
            for (int b = 0; b < reference.BladeCount(); ++b) {
                const std::shared_ptr<clsBlades> blade = reference.Blades(b);
                if (k >= blade->SectionCount()) {
                    continue;
                }
                const std::shared_ptr<clsSection> s = blade->Section(k);
                s->SetSegmentThetaLE(le);
                s->SetSegmentThetaTE(te);
                s->SetSegmentThetaBCL((le + te) / 2.0);
            }
        }
        status = 1;
    });
    return status;
}

std::int32_t RebuildSectionFromPanels(std::int16_t rotation, clsSection& section, double radius, double pitch,
                                      double /*chord*/, double /*rake*/, double /*skew*/, double x0,
                                      double t0, bool useSegmentEnds) {
    std::int32_t status = 0;
    GuardedStep("rebuilding the reference section from its panels", [&] {
        status = 0;
        const int n = section.SegmentPanelCount();
        if (n < 1) {
            return;
        }
        if (radius == 0.0) {
            geometry::ThrowDivisionByZero();
        }
        const auto slot = [](int i) { return static_cast<std::size_t>(i); };

        // Span of the segment projected onto the circumference along the nominal helix.
        const double ax = std::fabs(section.SegmentAxialXLE() - section.SegmentAxialXTE());
        const double arc =
            std::fabs(section.SegmentThetaTE() - section.SegmentThetaLE()) * radius * gDegToRad;
        const double length = std::sqrt(arc * arc + ax * ax);
        const double beta = std::atan(pitch / (2.0 * gPi * radius));
        const double span = length * std::cos(beta) / gDegToRad / radius;
        const double step = span / n;
        const double width = step * gDegToRad * radius;

        // March the panels from the trailing edge: angle forward, drop back by each panel's rise.
        std::vector<double> angle(slot(n) + 1, 0.0);
        std::vector<double> drop(slot(n) + 1, 0.0);
        for (int i = 1; i <= n; ++i) {
            angle[slot(i)] = Wrap360(angle[slot(i) - 1] + step);
            drop[slot(i)] = drop[slot(i) - 1] - Rise(section.SegmentPanelPitch(i - 1), width, radius);
        }
        std::vector<double> middle(1);
        const std::vector<double> atMiddle = {(angle.front() + angle.back()) / 2.0};
        if (!SplineInternalValues(n + 1, angle, drop, 1, atMiddle, middle, 0)) {
            return;
        }
        const double lead = middle[0];
        const double tail = drop.back() - middle[0];
        const double sweep = angle.back() - angle.front();
        section.SetSegmentAxialXTE(section.SegmentAxialXBCL() + lead);
        section.SetSegmentAxialXLE(section.SegmentAxialXBCL() - tail);
        const double towardsLE = IsLeftHand(rotation) ? -sweep / 2.0 : sweep / 2.0;
        section.SetSegmentThetaTE(section.SegmentThetaBCL() - towardsLE);
        section.SetSegmentThetaLE(section.SegmentThetaBCL() + towardsLE);

        // The stations become the raw offsets.
        section.SetRawOffsetCount(n + 1);
        section.SetRawOffsetX(0, 0.0);
        section.SetRawOffsetY(0, 0.0);
        double stationStep = 0.0;
        if (useSegmentEnds) {
            section.SetAxialDropX(0, section.SegmentAxialXTE() + x0);
            section.SetThetaDeg(0, Wrap360(section.SegmentThetaTE() + t0));
            section.SetAxialDropX(n, section.SegmentAxialXLE() + x0);
            section.SetThetaDeg(n, Wrap360(section.SegmentThetaLE() + t0));
            stationStep = (section.SegmentThetaLE() - section.SegmentThetaTE()) / n;
        } else {
            section.SetAxialDropX(0, section.RawAxialXTE() + x0);
            section.SetThetaDeg(0, section.RawThetaTE() + t0);
            section.SetAxialDropX(n, section.RawAxialXLE() + x0);
            section.SetThetaDeg(n, section.RawThetaLE() + t0);
            stationStep = (section.RawThetaLE() - section.RawThetaTE()) / n;
        }
        const double stationWidth = stationStep * gDegToRad * radius;
        for (int i = 1; i < n; ++i) {
            const double rise = Rise(section.SegmentPanelPitch(i - 1), stationWidth, radius);
            section.SetThetaDeg(i, Wrap360(section.ThetaDeg(i - 1) + stationStep));
            section.SetAxialDropX(i, section.AxialDropX(i - 1) + (IsLeftHand(rotation) ? -rise : rise));
        }
        status = 1;
    });
    return status;
}

} // namespace corvane
