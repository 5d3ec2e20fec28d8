#pragma once

// The raw curve of one section as the properties driver reads it again and again: the axial
// drop over the angle from the blade's GL. Fitted once, it answers the queries that
// CalcSectionAxialDrop and SplineOffsetValues would each answer with a fit of their own, with
// the same numbers to the last bit: those fit exactly this curve whenever no two neighbouring
// points share an angle, which Fit insists on.

#include "geometry/clsSplineFit.h"
#include "model/clsSection.h"

#include <vector>

namespace corvane {

class clsSectionDropCurve {
public:
    // Fits the section's points (Wrap180(ThetaDeg - t0), AxialDropX). False, leaving nothing
    // fitted, for fewer than 2 points, a drop that is not a finite number, or two neighbouring
    // points at one angle: the callers then go the long way.
    bool Fit(const clsSection& section, double t0);
    bool Fitted() const { return fitted_; }

    // As CalcSectionAxialDrop: the drop at absolute angle `theta`, only within the swept angles.
    bool DropAt(double theta, double& drop);

    // As SplineOffsetValues over (angle, drop): the drops at the relative angles `at` into `out`
    // (grown to fit), refused when the checks of that routine refuse them.
    bool OffsetValues(const std::vector<double>& at, std::vector<double>& out);

    // The fitted points: relative angles and drops.
    const std::vector<double>& Angles() const { return angle_; }
    const std::vector<double>& Drops() const { return drop_; }

private:
    std::vector<double> angle_;
    std::vector<double> drop_;
    clsSplineFit spline_;
    double t0_ = 0.0;
    bool fitted_ = false;
};

} // namespace corvane
