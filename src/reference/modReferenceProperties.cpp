#include "reference/modReferenceProperties.h"

#include "geometry/modEffectiveBladeAngle.h"
#include "geometry/modISOPitch.h"
#include "geometry/modPropellerProperties.h"
#include "geometry/modReferenceSegments.h"
#include "geometry/modScanDataUtilities.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsSection.h"
#include "model/modBladeCoverage.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "reference/ReferenceRun.h"
#include "reference/modImportFile.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <memory>
#include <string>

namespace corvane {

namespace detail {

constexpr int kObjectNotSet = 91;

namespace {

constexpr const char* kReferenceTitle = "Reference Data Error";
constexpr const char* kScanTitle = "Scan Data Error";

// A section that carries a measure: one point alone has none.
bool HasOffsets(const clsPropeller& propeller, int b, int k) {
    if (b < 0 || b >= propeller.BladeCount()) {
        return false;
    }
    const std::shared_ptr<clsBlades> blade = propeller.Blades(b);
    return k >= 0 && k < blade->SectionCount() && blade->Section(k)->RawOffsetCount() > 1;
}

void BlankSection(clsSection& s) {
    s.SetRawOffsetCount(0);
    s.SetSegmentOffsetCount(0);
    s.SetSegmentPanelCount(0);
}

void Warn(const std::string& text, const char* title) {
    Prompts().MessageBox(text, MsgBox::OKOnly | MsgBox::Exclamation, title);
}

} // namespace

ReferenceRun::ReferenceRun(clsCorvane& project, bool useRawEnds)
    : project_(project), active_(*project.PropellerScan(project.ActiveScanIndex())),
      rotation_(project.RotationIndex()), useRawEnds_(useRawEnds) {}

void ReferenceRun::Tell(const std::string& what, int blade) const {
    Warn(what + " (Blade: " + std::to_string(blade + 1) + ").", kReferenceTitle);
}

void ReferenceRun::Tell(const std::string& what, int blade, int section, const char* title) const {
    Tell(what, blade, *reference_, section, title);
}

void ReferenceRun::Tell(const std::string& what, int blade, const clsPropeller& propeller, int section,
                        const char* title) const {
    Warn(what + " (Blade: " + std::to_string(blade + 1) +
             ", Section: " + FormatPoint(propeller.Blades(blade)->RadialPos(section), "0.0#") + ").",
         title ? title : kReferenceTitle);
}

bool ReferenceRun::FromFile() {
    reference_ = project_.ReferenceSource()->CopyClass();
    project_.SetReferenceScan(reference_);
    clsPropeller& ref = *reference_;
    const auto setHeader = [&] {
        ref.SetDiameter(project_.MarkedDiameter());
        ref.SetPitchOfRecord(project_.MarkedPitch());
    };
    setHeader();
    project_.SetReferenceDiameter(project_.MarkedDiameter());
    ref.SetBladeCount(project_.BladeCount());
    if (BuildPPPOffsets(ref, false) != 1) {
        return false;
    }
    if (ResplineSectionsToISORadii(ref) != 1) {
        Warn("An error occurred splining the reference file to the current r/R distribution.",
             kReferenceTitle);
        return false;
    }
    setHeader();

    // Blade 0 of the file is turned and shifted onto the active scan's blade 0: S and D carry its
    // effective angle and axial position about its GL onto those of the scan's blade. Both are
    // taken on the same span: on a copy of the file's blade that holds only the rows the scan's
    // blade 0 is placed by.
    const clsBlades& scanBlade = *active_.Blades(0);
    const std::shared_ptr<clsPropeller> span = ref.CopyClass();
    {
        const std::shared_ptr<clsBlades> blade = span->Blades(0);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (!HasOffsets(active_, 0, k) || !RowOnEveryBlade(active_, k)) {
                BlankSection(*blade->Section(k));
            }
        }
    }
    const double refGL = span->Blades(0)->GLPositionThetaDeg();
    const double refAxialGL = span->Blades(0)->GLPositionAxialX();
    double angle = 0.0;
    if (CalcISOEffectiveBladeAngle(angle, *span, 0) == 0) {
        Tell("An error occurred calculating the blade angle shift for the Reference scan", 0);
        return false;
    }
    const double rm = Wrap180(angle - refGL);
    if (CalcISOEffectiveBladeAngle(angle, active_, 0) == 0) {
        Tell("An error occurred calculating the blade angle shift for the Propeller scan", 0);
        return false;
    }
    const double shift = Wrap180(angle - scanBlade.GLPositionThetaDeg()) - rm;
    double axial = 0.0;
    if (CalcISOEffectiveBladeAxialDrop(axial, *span, 0) == 0) {
        Tell("An error occurred calculating the blade axial shift for the Reference scan", 0);
        return false;
    }
    const double ra = axial - refAxialGL;
    if (CalcISOEffectiveBladeAxialDrop(axial, active_, 0) == 0) {
        Tell("An error occurred calculating the blade axial shift for the Propeller scan", 0);
        return false;
    }
    const double drop = axial - scanBlade.GLPositionAxialX() - ra;
    const std::shared_ptr<clsBlades> blade0 = ref.Blades(0);
    for (int k = 0; k < blade0->SectionCount(); ++k) {
        clsSection& s = *blade0->Section(k);
        if (s.RawOffsetCount() < 1) {
            continue;
        }
        for (int j = 0; j < s.RawOffsetCount(); ++j) {
            s.SetThetaDeg(j, Wrap360(s.ThetaDeg(j) + shift));
            s.SetAxialDropX(j, s.AxialDropX(j) + drop);
        }
        s.SetRawAxialXLE(s.RawAxialXLE() + drop);
        s.SetRawAxialXTE(s.RawAxialXTE() + drop);
        s.SetRawAxialXBCL(s.RawAxialXBCL() + drop);
    }

