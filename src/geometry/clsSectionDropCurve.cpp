#include "geometry/clsSectionDropCurve.h"

#include "geometry/modSplineFit.h"
#include "model/modUtilities.h"

#include <cmath>
#include <cstddef>

namespace corvane {

bool clsSectionDropCurve::Fit(const clsSection& section, double t0) {
    fitted_ = false;
    const int n = section.RawOffsetCount();
    if (n < 2) {
        return false;
    }
    angle_.resize(static_cast<std::size_t>(n));
    drop_.resize(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i) {
        const std::size_t k = static_cast<std::size_t>(i);
        angle_[k] = Wrap180(section.ThetaDeg(i) - t0);
        drop_[k] = section.AxialDropX(i);
        // A repeated angle is left out by one routine and not by the other; a drop that is no
        // number is refused by one and fitted by the other. Either way the curves would differ.
        if (!std::isfinite(drop_[k]) || (i > 0 && angle_[k] == angle_[k - 1])) {
            return false;
        }
    }
    spline_.SetCount(n);
    for (int i = 0; i < n; ++i) {
        spline_.SetX(i, angle_[static_cast<std::size_t>(i)]);
        spline_.SetY(i, drop_[static_cast<std::size_t>(i)]);
    }
    double startTanX = kSplineUnset;
    double startTanY = kSplineUnset;
    double endTanX = kSplineUnset;
    double endTanY = kSplineUnset;
    spline_.MakeControlWithLinearSections(startTanX, startTanY, endTanX, endTanY,
                                          clsSplineFit::kSpacingAlongX);
    t0_ = t0;
    fitted_ = true;
    return true;
}

bool clsSectionDropCurve::DropAt(double theta, double& drop) {
    if (!fitted_) {
        return false;
    }
    const double q = Wrap180(theta - t0_);
    const double first = spline_.x(0);
    const double last = spline_.x(spline_.count() - 1);
    if (q < std::fmin(first, last) || q > std::fmax(first, last)) {
        return false;
    }
    drop = spline_.EvalAtX(q);
    return true;
}

bool clsSectionDropCurve::OffsetValues(const std::vector<double>& at, std::vector<double>& out) {
    const int n = static_cast<int>(angle_.size());
    const int m = static_cast<int>(at.size());
    if (!fitted_ || !OffsetQueriesWithinData(n, angle_, drop_, m, at, 0)) {
        return false;
    }
    if (out.size() < at.size()) {
        out.resize(at.size());
    }
    for (std::size_t j = 0; j < at.size(); ++j) {
        double tangent = kSplineUnset;
        double curvature = kSplineUnset;
        spline_.EvalAtX(at[j], tangent, curvature, out[j]);
    }
    return true;
}

} // namespace corvane
