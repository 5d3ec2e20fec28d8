#pragma once

// Projects swept from virtual propellers and checked as CHECK checks them, for the builders'
// tests: an ideal four-bladed right-hand propeller of 40 in and variants of it.

#include "common/ServicesFixture.h"

#include "acquisition/DemoProject.h"
#include "check/CheckRun.h"
#include "files/modProjectCommands.h"
#include "graphs/RecordingSurface.h"
#include "graphs/modGraphs.h"
#include "iso484/clsISO484.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/clsPropeller.h"
#include "model/clsUnits.h"
#include "model/modReferenceSource.h"

#include <algorithm>
#include <string>
#include <vector>

namespace corvane::test {

class GraphsTest : public ServicesTest {
protected:
    // The demo's propeller with constant pitch: every section at `pitch` unless a blade factor
    // says otherwise.
    static clsVirtualPropeller Ideal(std::int16_t rotation = 0) {
        clsVirtualPropeller prop = DemoPropeller();
        prop.Pitch = {{0.0, 36.0}};
        prop.RotationIndex = rotation;
        return prop;
    }

    // A project of `prop` in inches, class I, checked against a constant pitch (none for 0).
    void Check(const clsVirtualPropeller& prop, double referencePitch, int points = 40) {
        ASSERT_EQ(CreateNewProject(), 1);
        gUnits->SetPropLengthIndex(2);
        gProject->SetProjectID("GRAPHS");
        gProject->SetCustomer("Test");
        gProject->SetMarkedDiameter(prop.Diameter);
        gProject->SetMarkedPitch("36");
        gProject->SetRotationIndex(prop.RotationIndex);
        gProject->SetBladeCount(prop.BladeCount);
        gISO484->SetISOClassIndex(1);
        gProject->SetPropellerScanCount(1);
        gProject->SetActiveScanIndex(0);
        auto scan = gProject->PropellerScan(0);
        scan->SetScanDrop(1);
        prop.FillScan(*scan, std::vector<double>(gRadialPositions.begin(), gRadialPositions.end()), points);
        if (referencePitch > 0) {
            gProject->SetReferenceSourceIndex(kReferenceScan);
            gProject->SetReferenceSectionPitchSourceIndex(0);
            gProject->SetReferenceSectionPitchIndex(0);
            gProject->SetReferenceConstantPitch(referencePitch);
            for (int b = 0; b < prop.BladeCount; ++b) {
                gProject->SetReferenceScanBladesEnabled(b, 1);
            }
        }
        CheckRequest request;
        const CheckOutcome outcome = RunCheck(*gProject, *gISO484, request);
        ASSERT_TRUE(outcome.Passed());
        ASSERT_EQ(gProject->ReferenceSourceIndex(), referencePitch > 0 ? kReferenceScan : kReferenceNone);
    }

    GraphRequest Request() const {
        GraphRequest request{*gProject, *gISO484, 0};
        request.selection.blades = EnabledBlades(*gProject->PropellerScan(0));
        request.options = options;
        return request;
    }

    // The texts printed, joined by "|", for messages.
    static std::string Joined(const RecordingSurface& s) {
        std::string all;
        for (const std::string& t : s.Texts()) {
            all += t + "|";
        }
        return all;
    }

    static bool PrintedWith(const RecordingSurface& s, const std::string& part) {
        const auto texts = s.Texts();
        return std::any_of(texts.begin(), texts.end(),
                           [&](const std::string& t) { return t.find(part) != std::string::npos; });
    }

    // The pen position a text was printed at; the first print of it.
    static const SurfaceCall* PrintOf(const RecordingSurface& s, const std::string& text) {
        for (const SurfaceCall& c : s.calls) {
            if (c.kind == SurfaceCall::Kind::Print && c.text == text) {
                return &c;
            }
        }
        return nullptr;
    }

    GraphOptions options;
    RecordingSurface surface{900, 900};
};

} // namespace corvane::test
