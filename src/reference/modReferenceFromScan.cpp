// The reference made from a scan of the project (ReferenceSourceIndex 1): each row of the
// standard table is measured on the blades chosen for the reference, averaged, set to the
// reference pitch and rebuilt from its panels on every blade.
#include "reference/ReferenceRun.h"

#include "geometry/GeometryChecks.h"
#include "geometry/modEffectiveBladeAngle.h"
#include "geometry/modLocalPitch.h"
#include "geometry/modPanelCount.h"
#include "geometry/modPropellerProperties.h"
#include "geometry/modReferenceSegments.h"
#include "geometry/modScanDataUtilities.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsSection.h"
#include "model/modBladeCoverage.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace corvane::detail {

namespace {

// Panels of the measuring stage: fine enough to carry the shape of the pitch along the chord
// whatever grid the class asks for later.
constexpr int kStagePanels = 48;

// Ends of a section in the order they are summed and given back: six segment values, then the
// same six raw ones. Angles are relative to the blade's GL.
enum EndSlot : std::size_t {
    kSegXLE,
    kSegTLE,
    kSegXTE,
    kSegTTE,
    kSegXBCL,
    kSegTBCL,
    kRawXLE,
    kRawTLE,
    kRawXTE,
    kRawTTE,
    kRawXBCL,
    kRawTBCL,
    kEndSlots
};

bool IsAngle(std::size_t slot) {
    return slot % 2 == 1;
}

std::vector<double> EndsOf(const clsSection& s) {
    return {s.SegmentAxialXLE(),  s.SegmentThetaLE(),  s.SegmentAxialXTE(), s.SegmentThetaTE(),
            s.SegmentAxialXBCL(), s.SegmentThetaBCL(), s.RawAxialXLE(),     s.RawThetaLE(),
            s.RawAxialXTE(),      s.RawThetaTE(),      s.RawAxialXBCL(),    s.RawThetaBCL()};
}

void SetEnds(clsSection& s, const std::vector<double>& v) {
    s.SetSegmentAxialXLE(v[kSegXLE]);
    s.SetSegmentThetaLE(v[kSegTLE]);
    s.SetSegmentAxialXTE(v[kSegXTE]);
    s.SetSegmentThetaTE(v[kSegTTE]);
    s.SetSegmentAxialXBCL(v[kSegXBCL]);
    s.SetSegmentThetaBCL(v[kSegTBCL]);
    s.SetRawAxialXLE(v[kRawXLE]);
    s.SetRawThetaLE(v[kRawTLE]);
    s.SetRawAxialXTE(v[kRawXTE]);
    s.SetRawThetaTE(v[kRawTTE]);
    s.SetRawAxialXBCL(v[kRawXBCL]);
    s.SetRawThetaBCL(v[kRawTBCL]);
}

double Mean(double sum, int count) {
    if (count == 0) {
        geometry::ThrowDivisionByZero();
    }
    return sum / count;
}

} // namespace

struct ReferenceRun::RowSums {
    int count = 0;
    double radius = 0;
    double pitch = 0;
    double rake = 0;
    double chord = 0;
    double skew = 0;
    double bclRake = 0;
    double glAxial = 0;
    std::vector<double> panels = std::vector<double>(kStagePanels, 0.0);
    // Angles are summed as turns from the first blade's value, so that a mean of angles either
    // side of 0/360 stays beside them; the axial values are summed as they are.
    std::vector<double> ends = std::vector<double>(kEndSlots, 0.0);
    std::vector<double> firstAngle = std::vector<double>(kEndSlots, 0.0);

    void AddEnds(const std::vector<double>& v) {
        for (std::size_t i = 0; i < kEndSlots; ++i) {
            if (!IsAngle(i)) {
                ends[i] += v[i];
            } else if (count == 0) {
                firstAngle[i] = Wrap360(v[i]);
            } else {
                ends[i] += Wrap180(v[i] - firstAngle[i]);
            }
        }
    }
    std::vector<double> MeanEnds() const {
        std::vector<double> out(kEndSlots);
        for (std::size_t i = 0; i < kEndSlots; ++i) {
            out[i] = IsAngle(i) ? Wrap180(firstAngle[i] + Mean(ends[i], count)) : Mean(ends[i], count);
        }
        return out;
    }
};

