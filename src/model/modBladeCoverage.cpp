#include "model/modBladeCoverage.h"

#include "model/clsBlades.h"
#include "model/clsPropeller.h"

namespace corvane {

bool SweptRow(clsBlades& blade, int k) {
    return k >= 0 && k < blade.SectionCount() && blade.Section(k)->RawOffsetCount() >= 2;
}

bool HoldsSweep(clsBlades& blade) {
    for (int k = 0; k < blade.SectionCount(); ++k) {
        if (SweptRow(blade, k)) {
            return true;
        }
    }
    return false;
}

bool RowOnEveryBlade(const clsPropeller& propeller, int k) {
    for (int c = 0; c < propeller.BladeCount(); ++c) {
        auto blade = propeller.Blades(c);
        if (!SweptRow(*blade, k) && HoldsSweep(*blade)) {
            return false;
        }
    }
    return true;
}

bool HasEffectiveBladeAngle(const clsPropeller& propeller, int blade) {
    if (blade < 0 || blade >= propeller.BladeCount()) {
        return false;
    }
    auto target = propeller.Blades(blade);
    for (int k = 0; k < target->SectionCount(); ++k) {
        if (SweptRow(*target, k) && RowOnEveryBlade(propeller, k)) {
            return true;
        }
    }
    return false;
}

} // namespace corvane
