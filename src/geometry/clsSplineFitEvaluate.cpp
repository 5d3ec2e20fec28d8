#include "geometry/clsSplineFit.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "geometry/modSplineFit.h"
#include "model/modUtilities.h"

#include <cmath>
#include <cstddef>

// Evaluating the curve: at an X, at a fraction of its length, and its length.

namespace corvane {

using geometry::At;
using geometry::ThrowDivisionByZero;
using geometry::ThrowOverflow;

namespace {

// The direction code of EvalAtX2D that means "none", which every public query passes.
constexpr int kNoDirection = -99999;
constexpr int kMaxNewtonIterations = 1000;
// Polygon samples per segment for the arc length.
constexpr int kSamplesPerSegment = 100;

// One coordinate of one segment in power basis.
struct Cubic {
    double a = 0, b = 0, c = 0, d = 0;
    double Value(double u) const { return ((a * u + b) * u + c) * u + d; }
    double Slope(double u) const { return (3.0 * a * u + 2.0 * b) * u + c; }
    double Bend(double u) const { return 6.0 * a * u + 2.0 * b; }
};

Cubic Coeffs(const std::vector<PointDouble>& control, int index, int axis, bool extrapolate) {
    Cubic k;
    GetCubicCoeffs(control, index, k.a, k.b, k.c, k.d, axis, extrapolate);
    return k;
}

} // namespace

void clsSplineFit::EvalAtX(double x, double& tangentOut, double& curvatureOut, double& result) {
    GuardedStep("evaluating 2D spline at X",
                [&] { result = EvalAtX2D(x, tangentOut, curvatureOut, kNoDirection); });
}

double clsSplineFit::EvalAtX(double x) {
    double tangent = kSplineUnset;
    double curvature = kSplineUnset;
    double result = 0.0;
    EvalAtX(x, tangent, curvature, result);
    return result;
}

void clsSplineFit::ArcLength(double& result) const {
    result = Samples().back().length;
}

void clsSplineFit::EvalAtT(double t, double& xOut, double& yOut, double& tangentOut, double& curvatureOut) {
    GuardedStep("evaluating 2D spline at T", [&] { EvalAtT2D(t, xOut, yOut, tangentOut, curvatureOut); });
}

std::vector<clsSplineFit::Sample> clsSplineFit::Samples() const {
    std::vector<Sample> samples;
    const int last = controlBase_ + 3 * (count_ - 1);
    if (count_ < 2) {
        samples.push_back(Sample{At(Control(), controlBase_), 0.0, 0.0});
        return samples;
    }
    const int start = last - 3;
    samples.reserve(static_cast<std::size_t>(count_ - 1) * kSamplesPerSegment + 1);
    for (int seg = controlBase_; seg <= start; seg += 3) {
        const Cubic cx = Coeffs(Control(), seg, 0, false);
        const Cubic cy = Coeffs(Control(), seg, 1, false);
        // Each segment up to u = 0.99, the last one up to its end.
        const int steps = seg == start ? kSamplesPerSegment : kSamplesPerSegment - 1;
        for (int k = 0; k <= steps; ++k) {
            const double u = k / static_cast<double>(kSamplesPerSegment);
            const PointDouble p{cx.Value(u), cy.Value(u)};
            double length = 0.0;
            if (!samples.empty()) {
                const PointDouble& q = samples.back().point;
                if (p.X == q.X && p.Y == q.Y) {
                    continue;
                }
                length =
                    samples.back().length + std::sqrt((p.X - q.X) * (p.X - q.X) + (p.Y - q.Y) * (p.Y - q.Y));
            }
            samples.push_back(Sample{p, (seg - controlBase_) / 3 + u, length});
        }
    }
    return samples;
}

void clsSplineFit::EvalAtT2D(double t, double& xOut, double& yOut, double& tangentOut, double& curvatureOut) {
    const std::vector<Sample> samples = Samples();
    if (count_ < 2) {
        xOut = samples.front().point.X;
        yOut = samples.front().point.Y;
        return;
    }
    // Length to curve parameter is itself resampled by a spline through the polygon samples.
    std::vector<double> lengths(samples.size());
    std::vector<double> params(samples.size());
    for (std::size_t i = 0; i < samples.size(); ++i) {
        lengths[i] = samples[i].length;
        params[i] = samples[i].s;
    }
    std::vector<double> s(1, 0.0);
    SplineInternalValues(static_cast<int>(samples.size()), lengths, params, 1, {t * samples.back().length}, s,
                         0);
    if (!std::isfinite(s[0])) {
        ThrowOverflow();
    }
    const int start = controlBase_ + 3 * (count_ - 2);
    const double whole = std::trunc(s[0]);
    int seg = 0;
    double u = s[0] - whole;
    if (controlBase_ + whole * 3.0 > start) {
        seg = start;
        u = 1.0;
    } else if (whole < 0.0) { // before the start: hold the first point
        seg = controlBase_;
        u = 0.0;
    } else {
        seg = controlBase_ + static_cast<int>(whole) * 3;
    }
    xOut = Coeffs(Control(), seg, 0, false).Value(u);
    yOut = Coeffs(Control(), seg, 1, false).Value(u);
    Derivatives(seg, u, false, tangentOut, curvatureOut);
}

double clsSplineFit::EvalAtX2D(double x, double& tangentOut, double& curvatureOut, int direction) {
    double result = 0.0;
    GuardedStep("processing spline eval at x 2d Ex", [&] {
        const std::vector<PointDouble>& c = Control();
        if (count_ < 2) { // one point: the curve is that point at every X
            result = At(c, controlBase_).Y;
            return;
        }
        const int first = controlBase_;
        const int last = controlBase_ + 3 * (count_ - 1);
        const int start = last - 3;
        // The segment walk below reads X of every control point it passes: checked once here.
        At(c, first);
        At(c, last);
        const PointDouble* const points = c.data();
        auto X = [points](int k) { return points[k].X; };

        // Only the first segment decides the direction of the curve in X.
        int seg = first;
        bool extrapolate = false;
        if (X(first) > X(first + 3)) {
            if (x > X(first)) {
                extrapolate = true;
            } else if (x >= X(first + 3)) {
                seg = first;
            } else if (x > X(start)) {
                if (knotOrder_ < 0) {
                    // The last knot at or above x, as the walk below finds it.
                    int lo = 1;
                    int hi = (start - first) / 3 - 1;
                    while (lo < hi) {
                        const int mid = (lo + hi + 1) / 2;
                        if (X(first + 3 * mid) >= x) {
                            lo = mid;
                        } else {
                            hi = mid - 1;
                        }
                    }
                    seg = first + 3 * lo;
                } else {
                    seg = start - 3;
                    while (seg > first && !(x <= X(seg) && x >= X(seg + 3))) {
                        seg -= 3;
                    }
                }
            } else if (x > X(last)) {
                seg = start;
            } else {
                seg = start;
                extrapolate = true;
            }
        } else {
            if (x > X(last)) {
                seg = start;
                extrapolate = true;
            } else if (x >= X(start)) {
                seg = start;
            } else if (x > X(first + 3)) {
                if (knotOrder_ > 0) {
                    // The segment that ends at the first knot at or above x, as the walk below
                    // finds it.
                    int lo = 2;
                    int hi = (start - first) / 3;
                    while (lo < hi) {
                        const int mid = (lo + hi) / 2;
                        if (X(first + 3 * mid) >= x) {
                            hi = mid;
                        } else {
                            lo = mid + 1;
                        }
                    }
                    seg = first + 3 * (lo - 1);
                } else {
                    seg = first + 3;
                    while (seg < start && !(X(seg) <= x && x <= X(seg + 3))) {
                        seg += 3;
                    }
                }
            } else if (x > X(first)) {
                seg = first;
            } else {
                extrapolate = true;
            }
        }

        double span = X(seg + 3) - X(seg);
        if (span == 0.0) {
            span = 0.00001;
        }
        double u = (x - X(seg)) / span;
        const Cubic cx = Coeffs(c, seg, 0, extrapolate);
        if (direction != kNoDirection && x == X(seg) && x == X(seg + 3)) {
            // A vertical segment: the caller says which end it wants.
            if (At(c, seg).Y < At(c, seg + 3).Y) {
                u = direction < 0 ? 0.0 : 1.0;
            } else {
                u = direction < 0 ? 1.0 : 2.0;
            }
        } else if (u != 1.0 && u != 0.0) {
            // Newton on X(u) = x from the straight-line guess.
            const double tolerance = std::fabs(span * 0.0000001);
            double deriv = 1.0;
            double err = 0.0;
            int iterations = 0;
            do {
                if (deriv == 0.0) {
                    ThrowDivisionByZero();
                }
                u += err / deriv;
                if (!std::isfinite(u)) {
                    ThrowOverflow();
                }
                const double xu = cx.Value(u);
                deriv = cx.Slope(u);
                err = x - xu;
                ++iterations;
            } while (!(std::fabs(err) <= tolerance) && iterations <= kMaxNewtonIterations);
        }

        const double y = Coeffs(c, seg, 1, extrapolate).Value(u);
        if (!std::isfinite(y)) {
            ThrowOverflow();
        }
        Derivatives(seg, u, extrapolate, tangentOut, curvatureOut);
        result = y;
    });
    return result;
}

void clsSplineFit::Derivatives(int seg, double u, bool extrapolate, double& tangentOut,
                               double& curvatureOut) const {
    const bool wantTangent = !IsUnset(tangentOut);
    const bool wantCurvature = !IsUnset(curvatureOut);
    if (!wantTangent && !wantCurvature) {
        return;
    }
    const Cubic cx = Coeffs(Control(), seg, 0, extrapolate);
    const Cubic cy = Coeffs(Control(), seg, 1, extrapolate);
    const double dX = cx.Slope(u);
    const double dY = cy.Slope(u);
    const double ddX = cx.Bend(u);
    const double ddY = cy.Bend(u);
    if (wantTangent) {
        tangentOut = NormalizeAngle(Atan2YX(dY, dX));
    }
    if (wantCurvature) {
        // The program's bend measure: a signed angle, not a radius of curvature.
        curvatureOut = NormalizeAngle(Atan2YX(dX * ddY - dY * ddX, dX * dX * dX));
    }
}

double clsSplineFit::NormalizeAngle(double a) {
    if (!std::isfinite(a)) {
        ThrowOverflow();
    }
    const double twoPi = 8.0 * std::atan(1.0);
    while (a <= 0.0) {
        a += twoPi;
    }
    while (a > twoPi) {
        a -= twoPi;
    }
    return a;
}

bool clsSplineFit::SplineInternalValues(int n, const std::vector<double>& xs, const std::vector<double>& ys,
                                        int m, const std::vector<double>& xq, std::vector<double>& yq,
                                        int startIndex) {
    return ::corvane::SplineInternalValues(n, xs, ys, m, xq, yq, startIndex);
}

} // namespace corvane
