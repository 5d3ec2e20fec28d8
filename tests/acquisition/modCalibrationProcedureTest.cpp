#include "acquisition/modCalibrationProcedure.h"

#include "acquisition/SimulatedEncoderBox.h"
#include "acquisition/modDAQUtilities.h"
#include "acquisition/modDevice.h"
#include "common/ServicesFixture.h"
#include "model/Globals.h"
#include "support/modNVSystemUtilities.h"

#include <fstream>

namespace corvane {
namespace {

const char* const kKey = "Software\\Corvane\\DefaultOptions";

// The dialog around the procedure: its save routine writes the fields and puts them in force.
class RecordingDialog : public ICalibrationDialog {
public:
    explicit RecordingDialog(OptionsForm& form) : form_(form) {}
    int saves = 0;
    std::vector<bool> locks;
    void SaveOptions() override {
        ++saves;
        corvane::SaveOptions(form_);
        ReadDefaultOptions();
    }
    void LockForCalibration(bool locked) override { locks.push_back(locked); }
    void FieldsChanged() override {}

private:
    OptionsForm& form_;
};

class modCalibrationProcedureTest : public test::ServicesTest {
protected:
    void SetUp() override {
        ServicesTest::SetUp();
        ReadDefaultOptions();
        form = LoadOptionsForm();
        box.MoveArm({0, 5000, 0, 0}); // the slide at Home, counts since power-on
        ASSERT_EQ(DAQDiscover(daq), 1);
    }

    // Runs the guided calibration; the operator moves the slide by `travel` counts while the
    // counters settle after the reset, answers the radius box with `radius` and is told `end`.
    int Calibrate(std::optional<std::string> radius, double travel = 40000, const char* end = "Success!") {
        prompts.Expect(Answer::Yes, "will save any changes to your options");
        prompts.Expect(Answer::OK, "Move device to radius Home position");
        prompts.ExpectInput(std::move(radius), "Enter known radius value below (mm)");
        prompts.Expect(Answer::OK, end);
        int waits = 0;
        return RunGuidedCalibration(&daq, form, dialog, [&](int) {
            if (++waits == 2) {
                box.MoveArm({0, 5000 + travel, 0, 0});
            }
        });
    }

