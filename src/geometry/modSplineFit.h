#pragma once

// One-call resampling through clsSplineFit and the cubic coefficients of its segments.

#include "geometry/clsSplineFit.h"

#include <vector>

namespace corvane {

// Resamples the points (xs[i], ys[i]), i from startIndex to n-1, at the abscissae xq[0..m-1]
// into yq (grown to m when shorter). Points whose X repeats that of the point before them are
// left out. n at or below 0 shows "Data error." and gives false; a single point gives its Y
// everywhere. Queries beyond the data follow the end parabolas.
bool SplineInternalValues(int n, const std::vector<double>& xs, const std::vector<double>& ys, int m,
                          const std::vector<double>& xq, std::vector<double>& yq, int startIndex);

// As SplineInternalValues for offsets that must stay near the data: xs and ys must hold exactly
// n values and xq exactly m (m > 0), all finite, and no query may lie more than 5% of the data's
// X span beyond either end. Anything else gives false without a message; n = 1 copies ys[0]
// into yq[0] and still gives false.
bool SplineOffsetValues(int n, const std::vector<double>& xs, const std::vector<double>& ys, int m,
                        const std::vector<double>& xq, std::vector<double>& yq, int startIndex);

// The checks of SplineOffsetValues on their own, for callers that fit a curve once and query it
// many times: at least 2 points, held exactly in xs and ys, m > 0 queries held exactly in xq,
// startIndex within the points, every point finite, and no query more than 5% of the data's X span
// beyond either end.
bool OffsetQueriesWithinData(int n, const std::vector<double>& xs, const std::vector<double>& ys, int m,
                             const std::vector<double>& xq, int startIndex);

// The curve SplineOffsetValues evaluates: (xs[i], ys[i]), i from startIndex to n-1, each point
// whose X repeats the X before it left out, fitted along X with free ends. Throws
// SubscriptOutOfRange when the arrays are shorter than n; callers run it in their error tail.
void FitDistinctX(clsSplineFit& spline, int n, const std::vector<double>& xs, const std::vector<double>& ys,
                  int startIndex);

// Power-basis coefficients of the segment whose first control point is `index`, for axis 0 (X)
// or 1 (Y): value = ((a*u + b)*u + c)*u + d. With `extrapolate` the parabola through control
// points 0, 1, 2 (index 0) or index+1 .. index+3 (any other index) at u = 0, 0.5, 1 instead.
void GetCubicCoeffs(const std::vector<PointDouble>& controlPoints, int index, double& a, double& b, double& c,
                    double& d, int axis, bool extrapolate);

} // namespace corvane
