#include "geometry/modPropellerProperties.h"

#include "geometry/GeometryChecks.h"
#include "geometry/GuardedStep.h"
#include "geometry/clsSectionDropCurve.h"
#include "geometry/modEffectiveBladeAngle.h"
#include "geometry/modISOPitch.h"
#include "geometry/modLocalPitch.h"
#include "geometry/modPanelCount.h"
#include "geometry/modScanDataUtilities.h"
#include "geometry/modSplineFit.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsSection.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;
constexpr const char* kScanDataError = "Scan Data Error";
constexpr const char* kPropertiesError = "Error calculating propeller properties";

// Everything one calculation needs besides the propeller, read from the project once.
class PropertiesRun {
public:
    PropertiesRun(clsPropeller& propeller, bool panelMode, clsPropeller& panelGrid)
        : propeller_(propeller), panelGrid_(panelGrid), panelMode_(panelMode),
          rotation_(gProject->RotationIndex()), leftHand_(rotation_ != 0),
          markedRadius_(gProject->MarkedDiameter() / 2.0), cupExclusion_(gProject->CupExclusionDistance()),
          leExclusion_(gProject->LEExclusionDistance()), scan_(ScanLabel(propeller.ScanID())) {}

    bool SetSegmentLimits();
    bool ResampleSegmentEnds();
    bool MeasureBlades();
    bool MeasurePanels();
    bool MeasureBCL();
    bool MeasurePropeller();

private:
    int Rows() const;
    bool Measured(int blade, int k) const;
    bool Valid(int blade, int k) const;
    bool MeasureBlade(int blade);
    clsSectionDropCurve* Curve(int blade, int k);
    std::int32_t DropAt(int blade, int k, double theta, double& drop);
    bool ResampleAt(int blade, int k, const std::vector<double>& at, std::vector<double>& found);
    bool TrimByExclusions(int k, const std::vector<int>& measured, double lastA, double lastB,
                          double& trailing, double& leading);
    std::string BladeText(int blade) const { return ", Blade: " + std::to_string(blade + 1); }
    std::string SectionText(int blade, int k) const {
        return ", Section: " + FormatPoint(propeller_.Blades(blade)->RadialPos(k), "0.0#");
    }
    static void ShowError(const std::string& text) {
        Prompts().MessageBox(text, MsgBox::OKOnly | MsgBox::Exclamation, kScanDataError);
    }

    clsPropeller& propeller_;
    clsPropeller& panelGrid_;
    bool panelMode_;
    std::int16_t rotation_;
    bool leftHand_;
    double markedRadius_;
    double cupExclusion_;
    double leExclusion_;
    std::string scan_;
    // The raw curve of each section, fitted on first use and read by every later step; null where
    // it cannot stand in for the routines' own fits.
    std::vector<std::unique_ptr<clsSectionDropCurve>> curves_;
    std::vector<bool> curveTried_;
};

clsSectionDropCurve* PropertiesRun::Curve(int blade, int k) {
    const int rows = Rows();
    if (curves_.empty()) {
        curves_.resize(static_cast<std::size_t>(propeller_.BladeCount()) * static_cast<std::size_t>(rows));
        curveTried_.assign(curves_.size(), false);
    }
    const std::size_t slot =
        static_cast<std::size_t>(blade) * static_cast<std::size_t>(rows) + static_cast<std::size_t>(k);
    if (!curveTried_[slot]) {
        curveTried_[slot] = true;
        const std::shared_ptr<clsBlades> b = propeller_.Blades(blade);
        auto curve = std::make_unique<clsSectionDropCurve>();
        if (curve->Fit(*b->Section(k), b->GLPositionThetaDeg())) {
            curves_[slot] = std::move(curve);
        }
    }
    return curves_[slot].get();
}

// SplineOffsetValues of the section's drop over its angle from the GL, at the relative angles `at`.
bool PropertiesRun::ResampleAt(int blade, int k, const std::vector<double>& at, std::vector<double>& found) {
    if (clsSectionDropCurve* curve = Curve(blade, k)) {
        return curve->OffsetValues(at, found);
    }
    const std::shared_ptr<clsBlades> b = propeller_.Blades(blade);
    const std::shared_ptr<clsSection> s = b->Section(k);
    const int count = s->RawOffsetCount();
    std::vector<double> relative(static_cast<std::size_t>(count));
    std::vector<double> drops(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        relative[static_cast<std::size_t>(i)] = Wrap180(s->ThetaDeg(i) - b->GLPositionThetaDeg());
        drops[static_cast<std::size_t>(i)] = s->AxialDropX(i);
    }
    return SplineOffsetValues(count, relative, drops, static_cast<int>(at.size()), at, found, 0);
}