    SimulatedEncoderBox box;
    DAQState daq{box};
    OptionsForm form;
    RecordingDialog dialog{form};
};

TEST_F(modCalibrationProcedureTest, GuidedCalibrationTeachesTheReferencePointThatScansThenMeasureThrough) {
    ASSERT_EQ(Calibrate("250"), 1);
    EXPECT_EQ(form.calibRad, "250");
    EXPECT_EQ(form.calibPulse, "40000");
    EXPECT_EQ(GetRegistryValue(kKey, "Radius"), "250");
    EXPECT_EQ(GetRegistryValue(kKey, "Pulse"), "40000");
    EXPECT_EQ(dialog.saves, 2);
    EXPECT_EQ(dialog.locks, (std::vector<bool>{true, false}));

    // 100 mm further out (200 counts a millimetre) the arm reads 350 mm.
    box.MoveArm({0, 5000 + 60000, 0, 0});
    std::array<double, 4> counts{};
    std::uint32_t time = 0;
    DAQReadCounts(daq, counts, time);
    EXPECT_DOUBLE_EQ(ArmRadialMM(counts[kRadiusChannel], gStation), 350.0);
}

// A cancelled radius box is a radius of 0 and goes on; a negative radius puts the old point back
// in the fields, while the options saved before the reset stay saved.
TEST_F(modCalibrationProcedureTest, RadiusAnswersBelowZeroStopAndEmptyOnesCountAsZero) {
    form.calibRad = "12";
    form.calibPulse = "345";
    EXPECT_EQ(Calibrate("-3", 40000, "A valid radius is required for calibration of the device."), 0);
    EXPECT_EQ(form.calibRad, "12");
    EXPECT_EQ(form.calibPulse, "345");
    EXPECT_EQ(dialog.saves, 1);
    EXPECT_EQ(dialog.locks.back(), false);

    box.MoveArm({0, 5000, 0, 0}); // back at Home for the second run
    EXPECT_EQ(Calibrate(std::nullopt, 800), 1);
    EXPECT_EQ(form.calibRad, "0");
    EXPECT_EQ(form.calibPulse, "800");
}

TEST_F(modCalibrationProcedureTest, WithoutABoxItRefusesAndAVanishedBoxGivesCountZero) {
    DAQState none{box};
    for (DAQState* missing : {&none, static_cast<DAQState*>(nullptr)}) {
        prompts.Expect(Answer::OK, "No measurement device found! The calibration procedure cannot proceed.");
        EXPECT_EQ(RunGuidedCalibration(missing, form, dialog, [](int) {}), 0);
    }
    EXPECT_EQ(dialog.saves, 0);

    box.Vanish();
    EXPECT_EQ(Calibrate("100"), 1);
    EXPECT_EQ(form.calibPulse, "0");
}

TEST_F(modCalibrationProcedureTest, ManualEditTakesOnlyValuesAboveZero) {
    const struct {
        int confirm;
        std::vector<std::optional<std::string>> inputs;
        const char* refusal;
        int status;
    } cases[] = {
        {Answer::No, {}, nullptr, 0},
        {Answer::Yes, {"0"}, "without a valid calibration radius value.", 0},
        {Answer::Yes, {std::nullopt}, "without a valid calibration radius value.", 0},
        {Answer::Yes, {"120", "-5"}, "without a valid pulse value.", 0},
        {Answer::Yes, {"120", "abc"}, "without a valid pulse value.", 0},
        {Answer::Yes, {"120.5", "24100"}, nullptr, 1},
    };
    for (const auto& c : cases) {
        prompts.Expect(c.confirm, "Are you sure you want to modify the calibration values?");
        for (const auto& input : c.inputs) {
            prompts.ExpectInput(input);
        }
        if (c.refusal != nullptr) {
            prompts.Expect(Answer::OK, c.refusal);
        }
        EXPECT_EQ(RunManualCalibrationEdit(form, dialog), c.status) << (c.refusal ? c.refusal : "");
    }
    EXPECT_EQ(dialog.saves, 1);
    EXPECT_EQ(GetRegistryValue(kKey, "Radius"), "120.5");
    EXPECT_EQ(GetRegistryValue(kKey, "Pulse"), "24100");
}

TEST_F(modCalibrationProcedureTest, CalibrationSetsLoadIntoTheFieldsOnly) {
    const std::string cvst = temp->File("arm.cvst");
    form.angleEncoderIndex = 0;
    form.dropEncoderIndex = 2;
    form.calibRad = "75";
    form.calibPulse = "15000";
    form.scanSourceDevice = "Arm 2";
    ASSERT_EQ(SaveCalibrationFromForm(cvst, form), 1);
    const std::string hale = temp->File("hale.txt");
    std::ofstream(hale) << "\"AngleResolution = \",4096\r\n\"RadiusResolution = \",2540\r\n"
                           "\"DepthCalibration = \",-1\r\n";

    OptionsForm loaded = LoadOptionsForm();
    ASSERT_EQ(LoadCalibrationIntoForm(cvst, 0, loaded), 1);
    EXPECT_EQ(loaded.angleEncoderIndex, 0);
    EXPECT_EQ(loaded.dropEncoderIndex, 2);
    EXPECT_EQ(loaded.calibRad, "75");
    EXPECT_EQ(loaded.calibPulse, "15000");
    EXPECT_EQ(loaded.scanSourceDevice, "Arm 2");
    ASSERT_EQ(LoadCalibrationIntoForm(hale, 1, loaded), 1);
    EXPECT_EQ(loaded.scanSourceDevice, "Hale MRI");
    EXPECT_EQ(loaded.angleCalib, "4096");
    EXPECT_EQ(loaded.radiusCalibMM, "100");
    EXPECT_EQ(loaded.angleEncoderIndex, 1);
    EXPECT_FALSE(loaded.dropFlip);
    EXPECT_EQ(loaded.calibRad, "0");
    EXPECT_EQ(GetRegistryValue(kKey, "ScanSourceDevice"), "NOT SPECIFIED") << "nothing in force before OK";

    const OptionsForm before = loaded;
    prompts.Expect(Answer::OK, "An error occurred reading the calibration file. Check the file format.");
    EXPECT_EQ(LoadCalibrationIntoForm(hale, 0, loaded), 0);
    EXPECT_EQ(loaded, before);
    EXPECT_EQ(ProposedCalibrationFileName({2026, 3, 7}), "Corvane-Calib-2026-03-07.cvst");
}

} // namespace
} // namespace corvane
