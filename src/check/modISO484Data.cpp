#include "check/modISO484Data.h"

#include "geometry/clsSplineFitCache.h"
#include "geometry/modLocalPitch.h"
#include "geometry/modPropellerProperties.h"
#include "geometry/modScanDataUtilities.h"
#include "reference/modReferenceProperties.h"

#include <memory>
#include <string>
#include <utility>

#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/clsBlades.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsSection.h"
#include "model/modReferenceSource.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

namespace corvane {

namespace {

constexpr int kObjectNotSet = 91;
constexpr const char* kErrorTitle = "Scan Data Error";
constexpr const char* kDeviationMessage =
    "An error occurred calculating pitch deviations from the reference data.";
constexpr const char* kBCLRakeMessage =
    "An error occurred calculating the axial rake at the BCL position defined by the reference data.";

// A section that has been swept: one point alone carries no measure.
bool Measured(clsBlades& blade, int section) {
    return blade.Section(section)->RawOffsetCount() > 1;
}

void ShowScanDataError(const char* text) {
    Prompts().MessageBox(text, MsgBox::OKOnly | MsgBox::Exclamation, kErrorTitle);
}

// A reference the evaluators can read: present, and with a blade for every blade of the scan.
bool ReferenceUsable(const clsCorvane& project, const clsPropeller& scan) {
    const auto reference = project.ReferenceScan();
    return reference && reference->BladeCount() >= scan.BladeCount();
}

// Deviations and the rake at the reference's BCL angle, for every section measured on both.
// Returns the message of the first failure, or nullptr.
const char* CompareWithReference(clsPropeller& scan, clsPropeller& reference) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        auto blade = scan.Blades(b);
        auto refBlade = reference.Blades(b);
        for (int k = 0; k < blade->SectionCount() && k < refBlade->SectionCount(); ++k) {
            if (!Measured(*blade, k) || !Measured(*refBlade, k)) {
                continue;
            }
            if (CalcLocalPitchDeviations(scan, b, k, reference) != 1) {
                return kDeviationMessage;
            }
            double rake = 0.0;
            if (CalcSectionAxialDrop(scan, b, k, refBlade->ISOTotalThetaDegToBCL(k), rake) != 1) {
                return kBCLRakeMessage;
            }
            blade->SetISOTotalAxialRakeToBCL(k, rake);
        }
    }
    return nullptr;
}

// Without a reference the BCL of a section is the mid-angle of its raw ends about the GL.
const char* TakeOwnBCL(clsPropeller& scan) {
    for (int b = 0; b < scan.BladeCount(); ++b) {
        auto blade = scan.Blades(b);
        const double gl = blade->GLPositionThetaDeg();
        for (int k = 0; k < blade->SectionCount(); ++k) {
            auto section = blade->Section(k);
            if (section->RawOffsetCount() <= 1) {
                continue;
            }
            const double te = Wrap180(section->ThetaDeg(0) - gl);
            const double le = Wrap180(section->ThetaDeg(section->RawOffsetCount() - 1) - gl);
            const double theta = Wrap360((te + le) / 2.0 + gl);
            blade->SetISOTotalThetaDegToBCL(k, theta);
            double rake = 0.0;
            if (CalcSectionAxialDrop(scan, b, k, theta, rake) != 1) {
                return kBCLRakeMessage;
            }
            blade->SetISOTotalAxialRakeToBCL(k, rake);
        }
    }
    return nullptr;
}

} // namespace

std::int32_t CalculateAllISOData(clsCorvane& project, std::int16_t& useRawEnds) {
    ErrorTail tail("calculating all ISO data");
    // The scan's raw curves are read again by the reference and the comparison with it.
    const std::shared_ptr<void> fits = HoldSplineFits();
    std::shared_ptr<clsPropeller> scan;
    const bool ready = tail.Step([&] {
        scan = project.PropellerScan(project.ActiveScanIndex());
        if (!scan) {
            throw CorvaneError(kObjectNotSet, "Object variable or With block variable not set");
        }
        for (int b = 0; b < scan->BladeCount(); ++b) {
            auto blade = scan->Blades(b);
            for (int k = 0; k < blade->SectionCount(); ++k) {
                if (Measured(*blade, k)) {
                    blade->SetBladeEnabled(true);
                }
            }
        }
    });
    if (!ready) {
        return 0;
    }

    std::int32_t status = 0;
    if (!tail.Step([&] { status = CalculatePropellerProperties(*scan, false, true); }) || status != 1) {
        return 0;
    }

    // The reference is optional: whatever keeps it from being calculated leaves the scan to be
    // shown on its own, without a further word.
    if (!tail.Step([&] { status = CalculateReferenceProperties(project, useRawEnds); }) || status != 1 ||
        !ReferenceUsable(project, *scan)) {
        if (tail.Aborted()) {
            return 0;
        }
        project.SetReferenceSourceIndex(kReferenceNone);
    }

    const char* failure = nullptr;
    const bool done = tail.Step([&] {
        failure = project.ReferenceSourceIndex() != kReferenceNone
                      ? CompareWithReference(*scan, *project.ReferenceScan())
                      : TakeOwnBCL(*scan);
    });
    if (!done) {
        return 0;
    }
    if (failure) {
        ShowScanDataError(failure);
        return 0;
    }
    return 1;
}

} // namespace corvane
