#include "acquisition/clsVirtualPropeller.h"

#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace corvane {

double clsVirtualPropeller::At(const RadialTable& table, double radialPos) const {
    if (table.empty())
        return 0.0;
    if (radialPos <= table.front().first)
        return table.front().second;
    for (std::size_t i = 1; i < table.size(); ++i) {
        const auto& [r0, v0] = table[i - 1];
        const auto& [r1, v1] = table[i];
        if (radialPos <= r1)
            return r1 > r0 ? v0 + (v1 - v0) * (radialPos - r0) / (r1 - r0) : v1;
    }
    return table.back().second;
}

double clsVirtualPropeller::PitchAt(int blade, double radialPos) const {
    const double factor = blade >= 0 && static_cast<std::size_t>(blade) < BladePitchFactor.size()
                              ? BladePitchFactor[blade]
                              : 1.0;
    return At(Pitch, radialPos) * factor;
}

double clsVirtualPropeller::GLThetaDeg(int blade) const {
    const double offset =
        blade >= 0 && static_cast<std::size_t>(blade) < BladeOffsetDeg.size() ? BladeOffsetDeg[blade] : 0.0;
    const int count = std::max<int>(1, BladeCount);
    return Wrap360(FirstBladeThetaDeg + Sense() * 360.0 * blade / count + offset);
}

double clsVirtualPropeller::SpanDeg(int blade, double radialPos) const {
    const double r = radialPos * Diameter / 2.0;
    const double lead = PitchAt(blade, radialPos) / (2.0 * std::numbers::pi); // axial advance per radian
    const double perRadian = std::sqrt(r * r + lead * lead);                  // helix length per radian
    return perRadian > 0 ? At(Chord, radialPos) / perRadian * 180.0 / std::numbers::pi : 0.0;
}

double clsVirtualPropeller::TrailingEdgeThetaDeg(int blade, double radialPos) const {
    const double mid = GLThetaDeg(blade) + Sense() * At(SkewDeg, radialPos);
    return mid - Sense() * SpanDeg(blade, radialPos) / 2.0;
}

double clsVirtualPropeller::Quantise(double value, double countsPerStep) const {
    return countsPerStep > 0 ? std::round(value * countsPerStep) / countsPerStep : value;
}

void clsVirtualPropeller::Sweep(int blade, double radialPos, int points, std::vector<double>& radius,
                                std::vector<double>& thetaDeg, std::vector<double>& axialDrop) const {
    points = std::max(points, 2);
    const double r = radialPos * Diameter / 2.0;
    const double span = SpanDeg(blade, radialPos);
    const double pitch = PitchAt(blade, radialPos);
    const double trailing = TrailingEdgeThetaDeg(blade, radialPos);
    const double dropAtTrailing = GLDrop + At(Rake, radialPos) - pitch * span / 2.0 / 360.0;
    const double lengthCounts = MillimetresPerUnit > 0 ? MillimetresPerUnit : 1.0;
    radius.assign(points, 0.0);
    thetaDeg.assign(points, 0.0);
    axialDrop.assign(points, 0.0);
    for (int i = 0; i < points; ++i) {
        const double swept = span * i / (points - 1);
        radius[i] = Quantise(r, RadiusCountsPerMM * lengthCounts);
        thetaDeg[i] = Wrap360(Quantise(trailing + Sense() * swept, AngleCountsPerRotation / 360.0));
        axialDrop[i] = Quantise(dropAtTrailing + pitch * swept / 360.0, DropCountsPerMM * lengthCounts);
    }
}

bool clsVirtualPropeller::DropAt(double thetaDeg, double radius, double& drop) const {
    if (Diameter <= 0 || radius <= 0 || radius > Diameter / 2.0 || !std::isfinite(thetaDeg))
        return false;
    const double radialPos = radius / (Diameter / 2.0);
    for (int blade = 0; blade < BladeCount; ++blade) {
        const double span = SpanDeg(blade, radialPos);
        // Angle swept from the trailing edge, in the sense of the section.
        const double swept = Sense() * Wrap180(thetaDeg - TrailingEdgeThetaDeg(blade, radialPos));
        if (swept >= 0 && swept <= span) {
            const double pitch = PitchAt(blade, radialPos);
            drop = GLDrop + At(Rake, radialPos) - pitch * span / 2.0 / 360.0 + pitch * swept / 360.0;
            return true;
        }
    }
    return false;
}

void clsVirtualPropeller::FillScan(clsPropeller& scan, const std::vector<double>& radialPositions,
                                   int pointsPerSection) const {
    scan.SetDiameter(Diameter);
    scan.SetBladeCount(BladeCount);
    const auto sectionCount = static_cast<std::int16_t>(radialPositions.size());
    std::vector<double> radius, theta, drop;
    for (int b = 0; b < BladeCount; ++b) {
        auto blade = scan.Blades(b);
        blade->SetBladeDiameter(Diameter);
        blade->SetSectionCount(sectionCount);
        for (int k = 0; k < sectionCount; ++k) {
            Sweep(b, radialPositions[k], pointsPerSection, radius, theta, drop);
            auto section = blade->Section(k);
            section->SetRadiusArray(radius);
            section->SetThetaDegArray(theta);
            section->SetAxialDropXArray(drop);
        }
    }
}

} // namespace corvane