bool ReferenceRun::BuildVariablePitch() {
    std::vector<std::pair<double, double>> knots;
    for (int i = 0; i < project_.ReferenceVariablePitchCount(); ++i) {
        const double r = project_.ReferenceVariablePitchRadialPos(i);
        const double p = project_.ReferenceVariablePitch(i);
        if (r > 0.0 && p > 0.0) {
            knots.emplace_back(r, p);
        }
    }
    if (knots.empty()) {
        return false;
    }
    std::stable_sort(knots.begin(), knots.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    pitchKnots_ = static_cast<int>(knots.size());
    pitchSpline_.SetCount(pitchKnots_);
    for (int i = 0; i < pitchKnots_; ++i) {
        pitchSpline_.SetX(i, knots[static_cast<std::size_t>(i)].first);
        pitchSpline_.SetY(i, knots[static_cast<std::size_t>(i)].second);
    }
    if (pitchKnots_ > 1) {
        double startTanX = kSplineUnset;
        double startTanY = kSplineUnset;
        double endTanX = kSplineUnset;
        double endTanY = kSplineUnset;
        pitchSpline_.MakeControlWithLinearSections(startTanX, startTanY, endTanX, endTanY,
                                                   clsSplineFit::kSpacingAlongX);
        // Repeated r/R rows collapse to one knot.
        pitchKnots_ = pitchSpline_.count();
    }
    return true;
}

double ReferenceRun::SectionPitch(double radialPos) {
    if (project_.ReferenceSectionPitchIndex() != 1) {
        return project_.ReferenceConstantPitch();
    }
    return pitchKnots_ == 1 ? pitchSpline_.y(0) : pitchSpline_.EvalAtX(radialPos);
}

// S: the mean turn of the chosen blades' effective angles about their GLs, reference scan
// against active scan, taken so that adding it to the reference GLs brings them level.
bool ReferenceRun::AngleShift(double& shift) {
    double sumReference = 0.0;
    double sumActive = 0.0;
    int count = 0;
    for (int i = 0; i < project_.BladeCount(); ++i) {
        // A blade that either scan holds but never swept stands nowhere: its angle would only be
        // its GL. A blade missing from a scan altogether is an error of the calculation.
        const auto standsNowhere = [i](const clsPropeller& scan) {
            return i < scan.BladeCount() && !HasEffectiveBladeAngle(scan, i);
        };
        if (project_.ReferenceScanBladesEnabled(i) != 1 || standsNowhere(*reference_) ||
            standsNowhere(active_)) {
            continue;
        }
        double angle = 0.0;
        if (CalcISOEffectiveBladeAngle(angle, *reference_, i) == 0) {
            Tell("An error occurred calculating the blade angle shift for the Reference scan", i);
            return false;
        }
        sumReference += Wrap180(angle - reference_->Blades(i)->GLPositionThetaDeg());
        if (CalcISOEffectiveBladeAngle(angle, active_, i) == 0) {
            Tell("An error occurred calculating the blade angle shift for the Propeller scan", i);
            return false;
        }
        sumActive += Wrap180(angle - active_.Blades(i)->GLPositionThetaDeg());
        ++count;
    }
    shift = -(Mean(sumActive, count) - Mean(sumReference, count));
    return true;
}

bool ReferenceRun::FromScan() {
    // The copy is taken first: the effective angles of the reference scan are worked out on it,
    // so that the project's own scans are left as they are.
    reference_ = project_.PropellerScan(project_.InternalScanIndex())->CopyClass();
    project_.SetReferenceScan(reference_);
    // Blades are switched on when their scan is evaluated; a scan that has not been the active
    // one this session has had none switched on yet.
    for (int b = 0; b < reference_->BladeCount(); ++b) {
        if (HoldsSweep(*reference_->Blades(b))) {
            reference_->Blades(b)->SetBladeEnabled(true);
        }
    }
    double shift = 0.0;
    if (!AngleShift(shift)) {
        return false;
    }
    clsPropeller& ref = *reference_;
    ref.SetDiameter(project_.MarkedDiameter());
    project_.SetReferenceDiameter(project_.MarkedDiameter());
    ref.SetPitchOfRecord(project_.MarkedPitch());
    ref.SetBladeCount(project_.BladeCount());
    const int rows = ref.Blades(0)->SectionCount();
    for (int b = 0; b < ref.BladeCount(); ++b) {
        // Every blade holds every row of blade 0, so that each row can be written on all blades.
        if (ref.Blades(b)->SectionCount() < rows) {
            ref.Blades(b)->SetSectionCount(static_cast<std::int16_t>(rows));
        }
    }
    // Blade 0 stays where it was copied; the others are put at the shifted GL angle.
    for (int b = 1; b < ref.BladeCount(); ++b) {
        clsBlades& blade = *ref.Blades(b);
        blade.SetGLPositionAxialX(0.0);
        blade.SetGLPositionThetaDeg(Wrap360(shift + blade.GLPositionThetaDeg()));
    }
    if (CalculatePropellerProperties(ref, false, true) != 1) {
        return false;
    }
    if (project_.ReferenceSectionPitchIndex() == 1 && !BuildVariablePitch()) {
        return false;
    }
    for (int k = 0; k < rows; ++k) {
        RowSums sums;
        for (int b = 0; b < ref.BladeCount(); ++b) {
            if (!MeasureRowBlade(b, k, sums)) {
                return false;
            }
        }
        if (sums.count > 0) {
            ApplyRowMeans(k, sums);
            if (!RebuildRow(k)) {
                return false;
            }
        } else if (!BlankRow(k)) {
            return false;
        }
    }
    return true;
}

// One chosen blade's section of row k, measured on its own surface and cut into the stage's
// panels; its results are added to the row's sums.
bool ReferenceRun::MeasureRowBlade(int b, int k, RowSums& sums) {
    clsBlades& blade = *reference_->Blades(b);
    const std::shared_ptr<clsSection> section = blade.Section(k);
    if (project_.ReferenceScanBladesEnabled(b) != 1 || section->RawOffsetCount() <= 1) {
        return true;
    }
    if (!(section->SegmentChord() > 0.0)) {
        section->SetRawOffsetCount(0);
        return true;
    }
    const double x0 = blade.GLPositionAxialX();
    const double t0 = blade.GLPositionThetaDeg();
    double radius = 0.0;
    if (CalcRadius(*section, radius) == 0) {
        Tell("An error occurred calculating local pitch for the Reference scan", b, k);
        return false;
    }
    double pitch = blade.Pitch(k);
    if (CalcPitch(rotation_, *section, pitch) == 0) {
        Tell("An error occurred calculating pitch for the Reference scan", b, k);
        return false;
    }
    blade.SetPitch(k, pitch);
    double rake = blade.RakeAft(k);
    if (CalcRake(rotation_, pitch, *section, x0, t0, rake) == 0) {
        Tell("An error occurred calculating rake for the Reference scan", b, k);
        return false;
    }
    blade.SetRakeAft(k, rake);
    double chord = blade.Chord(k);
    if (CalcChord(rotation_, rake, pitch, *section, x0, t0, chord) == 0) {
        Tell("An error occurred calculating chord for the Reference scan", b, k);
        return false;
    }
    blade.SetChord(k, chord);
    double skew = blade.SkewHelix(k);
    if (CalcSkew(rotation_, radius, rake, pitch, *section, x0, blade.ISOEffectiveBladeAngleDeg(), skew) ==
        0) {
        Tell("An error occurred calculating skew for the Reference scan", b, k);
        return false;
    }
    blade.SetSkewHelix(k, skew);

    const std::shared_ptr<clsSection> copy = section->CopyClass();
    if (Surface3DToOffsets2D(rotation_, *copy, pitch, rake, x0, t0, 1) == 0) {
        Tell("An error occurred calculating the 2D offsets from the 3D surface for the Reference scan", b, k);
        return false;
    }
    if (CalcLocalPitchByDrop(rotation_, *copy, radius, pitch, rake, chord, kStagePanels, x0, t0,
                             useRawEnds_) == 0 ||
        copy->SegmentPanelCount() < kStagePanels) {
        Tell("An error occurred calculating local pitch segments from the 3D surface for for the Reference "
             "scan",
             b, k);
        return false;
    }
    for (int j = 0; j < kStagePanels; ++j) {
        sums.panels[static_cast<std::size_t>(j)] += copy->SegmentPanelPitch(j);
    }
    section->SetSegmentPanelCount(copy->SegmentPanelCount());
    sums.AddEnds(EndsOf(*section));
    sums.radius += radius;
    sums.pitch += pitch;
    sums.rake += rake;
    sums.chord += chord;
    sums.skew += skew;
    sums.bclRake += blade.ISOTotalAxialRakeToBCL(k);
    sums.glAxial += x0;
    ++sums.count;
    return true;
}

// Every blade, chosen or not, takes the row's mean section at the reference pitch.
void ReferenceRun::ApplyRowMeans(int k, const RowSums& sums) {
    clsPropeller& ref = *reference_;
    const double radialPos = Mean(sums.radius, sums.count) / (project_.MarkedDiameter() / 2.0);
    const double pitch = SectionPitch(radialPos);
    const double measuredPitch = Mean(sums.pitch, sums.count);
    if (project_.ReferenceLocalPitchIndex() == 1 && measuredPitch == 0.0) {
        // The shape of a pitch of nothing cannot be carried to another level.
        throw CorvaneError(ErrorNumber::Overflow, "Overflow");
    }
    const std::vector<double> ends = sums.MeanEnds();
    for (int b = 0; b < ref.BladeCount(); ++b) {
        clsBlades& blade = *ref.Blades(b);
        blade.SetRadialPos(k, radialPos);
        blade.SetPitch(k, pitch);
        blade.SetRakeAft(k, Mean(sums.rake, sums.count));
        blade.SetChord(k, Mean(sums.chord, sums.count));
        blade.SetSkewHelix(k, Mean(sums.skew, sums.count));
        blade.SetISOTotalAxialRakeToBCL(k, Mean(sums.bclRake, sums.count));
        blade.SetGLPositionAxialX(Mean(sums.glAxial, sums.count));
        clsSection& section = *blade.Section(k);
        SetEnds(section, ends);
        const double thetaLE = useRawEnds_ ? section.RawThetaLE() : section.SegmentThetaLE();
        const double thetaTE = useRawEnds_ ? section.RawThetaTE() : section.SegmentThetaTE();
        const double axialLE = useRawEnds_ ? section.RawAxialXLE() : section.SegmentAxialXLE();
        const double axialTE = useRawEnds_ ? section.RawAxialXTE() : section.SegmentAxialXTE();
        const double arc = std::fabs(thetaLE - thetaTE) * gDegToRad * radialPos * ref.Diameter() / 2.0;
        const double ax = std::fabs(axialLE - axialTE);
        section.SetSegmentChord(std::sqrt(arc * arc + ax * ax));
        section.SetSegmentPanelCount(kStagePanels);
        for (int j = 0; j < kStagePanels; ++j) {
            // Cambered face: the measured run of pitch along the chord, carried to the new level.
            const double panel =
                project_.ReferenceLocalPitchIndex() == 1
                    ? Mean(sums.panels[static_cast<std::size_t>(j)], sums.count) / measuredPitch * pitch
                    : pitch;
            section.SetSegmentPanelPitch(j, panel);
        }
    }
}

// The row's offsets of every blade rebuilt from its panels, then measured on the panel grid the
// scan it is compared with takes.
bool ReferenceRun::RebuildRow(int k) {
    clsPropeller& ref = *reference_;
    for (int b = 0; b < ref.BladeCount(); ++b) {
        clsBlades& blade = *ref.Blades(b);
        if (RebuildSectionFromPanels(
                rotation_, *blade.Section(k), project_.MarkedDiameter() / 2.0 * blade.RadialPos(k),
                blade.Pitch(k), blade.Chord(k), blade.RakeAft(k), blade.SkewHelix(k),
                blade.GLPositionAxialX(), blade.GLPositionThetaDeg(), !useRawEnds_) == 0) {
            Tell("An error occurred calculating local pitch for the Reference scan", b, k);
            return false;
        }
    }
    for (int b = 0; b < ref.BladeCount(); ++b) {
        const int panels = GetSectionPanelCount(useRawEnds_ ? ref : active_, b, k, false);
        if (CalcLocalPitchByNormal(rotation_, ref, b, k, panels, useRawEnds_) == 0) {
            Tell("An error occurred calculating local pitch for the Reference scan", b, k);
            return false;
        }
    }
    return true;
}

// No chosen blade measured the row: the reference has no such section.
bool ReferenceRun::BlankRow(int k) {
    clsPropeller& ref = *reference_;
    for (int b = 0; b < ref.BladeCount(); ++b) {
        clsBlades& blade = *ref.Blades(b);
        if (blade.BladeEnabled()) {
            auto empty = std::make_shared<clsSection>();
            empty->SetRawOffsetCount(0);
            blade.SetSection(k, empty);
        } else if (project_.BladeCount() != ref.BladeCount()) {
            Prompts().MessageBox("An error occurred due to missing blades or sections.",
                                 MsgBox::OKOnly | MsgBox::Exclamation, "Reference Data Error");
            return false;
        }
    }
    return true;
}

} // namespace corvane::detail
