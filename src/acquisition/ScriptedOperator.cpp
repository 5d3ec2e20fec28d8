#include "acquisition/ScriptedOperator.h"

#include "acquisition/modDevice.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsUnits.h"
#include "model/modUtilities.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace corvane {
namespace {

constexpr int kMillimetres = 3;
constexpr int kPedalDown = 4095;
constexpr int kPedalUp = 0;
// A press stands long enough for two 10 ms ticks to see it; the settles let the arm come to rest.
constexpr std::int64_t kPressMs = 60;
constexpr std::int64_t kSettleMs = 150;
constexpr std::int64_t kShortestMoveMs = 100;
constexpr int kVirtualSweepPoints = 120;

// Encoder counts at one point of a surface, as the counters read them after HOME.
struct Counts {
    double angle = 0;
    double radius = 0;
    double drop = 0;
};

class Script {
public:
    Script(const OperatorPlan& plan, const clsUnits& units) : plan_(plan), units_(units) {
        trajectory_.comments.push_back(
            "Corvane scripted operator: HOME at 0 ms, then GO and STOP by the pedal");
        Emit();
    }

    Counts At(double radius, double thetaDeg, double drop) const {
        const StationSettings& s = plan_.station;
        const double mm = units_.ConvertUnitPropLength(radius, kMillimetres, -1);
        const double side = s.activeProbeOffsetSide;
        const double armRadial = std::fabs(mm) > std::fabs(side) ? std::sqrt(mm * mm - side * side) : 0.0;
        Counts c;
        c.radius = (armRadial - s.calibrationRadius - s.activeProbeOffsetRadial) * s.radiusCalibration +
                   s.calibrationPulse;
        c.angle = AngleDegToCount(thetaDeg, c.radius, s);
        c.drop = units_.ConvertUnitPropLength(drop, kMillimetres, -1) * s.dropCalibration;
        return c;
    }

    // The same angle a whole number of turns away, nearest to where the arm stands.
    double Nearest(double angleCount) const {
        const double turn = plan_.station.angleCalibration;
        return turn > 0 ? angleCount + turn * std::round((at_.angle - angleCount) / turn) : angleCount;
    }

    void Hold(std::int64_t ms) {
        timeMs_ += std::max<std::int64_t>(ms, 1);
        Emit();
    }

    void Press() {
        pedal_ = kPedalDown;
        Hold(1);
        Hold(kPressMs);
        pedal_ = kPedalUp;
        Hold(1);
        Hold(kSettleMs);
    }

    // A straight move of the slide, the rod and the turn, at the plan's speeds.
    void Move(const Counts& to) {
        const StationSettings& s = plan_.station;
        const double degrees =
            s.angleCalibration > 0 ? std::fabs(to.angle - at_.angle) * 360 / s.angleCalibration : 0;
        const double mm =
            std::max(s.radiusCalibration > 0 ? std::fabs(to.radius - at_.radius) / s.radiusCalibration : 0,
                     s.dropCalibration > 0 ? std::fabs(to.drop - at_.drop) / s.dropCalibration : 0);
        const double seconds = std::max(degrees / plan_.moveDegPerSecond, mm / plan_.moveMMPerSecond);
        at_ = to;
        Hold(std::max<std::int64_t>(kShortestMoveMs, std::llround(seconds * 1000)));
    }

    // Along a surface: each point at the time the sweep speed gives it.
    void Sweep(const std::vector<Counts>& path) {
        const double turn = plan_.station.angleCalibration;
        double elapsed = 0;
        const std::int64_t start = timeMs_;
        for (std::size_t i = 1; i < path.size(); ++i) {
            const double degrees = turn > 0 ? std::fabs(path[i].angle - path[i - 1].angle) * 360 / turn : 0;
            elapsed += degrees / plan_.sweepDegPerSecond * 1000;
            const std::int64_t t = start + std::llround(elapsed);
            at_ = path[i];
            if (t > timeMs_) {
                timeMs_ = t;
                Emit();
            }
        }
        if (timeMs_ == start) {
            Hold(1);
        }
    }

    const Counts& Where() const { return at_; }
    ArmTrajectory Take() { return std::move(trajectory_); }

private:
    std::int64_t Position(std::int64_t home, bool forward, double count) const {
        return home + (forward ? 1 : -1) * std::llround(count);
    }

    void Emit() {
        const StationSettings& s = plan_.station;
        ArmSample sample;
        sample.timeMs = static_cast<double>(timeMs_);
        sample.angle = Position(plan_.homeAngle, s.angleEncoderFlip, at_.angle);
        sample.radius = Position(plan_.homeRadius, s.radiusEncoderFlip, at_.radius);
        sample.drop = Position(plan_.homeDrop, s.dropEncoderFlip, at_.drop);
        sample.pedal = pedal_;
        trajectory_.Add(sample);
    }

    const OperatorPlan& plan_;
    const clsUnits& units_;
    ArmTrajectory trajectory_;
    Counts at_;
    std::int64_t timeMs_ = 0;
    int pedal_ = kPedalUp;
};

bool Swept(const clsPropeller& sweeps, int blade, int radius) {
    const auto b = sweeps.Blades(blade);
    return radius < b->SectionCount() && b->Section(radius)->RawOffsetCount() >= 2;
}

} // namespace

