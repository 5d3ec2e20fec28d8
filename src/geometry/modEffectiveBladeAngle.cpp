#include "geometry/modEffectiveBladeAngle.h"

#include "model/clsBlades.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

#include <string>

namespace corvane {

namespace {

// Offsets of section row k of a blade; a row beyond the blade's sections has none.
int OffsetsAt(clsBlades& blade, int k) {
    return k < blade.SectionCount() ? blade.Section(k)->RawOffsetCount() : 0;
}

// True when the blade holds a sweep of at least two offsets in some row.
bool HoldsSweep(clsBlades& blade) {
    for (int k = 0; k < blade.SectionCount(); ++k) {
        if (OffsetsAt(blade, k) >= 2) {
            return true;
        }
    }
    return false;
}

// True when every swept blade holds row k with at least two offsets. A blade that was not swept
// at all has no span to compare with and takes no part; otherwise it would leave no row on any
// blade, and no blade could be placed.
bool RowOnEveryBlade(const clsPropeller& propeller, int k) {
    for (int c = 0; c < propeller.BladeCount(); ++c) {
        auto blade = propeller.Blades(c);
        if (OffsetsAt(*blade, k) < 2 && HoldsSweep(*blade)) {
            return false;
        }
    }
    return true;
}

} // namespace

std::int32_t CalcISOEffectiveBladeAngle(double& result, clsPropeller& propeller, int blade) {
    ErrorTail tail("calculating the ISO effective blade angle for blade " + std::to_string(blade));
    bool found = false;
    double mean = 0.0;
    double origin = 0.0;
    const bool done = tail.Step([&] {
        auto target = propeller.Blades(blade);
        double sum = 0.0;
        int rows = 0;
        for (int k = 0; k < target->SectionCount(); ++k) {
            // An unswept blade holds none of the rows the others share.
            if (OffsetsAt(*target, k) < 2 || !RowOnEveryBlade(propeller, k)) {
                continue;
            }
            auto section = target->Section(k);
            const int last = section->RawOffsetCount() - 1;
            if (rows == 0) {
                // A working origin on the blade itself keeps the mid-angles of a blade that
                // crosses 0/360 on one side of the cut.
                origin = section->ThetaDeg(0);
            }
            const double a = Wrap180(section->ThetaDeg(0) - origin);
            const double b = Wrap180(section->ThetaDeg(last) - origin);
            sum += (a + b) / 2.0;
            ++rows;
        }
        found = rows > 0;
        mean = found ? sum / rows : 0.0;
    });
    if (!done) {
        return 0;
    }
    const bool stored = tail.Step([&] {
        auto target = propeller.Blades(blade);
        if (!found) {
            result = target->GLPositionThetaDeg();
            return;
        }
        result = Wrap360(Wrap180(mean) + origin);
        target->SetISOEffectiveBladeAngleDeg(result);
    });
    return stored ? 1 : 0;
}

} // namespace corvane
