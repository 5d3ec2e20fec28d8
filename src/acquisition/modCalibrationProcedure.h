#pragma once

// The calibration of the measuring arm from the Settings dialog: the guided calibration with
// the box (Home is count 0, then a known radius), the manual edit of the reference point, and
// loading and saving calibration sets. The procedures work on the dialog's fields (OptionsForm)
// and talk to the user through the prompts; the dialog saves its options and locks itself
// when asked.
//
// After a calibration the radial slide reads (c - CalibrationPulse) / RadiusCalibration +
// CalibrationRadius millimetres at count c: the taught point is the new reference.

#include "files/modOptionsForm.h"

#include <functional>
#include <string>

namespace corvane {

struct DAQState;
struct DateTime;

// What the procedures need of the dialog around them.
class ICalibrationDialog {
public:
    virtual ~ICalibrationDialog() = default;
    // The dialog's save routine: every field into the settings, and the settings into force.
    virtual void SaveOptions() = 0;
    // Locks the tabs, the menu bar, the manual edit and the text fields during the guided
    // calibration; unlocking leaves the calibration radius and pulse locked.
    virtual void LockForCalibration(bool locked) = 0;
    // The fields changed by a procedure are to be shown again.
    virtual void FieldsChanged() = 0;
};

// Blocks for the milliseconds given; the box needs the waits around its reset.
using CalibrationWait = std::function<void(int milliseconds)>;
void SleepMilliseconds(int milliseconds);

// The guided calibration. `daq` may be null (no box). Returns 1 after "Success!", 0 when it
// stopped (no box, the user said No, a radius below 0). A cancelled radius counts as 0.
int RunGuidedCalibration(DAQState* daq, OptionsForm& form, ICalibrationDialog& dialog,
                         const CalibrationWait& wait = SleepMilliseconds);

// The manual edit: radius and pulses typed in, each above 0. Returns 1 when both were taken
// (and saved), else 0.
int RunManualCalibrationEdit(OptionsForm& form, ICalibrationDialog& dialog);

// Loads a calibration set into the calibration fields: filter 0 a Corvane settings file (cvst),
// filter 1 a Hale MRI settings file. The fields change only when the file was read; nothing is
// in force before the options are saved. Returns 1 or 0.
int LoadCalibrationIntoForm(const std::string& path, int filterIndex, OptionsForm& form);
// Writes the calibration fields as a cvst file. Returns 1 or 0.
int SaveCalibrationFromForm(const std::string& path, const OptionsForm& form);
// "Corvane-Calib-" and the date as yyyy-mm-dd, ".cvst".
std::string ProposedCalibrationFileName(const DateTime& today);

} // namespace corvane