// CalcSectionAxialDrop, read off the section's fitted curve where there is one.
std::int32_t PropertiesRun::DropAt(int blade, int k, double theta, double& drop) {
    if (clsSectionDropCurve* curve = Curve(blade, k)) {
        return curve->DropAt(theta, drop) ? 1 : 0;
    }
    return CalcSectionAxialDrop(propeller_, blade, k, theta, drop);
}

int PropertiesRun::Rows() const {
    int rows = 0;
    for (int b = 0; b < propeller_.BladeCount(); ++b) {
        rows = std::max<int>(rows, propeller_.Blades(b)->SectionCount());
    }
    return rows;
}

// Measured: a sweep of at least two points. Valid: measured with a segment left after trimming.
bool PropertiesRun::Measured(int blade, int k) const {
    const std::shared_ptr<clsBlades> b = propeller_.Blades(blade);
    return k < b->SectionCount() && b->Section(k)->RawOffsetCount() > 1;
}

bool PropertiesRun::Valid(int blade, int k) const {
    return Measured(blade, k) && propeller_.Blades(blade)->Section(k)->SegmentChord() > 0.0;
}

// Raw ends of every measured sweep of each row, then the segment all blades of the row share:
// the overlap of their raw ranges (relative to each blade's GL), less the exclusion zones.
bool PropertiesRun::SetSegmentLimits() {
    const int rows = propeller_.Blades(0)->SectionCount();
    for (int k = 0; k < rows; ++k) {
        std::vector<int> measured;
        std::vector<double> te;
        std::vector<double> le;
        for (int b = 0; b < propeller_.BladeCount(); ++b) {
            if (!Measured(b, k)) {
                continue;
            }
            const std::shared_ptr<clsBlades> blade = propeller_.Blades(b);
            const std::shared_ptr<clsSection> s = blade->Section(k);
            const int last = s->RawOffsetCount() - 1;
            const double t0 = blade->GLPositionThetaDeg();
            const double x0 = blade->GLPositionAxialX();
            const double a = Wrap180(s->ThetaDeg(0) - t0);
            const double bb = Wrap180(s->ThetaDeg(last) - t0);
            const double xa = s->AxialDropX(0) - x0;
            const double xb = s->AxialDropX(last) - x0;
            s->SetRawAxialXLE(xb);
            s->SetRawThetaLE(bb);
            s->SetRawAxialXTE(xa);
            s->SetRawThetaTE(a);
            s->SetRawThetaBCL(Wrap180((bb + a) / 2.0));
            double mid = 0.0;
            if (DropAt(b, k, s->RawThetaBCL() + t0, mid) == 0) {
                mid = (xb + xa) / 2.0;
            }
            s->SetRawAxialXBCL(mid);
            measured.push_back(b);
            te.push_back(a);
            le.push_back(bb);
        }
        if (measured.empty()) {
            continue;
        }
        const double lastA = te.back();
        const double lastB = le.back();
        double trailing = lastA;
        double leading = lastB;
        for (std::size_t i = 0; i < measured.size(); ++i) {
            trailing = leftHand_ ? std::min(trailing, te[i]) : std::max(trailing, te[i]);
            leading = leftHand_ ? std::max(leading, le[i]) : std::min(leading, le[i]);
        }
        if (cupExclusion_ > 0.0 || leExclusion_ > 0.0) {
            if (!TrimByExclusions(k, measured, lastA, lastB, trailing, leading)) {
                return false;
            }
        }
        for (const int b : measured) {
            const std::shared_ptr<clsSection> s = propeller_.Blades(b)->Section(k);
            s->SetSegmentThetaLE(leading);
            s->SetSegmentThetaTE(trailing);
            s->SetSegmentThetaBCL((leading + trailing) / 2.0);
        }
    }
    return true;
}

