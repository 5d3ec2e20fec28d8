#include "iso484/modISO484Evaluate.h"

#include <cmath>
#include <memory>
#include <string>

#include "iso484/clsISO484.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;
constexpr std::int16_t kStandardSmall = 1;
constexpr std::int16_t kNoReference = 0;
constexpr std::int16_t kReferenceFromScan = 1;
constexpr std::int16_t kVariablePitch = 1;
constexpr std::int16_t kCamberedFace = 1;
// The inner sections (r/R 0.4 and the inner radius) are allowed half as much again on pitch.
constexpr int kFirstInnerRow = 6;
constexpr double kInnerPitchFactor = 1.5;
// A neighbour further off than this many nominal spacings is measured the other way round.
constexpr double kSpacingWrapFactor = 1.5;

[[noreturn]] void ThrowNotSet() {
    throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
}

std::shared_ptr<clsPropeller> ScanOf(const clsCorvane& project, int scanIndex) {
    auto scan = project.PropellerScan(scanIndex);
    if (!scan) {
        ThrowNotSet();
    }
    return scan;
}

std::shared_ptr<clsPropeller> ReferenceOf(const clsCorvane& project) {
    auto reference = project.ReferenceScan();
    if (!reference) {
        ThrowNotSet();
    }
    return reference;
}

std::string BladeContext(int blade, const std::string& what) {
    return "evaluating blade " + std::to_string(blade + 1) + what;
}

std::string SectionContext(int blade, int section, const std::string& what) {
    return BladeContext(blade, ", section " + std::to_string(section + 1) + what);
}

// The absolute tolerance is a floor of ISO 484-2 only.
double ApplyFloor(const clsISO484& iso, double width, double tolerance) {
    return iso.ISOStandardIndex() == kStandardSmall && width < tolerance ? tolerance : width;
}

double InnerFactor(int section) {
    return section >= kFirstInnerRow ? kInnerPitchFactor : 1.0;
}

// Mean over the enabled blades of the reference. No enabled blade is a division by zero, which
// the error handler reports: the reference was built from no blade at all.
template <class Get> double MeanOverEnabled(const clsPropeller& reference, Get get) {
    double sum = 0.0;
    int count = 0;
    for (int b = 0; b < reference.BladeCount(); ++b) {
        auto blade = reference.Blades(b);
        if (blade->BladeEnabled()) {
            sum += get(*blade);
            ++count;
        }
    }
    if (count == 0) {
        throw CorvaneError(ErrorNumber::DivisionByZero, "Division by zero");
    }
    return sum / count;
}

double SectionPitchTarget(const clsCorvane& project, int section) {
    return project.ReferenceSectionPitchIndex() == kVariablePitch ? project.ReferenceVariablePitch(section)
                                                                  : project.ReferenceConstantPitch();
}

// Runs one evaluator body under the handler; the body returns false to give failure without
// an error (nothing to measure). Outputs are only written by a body that got through.
template <class Body> std::int32_t Run(const std::string& context, Body body) {
    ErrorTail tail(context);
    bool ok = false;
    if (!tail.Step([&] { ok = body(); })) {
        return 0;
    }
    return ok ? 1 : 0;
}

// The common shape: target and window from the reference, or the scan's value alone.
struct Window {
    double lower;
    double upper;
    double value;
};

Window Around(double target, double width, double value) {
    return {target - width, target + width, value};
}

void Store(const Window& w, double& lower, double& upper, double& value) {
    lower = w.lower;
    upper = w.upper;
    value = w.value;
}

// Arc on the cylinder of the section from the blade's effective angle to the leading edge.
double LEArc(clsBlades& blade, int section, double markedDiameter, bool leftHand) {
    auto s = blade.Section(section);
    const double radius = blade.RadialPos(section) * markedDiameter / 2.0;
    const double le = s->ThetaDeg(s->RawOffsetCount() - 1);
    const double effective = blade.ISOEffectiveBladeAngleDeg();
    const double angle = leftHand ? Wrap180(effective - le) : Wrap180(le - effective);
    return angle * gDegToRad * radius;
}

