#include "geometry/clsSplineFit.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "geometry/clsSplineFitCache.h"
#include "model/modUtilities.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

// Building the curve: input points, the walk over straight runs and the interpolation of the
// curved spans between them. Evaluation is in clsSplineFitEvaluate.cpp.

namespace corvane {

using geometry::At;

namespace {

// Two steps count as one direction when their angles agree this closely (radians). There is
// no wrap-around: +pi and -pi are different directions.
constexpr double kColinearTolerance = 0.0001;
// Steps whose directions differ by a sine above twice the tolerance are certainly not colinear
// (squared here); telling them apart this way saves the arc tangents. Only steps of moderate
// length are judged so, where the squares can neither underflow nor overflow.
constexpr double kSurelyApart = 4e-8;
constexpr double kShortestSquare = 1e-100;
constexpr double kLongestSquare = 1e100;

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

// Working rows of InterpolateSpline2D. A fit of a real sweep interpolates many short curved
// spans between its straight runs, and every fit of a calculation has its own spline object:
// the rows are kept here, per thread, so that neither allocates each time.
struct InterpolationRows {
    std::vector<PointDouble> delta;
    std::vector<double> h, sub, diag, super;
    std::array<std::vector<double>, 2> slope, rhs, m; // X and Y
};

InterpolationRows& Rows() {
    thread_local InterpolationRows rows;
    return rows;
}

// GuardedStep that also sets `faulted` when the step threw, whatever the answer to the error: a
// fit that ran into an error must not be kept and handed out again without its message.
template <typename F> bool NotedStep(const char* context, bool& faulted, F&& step) {
    return GuardedStep(context, [&] {
        try {
            step();
        } catch (...) {
            faulted = true;
            throw;
        }
    });
}

} // namespace

clsSplineFit::clsSplineFit() : points_(1) {}

void clsSplineFit::SetCount(std::int32_t n) {
    if (n <= 0) {
        n = 1;
    }
    points_.resize(static_cast<std::size_t>(n));
    controlSize_ = 3 * static_cast<std::size_t>(n) - 2;
    if (keptControl_) {
        keptPrefix_ = std::min(keptPrefix_, controlSize_);
    } else if (!controlBlank_) {
        control_.resize(controlSize_);
    }
    count_ = n;
    knotOrder_ = 0;
}

// control_ becomes what the resizes since the kept points came would have left of them.
void clsSplineFit::TakeKeptControl() const {
    control_.assign(keptControl_->begin(), keptControl_->begin() + static_cast<std::ptrdiff_t>(keptPrefix_));
    control_.resize(controlSize_);
    keptControl_.reset();
    controlBlank_ = false;
}

const std::vector<PointDouble>& clsSplineFit::Control() const {
    if (keptControl_) {
        if (keptPrefix_ == controlSize_ && keptControl_->size() == controlSize_) {
            return *keptControl_;
        }
        TakeKeptControl();
    }
    if (control_.size() != controlSize_) {
        control_.resize(controlSize_);
    }
    return control_;
}

void clsSplineFit::OwnControl() {
    if (keptControl_) {
        // The fit writes into the control points as they stood before the kept ones replaced them.
        TakeKeptControl();
    }
    control_.resize(controlSize_);
    controlBlank_ = false;
}

void clsSplineFit::MakeControlWithLinearSections(double& startTanX, double& startTanY, double& endTanX,
                                                 double& endTanY, std::int16_t method) {
    // Two points or fewer cost less to fit than to look up.
    clsSplineFitCache* const cache = count_ >= 3 ? clsSplineFitCache::Active() : nullptr;
    clsSplineFitCache::Settings settings;
    std::vector<PointDouble> input;
    if (cache) {
        settings.tangents = {startTanX, startTanY, endTanX, endTanY};
        settings.method = method;
        settings.baseShift = baseShift_;
        if (const clsSplineFitCache::Result* kept = cache->Find(points_, settings)) {
            if (!kept->points.empty()) {
                points_ = kept->points;
                count_ = static_cast<std::int32_t>(points_.size());
            }
            keptControl_ = kept->control;
            controlSize_ = keptControl_->size();
            keptPrefix_ = controlSize_;
            knotOrder_ = kept->knotOrder;
            startTanX = kept->tangents[0];
            startTanY = kept->tangents[1];
            endTanX = kept->tangents[2];
            endTanY = kept->tangents[3];
            return;
        }
        input = points_; // the key: the points before repeats are dropped
    }
    OwnControl();
    faulted_ = false;
    NotedStep("creating 2D spline (with linear)", faulted_, [&] {
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
        stepAngle_.assign(points_.size() - 1, std::numeric_limits<double>::quiet_NaN());
        const int n = count_;
        if (n < 2) { // all one point: the walk below would not place it
            InterpolateSpline2D(points_, 0, n, startTanX, startTanY, endTanX, endTanY, control_, 0, method);
            return;
        }

        // Walk the runs: straight sections are made exactly straight, and the curved spans
        // between them start and end along the neighbouring section's direction.
        int i = 0;
        double angle = 0.0;
        // Direction of the last straight run as a unit vector, where the next curved span starts.
        double previousX = 1.0;
        double previousY = 0.0;
        while (i < n - 1) {
            int first = -1;
            int last = -1;
            GetNextColinearSection(i, startTanX, startTanY, endTanX, endTanY, first, last, angle);
            if (first < 0 || last <= first) {
                if (i == 0) {
                    InterpolateSpline2D(points_, 0, n, startTanX, startTanY, endTanX, endTanY, control_, 0,
                                        method);
                } else {
                    // The span to the end keeps the caller's end tangents.
                    double joinX = previousX;
                    double joinY = previousY;
                    InterpolateSpline2D(points_, i, n - i, joinX, joinY, endTanX, endTanY, control_, 3 * i,
                                        method);
                }
                return;
            }
            const double runX = std::cos(angle);
            const double runY = std::sin(angle);
            double alongX = runX;
            double alongY = runY;
            if (first == i) {
                MakeSectionLinear(first, last);
            } else if (i == 0) {
                InterpolateSpline2D(points_, 0, first + 1, startTanX, startTanY, alongX, alongY, control_, 0,
                                    method);
                MakeSectionLinear(first, last);
            } else {
                double joinX = previousX;
                double joinY = previousY;
                InterpolateSpline2D(points_, i, first - i + 1, joinX, joinY, alongX, alongY, control_, 3 * i,
                                    method);
                MakeSectionLinear(first, last);
            }
            previousX = runX;
            previousY = runY;
            i = last;
        }
    });
    knotOrder_ = 0;
    if (count_ >= 2 && control_.size() >= 3 * static_cast<std::size_t>(count_) - 2) {
        bool rising = true;
        bool falling = true;
        for (std::size_t k = 3; k < 3 * static_cast<std::size_t>(count_) - 2; k += 3) {
            rising = rising && control_[k].X > control_[k - 3].X;
            falling = falling && control_[k].X < control_[k - 3].X;
        }
        knotOrder_ = rising ? 1 : (falling ? -1 : 0);
    }
    if (cache && !faulted_) {
        clsSplineFitCache::Result result;
        result.tangents = {startTanX, startTanY, endTanX, endTanY};
        if (points_.size() != input.size()) {
            result.points = points_;
        }
        // The fit goes on using its control points from the cache: they are not copied.
        keptControl_ = std::make_shared<const std::vector<PointDouble>>(std::move(control_));
        keptPrefix_ = keptControl_->size();
        control_.clear();
        result.control = keptControl_;
        result.knotOrder = knotOrder_;
        cache->Keep(std::move(input), settings, std::move(result));
    }
}

void clsSplineFit::GetNextColinearSection(int from, double startTanX, double startTanY, double endTanX,
                                          double endTanY, int& first, int& last, double& angle) const {
    NotedStep("getting next colinear section", faulted_, [&] {
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
    NotedStep("processing making section linear", faulted_, [&] {
        if (first >= last) {
            return;
        }
        // One range check for the run: a straight sweep is one run of every point.
        At(points_, first);
        At(points_, last);
        At(control_, controlBase_ + 3LL * first);
        At(control_, controlBase_ + 3LL * last);
        for (int i = first; i < last; ++i) {
            const PointDouble p = points_[static_cast<std::size_t>(i)];
            const PointDouble q = points_[static_cast<std::size_t>(i) + 1];
            const double dx = (q.X - p.X) / 3.0;
            const double dy = (q.Y - p.Y) / 3.0;
            PointDouble* c = control_.data() + controlBase_ + 3LL * i;
            c[0] = p;
            c[3] = q;
            c[1] = PointDouble{p.X + dx, p.Y + dy};
            c[2] = PointDouble{q.X - dx, q.Y - dy};
        }
    });
}

int clsSplineFit::GetLastColinearPoint(int idx, double startTanX, double startTanY, double endTanX,
                                       double endTanY, double& angle) const {
    int result = 0;
    NotedStep("getting last colinear point", faulted_, [&] {
        const int n = count_;
        int k = idx + 1;
        At(points_, idx);
        At(points_, k);
        // A run from the first point must agree with a given start tangent.
        if (idx == 0 && (!IsUnset(startTanX) || !IsUnset(startTanY))) {
            angle = StepAngle(idx);
            const double dx = points_[1].X - points_[0].X;
            const double dy = points_[1].Y - points_[0].Y;
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
        while (k < n - 1 && SameDirection(idx, k)) {
            const int next = k + 1;
            // A run into the last point must agree with a given end tangent.
            if (next == n - 1 && (!IsUnset(endTanX) || !IsUnset(endTanY))) {
                const double dx =
                    points_[static_cast<std::size_t>(next)].X - points_[static_cast<std::size_t>(k)].X;
                const double dy =
                    points_[static_cast<std::size_t>(next)].Y - points_[static_cast<std::size_t>(k)].Y;
                bool agrees = true;
                if (!IsUnset(endTanX) && !IsUnset(endTanY)) {
                    agrees = std::fabs(Atan2YX(endTanY, endTanX) - StepAngle(idx)) <= kColinearTolerance;
                } else if (!IsUnset(endTanX)) {
                    agrees = dx / 3.0 == endTanX;
                } else {
                    agrees = dy / 3.0 == endTanY;
                }
                if (!agrees) {
                    break;
                }
            }
            k = next;
        }
        // The run's direction is wanted only when there is a run; a single step is none.
        if (k - idx > 1) {
            angle = StepAngle(idx);
        }
        result = k - idx;
    });
    return result;
}

double clsSplineFit::StepAngle(int i) const {
    if (stepAngle_.size() != points_.size() - 1) {
        stepAngle_.assign(points_.size() - 1, std::numeric_limits<double>::quiet_NaN());
    }
    double& angle = At(stepAngle_, i);
    if (std::isnan(angle)) {
        const PointDouble& p = points_[static_cast<std::size_t>(i)];
        const PointDouble& q = points_[static_cast<std::size_t>(i) + 1];
        angle = Atan2YX(q.Y - p.Y, q.X - p.X);
    }
    return angle;
}

bool clsSplineFit::SameDirection(int first, int k) const {
    const PointDouble& a = points_[static_cast<std::size_t>(first)];
    const PointDouble& b = points_[static_cast<std::size_t>(first) + 1];
    const PointDouble& c = At(points_, k);
    const PointDouble& d = At(points_, k + 1);
    const double ux = b.X - a.X;
    const double uy = b.Y - a.Y;
    const double vx = d.X - c.X;
    const double vy = d.Y - c.Y;
    const double u2 = ux * ux + uy * uy;
    const double v2 = vx * vx + vy * vy;
    if (u2 > kShortestSquare && u2 < kLongestSquare && v2 > kShortestSquare && v2 < kLongestSquare) {
        // The angles compared below differ at least by the angle between the steps, whose sine
        // this is; a wide angle or an opposite direction settles it.
        const double cross = ux * vy - uy * vx;
        if (ux * vx + uy * vy <= 0.0 || cross * cross > kSurelyApart * u2 * v2) {
            return false;
        }
    }
    return std::fabs(StepAngle(k) - StepAngle(first)) < kColinearTolerance;
}

void clsSplineFit::InterpolateSpline2D(const std::vector<PointDouble>& points, int pointBase, int n,
                                       double& startTanX, double& startTanY, double& endTanX, double& endTanY,
                                       std::vector<PointDouble>& control, int controlBase, int method) {
    NotedStep("interpolating spline 2d", faulted_, [&] {
        const long long pBase = static_cast<long long>(pointBase) + baseShift_;
        const long long cBase = static_cast<long long>(controlBase_) + controlBase;
        if (n <= 0) {
            return;
        }
        // The span's points and control points are checked once; inside they are read directly.
        At(points, pBase);
        At(points, pBase + n - 1);
        At(control, cBase);
        At(control, cBase + 3LL * (n - 1));
        const PointDouble* const pts = points.data() + pBase;
        PointDouble* const ctl = control.data() + cBase;
        auto P = [pts](long long k) -> const PointDouble& { return pts[k]; };
        auto C = [ctl](long long k) -> PointDouble& { return ctl[k]; };
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
        InterpolationRows& work = Rows();
        std::vector<PointDouble>& delta = work.delta;
        std::vector<double>& h = work.h;
        delta.resize(segments);
        h.resize(segments);
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
        // spacing, a 2-1 row for a natural end and a fixed row for a given tangent. When both axes
        // have the same kind of ends (always with free ends) they share the matrix and are
        // eliminated together: the same operations on the same numbers, half the divisions.
        const std::size_t rows = static_cast<std::size_t>(n);
        std::vector<double>& sub = work.sub;
        std::vector<double>& diag = work.diag;
        std::vector<double>& super = work.super;
        std::array<std::vector<double>, 2>& slopeRows = work.slope;
        std::array<std::vector<double>, 2>& rhsRows = work.rhs;
        std::array<std::vector<double>, 2>& handleRows = work.m;
        for (std::vector<double>* row : {&sub, &diag, &super, &rhsRows[0], &rhsRows[1], &handleRows[0],
                                         &handleRows[1], &slopeRows[0], &slopeRows[1]}) {
            row->resize(rows);
        }
        // Each span's slope enters two rows; it is worked out once.
        for (std::size_t i = 0; i < segments; ++i) {
            slopeRows[0][i] = delta[i].X / h[i];
            slopeRows[1][i] = delta[i].Y / h[i];
        }
        const double startTan[2] = {startTanX, startTanY};
        const double endTan[2] = {endTanX, endTanY};
        const bool naturalStart[2] = {IsUnset(startTanX) || (method & kNaturalStartX) != 0,
                                      IsUnset(startTanY) || (method & kNaturalStartY) != 0};
        const bool naturalEnd[2] = {IsUnset(endTanX) || (method & kNaturalEndX) != 0,
                                    IsUnset(endTanY) || (method & kNaturalEndY) != 0};
        auto buildRows = [&](int axis) {
            std::vector<double>& rhs = rhsRows[static_cast<std::size_t>(axis)];
            const std::vector<double>& slopes = slopeRows[static_cast<std::size_t>(axis)];
            auto slope = [&](std::size_t i) { return slopes[i]; };
            sub[0] = 0.0;
            if (naturalStart[axis]) {
                diag[0] = 2.0;
                super[0] = 1.0;
                rhs[0] = slope(0);
            } else {
                diag[0] = 1.0;
                super[0] = 0.0;
                rhs[0] = startTan[axis] / 3.0;
            }
            for (std::size_t i = 1; i + 1 < rows; ++i) {
                sub[i] = 1.0;
                diag[i] = 4.0;
                super[i] = 1.0;
                rhs[i] = slope(i - 1) + slope(i);
            }
            super[rows - 1] = 0.0;
            if (naturalEnd[axis]) {
                diag[rows - 1] = 2.0;
                sub[rows - 1] = 1.0;
                rhs[rows - 1] = slope(rows - 2);
            } else {
                diag[rows - 1] = 1.0;
                sub[rows - 1] = 0.0;
                rhs[rows - 1] = endTan[axis] / 3.0;
            }
        };
        if (naturalStart[0] == naturalStart[1] && naturalEnd[0] == naturalEnd[1]) {
            buildRows(1);
            buildRows(0);
            double* const rx = rhsRows[0].data();
            double* const ry = rhsRows[1].data();
            double* const mx = handleRows[0].data();
            double* const my = handleRows[1].data();
            // The eliminated diagonal of the inner rows, 4 - 1/(the one before), soon repeats
            // itself exactly; from then on each inner row takes the same factor and diagonal
            // again instead of dividing for them.
            double w = 0.0;
            for (std::size_t i = 1; i < rows; ++i) {
                if (i >= 3 && i + 1 < rows && diag[i - 1] == diag[i - 2]) {
                    diag[i] = diag[i - 1];
                } else {
                    w = sub[i] / diag[i - 1];
                    diag[i] -= w * super[i - 1];
                }
                rx[i] -= w * rx[i - 1];
                ry[i] -= w * ry[i - 1];
            }
            // The two back substitutions run side by side, each carrying its last handle along.
            double nextX = rx[rows - 1] / diag[rows - 1];
            double nextY = ry[rows - 1] / diag[rows - 1];
            mx[rows - 1] = nextX;
            my[rows - 1] = nextY;
            for (std::size_t i = rows - 1; i-- > 0;) {
                nextX = (rx[i] - super[i] * nextX) / diag[i];
                nextY = (ry[i] - super[i] * nextY) / diag[i];
                mx[i] = nextX;
                my[i] = nextY;
            }
        } else {
            for (int axis = 0; axis < 2; ++axis) {
                buildRows(axis);
                SolveTridiagonal(sub, diag, super, rhsRows[static_cast<std::size_t>(axis)],
                                 handleRows[static_cast<std::size_t>(axis)]);
            }
        }
        for (int axis = 0; axis < 2; ++axis) {
            const std::vector<double>& m = handleRows[static_cast<std::size_t>(axis)];
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
