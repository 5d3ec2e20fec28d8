#pragma once

// A project in millimetres swept from ideal virtual propellers, with the real geometry wired into
// the evaluation chain: scan 0 is the active scan, scan 1 (when asked for) a clean sweep that a
// locked scan reference can be made from.

#include "check/CalculationChain.h"
#include "check/modISO484BestClass.h"
#include "geometry/PropertiesFixture.h"
#include "iso484/modISO484.h"
#include "reference/modReferenceProperties.h"

namespace corvane::test {

class ReferenceTest : public PropertiesTest {
protected:
    void SetUp() override { PropertiesTest::SetUp(); }

    // A shop propeller of 3 m (ISO 484-1), four blades, pitch 2400 mm.
    static clsVirtualPropeller Shop(std::int16_t rotation = 0, std::int16_t blades = 4) {
        return ShopPropeller(rotation, blades);
    }

    // A small propeller of 1 m (ISO 484-2, above the 0.8 m size limit), pitch 400 mm.
    static clsVirtualPropeller Small() {
        clsVirtualPropeller prop = ShopPropeller(0, 4);
        prop.Diameter = 1000.0;
        prop.Pitch = {{0.0, 400.0}};
        prop.Chord = {{0.3, 150.0}, {0.7, 260.0}, {0.95, 170.0}};
        prop.Rake = {{0.3, 0.0}, {0.95, 20.0}};
        prop.GLDrop = 10.0;
        return prop;
    }

    // Sweeps `prop` into scan 0 (and `clean` into scan 1 when given), checks them as CHECK does
    // and measures scan 0. `edit` changes the raw sweeps of scan 0 before the check, blade index as swept.
    template <class Edit>
    bool Measure(const clsVirtualPropeller& prop, const clsVirtualPropeller* clean, Edit edit,
                 int points = kPoints) {
        SweepProject(prop, points);
        if (clean) {
            gProject->SetPropellerScanCount(2);
            clean->FillScan(*gProject->PropellerScan(1), Rows(), points);
        }
        edit(*gProject->PropellerScan(0));
        gProject->SetReferenceConstantPitch(prop.At(prop.Pitch, 0.7));
        for (int b = 0; b < prop.BladeCount; ++b) {
            gProject->SetReferenceScanBladesEnabled(b, 1);
        }
        if (clean) {
            gProject->SetInternalScanSourceIndex(1);
            gProject->SetInternalScanIndex(1);
            if (CheckScanData(*gProject, 1) != 1) {
                return false;
            }
            // Its blades were switched on when it was last the active scan and evaluated.
            for (int b = 0; b < clean->BladeCount; ++b) {
                gProject->PropellerScan(1)->Blades(b)->SetBladeEnabled(true);
            }
        }
        // CalculateAllISOData measures the active scan before it asks for the reference.
        return CheckScanData(*gProject, 0) == 1 &&
               CalculatePropellerProperties(*gProject->PropellerScan(0), false, true) == 1;
    }
    bool Measure(const clsVirtualPropeller& prop, const clsVirtualPropeller* clean = nullptr) {
        return Measure(prop, clean, [](clsPropeller&) {});
    }

    // Replaces the sweep of one row of one swept blade by that of another propeller.
    static void TakeSection(clsPropeller& scan, const clsVirtualPropeller& from, int blade, int row,
                            int points = kPoints) {
        clsPropeller other;
        other.SetBladeCount(from.BladeCount);
        from.FillScan(other, Rows(), points);
        scan.Blades(blade)->SetSection(row, other.Blades(blade)->Section(row)->CopyClass());
    }

    // The scan's slot that holds swept blade `blade` after the check turned the scan.
    static int SlotOf(int blade, int count) { return (count - blade) % count; }

    static std::int16_t Calculate() {
        std::int16_t raw = 0;
        return static_cast<std::int16_t>(CalculateReferenceProperties(*gProject, raw));
    }

    static clsPropeller& Active() { return *gProject->PropellerScan(0); }
    static clsPropeller& Ref() { return *gProject->ReferenceScan(); }

    static constexpr int kPoints = 60;
};

} // namespace corvane::test
