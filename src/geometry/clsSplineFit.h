#pragma once

#include "geometry/GeometryChecks.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace corvane {

// The "not set" marker of tangents and output slots, compared exactly.
inline constexpr double kSplineUnset = -99999.0;

struct PointDouble {
    double X = 0;
    double Y = 0;
};

// The program's curve primitive: a piecewise cubic Bezier through every input point that keeps
// straight runs of the input exactly straight. Segment i runs from input point i to i+1 with
// control points 3i .. 3i+3, control point 3i being input point i.
//
// Inner points take the 1-4-1 weights of a uniform spline whatever the knot spacing; the
// spacing enters only through the slopes. With unequal spacing the curve is C1 with nearly
// continuous curvature. Every station and every stored result was computed with this curve,
// so it must not be replaced by the textbook non-uniform spline.
//
// Tangents are (dx, dy) per unit of knot spacing; kSplineUnset leaves one free (natural end,
// zero second derivative). Angles handed back are radians in (0, 2*pi].
//
// Build control points once with MakeControlWithLinearSections, then evaluate as often as
// needed; a query costs one segment search and a few Newton steps. A new instance per fit.
class clsSplineFit {
public:
    // Knot spacing of MakeControlWithLinearSections, compared against the whole argument.
    static constexpr std::int16_t kUniformSpacing = 1;
    static constexpr std::int16_t kSpacingAlongX = 2; // what all geometry uses
    static constexpr std::int16_t kScaledChordSpacing = 3;
    static constexpr std::int16_t kChordSpacing = 4; // any other value is chord spacing too
    // Flags that ask for the natural end even with a tangent given, and return the computed
    // tangent in the slot when it was unset. Combined only with chord spacing.
    static constexpr std::int16_t kNaturalEndX = 256;
    static constexpr std::int16_t kNaturalEndY = 512;
    static constexpr std::int16_t kNaturalStartX = 2048;
    static constexpr std::int16_t kNaturalStartY = 4096;

    clsSplineFit();

    // Number of input points. Setting 0 or less stores 1. Resizing keeps the points that stay.
    std::int32_t count() const { return count_; }
    void SetCount(std::int32_t n);
    // Added to every input point index while interpolating; callers leave it at 0.
    std::int32_t BaseShift() const { return baseShift_; }
    void SetBaseShift(std::int32_t v) { baseShift_ = v; }
    // Input points, 0-based; an index outside 0..count-1 throws SubscriptOutOfRange.
    double x(int i) const { return geometry::At(points_, i).X; }
    void SetX(int i, double v) { geometry::At(points_, i).X = v; }
    double y(int i) const { return geometry::At(points_, i).Y; }
    void SetY(int i, double v) { geometry::At(points_, i).Y = v; }

    // Builds the control points. Exact repeats of a point are dropped first (count shrinks).
    // An unset tangent may come back filled in when its flag is in `method`.
    void MakeControlWithLinearSections(double& startTanX, double& startTanY, double& endTanX, double& endTanY,
                                       std::int16_t method);
    // Y of the curve at X, following the end parabola beyond either end. The tangent and the
    // curvature angle are computed only into slots that do not hold kSplineUnset.
    void EvalAtX(double x, double& tangentOut, double& curvatureOut, double& result);
    // Shorthand without the optional outputs.
    double EvalAtX(double x);
    // Length of the curve as a polygon of 100 samples per segment.
    void ArcLength(double& result) const;
    // The point at arc-length fraction t (0 to 1).
    void EvalAtT(double t, double& xOut, double& yOut, double& tangentOut, double& curvatureOut);
    // The control polygon of the curve, 3 * count - 2 points: segment i is the cubic Bezier of
    // points 3i to 3i+3. The graphs draw the curve from it.
    const std::vector<PointDouble>& ControlPoints() const { return Control(); }

private:
    void GetNextColinearSection(int from, double startTanX, double startTanY, double endTanX, double endTanY,
                                int& first, int& last, double& angle) const;
    void MakeSectionLinear(int first, int last);
    static bool IsUnset(double v) { return v == kSplineUnset; }
    int GetLastColinearPoint(int idx, double startTanX, double startTanY, double endTanX, double endTanY,
                             double& angle) const;
    void EvalAtT2D(double t, double& xOut, double& yOut, double& tangentOut, double& curvatureOut);
    double EvalAtX2D(double x, double& tangentOut, double& curvatureOut, int direction);
    static double NormalizeAngle(double a);
    void InterpolateSpline2D(const std::vector<PointDouble>& points, int pointBase, int n, double& startTanX,
                             double& startTanY, double& endTanX, double& endTanY,
                             std::vector<PointDouble>& control, int controlBase, int method);
    static bool SplineInternalValues(int n, const std::vector<double>& xs, const std::vector<double>& ys,
                                     int m, const std::vector<double>& xq, std::vector<double>& yq,
                                     int startIndex);

    // Samples of the polygon behind ArcLength and EvalAtT: the point, its curve parameter
    // (segment + u) and the length run up to it.
    struct Sample {
        PointDouble point;
        double s = 0;
        double length = 0;
    };
    std::vector<Sample> Samples() const;
    // Tangent and curvature angles of segment `seg` at u into the slots that want them.
    void Derivatives(int seg, double u, bool extrapolate, double& tangentOut, double& curvatureOut) const;

    // Direction of step i (point i to i+1) for the walk over straight runs, radians, worked out on
    // first use: most steps of a real sweep are told apart from their neighbours without it.
    double StepAngle(int i) const;
    // The colinear test of the walk: step k runs in the direction of step `first` within the
    // tolerance.
    bool SameDirection(int first, int k) const;

    std::int32_t count_ = 1;
    std::int32_t baseShift_ = 0;
    std::vector<PointDouble> points_; // count_ points
    // 3 * count_ - 2 points (controlSize_). Until a fit first writes them they are all zero, and
    // they are only allocated when read (see Control): a fit answered from the cache never needs
    // its own.
    mutable std::vector<PointDouble> control_;
    std::size_t controlSize_ = 1;
    mutable bool controlBlank_ = true;
    // The control points of an identical earlier fit, shared with the fit cache instead of
    // copied. While set they stand for control_; should the count have changed since, they are
    // copied and resized as control_ would have been, on first read.
    mutable std::shared_ptr<const std::vector<PointDouble>> keptControl_;
    // How much of keptControl_ every resize since has kept: beyond it, zeros.
    mutable std::size_t keptPrefix_ = 0;
    void TakeKeptControl() const;
    const std::vector<PointDouble>& Control() const;
    // Makes control_ the fit's own, sized, before a fit writes into it.
    void OwnControl();
    int controlBase_ = 0;
    // Step directions of the walk while the control points are built (NaN: not yet worked out).
    mutable std::vector<double> stepAngle_;
    // +1 when the X of the control points at the input points strictly grows, -1 when it
    // strictly falls, 0 otherwise: a query then finds its segment by halving instead of walking.
    int knotOrder_ = 0;
    // Set while the control points are built when a step ran into an error.
    mutable bool faulted_ = false;
};

} // namespace corvane
