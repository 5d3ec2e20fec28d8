#include "acquisition/modCalibrationProcedure.h"

#include "acquisition/modDAQUtilities.h"
#include "files/modCalibrationFile.h"
#include "model/DateTime.h"
#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/modUtilities.h"
#include "support/Services.h"

#include <array>
#include <chrono>
#include <thread>

namespace corvane {
namespace {

const char* const kWarningTitle = "Calibration Warning";

std::string Number(double value) {
    return FormatNumber(RoundSignificant(value, 12), "");
}

CalibrationValues ValuesFromForm(const OptionsForm& form) {
    const DefaultOptions o = OptionsFromForm(form);
    CalibrationValues v;
    v.device = o.scanSourceDevice;
    v.anglePulses = o.angleCalibration;
    v.radiusPulses = o.radiusCalibration;
    v.dropPulses = o.dropCalibration;
    v.angleType = o.angleEncoderType;
    v.radiusType = o.radiusEncoderType;
    v.dropType = o.dropEncoderType;
    v.angleFlip = o.angleEncoderFlip;
    v.radiusFlip = o.radiusEncoderFlip;
    v.dropFlip = o.dropEncoderFlip;
    v.standardOffset = o.standardOffset;
    v.dogLegOffset = o.dogLegOffset;
    v.calibrationRadius = o.calibrationRadius;
    v.calibrationPulse = o.calibrationPulse;
    return v;
}

void ValuesIntoForm(const CalibrationValues& v, OptionsForm& form) {
    form.scanSourceDevice = v.device;
    form.angleCalib = Number(v.anglePulses);
    form.radiusCalibMM = Number(v.radiusPulses);
    form.dropCalib = Number(v.dropPulses);
    form.angleEncoderIndex = v.angleType > 0 ? 1 : 0;
    form.radiusEncoderIndex = v.radiusType > 0 ? 1 : 0;
    form.dropEncoderIndex = v.dropType >= 0 && v.dropType <= 2 ? v.dropType : 1;
    form.angleFlip = v.angleFlip;
    form.radiusFlip = v.radiusFlip;
    form.dropFlip = v.dropFlip;
    form.standardOffset = Number(v.standardOffset);
    form.dogLegOffset = Number(v.dogLegOffset);
    form.calibRad = Number(v.calibrationRadius);
    form.calibPulse = Number(v.calibrationPulse);
}

} // namespace

void SleepMilliseconds(int milliseconds) {
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

int RunGuidedCalibration(DAQState* daq, OptionsForm& form, ICalibrationDialog& dialog,
                         const CalibrationWait& wait) {
    const std::string fallbackPulse = form.calibPulse;
    const std::string fallbackRadius = form.calibRad;
    if (daq == nullptr || !daq->available) {
        Prompts().MessageBox("No measurement device found! The calibration procedure cannot proceed.",
                             MsgBox::OKOnly | MsgBox::Exclamation, kWarningTitle);
        return 0;
    }
    if (Prompts().MessageBox("The calibration routine will save any changes to your options and will erase "
                             "your current calibration.\r\n\r\nDo you wish to continue?",
                             MsgBox::YesNo | MsgBox::Exclamation, kWarningTitle) != Answer::Yes) {
        return 0;
    }
    dialog.SaveOptions();
    dialog.LockForCalibration(true);
    Prompts().MessageBox("Move device to radius Home position, then click OK.", MsgBox::OKOnly,
                         "Device Home");
    form.calibPulse.clear();
    dialog.FieldsChanged();

    // Programming the counters zeroes them: Home is count 0 from here on.
    wait(500);
    DAQConfigureCounters(*daq, gStation);
    daq->lastRadiusCount = 0;
    daq->lastDropCount = 0;
    wait(500);

    const std::string answer =
        Prompts()
            .InputBox("Move device to known defined radius.\r\n\r\nEnter known radius value below (mm), then "
                      "click OK.",
                      "Known Defined Radius", "")
            .value_or("");
    form.calibRad = answer;
    const double radius = StringToDouble(answer);
    int status = 0;
    if (radius < 0) {
        Prompts().MessageBox("A valid radius is required for calibration of the device. Please re-run the "
                             "calibration.",
                             MsgBox::OKOnly | MsgBox::Critical, kWarningTitle);
        form.calibPulse = fallbackPulse;
        form.calibRad = fallbackRadius;
    } else {
        std::array<double, 4> counts{};
        std::uint32_t timeStamp = 0;
        DAQReadCounts(*daq, counts, timeStamp);
        form.calibPulse = Number(counts[kRadiusChannel]);
        form.calibRad = Number(radius);
        gCalibrationRadius = radius;
        gCalibrationPulse = counts[kRadiusChannel];
        dialog.SaveOptions();
        wait(1000);
        Prompts().MessageBox("Success!", MsgBox::OKOnly | MsgBox::Information, "Calibration");
        status = 1;
    }
    dialog.LockForCalibration(false);
    dialog.FieldsChanged();
    return status;
}

int RunManualCalibrationEdit(OptionsForm& form, ICalibrationDialog& dialog) {
    if (Prompts().MessageBox("Are you sure you want to modify the calibration values?",
                             MsgBox::YesNo | MsgBox::Question, kWarningTitle) != Answer::Yes) {
        return 0;
    }
    const double radius =
        StringToDouble(Prompts()
                           .InputBox("Enter the known defined radius (mm).", "Calibration Manual Edit", "")
                           .value_or(""));
    if (!(radius > 0)) {
        Prompts().MessageBox(
            "The calibration procedure cannot proceed without a valid calibration radius value.",
            MsgBox::OKOnly | MsgBox::Exclamation, kWarningTitle);
        return 0;
    }
    const double pulse =
        StringToDouble(Prompts()
                           .InputBox("Enter the pulses from Home to the known defined radius.",
                                     "Calibration Manual Edit", "")
                           .value_or(""));
    if (!(pulse > 0)) {
        Prompts().MessageBox("The calibration procedure cannot proceed without a valid pulse value.",
                             MsgBox::OKOnly | MsgBox::Exclamation, kWarningTitle);
        return 0;
    }
    form.calibRad = Number(radius);
    form.calibPulse = Number(pulse);
    gCalibrationRadius = radius;
    gCalibrationPulse = pulse;
    dialog.FieldsChanged();
    dialog.SaveOptions();
    return 1;
}

int LoadCalibrationIntoForm(const std::string& path, int filterIndex, OptionsForm& form) {
    CalibrationValues values = ValuesFromForm(form);
    CalibrationLimits limits;
    const int status = filterIndex == 1 ? ReadHaleMRICalibrationFile(path, values, limits)
                                        : ReadCalibrationFile(path, values, limits);
    if (status == 1) {
        ValuesIntoForm(values, form);
    }
    return status;
}

int SaveCalibrationFromForm(const std::string& path, const OptionsForm& form) {
    return WriteCalibrationFile(path, ValuesFromForm(form));
}

std::string ProposedCalibrationFileName(const DateTime& today) {
    const auto two = [](int value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    return "Corvane-Calib-" + std::to_string(today.year) + "-" + two(today.month) + "-" + two(today.day) +
           ".cvst";
}

} // namespace corvane
