#include "geometry/modSplineFit.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <cmath>
#include <cstddef>

namespace corvane {

namespace {

// An offset query may reach this share of the data's X span beyond either end, no further.
constexpr double kOffsetMargin = 0.05;

using geometry::At;

void GrowTo(std::vector<double>& v, int m) {
    if (m > 0 && v.size() < static_cast<std::size_t>(m)) {
        v.resize(static_cast<std::size_t>(m));
    }
}

// Loads the points from startIndex to n-1, leaving out each point whose X repeats that of the
// point before it in the input: a zero spacing along X cannot be fitted. The points are counted
// first and then go straight into the spline, which a reused spline then holds without
// allocating.
void LoadDistinctX(clsSplineFit& spline, int n, const std::vector<double>& xs, const std::vector<double>& ys,
                   int startIndex) {
    At(xs, startIndex);
    At(ys, startIndex);
    std::int32_t kept = 1;
    for (long long i = static_cast<long long>(startIndex) + 1; i < n; ++i) {
        if (At(xs, i) != At(xs, i - 1)) {
            At(ys, i);
            ++kept;
        }
    }
    spline.SetCount(kept);
    int k = 0;
    spline.SetX(k, xs[static_cast<std::size_t>(startIndex)]);
    spline.SetY(k, ys[static_cast<std::size_t>(startIndex)]);
    for (std::size_t i = static_cast<std::size_t>(startIndex) + 1; i < static_cast<std::size_t>(n); ++i) {
        if (xs[i] != xs[i - 1]) {
            ++k;
            spline.SetX(k, xs[i]);
            spline.SetY(k, ys[i]);
        }
    }
}

// Builds the control points along X with free ends.
void MakeControlAlongX(clsSplineFit& spline) {
    double startTanX = kSplineUnset;
    double startTanY = kSplineUnset;
    double endTanX = kSplineUnset;
    double endTanY = kSplineUnset;
    spline.MakeControlWithLinearSections(startTanX, startTanY, endTanX, endTanY,
                                         clsSplineFit::kSpacingAlongX);
}

void Evaluate(clsSplineFit& spline, int m, const std::vector<double>& xq, std::vector<double>& yq) {
    for (int j = 0; j < m; ++j) {
        double tangent = kSplineUnset;
        double curvature = kSplineUnset;
        spline.EvalAtX(At(xq, j), tangent, curvature, yq[static_cast<std::size_t>(j)]);
    }
}

// Fits along X with free ends and evaluates at each query.
void Resample(clsSplineFit& spline, int m, const std::vector<double>& xq, std::vector<double>& yq) {
    MakeControlAlongX(spline);
    Evaluate(spline, m, xq, yq);
}

} // namespace

bool SplineInternalValues(int n, const std::vector<double>& xs, const std::vector<double>& ys, int m,
                          const std::vector<double>& xq, std::vector<double>& yq, int startIndex) {
    bool ok = false;
    GuardedStep("splining internal values", [&] {
        if (n <= 0) {
            Prompts().MessageBox("Data error.", MsgBox::OKOnly | MsgBox::Exclamation, gAppTitle);
            return;
        }
        GrowTo(yq, m);
        if (n == 1) {
            const double y = At(ys, 0);
            for (int j = 0; j < m; ++j) {
                yq[static_cast<std::size_t>(j)] = y;
            }
            ok = true;
            return;
        }
        clsSplineFit spline;
        LoadDistinctX(spline, n, xs, ys, startIndex);
        if (spline.count() == 1) {
            for (int j = 0; j < m; ++j) {
                yq[static_cast<std::size_t>(j)] = spline.y(0);
            }
            ok = true;
            return;
        }
        Resample(spline, m, xq, yq);
        ok = true;
    });
    return ok;
}

bool OffsetQueriesWithinData(int n, const std::vector<double>& xs, const std::vector<double>& ys, int m,
                             const std::vector<double>& xq, int startIndex) {
    if (n <= 1) {
        return false;
    }
    const std::size_t count = static_cast<std::size_t>(n);
    if (xs.size() != count || ys.size() != count || m <= 0 || xq.size() != static_cast<std::size_t>(m)) {
        return false;
    }
    if (startIndex < 0 || startIndex >= n) {
        return false;
    }
    double lo = xs[static_cast<std::size_t>(startIndex)];
    double hi = lo;
    for (std::size_t i = static_cast<std::size_t>(startIndex); i < count; ++i) {
        if (!std::isfinite(xs[i]) || !std::isfinite(ys[i])) {
            return false;
        }
        lo = xs[i] < lo ? xs[i] : lo;
        hi = xs[i] > hi ? xs[i] : hi;
    }
    // Never further than 5% of the span beyond the data: the end parabola is a guess.
    const double margin = (hi - lo) * kOffsetMargin;
    for (const double q : xq) {
        if (!std::isfinite(q) || CompareDouble(q, kCompareGreater, hi + margin, 0.0) ||
            CompareDouble(q, kCompareLess, lo - margin, 0.0)) {
            return false;
        }
    }
    return true;
}

void FitDistinctX(clsSplineFit& spline, int n, const std::vector<double>& xs, const std::vector<double>& ys,
                  int startIndex) {
    LoadDistinctX(spline, n, xs, ys, startIndex);
    MakeControlAlongX(spline);
}

bool SplineOffsetValues(int n, const std::vector<double>& xs, const std::vector<double>& ys, int m,
                        const std::vector<double>& xq, std::vector<double>& yq, int startIndex) {
    bool ok = false;
    GuardedStep("splining offset values", [&] {
        if (n <= 0) {
            return;
        }
        if (n == 1) {
            if (!ys.empty()) {
                GrowTo(yq, 1);
                yq[0] = ys[0];
            }
            return;
        }
        if (!OffsetQueriesWithinData(n, xs, ys, m, xq, startIndex)) {
            return;
        }
        clsSplineFit spline;
        LoadDistinctX(spline, n, xs, ys, startIndex);
        GrowTo(yq, m);
        Resample(spline, m, xq, yq);
        ok = true;
    });
    return ok;
}

void GetCubicCoeffs(const std::vector<PointDouble>& controlPoints, int index, double& a, double& b, double& c,
                    double& d, int axis, bool extrapolate) {
    GuardedStep("getting cubic coeffs", [&] {
        if (axis != 0 && axis != 1) {
            throw CorvaneError(ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument");
        }
        auto value = [&](long long k) {
            const PointDouble& p = At(controlPoints, k);
            return axis == 0 ? p.X : p.Y;
        };
        if (extrapolate) {
            // The parabola through three control points at u = 0, 0.5 and 1: beyond the ends
            // the curve bends no further than its end handles say.
            const long long from = index == 0 ? 0 : static_cast<long long>(index) + 1;
            const double p0 = value(from);
            const double p1 = value(from + 1);
            const double p2 = value(from + 2);
            a = 0.0;
            b = 2.0 * p0 - 4.0 * p1 + 2.0 * p2;
            c = -3.0 * p0 + 4.0 * p1 - p2;
            d = p0;
            return;
        }
        const double p0 = value(index);
        const double p1 = value(static_cast<long long>(index) + 1);
        const double p2 = value(static_cast<long long>(index) + 2);
        const double p3 = value(static_cast<long long>(index) + 3);
        a = (p1 - p2) * 3.0 + p3 - p0;
        b = (p2 + p0) * 3.0 - 6.0 * p1;
        c = (p1 - p0) * 3.0;
        d = p0;
    });
}

} // namespace corvane