// A section measure against its reference: without a reference the window is the measured
// value alone; otherwise it is `halfWidth(target)` either side of the target, which is the mean
// over the enabled blades of a reference made from a scan, or blade `referenceBlade` of any
// other reference.
template <class Measure, class HalfWidth>
void SectionWindow(const clsCorvane& project, int scanIndex, int blade, int referenceBlade, Measure measure,
                   HalfWidth halfWidth, double& lower, double& upper, double& value) {
    const double measured = measure(*ScanOf(project, scanIndex)->Blades(blade));
    if (project.ReferenceSourceIndex() == kNoReference) {
        Store({measured, measured, measured}, lower, upper, value);
        return;
    }
    auto reference = ReferenceOf(project);
    const double target = project.ReferenceSourceIndex() == kReferenceFromScan
                              ? MeanOverEnabled(*reference, measure)
                              : measure(*reference->Blades(referenceBlade));
    Store(Around(target, halfWidth(target), measured), lower, upper, value);
}

} // namespace

std::int32_t EvaluatePropellerMeanPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex,
                                        double& lower, double& upper, double& value) {
    return Run("evaluating propeller mean pitch", [&] {
        const double measured = ScanOf(project, scanIndex)->ISOPropellerPitch();
        if (project.ReferenceSourceIndex() == kNoReference) {
            Store({measured, measured, measured}, lower, upper, value);
            return true;
        }
        auto reference = ReferenceOf(project);
        const double target =
            project.ReferenceSourceIndex() == kReferenceFromScan
                ? MeanOverEnabled(*reference, [](clsBlades& b) { return b.ISOBladePitch(); })
                : reference->ISOPropellerPitch();
        const double width = ApplyFloor(iso, target * iso.MeanPitchOfPropPercent(), iso.MeanPitchOfPropTol());
        Store(Around(target, width, measured), lower, upper, value);
        return true;
    });
}

std::int32_t EvaluateMaxDiameter(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                 double& lower, double& upper, double& value) {
    return Run(BladeContext(blade, " max diameter"), [&] {
        const double measured = ScanOf(project, scanIndex)->Blades(blade)->BladeDiameter();
        if (project.ReferenceSourceIndex() == kNoReference) {
            Store({measured, measured, measured}, lower, upper, value);
            return true;
        }
        auto reference = ReferenceOf(project);
        // From another scan the target is this blade's own reference diameter; the mean over
        // the enabled blades adds that one value each time.
        const double own = reference->Blades(blade)->BladeDiameter();
        const double target = project.ReferenceSourceIndex() == kReferenceFromScan
                                  ? MeanOverEnabled(*reference, [own](clsBlades&) { return own; })
                                  : reference->Diameter();
        const double width = ApplyFloor(iso, 2.0 * iso.ScrewRadiusPercent() * target, iso.ScrewRadiusTol());
        Store(Around(target, width, measured), lower, upper, value);
        return true;
    });
}

std::int32_t EvaluateBladeMeanPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                    double& lower, double& upper, double& value) {
    return Run(BladeContext(blade, " mean pitch"), [&] {
        const double measured = ScanOf(project, scanIndex)->Blades(blade)->ISOBladePitch();
        if (project.ReferenceSourceIndex() == kNoReference) {
            Store({measured, measured, measured}, lower, upper, value);
            return true;
        }
        auto reference = ReferenceOf(project);
        const double target =
            project.ReferenceSourceIndex() == kReferenceFromScan
                ? MeanOverEnabled(*reference, [](clsBlades& b) { return b.ISOBladePitch(); })
                : reference->Blades(0)->ISOBladePitch();
        const double width =
            ApplyFloor(iso, target * iso.MeanPitchPerBladePercent(), iso.MeanPitchPerBladeTol());
        Store(Around(target, width, measured), lower, upper, value);
        return true;
    });
}

std::int32_t EvaluateNoseTailPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                   int section, double& lower, double& upper, double& value) {
    return Run(SectionContext(blade, section, " nose-tail pitch"), [&] {
        const double measured = ScanOf(project, scanIndex)->Blades(blade)->Pitch(section);
        if (project.ReferenceSourceIndex() == kNoReference) {
            Store({measured, measured, measured}, lower, upper, value);
            return true;
        }
        auto reference = ReferenceOf(project);
        const double target = project.ReferenceSourceIndex() == kReferenceFromScan
                                  ? SectionPitchTarget(project, section)
                                  : reference->Blades(0)->Pitch(section);
        const double width = ApplyFloor(iso, target * iso.MeanPitchPerRadPercent() * InnerFactor(section),
                                        iso.MeanPitchPerRadTol());
        Store(Around(target, width, measured), lower, upper, value);
        return true;
    });
}

