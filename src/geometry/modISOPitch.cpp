#include "geometry/modISOPitch.h"

#include "geometry/GuardedStep.h"
#include "geometry/modScanDataUtilities.h"
#include "model/clsBlades.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>

namespace corvane {

namespace {

bool HasDiameterAndBlades(const clsPropeller& propeller) {
    return propeller.Diameter() > 0.0 && propeller.BladeCount() > 0;
}

bool BladeInRange(const clsPropeller& propeller, int blade) {
    return blade >= 0 && blade < propeller.BladeCount();
}

// A section that counts for the blade values: measured, and with a segment left after trimming.
bool HasSegment(clsSection& section) {
    return section.RawOffsetCount() > 0 && section.SegmentChord() > 0.0;
}

// A blade with offsets in some section, which the integration of its pitch collects.
bool HoldsOffsets(clsBlades& blade) {
    for (int k = 0; k < blade.SectionCount(); ++k) {
        if (blade.Section(k)->RawOffsetCount() > 0) {
            return true;
        }
    }
    return false;
}

} // namespace

std::int32_t CalcISOBladePitch(clsPropeller& propeller, int blade) {
    std::int32_t status = 0;
    GuardedStep("calculating the ISO blade pitch", [&] {
        status = 0;
        if (!HasDiameterAndBlades(propeller) || !BladeInRange(propeller, blade)) {
            return;
        }
        const std::shared_ptr<clsBlades> b = propeller.Blades(blade);
        if (b->SectionCount() <= 1) {
            return;
        }
        double sum = 0.0;
        int counted = 0;
        for (int k = 0; k < b->SectionCount(); ++k) {
            if (HasSegment(*b->Section(k))) {
                sum += b->Pitch(k);
                ++counted;
            }
        }
        if (sum != 0.0) {
            b->SetISOBladePitch(sum / counted);
        }
        status = 1;
    });
    return status;
}

std::int32_t CalcISOPropellerPitch(clsPropeller& propeller) {
    std::int32_t status = 0;
    GuardedStep("calculating the ISO propeller pitch", [&] {
        status = 0;
        if (!HasDiameterAndBlades(propeller)) {
            return;
        }
        double sum = 0.0;
        int counted = 0;
        for (int b = 0; b < propeller.BladeCount(); ++b) {
            const double pitch = propeller.Blades(b)->ISOBladePitch();
            if (pitch != 0.0) {
                sum += pitch;
                ++counted;
            }
        }
        propeller.SetISOPropellerPitch(sum != 0.0 && counted > 0 ? sum / counted : 0.0);
        status = 1;
    });
    return status;
}

std::int32_t CalcISOEffectiveBladeAxialDrop(double& result, clsPropeller& propeller, int blade) {
    ErrorTail tail("calculating the ISO effective blade axial drop for blade " + std::to_string(blade));
    std::int32_t status = 0;
    tail.Step([&] {
        status = 0;
        if (!BladeInRange(propeller, blade)) {
            return;
        }
        const std::shared_ptr<clsBlades> b = propeller.Blades(blade);
        const double t0 = b->GLPositionThetaDeg();
        double sum = 0.0;
        int counted = 0;
        for (int k = 0; k < b->SectionCount(); ++k) {
            const std::shared_ptr<clsSection> s = b->Section(k);
            if (!HasSegment(*s)) {
                continue;
            }
            double drop = 0.0;
            if (CalcSectionAxialDrop(propeller, blade, k, Wrap360(s->RawThetaBCL() + t0), drop) == 0) {
                return;
            }
            sum += drop;
            ++counted;
        }
        if (counted == 0) {
            result = b->GLPositionAxialX();
        } else {
            result = sum / counted;
            b->SetISOEffectiveBladeAxialPosition(result);
        }
        status = 1;
    });
    return status;
}

std::int32_t CalcIntegratedBladePitch(clsPropeller& propeller, int blade) {
    std::int32_t status = 0;
    GuardedStep("calculating the integrated effective blade pitch", [&] {
        status = 0;
        if (!HasDiameterAndBlades(propeller) || !BladeInRange(propeller, blade)) {
            return;
        }
        const std::shared_ptr<clsBlades> b = propeller.Blades(blade);
        std::vector<double> x;
        std::vector<double> chord;
        std::vector<double> pitch;
        for (int k = 0; k < b->SectionCount(); ++k) {
            if (b->Section(k)->RawOffsetCount() <= 0) {
                continue;
            }
            const double rR = b->RadialPos(k);
            x.push_back(rR);
            chord.push_back(b->Chord(k) * rR);
            pitch.push_back(b->Pitch(k) * b->Chord(k) * rR);
        }
        const double radius = propeller.Diameter() / 2.0;
        const int count = static_cast<int>(x.size());
        const double denominator = IntegrateRadialValues(x, chord, count, radius, 0.0);
        const double numerator = IntegrateRadialValues(x, pitch, count, radius, 0.0);
        if (denominator != 0.0) {
            b->SetEffectivePitch(numerator / denominator);
        }
        status = 1;
    });
    return status;
}

std::int32_t CalcIntegratedPropellerPitch(clsPropeller& propeller) {
    std::int32_t status = 0;
    GuardedStep("calculating the integrated effective propeller pitch", [&] {
        status = 0;
        if (!HasDiameterAndBlades(propeller)) {
            return;
        }
        double sum = 0.0;
        int counted = 0;
        for (int b = 0; b < propeller.BladeCount(); ++b) {
            // A blade that was not measured has no pitch to integrate; its untouched value
            // would pull the mean down.
            if (!HoldsOffsets(*propeller.Blades(b))) {
                continue;
            }
            if (CalcIntegratedBladePitch(propeller, b) == 1) {
                sum += propeller.Blades(b)->EffectivePitch();
                ++counted;
            }
        }
        propeller.SetPitchMean(counted > 0 ? sum / counted : 0.0);
        status = 1;
    });
    return status;
}

double IntegrateRadialValues(const std::vector<double>& x, const std::vector<double>& y, int count, double R,
                             double lowerLimit) {
    double sum = 0.0;
    GuardedStep("integrating radial values", [&] {
        sum = 0.0;
        const int n = std::min({count, static_cast<int>(x.size()), static_cast<int>(y.size())});
        if (n < 2) {
            return;
        }
        auto at = [](const std::vector<double>& v, int i) { return v[static_cast<std::size_t>(i)]; };
        int i = 1;
        while (i < n && at(x, i) > lowerLimit) {
            sum += (at(x, i - 1) - at(x, i)) * R * (at(y, i) + at(y, i - 1)) / 2.0;
            ++i;
        }
        if (lowerLimit > 0.0) {
            // The last strip reaches from the last x above the limit down to the limit, with y
            // there on the line through that point and its neighbour below (or above, when the
            // values end before the limit).
            const int j = i < n ? i : i - 2;
            const double span = at(x, j) - at(x, i - 1);
            const double yLimit =
                span != 0.0 ? at(y, i - 1) + (at(y, j) - at(y, i - 1)) * (lowerLimit - at(x, i - 1)) / span
                            : at(y, i - 1);
            sum += (at(x, i - 1) - lowerLimit) * R * (yLimit + at(y, i - 1)) / 2.0;
        }
    });
    return sum;
}

} // namespace corvane