// The exclusion distances are lengths along the blade's own nose-tail helix, turned into angles
// on the section's cylinder. Each blade's trimmed end is held within the last blade's raw
// range, and the row takes the trimmed range all blades share.
bool PropertiesRun::TrimByExclusions(int k, const std::vector<int>& measured, double lastA, double lastB,
                                     double& trailing, double& leading) {
    bool first = true;
    for (const int b : measured) {
        const std::shared_ptr<clsSection> s = propeller_.Blades(b)->Section(k);
        double r = 0.0;
        if (CalcRadius(*s, r) == 0 || r <= 0.0) {
            return false;
        }
        double p = 0.0;
        if (CalcNoseTailPitch(rotation_, *s, p) == 0 || p <= 0.0) {
            return false;
        }
        const double beta = Atan2YX(p, 2.0 * gPi * r);
        const double cup = cupExclusion_ * std::cos(beta) / r / gDegToRad;
        const double lead = leExclusion_ * std::cos(beta) / r / gDegToRad;
        const double t =
            leftHand_ ? std::max(s->RawThetaTE() - cup, lastB) : std::min(s->RawThetaTE() + cup, lastB);
        const double l =
            leftHand_ ? std::min(s->RawThetaLE() + lead, lastA) : std::max(s->RawThetaLE() - lead, lastA);
        if (first) {
            trailing = t;
            leading = l;
            first = false;
        } else {
            trailing = leftHand_ ? std::min(trailing, t) : std::max(trailing, t);
            leading = leftHand_ ? std::max(leading, l) : std::min(leading, l);
        }
    }
    return true;
}

// Drops at the segment ends and mid-point read off each raw curve; RadialPos where none is set
// yet; and the segment chord, the straight line between the segment ends on the unrolled
// cylinder.
bool PropertiesRun::ResampleSegmentEnds() {
    const int rows = Rows();
    std::vector<double> at(3);
    std::vector<double> found(3);
    for (int k = 0; k < rows; ++k) {
        for (int b = 0; b < propeller_.BladeCount(); ++b) {
            if (!Measured(b, k)) {
                continue;
            }
            const std::shared_ptr<clsBlades> blade = propeller_.Blades(b);
            const std::shared_ptr<clsSection> s = blade->Section(k);
            at = {s->SegmentThetaTE(), s->SegmentThetaBCL(), s->SegmentThetaLE()};
            if (!ResampleAt(b, k, at, found)) {
                Prompts().MessageBox(
                    "An error occurred inserting points into the raw data curves. Please check "
                    "the data and try again.",
                    MsgBox::OKOnly | MsgBox::Critical, kPropertiesError);
                return false;
            }
            s->SetSegmentAxialXTE(found[0]);
            s->SetSegmentAxialXBCL(found[1]);
            s->SetSegmentAxialXLE(found[2]);
            if (blade->RadialPos(k) == 0.0) {
                double r = 0.0;
                if (CalcRadius(*s, r) == 0) {
                    return false;
                }
                if (propeller_.Diameter() == 0.0) {
                    geometry::ThrowDivisionByZero();
                }
                blade->SetRadialPos(k, r / (propeller_.Diameter() / 2.0));
            }
            const double arc = std::fabs(s->SegmentThetaLE() - s->SegmentThetaTE()) * gDegToRad *
                               blade->RadialPos(k) * propeller_.Diameter() / 2.0;
            const double ax = std::fabs(s->SegmentAxialXLE() - s->SegmentAxialXTE());
            s->SetSegmentChord(std::sqrt(arc * arc + ax * ax));
        }
    }
    return true;
}

bool PropertiesRun::MeasureBlades() {
    for (int b = 0; b < propeller_.BladeCount(); ++b) {
        if (propeller_.Blades(b)->SectionCount() > 0 && !MeasureBlade(b)) {
            return false;
        }
    }
    return true;
}

bool PropertiesRun::MeasureBlade(int b) {
    const std::shared_ptr<clsBlades> blade = propeller_.Blades(b);
    const int rows = blade->SectionCount();
    for (int k = 0; k < rows; ++k) {
        if (Valid(b, k) && ProcessSectionMeasures(propeller_, b, k) == 0) {
            ShowError("An error occurred calculating section properties from the Scan data (Scan: " + scan_ +
                      BladeText(b) + SectionText(b, k) + ").");
            return false;
        }
    }
    if (CalcISOBladePitch(propeller_, b) == 0) {
        ShowError("An error occurred calculating ISO blade pitch from the Scan data (Scan: " + scan_ + ").");
        return false;
    }
    if (CalcIntegratedBladePitch(propeller_, b) == 0) {
        ShowError("An error occurred calculating effective blade pitch from the Scan data (Scan: " + scan_ +
                  BladeText(b) + ").");
        return false;
    }
    double effective = 0.0;
    if (CalcISOEffectiveBladeAngle(effective, propeller_, b) == 0) {
        ShowError("An error occurred calculating the effective blade angle from the Scan data (Scan: " +
                  scan_ + BladeText(b) + ").");
        return false;
    }
    for (int k = 0; k < rows; ++k) {
        double arc = 0.0;
        if (CalcLEArcLength(rotation_, arc, blade->ISOEffectiveBladeAngleDeg(),
                            markedRadius_ * blade->RadialPos(k), *blade->Section(k)) == 0) {
            return false;
        }
        blade->Section(k)->SetISOLEArcLengthPerSection(arc);
    }
    // Skew is taken from where the blade stands as a whole, so that a blade's spacing error does
    // not read as skew; a panel-mode reference has no such measure and keeps its GL.
    const double reference = panelMode_ ? blade->GLPositionThetaDeg() : blade->ISOEffectiveBladeAngleDeg();
    for (int k = 0; k < rows; ++k) {
        if (!Valid(b, k)) {
            blade->SetSkewHelix(k, 0.0);
            continue;
        }
        double skew = 0.0;
        if (CalcSkew(rotation_, markedRadius_ * blade->RadialPos(k), blade->RakeAft(k), blade->Pitch(k),
                     *blade->Section(k), blade->GLPositionAxialX(), reference, skew) == 0) {
            return false;
        }
        blade->SetSkewHelix(k, skew);
    }
    return true;
}