ArmTrajectory ScriptOperator(const clsPropeller& sweeps, const clsUnits& units, const OperatorPlan& plan) {
    Script script(plan, units);
    script.Hold(200);
    const int blades = sweeps.BladeCount();
    std::vector<int> bladeOrder;
    for (int j = 0; j < blades; ++j) {
        bladeOrder.push_back(plan.station.scanBladeOrder == 0 ? j : (blades - j) % blades);
    }
    std::vector<int> radii;
    for (const int radius : plan.radii) {
        bool everyBlade = radius >= 0 && radius < 8;
        for (int b = 0; b < blades && everyBlade; ++b) {
            everyBlade = Swept(sweeps, b, radius);
        }
        if (everyBlade) {
            radii.push_back(radius);
        }
    }
    const auto sweep = [&](int blade, int radius) {
        const auto section = sweeps.Blades(blade)->Section(radius);
        std::vector<Counts> path;
        double theta = section->ThetaDeg(0);
        for (int i = 0; i < section->RawOffsetCount(); ++i) {
            if (i > 0) {
                theta += Wrap180(section->ThetaDeg(i) - section->ThetaDeg(i - 1)); // through 0/360 unbroken
            }
            path.push_back(script.At(section->Radius(i), theta, section->AxialDropX(i)));
        }
        const double shift = script.Nearest(path.front().angle) - path.front().angle;
        for (Counts& c : path) {
            c.angle += shift;
        }
        // Lift the rod, turn and slide to the trailing edge, lower the rod onto the blade.
        Counts lifted = script.Where();
        lifted.drop = 0;
        script.Move(lifted);
        script.Move(Counts{path.front().angle, path.front().radius, 0});
        script.Move(path.front());
        script.Hold(kSettleMs);
        script.Press(); // GO
        script.Sweep(path);
        script.Hold(kSettleMs);
        script.Press(); // STOP
    };
    if (plan.scanOrderMode == 1) {
        for (const int blade : bladeOrder) {
            for (const int radius : radii) {
                sweep(blade, radius);
            }
        }
    } else {
        for (const int radius : radii) {
            for (const int blade : bladeOrder) {
                sweep(blade, radius);
            }
        }
    }
    script.Hold(300);
    return script.Take();
}

std::shared_ptr<clsPropeller> VirtualSweeps(const clsVirtualPropeller& propeller,
                                            const std::array<double, 8>& radialPositions,
                                            int pointsPerSection) {
    clsPropeller physical;
    propeller.FillScan(physical, std::vector<double>(radialPositions.begin(), radialPositions.end()),
                       pointsPerSection > 1 ? pointsPerSection : kVirtualSweepPoints);
    const int count = propeller.BladeCount;
    auto sweeps = std::make_shared<clsPropeller>();
    sweeps->SetBladeCount(static_cast<std::int16_t>(count));
    sweeps->SetDiameter(propeller.Diameter);
    const double home = propeller.GLThetaDeg(0);
    for (int k = 0; k < count; ++k) {
        // The workflow's slot k lies -(360 / count) x k from blade 1 on a right-hand propeller and
        // +(360 / count) x k on a left-hand one, which is the propeller's blade (count - k).
        auto blade = physical.Blades((count - k) % count)->CopyClass();
        for (int s = 0; s < blade->SectionCount(); ++s) {
            auto section = blade->Section(s);
            std::vector<double> theta = section->ThetaDegArray();
            for (double& t : theta) {
                t = Wrap360(t - home);
            }
            section->SetThetaDegArray(theta);
        }
        sweeps->SetBlades(k, blade);
    }
    return sweeps;
}

bool IdealPropeller(const clsCorvane& project, const std::array<double, 8>& radialPositions,
                    clsVirtualPropeller& propeller) {
    const double diameter = project.MarkedDiameter();
    const double pitch = StringToDouble(project.MarkedPitch());
    if (!(diameter > 0) || !(pitch > 0) || project.BladeCount() <= 0) {
        return false;
    }
    propeller = clsVirtualPropeller{};
    propeller.Diameter = diameter;
    propeller.BladeCount = project.BladeCount();
    propeller.RotationIndex = project.RotationIndex();
    propeller.Pitch = {{0.0, pitch}};
    propeller.FirstBladeThetaDeg = 0;
    propeller.GLDrop = pitch / 4;
    // A blade of ordinary shape, widest near 0.7R, cut back where the neighbours would overlap.
    const clsVirtualPropeller::RadialTable shape{{0.3, 0.18}, {0.7, 0.25}, {0.95, 0.15}};
    const double lead = pitch / (2 * std::numbers::pi);
    const double spacing = 2 * std::numbers::pi / propeller.BladeCount;
    propeller.Chord.clear();
    std::vector<double> positions(radialPositions.begin(), radialPositions.end());
    std::sort(positions.begin(), positions.end());
    for (const double fraction : positions) {
        const double r = fraction * diameter / 2;
        const double widest = 0.6 * spacing * std::sqrt(r * r + lead * lead);
        propeller.Chord.emplace_back(fraction, std::min(diameter * propeller.At(shape, fraction), widest));
    }
    return true;
}

} // namespace corvane
