#pragma once

// Fits of given points for the spline tests, with the error log in the scratch folder.

#include "common/ServicesFixture.h"
#include "geometry/clsSplineFit.h"
#include "model/Globals.h"

namespace corvane::test {

// End tangents handed to a fit; a flagged natural end hands its computed tangent back here.
struct SplineTangents {
    double startX = kSplineUnset;
    double startY = kSplineUnset;
    double endX = kSplineUnset;
    double endY = kSplineUnset;
};

class SplineFitTest : public ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        gAppDataPath = environment.appDataFolder;
    }

    static clsSplineFit Fit(const std::vector<PointDouble>& points, std::int16_t method, SplineTangents& t) {
        clsSplineFit spline;
        spline.SetCount(static_cast<std::int32_t>(points.size()));
        for (std::size_t i = 0; i < points.size(); ++i) {
            spline.SetX(static_cast<int>(i), points[i].X);
            spline.SetY(static_cast<int>(i), points[i].Y);
        }
        spline.MakeControlWithLinearSections(t.startX, t.startY, t.endX, t.endY, method);
        return spline;
    }

    static clsSplineFit Fit(const std::vector<PointDouble>& points,
                            std::int16_t method = clsSplineFit::kSpacingAlongX) {
        SplineTangents t;
        return Fit(points, method, t);
    }
};

} // namespace corvane::test
