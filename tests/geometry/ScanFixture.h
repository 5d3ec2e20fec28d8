#pragma once

#include "acquisition/clsVirtualPropeller.h"
#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "model/clsCorvane.h"
#include "model/modUtilities.h"

namespace corvane::test {

// gProject with one scan of the selected hand, for the scan alignment and the scan check.
class ScanTest : public ServicesTest {
protected:
    std::shared_ptr<clsPropeller> NewProject(std::int16_t rotation, std::int16_t blades) {
        gProject = std::make_shared<clsCorvane>();
        gProject->SetUnits(std::make_shared<clsUnits>());
        gProject->SetRotationIndex(rotation);
        gProject->SetBladeCount(blades);
        gProject->SetPropellerScanCount(1);
        auto scan = gProject->PropellerScan(0);
        for (int b = 0; b < blades; ++b) {
            scan->Blades(b)->SetSectionCount(8);
        }
        return scan;
    }

    // The virtual propeller swept on the eight standard rows.
    std::shared_ptr<clsPropeller> Sweep(const clsVirtualPropeller& prop, int points = 12) {
        auto scan = NewProject(prop.RotationIndex, prop.BladeCount);
        prop.FillScan(*scan, Rows(), points);
        return scan;
    }

    static std::vector<double> Rows() {
        return {kStandardRadialPositions.begin(), kStandardRadialPositions.end()};
    }

    // A hand-made sweep: the given angles at arm radius 10, the drop rising by 0.1 a point.
    static void SetSweep(clsPropeller& scan, int blade, int row, const std::vector<double>& theta) {
        auto section = scan.Blades(blade)->Section(row);
        std::vector<double> radius(theta.size(), 10.0);
        std::vector<double> drop(theta.size());
        for (std::size_t i = 0; i < drop.size(); ++i) {
            drop[i] = 0.1 * static_cast<double>(i);
        }
        section->SetRadiusArray(radius);
        section->SetThetaDegArray(theta);
        section->SetAxialDropXArray(drop);
    }

    static std::shared_ptr<clsSection> At(int blade, int row) {
        return gProject->PropellerScan(0)->Blades(blade)->Section(row);
    }
};

// A message box as it was shown: text, title, buttons and icon.
inline void ExpectShown(const ScriptedPrompts::Shown& shown, const std::string& text,
                        const std::string& title, int style) {
    EXPECT_EQ(shown.kind, ScriptedPrompts::Kind::MessageBox);
    EXPECT_EQ(shown.text, text);
    EXPECT_EQ(shown.title, title);
    EXPECT_EQ(shown.style, style);
}

// Angles equal round the circle within tol.
inline ::testing::AssertionResult SameAngle(double actual, double expected, double tol = 1e-9) {
    const double d = Wrap180(actual - expected);
    if (std::fabs(d) <= tol && std::isfinite(actual)) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << actual << " is not " << expected << " (off by " << d << ")";
}

} // namespace corvane::test