    // Every blade is blade 0 again, on the GL of the scan's blade of the same index. The points
    // keep their turn about the GL (a GL of 0 on blade 0, as the scan alignment leaves it, makes
    // this plain addition) and are not wrapped.
    blade0->SetGLPositionThetaDeg(scanBlade.GLPositionThetaDeg());
    const double gl0 = blade0->GLPositionThetaDeg();
    for (int b = 1; b < ref.BladeCount(); ++b) {
        const std::shared_ptr<clsBlades> blade = ref.Blades(b);
        const double gl = b < active_.BladeCount() ? active_.Blades(b)->GLPositionThetaDeg() : gl0;
        blade->SetGLPositionThetaDeg(gl);
        blade->SetSectionCount(blade0->SectionCount());
        for (int k = 0; k < blade0->SectionCount(); ++k) {
            const std::shared_ptr<clsSection> copy = blade0->Section(k)->CopyClass();
            for (int j = 0; j < copy->RawOffsetCount(); ++j) {
                copy->SetThetaDeg(j, copy->ThetaDeg(j) - gl0 + gl);
            }
            blade->SetSection(k, copy);
            blade->SetRadialPos(k, blade0->RadialPos(k));
        }
    }
    // A row a blade of the scan did not measure is not compared on that blade: the reference
    // leaves it out there, and only there. Blanked before the copy, a row missing on blade 0
    // would be missing on every blade.
    for (int b = 0; b < ref.BladeCount(); ++b) {
        const std::shared_ptr<clsBlades> blade = ref.Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (!HasOffsets(active_, b, k)) {
                BlankSection(*blade->Section(k));
            }
        }
    }
    for (int b = 0; b < ref.BladeCount(); ++b) {
        if (CalcISOEffectiveBladeAngle(angle, ref, b) == 0) {
            Tell("An error occurred calculating the blade angle shift for the Reference scan", b);
            return false;
        }
    }
    // The reference is cut into the panels of the scan's rows, so that panel j meets panel j.
    return CopySegmentLimitsToReference(ref) == 1 &&
           CalculatePropellerProperties(ref, false, false, &active_) == 1;
}

bool ReferenceRun::FinishBCL() {
    clsPropeller& ref = *reference_;
    const std::shared_ptr<clsBlades> blade0 = ref.Blades(0);
    // The reference's BCL: the mid-angle of blade 0's raw ends about its GL, on each blade's GL.
    for (int b = 0; b < ref.BladeCount(); ++b) {
        const std::shared_ptr<clsBlades> blade = ref.Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (!HasOffsets(ref, b, k)) {
                continue;
            }
            // Blade 0 gives the mid-angle; where it lacks the row the blade's own ends stand in.
            const bool fromBlade0 = HasOffsets(ref, 0, k);
            clsBlades& from = fromBlade0 ? *blade0 : *blade;
            const clsSection& s = *from.Section(k);
            const double a = Wrap180(s.ThetaDeg(0) - from.GLPositionThetaDeg());
            const double last = Wrap180(s.ThetaDeg(s.RawOffsetCount() - 1) - from.GLPositionThetaDeg());
            const double theta = Wrap360((a + last) / 2.0 + blade->GLPositionThetaDeg());
            blade->SetISOTotalThetaDegToBCL(k, theta);
            double rake = 0.0;
            if (CalcSectionAxialDrop(ref, b, k, theta, rake) == 0) {
                Tell("An error occurred calculating axial drop at the BCL for the Reference scan", b, k);
                return false;
            }
            blade->SetISOTotalAxialRakeToBCL(k, rake);
        }
    }
    // The scan's rake is taken at the reference's BCL position.
    for (int b = 0; b < active_.BladeCount() && b < ref.BladeCount(); ++b) {
        const std::shared_ptr<clsBlades> blade = active_.Blades(b);
        for (int k = 0; k < blade->SectionCount(); ++k) {
            if (!HasOffsets(active_, b, k) || !HasOffsets(ref, b, k)) {
                continue;
            }
            const double theta = ref.Blades(b)->ISOTotalThetaDegToBCL(k);
            blade->SetISOTotalThetaDegToBCL(k, theta);
            double rake = 0.0;
            if (CalcSectionAxialDrop(active_, b, k, theta, rake) == 0) {
                Tell("An error occurred calculating axial drop at the BCL for the active propeller scan", b,
                     active_, k, kScanTitle);
                return false;
            }
            blade->SetISOTotalAxialRakeToBCL(k, rake);
        }
    }
    return true;
}

