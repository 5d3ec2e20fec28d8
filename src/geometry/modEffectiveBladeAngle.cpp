#include "geometry/modEffectiveBladeAngle.h"

#include "model/clsBlades.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modBladeCoverage.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

#include <string>

namespace corvane {

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
            if (!SweptRow(*target, k) || !RowOnEveryBlade(propeller, k)) {
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
