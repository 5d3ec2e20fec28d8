#include "iso484/modISO484Evaluate.h"

#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "iso484/clsISO484.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modBladeCoverage.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/modErrorHandler.h"

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;
constexpr std::int16_t kStandardSmall = 1;
constexpr std::int16_t kVariablePitch = 1;
// Two r/R values this close name the same section row.
constexpr double kRowTolerance = 0.01;
constexpr std::int16_t kCamberedFace = 1;
// The inner sections (r/R 0.4 and the inner radius) are allowed half as much again on pitch.
constexpr int kFirstInnerRow = 6;
constexpr double kInnerPitchFactor = 1.5;
// A next-door blade further off than this many nominal spacings is measured the other way round.
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

// The blade of a file reference a scan blade is judged against. Every blade of a file reference
// is the file's one blade repeated, so this is blade 0 in all but the rows the scan's blade 0
// did not measure, which the reference leaves out on blade 0 alone.
clsBlades& FileReferenceBlade(const clsPropeller& reference, int blade) {
    return *reference.Blades(blade >= 0 && blade < reference.BladeCount() ? blade : 0);
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

// The reference pitch of a section row. A variable pitch table that holds the row (its r/R within
// 0.01 of the row's, or no r/R at all) gives that row's pitch; a table with other rows is read
// between its rows with a pitch, as the reference itself is built from them.
double SectionPitchTarget(const clsCorvane& project, int section) {
    if (project.ReferenceSectionPitchIndex() != kVariablePitch) {
        return project.ReferenceConstantPitch();
    }
    const double row = section >= 0 && section < static_cast<int>(gRadialPositions.size())
                           ? gRadialPositions[static_cast<std::size_t>(section)]
                           : 0.0;
    std::vector<std::pair<double, double>> knots;
    for (int i = 0; i < project.ReferenceVariablePitchCount(); ++i) {
        const double r = project.ReferenceVariablePitchRadialPos(i);
        const double p = project.ReferenceVariablePitch(i);
        if (i == section && (r == 0.0 || CompareDouble(r, kCompareEqual, row, kRowTolerance))) {
            return p;
        }
        if (r > 0.0 && p > 0.0) {
            knots.emplace_back(r, p);
        }
    }
    return InterpolateLinear(std::move(knots), row);
}

// Runs one evaluator body under the handler, as an error tail does: Retry runs the body again,
// any other answer gives failure. The body returns false to give failure without an error
// (nothing to measure); outputs are only written by a body that got through. The handler's
// context is worded only when it is needed: the evaluators run thousands of times per class
// search and almost never fail.
template <class Context, class Body> std::int32_t Run(const Context& context, Body body) {
    for (;;) {
        try {
            return body() ? 1 : 0;
        } catch (...) {
            if (HandleError(context(), CurrentErrorInfo()) != Answer::Retry) {
                return 0;
            }
        }
    }
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

// A measure against its reference: without a reference the window is the measured value alone;
// otherwise it is `halfWidth(target)` either side of the target `target(reference)` gives.
template <class Target, class HalfWidth>
bool StoreWindow(const clsCorvane& project, double measured, Target target, HalfWidth halfWidth,
                 double& lower, double& upper, double& value) {
    if (project.ReferenceSourceIndex() == kReferenceNone) {
        Store({measured, measured, measured}, lower, upper, value);
        return true;
    }
    const double t = target(*ReferenceOf(project));
    Store(Around(t, halfWidth(t), measured), lower, upper, value);
    return true;
}

// A section measure: the target is the mean over the enabled blades of a reference made from a
// scan, or the same blade of a file reference.
template <class Measure, class HalfWidth>
void SectionWindow(const clsCorvane& project, int scanIndex, int blade, Measure measure, HalfWidth halfWidth,
                   double& lower, double& upper, double& value) {
    (void)StoreWindow(
        project, measure(*ScanOf(project, scanIndex)->Blades(blade)),
        [&](clsPropeller& reference) {
            return project.ReferenceSourceIndex() == kReferenceScan
                       ? MeanOverEnabled(reference, measure)
                       : measure(FileReferenceBlade(reference, blade));
        },
        halfWidth, lower, upper, value);
}

} // namespace

std::int32_t EvaluatePropellerMeanPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex,
                                        double& lower, double& upper, double& value) {
    return Run(
        [] { return std::string("evaluating propeller mean pitch"); },
        [&] {
            return StoreWindow(
                project, ScanOf(project, scanIndex)->ISOPropellerPitch(),
                [&](clsPropeller& reference) {
                    return project.ReferenceSourceIndex() == kReferenceScan
                               ? MeanOverEnabled(reference, [](clsBlades& b) { return b.ISOBladePitch(); })
                               : reference.ISOPropellerPitch();
                },
                [&](double target) {
                    return ApplyFloor(iso, target * iso.MeanPitchOfPropPercent(), iso.MeanPitchOfPropTol());
                },
                lower, upper, value);
        });
}