std::int32_t EvaluateLocalPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                int section, int segment, double& lower, double& upper, double& value) {
    const std::string context =
        SectionContext(blade, section, ", segment " + std::to_string(segment + 1) + " local pitch");
    return Run(context, [&] {
        const double measured =
            ScanOf(project, scanIndex)->Blades(blade)->Section(section)->SegmentPanelPitch(segment);
        if (project.ReferenceSourceIndex() == kNoReference) {
            Store({measured, measured, measured}, lower, upper, value);
            return true;
        }
        auto reference = ReferenceOf(project);
        double target = 0.0;
        if (project.ReferenceSourceIndex() != kReferenceFromScan) {
            target = reference->Blades(0)->Section(section)->SegmentPanelPitch(segment);
        } else if (project.ReferenceLocalPitchIndex() == kCamberedFace) {
            double sum = 0.0;
            int count = 0;
            for (int b = 0; b < reference->BladeCount(); ++b) {
                auto refBlade = reference->Blades(b);
                auto refSection = refBlade->Section(section);
                if (refBlade->BladeEnabled() && refSection->RawOffsetCount() > 0) {
                    sum += refSection->SegmentPanelPitch(segment);
                    ++count;
                }
            }
            target = count > 0 ? sum / count : 0.0;
        } else {
            target = SectionPitchTarget(project, section);
        }
        const double width =
            ApplyFloor(iso, target * iso.LocalPitchPercent() * InnerFactor(section), iso.LocalPitchTol());
        Store(Around(target, width, measured), lower, upper, value);
        return true;
    });
}

std::int32_t EvaluateChordLength(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                 int section, double& lower, double& upper, double& value) {
    return Run(BladeContext(blade, " chord length"), [&] {
        // A file reference gives one chord per section, on its first blade.
        SectionWindow(
            project, scanIndex, blade, 0, [section](clsBlades& b) { return b.Chord(section); },
            [&iso](double target) {
                return ApplyFloor(iso, target * iso.DZRatioPercent(), iso.DZRatioTol());
            },
            lower, upper, value);
        return true;
    });
}

std::int32_t EvaluateRakePosition(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                  int section, double& lower, double& upper, double& value) {
    return Run(BladeContext(blade, " rake position"), [&] {
        SectionWindow(
            project, scanIndex, blade, blade,
            [section](clsBlades& b) { return b.ISOTotalAxialRakeToBCL(section); },
            [&](double) { return project.ReferenceDiameter() * iso.RakePercent(); }, lower, upper, value);
        return true;
    });
}

std::int32_t EvaluateBladeSpacing(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                  double& lower, double& upper, double& toPrev, double& toNext) {
    return Run(BladeContext(blade, " spacing"), [&] {
        const int count = project.BladeCount();
        if (count <= 0) {
            throw CorvaneError(ErrorNumber::DivisionByZero, "Division by zero");
        }
        auto scan = ScanOf(project, scanIndex);
        const double nominal = 360.0 / count;
        const int prev = blade - 1 < 0 ? blade - 1 + count : blade - 1;
        const int next = (blade + 1) % count;
        const double own = scan->Blades(blade)->ISOEffectiveBladeAngleDeg();
        // Angle between two blades, taken the short way round past 0/360.
        auto gap = [nominal](double a, double b) {
            const double high = MaxDouble(a, b);
            const double low = MinDouble(a, b);
            double d = Wrap360(high - low);
            if (d > kSpacingWrapFactor * nominal) {
                d = Wrap360(low - high);
            }
            return d;
        };
        const double dPrev = gap(scan->Blades(prev)->ISOEffectiveBladeAngleDeg(), own) - nominal;
        const double dNext = gap(scan->Blades(next)->ISOEffectiveBladeAngleDeg(), own) - nominal;
        toPrev = dPrev;
        toNext = dNext;
        if (project.ReferenceSourceIndex() == kNoReference) {
            lower = upper = (dPrev - dNext) / 2.0;
        } else {
            lower = -iso.AngDeviationTol();
            upper = iso.AngDeviationTol();
        }
        return true;
    });
}

