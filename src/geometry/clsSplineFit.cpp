#include "geometry/clsSplineFit.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "model/modUtilities.h"

#include <cmath>
#include <cstddef>

// Building the curve: input points, the walk over straight runs and the interpolation of the
// curved spans between them. Evaluation is in clsSplineFitEvaluate.cpp.

namespace corvane {

using geometry::At;

namespace {

// Two steps count as one direction when their angles agree this closely (radians). There is
// no wrap-around: +pi and -pi are different directions.
constexpr double kColinearTolerance = 0.0001;

double& Axis(PointDouble& p, int axis) {
    return axis == 0 ? p.X : p.Y;
}

// Handles of a two-point run along one axis: each given tangent sets its own handle at a third
// of the chord, a free end takes the midpoint towards the other handle.
void HandlesOfTwo(double p0, double p1, double startTan, double endTan, double third, double& c1,
                  double& c2) {
    const bool startSet = startTan != kSplineUnset;
    const bool endSet = endTan != kSplineUnset;
    if (startSet && !endSet) {
        c1 = p0 + third * startTan;
        c2 = (p1 + c1) / 2.0;
    } else if (!startSet && endSet) {
        c2 = p1 - third * endTan;
        c1 = (p0 + c2) / 2.0;
    } else if (startSet && endSet) {
        c1 = p0 + third * startTan;
        c2 = p1 - third * endTan;
    } else {
        c1 = p0 + (p1 - p0) / 3.0;
        c2 = p1 - (p1 - p0) / 3.0;
    }
}

// Tridiagonal solve by forward elimination and back substitution, no pivoting. The rows built
// by InterpolateSpline2D are diagonally dominant, so no pivot comes near zero.
void SolveTridiagonal(std::vector<double>& sub, std::vector<double>& diag, std::vector<double>& super,
                      std::vector<double>& rhs, std::vector<double>& m) {
    const std::size_t n = diag.size();
    for (std::size_t i = 1; i < n; ++i) {
        const double w = sub[i] / diag[i - 1];
        diag[i] -= w * super[i - 1];
        rhs[i] -= w * rhs[i - 1];
    }
    m[n - 1] = rhs[n - 1] / diag[n - 1];
    for (std::size_t i = n - 1; i-- > 0;) {
        m[i] = (rhs[i] - super[i] * m[i + 1]) / diag[i];
    }
}

} // namespace

clsSplineFit::clsSplineFit() : points_(1), control_(1) {}

void clsSplineFit::SetCount(std::int32_t n) {
    if (n <= 0) {
        n = 1;
    }
    points_.resize(static_cast<std::size_t>(n));
    control_.resize(3 * static_cast<std::size_t>(n) - 2);
    count_ = n;
}

double clsSplineFit::x(int i) const {
    return At(points_, i).X;
}

void clsSplineFit::SetX(int i, double v) {
    At(points_, i).X = v;
}

double clsSplineFit::y(int i) const {
    return At(points_, i).Y;
}

void clsSplineFit::SetY(int i, double v) {
    At(points_, i).Y = v;
}

void clsSplineFit::MakeControlWithLinearSections(double& startTanX, double& startTanY, double& endTanX,
                                                 double& endTanY, std::int16_t method) {
    GuardedStep("creating 2D spline (with linear)", [&] {
        if (count_ < 3) {
            InterpolateSpline2D(points_, 0, count_, startTanX, startTanY, endTanX, endTanY, control_, 0,
                                method);
            return;
        }
        // A repeated point would give a zero knot spacing.
        std::size_t kept = 1;
        for (std::size_t i = 1; i < points_.size(); ++i) {
            if (points_[i].X != points_[kept - 1].X || points_[i].Y != points_[kept - 1].Y) {
                points_[kept++] = points_[i];
            }
        }
        SetCount(static_cast<std::int32_t>(kept));
        const int n = count_;
        if (n < 2) { // all one point: the walk below would not place it
            InterpolateSpline2D(points_, 0, n, startTanX, startTanY, endTanX, endTanY, control_, 0, method);
            return;
        }

        // Walk the runs: straight sections are made exactly straight, and the curved spans
        // between them start and end along the neighbouring section's direction.
        int i = 0;
        double angle = 0.0;
        while (i < n - 1) {
            const double previous = angle;
            int first = -1;
            int last = -1;
            GetNextColinearSection(i, startTanX, startTanY, endTanX, endTanY, first, last, angle);
            if (first < 0 || last <= first) {
                if (i == 0) {
                    InterpolateSpline2D(points_, 0, n, startTanX, startTanY, endTanX, endTanY, control_, 0,
                                        method);
                } else {
                    // The span to the end keeps the caller's end tangents.
                    double joinX = std::cos(previous);
                    double joinY = std::sin(previous);
                    InterpolateSpline2D(points_, i, n - i, joinX, joinY, endTanX, endTanY, control_, 3 * i,
                                        method);
                }
                return;
            }
            double alongX = std::cos(angle);
            double alongY = std::sin(angle);
            if (first == i) {
                MakeSectionLinear(first, last);
            } else if (i == 0) {
                InterpolateSpline2D(points_, 0, first + 1, startTanX, startTanY, alongX, alongY, control_, 0,
                                    method);
                MakeSectionLinear(first, last);
            } else {
                double joinX = std::cos(previous);
                double joinY = std::sin(previous);
                InterpolateSpline2D(points_, i, first - i + 1, joinX, joinY, alongX, alongY, control_, 3 * i,
                                    method);
                MakeSectionLinear(first, last);
            }
            i = last;
        }
    });
}

void clsSplineFit::GetNextColinearSection(int from, double startTanX, double startTanY, double endTanX,
                                          double endTanY, int& first, int& last, double& angle) const {
    GuardedStep("getting next colinear section", [&] {
        int foundFirst = -1;
        int foundLast = -1;
        double foundAngle = angle;
        int steps = GetLastColinearPoint(from, startTanX, startTanY, endTanX, endTanY, foundAngle);
        if (steps > 1) {
            foundFirst = from;
            foundLast = from + steps;
        } else {
            for (int i = from + 1; i < count_ - 1; ++i) {
                steps = GetLastColinearPoint(i, startTanX, startTanY, endTanX, endTanY, foundAngle);
                if (steps > 1) {
                    foundFirst = i;
                    foundLast = i + steps;
                    break;
                }
            }
        }
        first = foundFirst;
        last = foundLast;
        angle = foundAngle;
    });
}

void clsSplineFit::MakeSectionLinear(int first, int last) {
    GuardedStep("processing making section linear", [&] {
        for (int i = first; i < last; ++i) {
            const PointDouble p = At(points_, i);
            const PointDouble q = At(points_, i + 1);
            const double dx = (q.X - p.X) / 3.0;
            const double dy = (q.Y - p.Y) / 3.0;
            const long long c = controlBase_ + 3LL * i;
            At(control_, c) = p;
            At(control_, c + 3) = q;
            At(control_, c + 1) = PointDouble{p.X + dx, p.Y + dy};
            At(control_, c + 2) = PointDouble{q.X - dx, q.Y - dy};
        }
    });
}

int clsSplineFit::GetLastColinearPoint(int idx, double startTanX, double startTanY, double endTanX,
                                       double endTanY, double& angle) const {
    int result = 0;
    GuardedStep("getting last colinear point", [&] {
        const int n = count_;
        int k = idx + 1;
        double dx = At(points_, k).X - At(points_, idx).X;
        double dy = At(points_, k).Y - At(points_, idx).Y;
        angle = Atan2YX(dy, dx);
        // A run from the first point must agree with a given start tangent.
        if (idx == 0 && (!IsUnset(startTanX) || !IsUnset(startTanY))) {
            bool agrees = true;
            if (!IsUnset(startTanX) && !IsUnset(startTanY)) {
                agrees = std::fabs(Atan2YX(startTanY, startTanX) - angle) <= kColinearTolerance;
            } else if (!IsUnset(startTanX)) {
                agrees = dx / 3.0 == startTanX;
            } else {
                agrees = dy / 3.0 == startTanY;
            }
            if (!agrees) {
                result = 1;
                return;
            }
        }
        double current = angle;
        while (std::fabs(current - angle) < kColinearTolerance && k < n - 1) {
            const int next = k + 1;
            dx = At(points_, next).X - At(points_, k).X;
            dy = At(points_, next).Y - At(points_, k).Y;
            current = Atan2YX(dy, dx);
            if (std::fabs(current - angle) < kColinearTolerance) {
                // A run into the last point must agree with a given end tangent.
                if (next == n - 1 && (!IsUnset(endTanX) || !IsUnset(endTanY))) {
                    bool agrees = true;
                    if (!IsUnset(endTanX) && !IsUnset(endTanY)) {
                        agrees = std::fabs(Atan2YX(endTanY, endTanX) - angle) <= kColinearTolerance;
                    } else if (!IsUnset(endTanX)) {
                        agrees = dx / 3.0 == endTanX;
                    } else {
                        agrees = dy / 3.0 == endTanY;
                    }
                    if (!agrees) {
                        break;
                    }
                }
                k = k + 1;
            }
        }
        result = k - idx;
    });
    return result;
}

void clsSplineFit::InterpolateSpline2D(const std::vector<PointDouble>& points, int pointBase, int n,
                                       double& startTanX, double& startTanY, double& endTanX, double& endTanY,
                                       std::vector<PointDouble>& control, int controlBase, int method) {
    GuardedStep("interpolating spline 2d", [&] {
        const long long pBase = static_cast<long long>(pointBase) + baseShift_;
        const long long cBase = static_cast<long long>(controlBase_) + controlBase;
        auto P = [&](long long k) -> const PointDouble& { return At(points, pBase + k); };
        auto C = [&](long long k) -> PointDouble& { return At(control, cBase + k); };
        if (n <= 0) {
            return;
        }
        if (n == 1) {
            C(0) = P(0);
            return;
        }
        if (n == 2) {
            const PointDouble p0 = P(0);
            const PointDouble p1 = P(1);
            const double dx = p1.X - p0.X;
            const double dy = p1.Y - p0.Y;
            const double third = std::sqrt(dx * dx + dy * dy) / 3.0;
            PointDouble c1;
            PointDouble c2;
            HandlesOfTwo(p0.X, p1.X, startTanX, endTanX, third, c1.X, c2.X);
            HandlesOfTwo(p0.Y, p1.Y, startTanY, endTanY, third, c1.Y, c2.Y);
            C(0) = p0;
            C(1) = c1;
            C(2) = c2;
            C(3) = p1;
            return;
        }

        const std::size_t segments = static_cast<std::size_t>(n) - 1;
        double xRange = 1.0;
        double yRange = 1.0;
        if (method == kScaledChordSpacing) {
            double xLo = P(0).X, xHi = P(0).X, yLo = P(0).Y, yHi = P(0).Y;
            for (int i = 1; i < n; ++i) {
                xLo = std::fmin(xLo, P(i).X);
                xHi = std::fmax(xHi, P(i).X);
                yLo = std::fmin(yLo, P(i).Y);
                yHi = std::fmax(yHi, P(i).Y);
            }
            xRange = xHi - xLo == 0.0 ? 1.0 : xHi - xLo;
            yRange = yHi - yLo == 0.0 ? 1.0 : yHi - yLo;
        }
        std::vector<PointDouble> delta(segments);
        std::vector<double> h(segments);
        // Until the solve replaces them, the handles make a polyline: what a failed fit
        // leaves behind instead of stale control points.
        for (std::size_t i = 0; i < segments; ++i) {
            const PointDouble p = P(static_cast<long long>(i));
            const PointDouble q = P(static_cast<long long>(i) + 1);
            const long long c = 3 * static_cast<long long>(i);
            C(c) = p;
            C(c + 1) = PointDouble{p.X + (q.X - p.X) / 3.0, p.Y + (q.Y - p.Y) / 3.0};
            C(c + 2) = PointDouble{q.X - (q.X - p.X) / 3.0, q.Y - (q.Y - p.Y) / 3.0};
            C(c + 3) = q;
        }
        for (std::size_t i = 0; i < segments; ++i) {
            const PointDouble p = P(static_cast<long long>(i));
            const PointDouble q = P(static_cast<long long>(i) + 1);
            const double dx = q.X - p.X;
            const double dy = q.Y - p.Y;
            delta[i] = PointDouble{dx, dy};
            switch (method) {
            case kUniformSpacing:
                h[i] = 1.0;
                break;
            case kSpacingAlongX:
                h[i] = std::fabs(dx);
                break;
            case kScaledChordSpacing:
                h[i] = std::sqrt((dx * dx / xRange / xRange) + (dy * dy / yRange / yRange));
                break;
            default:
                h[i] = std::sqrt(dx * dx + dy * dy);
                break;
            }
            if (h[i] == 0.0) {
                geometry::ThrowDivisionByZero();
            }
        }
        const long long lastControl = 3 * static_cast<long long>(segments);

        // Per axis, the handle per unit spacing m[i] at each point: 1-4-1 inside whatever the
        // spacing, a 2-1 row for a natural end and a fixed row for a given tangent.
        const std::size_t rows = static_cast<std::size_t>(n);
        std::vector<double> sub(rows), diag(rows), super(rows), rhs(rows), m(rows);
        for (int axis = 0; axis < 2; ++axis) {
            const double startTan = axis == 0 ? startTanX : startTanY;
            const double endTan = axis == 0 ? endTanX : endTanY;
            const int startFlag = axis == 0 ? kNaturalStartX : kNaturalStartY;
            const int endFlag = axis == 0 ? kNaturalEndX : kNaturalEndY;
            auto slope = [&](std::size_t i) { return (axis == 0 ? delta[i].X : delta[i].Y) / h[i]; };

            sub[0] = 0.0;
            if (IsUnset(startTan) || (method & startFlag) != 0) {
                diag[0] = 2.0;
                super[0] = 1.0;
                rhs[0] = slope(0);
            } else {
                diag[0] = 1.0;
                super[0] = 0.0;
                rhs[0] = startTan / 3.0;
            }
            for (std::size_t i = 1; i + 1 < rows; ++i) {
                sub[i] = 1.0;
                diag[i] = 4.0;
                super[i] = 1.0;
                rhs[i] = slope(i - 1) + slope(i);
            }
            super[rows - 1] = 0.0;
            if (IsUnset(endTan) || (method & endFlag) != 0) {
                diag[rows - 1] = 2.0;
                sub[rows - 1] = 1.0;
                rhs[rows - 1] = slope(rows - 2);
            } else {
                diag[rows - 1] = 1.0;
                sub[rows - 1] = 0.0;
                rhs[rows - 1] = endTan / 3.0;
            }
            SolveTridiagonal(sub, diag, super, rhs, m);
            for (std::size_t i = 0; i < segments; ++i) {
                const long long c = 3 * static_cast<long long>(i);
                Axis(C(c + 1), axis) = Axis(C(c), axis) + h[i] * m[i];
                Axis(C(c + 2), axis) = Axis(C(c + 3), axis) - h[i] * m[i + 1];
            }
        }

        // Tangents computed at natural ends go back to the caller where asked for.
        if (IsUnset(endTanX) && (method & kNaturalEndX) != 0) {
            endTanX = (C(lastControl).X - C(lastControl - 1).X) * 3.0 / h[segments - 1];
        }
        if (IsUnset(endTanY) && (method & kNaturalEndY) != 0) {
            endTanY = (C(lastControl).Y - C(lastControl - 1).Y) * 3.0 / h[segments - 1];
        }
        if (IsUnset(startTanX) && (method & kNaturalStartX) != 0) {
            startTanX = (C(1).X - C(0).X) * 3.0 / h[0];
        }
        if (IsUnset(startTanY) && (method & kNaturalStartY) != 0) {
            startTanY = (C(1).Y - C(0).Y) * 3.0 / h[0];
        }
    });
}

} // namespace corvane