std::int32_t EvaluateMaxDiameter(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                 double& lower, double& upper, double& value) {
    return Run([&] { return BladeContext(blade, " max diameter"); },
               [&] {
                   return StoreWindow(
                       project, ScanOf(project, scanIndex)->Blades(blade)->BladeDiameter(),
                       [&](clsPropeller& reference) {
                           // From another scan the target is this blade's own reference diameter; the
                           // mean over the enabled blades adds that one value each time.
                           const double own = reference.Blades(blade)->BladeDiameter();
                           return project.ReferenceSourceIndex() == kReferenceScan
                                      ? MeanOverEnabled(reference, [own](clsBlades&) { return own; })
                                      : reference.Diameter();
                       },
                       [&](double target) {
                           return ApplyFloor(iso, 2.0 * iso.ScrewRadiusPercent() * target,
                                             iso.ScrewRadiusTol());
                       },
                       lower, upper, value);
               });
}

std::int32_t EvaluateBladeMeanPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                    double& lower, double& upper, double& value) {
    return Run([&] { return BladeContext(blade, " mean pitch"); },
               [&] {
                   SectionWindow(
                       project, scanIndex, blade, [](clsBlades& b) { return b.ISOBladePitch(); },
                       [&](double target) {
                           return ApplyFloor(iso, target * iso.MeanPitchPerBladePercent(),
                                             iso.MeanPitchPerBladeTol());
                       },
                       lower, upper, value);
                   return true;
               });
}

std::int32_t EvaluateNoseTailPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                   int section, double& lower, double& upper, double& value) {
    return Run([&] { return SectionContext(blade, section, " nose-tail pitch"); },
               [&] {
                   return StoreWindow(
                       project, ScanOf(project, scanIndex)->Blades(blade)->Pitch(section),
                       [&](clsPropeller& reference) {
                           return project.ReferenceSourceIndex() == kReferenceScan
                                      ? SectionPitchTarget(project, section)
                                      : FileReferenceBlade(reference, blade).Pitch(section);
                       },
                       [&](double target) {
                           return ApplyFloor(iso,
                                             target * iso.MeanPitchPerRadPercent() * InnerFactor(section),
                                             iso.MeanPitchPerRadTol());
                       },
                       lower, upper, value);
               });
}