std::int32_t EvaluateLEPosition(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                int section, double& lower, double& upper, double& value, double& lowerLen,
                                double& upperLen, double& valueLen) {
    return Run(BladeContext(blade, " leading edge arc length and position"), [&] {
        auto scanBlade = ScanOf(project, scanIndex)->Blades(blade);
        const bool leftHand = project.RotationIndex() != 0;
        const double diameter = project.MarkedDiameter();
        const double radius = scanBlade->RadialPos(section) * diameter / 2.0;
        const double arc = LEArc(*scanBlade, section, diameter, leftHand);
        const double phi = Atan2YX(scanBlade->Pitch(section), 2.0 * gPi * radius) / gDegToRad;
        if (phi == 0.0) {
            return false; // a flat section has no helix to measure along
        }
        const double cosPhi = std::cos(phi * gDegToRad);
        Window w{arc, arc, arc};
        if (project.ReferenceSourceIndex() != kNoReference) {
            auto refBlade = ReferenceOf(project)->Blades(blade);
            const double target = project.ReferenceSourceIndex() == kReferenceFromScan
                                      ? refBlade->Section(section)->ISOLEArcLengthPerSection()
                                      : LEArc(*refBlade, section, diameter, leftHand);
            if (project.BladeCount() <= 0) {
                throw CorvaneError(ErrorNumber::DivisionByZero, "Division by zero");
            }
            // Here the absolute tolerance is a ceiling, in both standards.
            double width = project.ReferenceDiameter() / project.BladeCount() * iso.DZRatioPercent();
            if (width > iso.DZRatioTol()) {
                width = iso.DZRatioTol();
            }
            w = Around(target, 2.0 * width, arc);
        }
        Store(w, lower, upper, value);
        lowerLen = w.lower / cosPhi;
        upperLen = w.upper / cosPhi;
        valueLen = w.value / cosPhi;
        return true;
    });
}

std::int32_t EvaluateDeltaRake(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                               int sectionA, int sectionB, double& lower, double& upper, double& value,
                               double& position) {
    double lowerA = 0, upperA = 0, rakeA = 0, lowerB = 0, upperB = 0, rakeB = 0;
    if (EvaluateRakePosition(iso, project, scanIndex, blade, sectionA, lowerA, upperA, rakeA) != 1 ||
        EvaluateRakePosition(iso, project, scanIndex, blade, sectionB, lowerB, upperB, rakeB) != 1) {
        return 0;
    }
    return Run(BladeContext(blade, " delta rake"), [&] {
        auto scanBlade = ScanOf(project, scanIndex)->Blades(blade);
        const double measured = rakeA - rakeB;
        const double where = (scanBlade->RadialPos(sectionA) + scanBlade->RadialPos(sectionB)) / 2.0;
        if (project.ReferenceSourceIndex() == kNoReference) {
            Store({measured, measured, measured}, lower, upper, value);
        } else {
            const double target = (lowerA + upperA) / 2.0 - (lowerB + upperB) / 2.0;
            Store(Around(target, project.ReferenceDiameter() * iso.RakePercent(), measured), lower, upper,
                  value);
        }
        position = where;
        return true;
    });
}

std::int32_t EvaluatePitchContinuity(const clsISO484& iso, const clsCorvane& project, int scanIndex,
                                     int blade, int section, int station, bool& bothOK, bool& sumOK,
                                     bool& diffOK) {
    return Run(BladeContext(blade, " pitch continuity"), [&] {
        auto s = ScanOf(project, scanIndex)->Blades(blade)->Section(section);
        const double sum = s->SegmentOffsetDeviationSum(station);
        const double diff = s->SegmentOffsetDeviationDiff(station);
        const double limit = iso.LocalPitchPercent();
        const bool none = project.ReferenceSourceIndex() == kNoReference;
        sumOK = none || std::fabs(sum) <= limit;
        diffOK = none || std::fabs(diff) <= limit;
        bothOK = sumOK && diffOK;
        return true;
    });
}

} // namespace corvane
