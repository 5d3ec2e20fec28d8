#pragma once

// A propeller that exists only in numbers: an ideal helicoidal blade surface that the simulated
// arm sweeps, the demo project is made of, and the geometry is checked against.
//
// Each section of a blade lies on the cylinder of its radius r. Along the section the arm angle
// theta runs from the trailing edge to the leading edge, growing on a right-hand propeller and
// falling on a left-hand one, and the axial drop grows by pitch x (angle swept) / 360 from the
// trailing edge on. The section is centred on its mid-chord angle, which is the blade's
// generator-line angle plus the skew (turned in the sense of rotation), at the drop of the
// generator line plus the rake. The chord is the length of the helix between the two edges.
//
// Lengths are in the project unit, angles in degrees, radial positions fractions of the radius.

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace corvane {

class clsPropeller;

class clsVirtualPropeller {
public:
    // A value along the radius: piecewise linear through (r/R, value) knots, constant beyond the
    // outer knots. One knot makes it constant.
    using RadialTable = std::vector<std::pair<double, double>>;

    double Diameter = 40.0;      // project unit
    std::int16_t BladeCount = 4; // 1 to 7
    std::int16_t RotationIndex = 0;
    RadialTable Pitch{{0.0, 36.0}};
    RadialTable Chord{{0.0, 8.0}};
    RadialTable Rake{{0.0, 0.0}};     // axial, added to the drop
    RadialTable SkewDeg{{0.0, 0.0}};  // turn of the mid-chord from the generator line
    double FirstBladeThetaDeg = 30.0; // generator line of blade 0
    double GLDrop = 2.0;              // drop of the generator lines

    // Per blade (index by blade; missing entries are 0 or 1): a turn away from the ideal
    // spacing of 360 / BladeCount, and a factor on the pitch.
    std::vector<double> BladeOffsetDeg;
    std::vector<double> BladePitchFactor;

    // Encoder resolution for quantised sweeps; 0 leaves a value exact. The radius and drop
    // counts are per millimetre and MillimetresPerUnit converts (25.4 for inches).
    double AngleCountsPerRotation = 0;
    double RadiusCountsPerMM = 0;
    double DropCountsPerMM = 0;
    double MillimetresPerUnit = 25.4;

    double At(const RadialTable& table, double radialPos) const;
    double PitchAt(int blade, double radialPos) const;
    // Generator-line angle of a blade, in [0, 360).
    double GLThetaDeg(int blade) const;
    // Angle between trailing and leading edge of a section, degrees, positive.
    double SpanDeg(int blade, double radialPos) const;
    // Theta at the trailing edge (before wrapping) of a section.
    double TrailingEdgeThetaDeg(int blade, double radialPos) const;

    // One sweep from trailing to leading edge at equal steps of angle: arm radius, arm angle in
    // [0, 360) and drop, quantised when a resolution is set. At least two points.
    void Sweep(int blade, double radialPos, int points, std::vector<double>& radius,
               std::vector<double>& thetaDeg, std::vector<double>& axialDrop) const;

    // The drop of the blade surface under the arm at an angle and radius; false when the arm is
    // between blades or off the propeller.
    bool DropAt(double thetaDeg, double radius, double& drop) const;

    // Fills a scan: BladeCount blades with one section per radial position, each swept with the
    // given number of points. The scan's diameter and blade diameters are set; nothing else.
    void FillScan(clsPropeller& scan, const std::vector<double>& radialPositions, int pointsPerSection) const;

private:
    double Sense() const { return RotationIndex == 1 ? -1.0 : 1.0; }
    double Quantise(double value, double countsPerStep) const;
};

} // namespace corvane