std::int32_t EvaluateLocalPitch(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                int section, int segment, double& lower, double& upper, double& value) {
    const auto context = [&] {
        return SectionContext(blade, section, ", segment " + std::to_string(segment + 1) + " local pitch");
    };
    return Run(context, [&] {
        const double measured =
            ScanOf(project, scanIndex)->Blades(blade)->Section(section)->SegmentPanelPitch(segment);
        if (project.ReferenceSourceIndex() == kReferenceNone) {
            Store({measured, measured, measured}, lower, upper, value);
            return true;
        }
        auto reference = ReferenceOf(project);
        double target = 0.0;
        if (project.ReferenceSourceIndex() != kReferenceScan) {
            target = FileReferenceBlade(*reference, blade).Section(section)->SegmentPanelPitch(segment);
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
    return Run([&] { return BladeContext(blade, " chord length"); },
               [&] {
                   SectionWindow(
                       project, scanIndex, blade, [section](clsBlades& b) { return b.Chord(section); },
                       [&iso](double target) {
                           return ApplyFloor(iso, target * iso.DZRatioPercent(), iso.DZRatioTol());
                       },
                       lower, upper, value);
                   return true;
               });
}

std::int32_t EvaluateRakePosition(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                  int section, double& lower, double& upper, double& value) {
    return Run([&] { return BladeContext(blade, " rake position"); },
               [&] {
                   SectionWindow(
                       project, scanIndex, blade,
                       [section](clsBlades& b) { return b.ISOTotalAxialRakeToBCL(section); },
                       [&](double) { return project.ReferenceDiameter() * iso.RakePercent(); }, lower, upper,
                       value);
                   return true;
               });
}

std::int32_t EvaluateBladeSpacing(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                  double& lower, double& upper, double& toPrev, double& toNext) {
    return Run([&] { return BladeContext(blade, " spacing"); },
               [&] {
                   const int count = project.BladeCount();
                   if (count <= 0) {
                       throw CorvaneError(ErrorNumber::DivisionByZero, "Division by zero");
                   }
                   auto scan = ScanOf(project, scanIndex);
                   const double nominal = 360.0 / count;
                   const double own = scan->Blades(blade)->ISOEffectiveBladeAngleDeg();
                   // The nearest blade `step` slots away that stands somewhere, and how many slots it is
                   // off: an unswept blade between is passed over, its gap counted.
                   auto neighbour = [&](int step, double& angle) {
                       for (int slots = 1; slots < count; ++slots) {
                           const int other = ((blade + step * slots) % count + count) % count;
                           if (other < scan->BladeCount() && HasEffectiveBladeAngle(*scan, other)) {
                               angle = scan->Blades(other)->ISOEffectiveBladeAngleDeg();
                               return slots;
                           }
                       }
                       angle = own;
                       return 0;
                   };
                   // Angle between two blades `slots` apart less its nominal, taken past 0/360 whichever
                   // way round it is nearer. Next-door blades keep the rule of half a spacing beyond the
                   // nominal.
                   auto deviation = [nominal](double a, double b, int slots) {
                       if (slots == 0) {
                           return 0.0;
                       }
                       const double expected = slots * nominal;
                       double d = Wrap360(MaxDouble(a, b) - MinDouble(a, b));
                       const bool otherWay = slots == 1
                                                 ? d > kSpacingWrapFactor * nominal
                                                 : std::fabs(360.0 - d - expected) < std::fabs(d - expected);
                       if (otherWay) {
                           d = Wrap360(MinDouble(a, b) - MaxDouble(a, b));
                       }
                       return d - expected;
                   };
                   double prevAngle = 0.0;
                   double nextAngle = 0.0;
                   const int prevSlots = neighbour(-1, prevAngle);
                   const int nextSlots = neighbour(1, nextAngle);
                   const double dPrev = deviation(prevAngle, own, prevSlots);
                   const double dNext = deviation(nextAngle, own, nextSlots);
                   toPrev = dPrev;
                   toNext = dNext;
                   if (project.ReferenceSourceIndex() == kReferenceNone) {
                       lower = upper = (dPrev - dNext) / 2.0;
                   } else {
                       lower = -iso.AngDeviationTol();
                       upper = iso.AngDeviationTol();
                   }
                   return true;
               });
}

bool TakesPartInSpacing(const clsCorvane& project, int scanIndex, int blade) {
    auto scan = project.PropellerScan(scanIndex);
    return scan && HasEffectiveBladeAngle(*scan, blade);
}

std::int32_t EvaluateLEPosition(const clsISO484& iso, const clsCorvane& project, int scanIndex, int blade,
                                int section, double& lower, double& upper, double& value, double& lowerLen,
                                double& upperLen, double& valueLen) {
    return Run([&] { return BladeContext(blade, " leading edge arc length and position"); },
               [&] {
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
                   if (project.ReferenceSourceIndex() != kReferenceNone) {
                       auto refBlade = ReferenceOf(project)->Blades(blade);
                       const double target = project.ReferenceSourceIndex() == kReferenceScan
                                                 ? refBlade->Section(section)->ISOLEArcLengthPerSection()
                                                 : LEArc(*refBlade, section, diameter, leftHand);
                       if (project.BladeCount() <= 0) {
                           throw CorvaneError(ErrorNumber::DivisionByZero, "Division by zero");
                       }
                       // Here the absolute tolerance is a ceiling, in both standards.
                       double width =
                           project.ReferenceDiameter() / project.BladeCount() * iso.DZRatioPercent();
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
    return Run([&] { return BladeContext(blade, " delta rake"); },
               [&] {
                   auto scanBlade = ScanOf(project, scanIndex)->Blades(blade);
                   const double measured = rakeA - rakeB;
                   const double where =
                       (scanBlade->RadialPos(sectionA) + scanBlade->RadialPos(sectionB)) / 2.0;
                   if (project.ReferenceSourceIndex() == kReferenceNone) {
                       Store({measured, measured, measured}, lower, upper, value);
                   } else {
                       const double target = (lowerA + upperA) / 2.0 - (lowerB + upperB) / 2.0;
                       Store(Around(target, project.ReferenceDiameter() * iso.RakePercent(), measured), lower,
                             upper, value);
                   }
                   position = where;
                   return true;
               });
}

std::int32_t EvaluatePitchContinuity(const clsISO484& iso, const clsCorvane& project, int scanIndex,
                                     int blade, int section, int station, bool& bothOK, bool& sumOK,
                                     bool& diffOK) {
    return Run([&] { return BladeContext(blade, " pitch continuity"); },
               [&] {
                   auto s = ScanOf(project, scanIndex)->Blades(blade)->Section(section);
                   const double sum = s->SegmentOffsetDeviationSum(station);
                   const double diff = s->SegmentOffsetDeviationDiff(station);
                   const double limit = iso.LocalPitchPercent();
                   const bool none = project.ReferenceSourceIndex() == kReferenceNone;
                   sumOK = none || std::fabs(sum) <= limit;
                   diffOK = none || std::fabs(diff) <= limit;
                   bothOK = sumOK && diffOK;
                   return true;
               });
}

} // namespace corvane