bool PropertiesRun::MeasurePanels() {
    for (int b = 0; b < propeller_.BladeCount(); ++b) {
        const int rows = propeller_.Blades(b)->SectionCount();
        for (int k = 0; k < rows; ++k) {
            if (!Valid(b, k)) {
                continue;
            }
            int n = 0;
            if (panelMode_) {
                // A resplined reference keeps the panel grid of its first blade, or one panel
                // per raw offset where that blade has none yet.
                const std::shared_ptr<clsSection> first = propeller_.Blades(0)->Section(k);
                n = first->SegmentPanelCount() > 1 ? first->SegmentPanelCount() : first->RawOffsetCount();
            } else {
                n = GetSectionPanelCount(panelGrid_, b, k, false);
            }
            if (CalcLocalPitchByNormal(rotation_, propeller_, b, k, n, false, Curve(b, k)) == 0) {
                ShowError("An error occurred calculating local pitch segments from the Scan data (Scan: " +
                          scan_ + BladeText(b) + SectionText(b, k) + ").");
                return false;
            }
        }
    }
    return true;
}

// Total angle and axial rake of each section at its raw mid-angle, the blade centre line.
bool PropertiesRun::MeasureBCL() {
    for (int b = 0; b < propeller_.BladeCount(); ++b) {
        const std::shared_ptr<clsBlades> blade = propeller_.Blades(b);
        const double t0 = blade->GLPositionThetaDeg();
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (!Valid(b, k)) {
                continue;
            }
            const std::shared_ptr<clsSection> s = blade->Section(k);
            const double a = Wrap180(s->ThetaDeg(0) - t0);
            const double bb = Wrap180(s->ThetaDeg(s->RawOffsetCount() - 1) - t0);
            blade->SetISOTotalThetaDegToBCL(k, Wrap360((a + bb) / 2.0 + t0));
            double rake = 0.0;
            if (DropAt(b, k, blade->ISOTotalThetaDegToBCL(k), rake) == 0) {
                ShowError("An error occurred calculating the axial rake at the BCL position defined by the "
                          "reference data.");
                return false;
            }
            blade->SetISOTotalAxialRakeToBCL(k, rake);
        }
    }
    return true;
}

bool PropertiesRun::MeasurePropeller() {
    if (CalcISOPropellerPitch(propeller_) == 0) {
        ShowError("An error occurred calculating ISO prop pitch from the Scan data (Scan: " + scan_ + ").");
        return false;
    }
    return true;
}

} // namespace

std::int32_t CalculatePropellerProperties(clsPropeller& propeller, bool panelMode, bool setSegmentLimits,
                                          clsPropeller* panelGrid) {
    std::int32_t status = 0;
    GuardedStep("calculating propeller geometric properties", [&] {
        status = 0;
        if (!gProject) {
            throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
        }
        propeller.SetDiameter(gProject->MarkedDiameter());
        propeller.SetPitchOfRecord(gProject->MarkedPitch());
        if (propeller.BladeCount() <= 0) {
            status = 1;
            return;
        }
        PropertiesRun run(propeller, panelMode, panelGrid ? *panelGrid : propeller);
        if ((setSegmentLimits && !run.SetSegmentLimits()) || !run.ResampleSegmentEnds() ||
            !run.MeasureBlades() || !run.MeasurePanels() || !run.MeasureBCL() || !run.MeasurePropeller()) {
            return;
        }
        status = 1;
    });
    return status;
}

} // namespace corvane