bool ReferenceRun::FinishPitch() {
    clsPropeller& ref = *reference_;
    for (int b = 0; b < ref.BladeCount(); ++b) {
        if (CalcISOBladePitch(ref, b) == 0) {
            Tell("An error occurred calculating ISO blade pitch for the Reference scan", b);
            return false;
        }
    }
    if (CalcISOPropellerPitch(ref) == 0) {
        // The propeller's pitch has no blade of its own: the message names the last one.
        Tell("An error occurred calculating ISO pitch for the Reference scan", ref.BladeCount() - 1);
        return false;
    }
    return true;
}

// A reference made from a scan has no leading edge of its own to measure from: each row takes the
// mean arc of the scan's enabled blades measured there.
void ReferenceRun::ShareLEArcs() {
    clsPropeller& ref = *reference_;
    const int rows = ref.Blades(0)->SectionCount();
    for (int k = 0; k < rows; ++k) {
        double sum = 0.0;
        int count = 0;
        for (int b = 0; b < active_.BladeCount() && b < ref.BladeCount(); ++b) {
            if (active_.Blades(b)->BladeEnabled() && HasOffsets(active_, b, k) && HasOffsets(ref, b, k)) {
                sum += active_.Blades(b)->Section(k)->ISOLEArcLengthPerSection();
                ++count;
            }
        }
        if (count == 0) {
            continue;
        }
        for (int b = 0; b < ref.BladeCount(); ++b) {
            if (k < ref.Blades(b)->SectionCount()) {
                ref.Blades(b)->Section(k)->SetISOLEArcLengthPerSection(sum / count);
            }
        }
    }
}

} // namespace detail

std::int32_t CalculateReferenceProperties(clsCorvane& project, std::int16_t& useRawEnds) {
    ErrorTail tail("calculating reference propeller geometric properties");
    bool done = false;
    const bool ran = tail.Step([&] {
        done = false;
        if (!project.PropellerScan(project.ActiveScanIndex())) {
            throw CorvaneError(detail::kObjectNotSet, "Object variable or With block variable not set");
        }
        const std::int16_t source = project.ReferenceSourceIndex();
        if (source == kReferenceNone) {
            project.SetReferenceScan(project.PropellerScan(project.InternalScanIndex())->CopyClass());
            done = true;
            return;
        }
        detail::ReferenceRun run(project, detail::IsSet(useRawEnds));
        if (source == kReferenceScan ? !run.FromScan() : !run.FromFile()) {
            return;
        }
        if (!run.FinishBCL() || !run.FinishPitch()) {
            return;
        }
        if (source == kReferenceScan) {
            run.ShareLEArcs();
        }
        done = true;
    });
    return ran && done ? 1 : 0;
}

std::int32_t ResortReferenceSections(clsPropeller& reference) {
    ErrorTail tail("resorting reference propeller sections ");
    return tail.Step([&] {
        const std::shared_ptr<clsPropeller> copy = reference.CopyClass();
        reference = clsPropeller();
        reference.SetUnits(copy->Units());
        reference.SetDiameter(copy->Diameter());
        if (gProject) {
            reference.SetBladeCount(gProject->BladeCount());
        }
        const int rows = static_cast<int>(gRadialPositions.size());
        clsBlades& blade = *reference.Blades(0);
        blade.SetSectionCount(static_cast<std::int16_t>(rows));
        const clsBlades& from = *copy->Blades(0);
        for (int k = 0; k < from.SectionCount(); ++k) {
            for (int j = 0; j < rows; ++j) {
                const double row = gRadialPositions[static_cast<std::size_t>(j)];
                if (!CompareDouble(from.RadialPos(k), kCompareEqual, row, 0.01)) {
                    continue;
                }
                blade.SetRadialPos(j, row);
                blade.SetChord(j, from.Chord(k));
                blade.SetPitch(j, from.Pitch(k));
                blade.SetSkewHelix(j, from.SkewHelix(k));
                const std::shared_ptr<clsSection> read = copy->Blades(0)->Section(k);
                clsSection& section = *blade.Section(j);
                section.SetSegmentPanelCount(read->SegmentPanelCount());
                if (read->SegmentPanelCount() > 0) {
                    section.SetSegmentPanelPitchArray(read->SegmentPanelPitchArray());
                }
                break;
            }
        }
    })
               ? 1
               : 0;
}

} // namespace corvane
