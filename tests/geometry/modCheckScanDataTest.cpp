#include "geometry/modCheckScanData.h"
#include "ScanFixture.h"

namespace corvane::test {
namespace {

using modCheckScanDataTest = ScanTest;

const char* const kRadiusError = "An error in the arm radius values was found. Arm radius values cannot be "
                                 "negative, the scan data cannot be processed.";
const char* const kBladeError = "An error in the blade data was found. The blade has no sections, and the "
                                "procedure was aborted by the user.";
const char* const kNoDataError =
    "An error in the scan data was found. The scan has no data and is unable to proceed.";

// The turn and renumbering of ideal scans of every hand and blade count are checked with their
// properties (modPropellerPropertiesTest); here what the check refuses or repairs.
TEST_F(modCheckScanDataTest, BackwardPointsCloseUpTheAnglesOnly) {
    for (std::int16_t rotation : {0, 1}) {
        clsVirtualPropeller prop;
        prop.RotationIndex = rotation;
        prop.BladeCount = 3;
        prop.FirstBladeThetaDeg = 40;
        auto scan = Sweep(prop);
        auto section = scan->Blades(0)->Section(2);
        // Point 5 falls back onto point 3, point 6 repeats point 4's angle: neither moves on.
        std::vector<double> theta = section->ThetaDegArray();
        std::vector<double> drop = section->AxialDropXArray();
        section->SetThetaDeg(5, theta[3]);
        section->SetThetaDeg(6, theta[4]);
        for (int i = 0; i < 12; ++i) {
            section->SetRadius(i, 10.0 + i);
        }
        ASSERT_EQ(CheckScanData(*gProject, 0), 1);
        auto checked = gProject->PropellerScan(0)->Blades(0)->Section(2);
        ASSERT_EQ(checked->RawOffsetCount(), 10);
        const std::vector<int> kept = {0, 1, 2, 3, 4, 7, 8, 9, 10, 11};
        for (int i = 0; i < 10; ++i) {
            EXPECT_TRUE(SameAngle(checked->ThetaDeg(i), theta[kept[i]] - 40)) << i;
            EXPECT_DOUBLE_EQ(checked->Radius(i), 10.0 + i) << "radius stays in place";
            EXPECT_DOUBLE_EQ(checked->AxialDropX(i), drop[i]) << "drop stays in place";
        }
        EXPECT_EQ(gProject->PropellerScan(0)->Blades(1)->Section(2)->RawOffsetCount(), 12);
    }
}

// Yes goes on with the swept blades (modPropellerPropertiesRobustTest); No ends the check.
TEST_F(modCheckScanDataTest, BladesWithoutSectionsAskBeforeGoingOn) {
    // The question is asked after the blades are renumbered against the direction of rotation:
    // the virtual blades stand in the sense of rotation, so the empty one, 120 degrees ahead of
    // blade 0, ends up in the last slot.
    clsVirtualPropeller prop;
    prop.BladeCount = 3;
    Sweep(prop)->Blades(1)->SetSectionCount(0);
    prompts.Expect(Answer::No, "Blade 3 has");
    prompts.Expect(Answer::OK, "blade data");
    EXPECT_EQ(CheckScanData(*gProject, 0), 0);
    ExpectShown(prompts.History().at(0), "Blade 3 has no sections. Do you wish to proceed?",
                "Scan Data Warning...", MsgBox::YesNo | MsgBox::Exclamation);
    ExpectShown(prompts.History().at(1), kBladeError, "Scan Data Error",
                MsgBox::OKOnly | MsgBox::Exclamation);
}

TEST_F(modCheckScanDataTest, ScansThatCannotBeProcessedAreRefused) {
    for (double bad : {0.0, -0.5}) {
        prompts.Clear();
        Sweep(clsVirtualPropeller{})->Blades(1)->Section(4)->SetRadius(3, bad);
        prompts.Expect(Answer::OK, "arm radius");
        EXPECT_EQ(CheckScanData(*gProject, 0), 0);
        ASSERT_EQ(prompts.History().size(), 1u);
        ExpectShown(prompts.History()[0], kRadiusError, "Scan Data Error",
                    MsgBox::OKOnly | MsgBox::Exclamation);
    }

    prompts.Clear();
    NewProject(0, 3);
    prompts.Expect(Answer::Yes, "Blades [1, 2, 3] have no sections.");
    prompts.Expect(Answer::OK, "no data");
    EXPECT_EQ(CheckScanData(*gProject, 0), 0);
    ASSERT_EQ(prompts.History().size(), 2u);
    ExpectShown(prompts.History()[1], kNoDataError, "Scan Data Error", MsgBox::OKOnly | MsgBox::Exclamation);

    // No such scan, or no blades: refused without a word.
    prompts.Clear();
    EXPECT_EQ(CheckScanData(*gProject, 1), 0);
    EXPECT_EQ(CheckScanData(*gProject, -1), 0);
    gProject->SetBladeCount(0);
    EXPECT_EQ(CheckScanData(*gProject, 0), 0);
    clsCorvane none;
    EXPECT_EQ(CheckScanData(none, 0), 0) << "no scans";
    EXPECT_TRUE(prompts.History().empty());
}

} // namespace
} // namespace corvane::test
