#pragma once

// A four-bladed propeller of 3 m with its results set by hand, as the geometry would leave them,
// and a reference that is an exact copy of it: every criterion of every class passes until a
// test puts something off. The geometry routines are stand-ins that leave those results alone.

#include "common/ServicesFixture.h"
#include "iso484/modISO484.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"

namespace corvane::test {

class ISOEvaluationTest : public ServicesTest {
protected:
    static constexpr int kMillimetres = 3;
    static constexpr int kBlades = 4;
    static constexpr int kSections = 8;
    static constexpr int kPanels = 4;
    static constexpr double kDiameter = 3000.0; // mm: ISO 484-1
    static constexpr double kPitch = 2000.0;
    static constexpr double kChord = 800.0;
    static constexpr double kHalfSpan = 20.0; // degrees from the effective angle to each edge

    void SetUp() override {
        ServicesTest::SetUp();
        gAppDataPath = environment.appDataFolder;
        units->SetPropLengthIndex(kMillimetres);
        gUnits = units;
        gProject = std::make_shared<clsCorvane>();
        gProject->SetLinkedClasses(units);
        gISO484 = std::make_shared<clsISO484>();
        gISO484->SetLinkedClasses(units);
        gProject->SetBladeCount(kBlades);
        gProject->SetPropellerScanCount(1);
        UsePropeller(kDiameter, kPitch, kChord);
    }

    clsCorvane& Project() { return *gProject; }
    clsISO484& ISO() { return *gISO484; }
    clsPropeller& Scan() { return *gProject->PropellerScan(0); }
    clsPropeller& Reference() { return *gProject->ReferenceScan(); }
    clsBlades& ScanBlade(int b) { return *Scan().Blades(b); }

    // A clean scan and its reference (a file reference, source 2).
    void UsePropeller(double diameter, double pitch, double chord) {
        Project().SetMarkedDiameter(diameter);
        Project().SetReferenceDiameter(diameter);
        Project().SetReferenceConstantPitch(pitch);
        Project().SetPropellerScan(0, Ideal(diameter, pitch, chord));
        Project().SetReferenceScan(Ideal(diameter, pitch, chord));
        Project().SetReferenceSourceIndex(2);
    }

    static std::shared_ptr<clsPropeller> Ideal(double diameter, double pitch, double chord) {
        auto p = std::make_shared<clsPropeller>();
        p->SetBladeCount(kBlades);
        p->SetDiameter(diameter);
        p->SetISOPropellerPitch(pitch);
        for (int b = 0; b < kBlades; ++b) {
            auto blade = p->Blades(b);
            const double angle = Wrap360(-90.0 * b); // right hand: blades follow at -360/n
            blade->SetSectionCount(kSections);
            blade->SetBladeEnabled(true);
            blade->SetBladeDiameter(diameter);
            blade->SetGLPositionThetaDeg(angle);
            blade->SetISOEffectiveBladeAngleDeg(angle);
            blade->SetISOBladePitch(pitch);
            for (int k = 0; k < kSections; ++k) {
                const double rR = kStandardRadialPositions[static_cast<std::size_t>(k)];
                blade->SetRadialPos(k, rR);
                blade->SetPitch(k, pitch);
                blade->SetChord(k, chord);
                blade->SetISOTotalAxialRakeToBCL(k, 10.0 * k);
                blade->SetISOTotalThetaDegToBCL(k, angle);
                auto s = blade->Section(k);
                s->SetThetaDegArray({Wrap360(angle - kHalfSpan), Wrap360(angle + kHalfSpan)});
                s->SetAxialDropXArray({30.0, -30.0});
                s->SetSegmentPanelPitchArray(std::vector<double>(kPanels, pitch));
                s->SetSegmentOffsetCount(kPanels + 1);
                s->SetISOLEArcLengthPerSection(kHalfSpan * gDegToRad * rR * diameter / 2.0);
            }
        }
        return p;
    }

    // Turns a whole blade of the scan by `degrees`: its effective angle and its sweeps.
    void TurnBlade(int b, double degrees) {
        auto& blade = ScanBlade(b);
        blade.SetISOEffectiveBladeAngleDeg(Wrap360(blade.ISOEffectiveBladeAngleDeg() + degrees));
        for (int k = 0; k < kSections; ++k) {
            auto s = blade.Section(k);
            for (int i = 0; i < s->RawOffsetCount(); ++i) {
                s->SetThetaDeg(i, Wrap360(s->ThetaDeg(i) + degrees));
            }
        }
    }

    // Leaves section k of every blade of the scan unmeasured.
    void DropSection(int k) {
        for (int b = 0; b < kBlades; ++b) {
            ScanBlade(b).Section(k)->SetRawOffsetCount(0);
        }
    }

    // The project's class and criteria, through the chain as every screen runs it.
    void RunChain(std::int16_t classIndex, std::int16_t criteria = 0) {
        ISO().SetISOClassIndex(classIndex);
        ISO().SetISOCriteriaIndex(criteria);
        ClearISOCriteriaStatus();
        SetISOStandardAndTolerances(ISO(), Project());
        ASSERT_EQ(EvaluateISOCriteria(Project(), ISO()), 1);
    }

    std::int16_t Code(ISOClassRow row, int blade) const {
        return codes[static_cast<std::size_t>(row)][static_cast<std::size_t>(blade)];
    }

    std::shared_ptr<clsUnits> units = std::make_shared<clsUnits>();
    ISOClassCodes codes;
    std::int16_t propellerCode = -1;
};

} // namespace corvane::test
