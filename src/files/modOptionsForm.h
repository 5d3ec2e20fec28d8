#pragma once

// The rules of the Settings dialog, without a window: what each field shows when the dialog
// loads, how the fields go back into the settings on OK, which encoder fields are open, what a
// key typed into the trigger field becomes, the page data of the report layouts, the shortened
// paths and the interface font. The dialog only shows these values and passes edits back.

#include "files/modSettings.h"
#include "support/modNVEmailClient.h"

#include <array>
#include <cstdint>
#include <string>

namespace corvane {

inline constexpr const char* kReportOptionsKey = "Software\\Corvane\\Report";

// The page data of a report layout, as the report options keep it under kReportOptionsKey.
// Units index 5 inches, 7 centimetres; paper 1 Letter, 5 Legal, 9 A4, 256 user defined (inches);
// orientation 1 portrait.
struct ReportPageData {
    std::int16_t unitsIndex = 5;
    double marginTop = 1.0;
    double marginBottom = 0.5;
    double marginLeft = 0.5;
    double marginRight = 0.5;
    std::int16_t paperSizeIndex = 1;
    std::int16_t paperOrientationIndex = 1;
    double paperSizeUserWidth = 8.5;
    double paperSizeUserHeight = 11.0;

    bool operator==(const ReportPageData&) const = default;
};

// Layouts 0 Letter, 1 A4, 2 Legal take fixed data; 3 (user defined) keeps the paper of `custom`
// with paper index 256 and inch margins.
ReportPageData ReportLayoutPageData(int layout, const ReportPageData& custom = {});
ReportPageData ReadReportPageData();
void WriteReportPageData(const ReportPageData& page);

// The interface font; an empty name means the one the program chose at start.
struct InterfaceFont {
    std::string name;
    double size = 0;
    bool operator==(const InterfaceFont&) const = default;
};
InterfaceFont ReadInterfaceFont();
void WriteInterfaceFont(const InterfaceFont& font);

// Every field of the dialog as it shows it: combo indices, texts and ticks.
struct OptionsForm {
    // Project tab.
    int units = 2;
    std::string inspectorName;
    std::string repairShopName;
    std::string repairShopAddress; // lines joined by CR LF
    std::string logoPath;          // the full path; the field shows ShortenedPath of it
    std::string defaultManufacturer;
    int reportLayout = 0;
    ReportPageData page;
    // Calibration tab: angle and radius 0 "Off", 1 "On"; drop 0 Off, 1 Dual, 2 Single.
    std::string scanSourceDevice;
    int angleEncoderIndex = 1;
    int radiusEncoderIndex = 1;
    int dropEncoderIndex = 1;
    bool angleFlip = false;
    bool radiusFlip = true;
    bool dropFlip = true;
    std::string angleCalib, radiusCalibMM, dropCalib, standardOffset, dogLegOffset, calibRad, calibPulse;
    // Administrator tab.
    std::string activeFolder;
    std::string archiveFolder;
    EmailSettings email;
    // Interface tab.
    int audioFeedback = 1;
    int footPedal = 0;
    std::string triggerKey; // "", "<SPACE>" or one character
    int rulerDisplay = 2;
    bool rulerFlip = false;
    int bladeOrder = 0;
    InterfaceFont font;

    bool operator==(const OptionsForm&) const = default;
};

// The dialog's contents from the stored settings (LoadOptionsForm at its load).
OptionsForm LoadOptionsForm();
OptionsForm FormFromOptions(const DefaultOptions& options, const ReportPageData& page,
                            const EmailSettings& email, const InterfaceFont& font);
// The options the fields hold: numbers through the tolerant conversion ("abc" is 0), an empty
// device "NOT SPECIFIED", encoder types by index, the trigger key as its code.
DefaultOptions OptionsFromForm(const OptionsForm& form);
// OK: writes the default options, the report page data and the messaging settings in one go.
void SaveOptions(const OptionsForm& form);

// The open and locked encoder fields (UpdateEncoderFields). Without the radial encoder the
// ruler guides the operator, so the ruler fields open and calibration closes.
struct EncoderFieldStates {
    bool angleCalibLocked = false;
    bool angleFlipEnabled = true;
    bool radiusCalibLocked = false;
    bool radiusFlipEnabled = true;
    bool calibrateEnabled = true;
    bool modifyCalibrationEnabled = true;
    bool rulerEnabled = false;
    bool rulerFlipEnabled = false;
    bool dropCalibLocked = false;
    bool dropFlipEnabled = true;

    bool operator==(const EncoderFieldStates&) const = default;
};
EncoderFieldStates UpdateEncoderFields(int angleIndex, int radiusIndex, int dropIndex);

// Key codes of the trigger field, as the station's keyboard numbers keys.
namespace VirtualKey {
inline constexpr int Cancel = 3, Backspace = 8, Tab = 9, Clear = 12, Enter = 13, Shift = 16, Control = 17,
                     Alt = 18, Pause = 19, CapsLock = 20, Escape = 27, Space = 32, PageUp = 33, PageDown = 34,
                     End = 35, Home = 36, Left = 37, Up = 38, Right = 39, Down = 40, Select = 41, Print = 42,
                     Execute = 43, PrintScreen = 44, Insert = 45, Help = 47, Separator = 108, F1 = 112,
                     F16 = 127, ScrollLock = 145;
} // namespace VirtualKey

// A key pressed in the trigger field: the text the field shows afterwards. Refused keys say
// "This key is not a valid trigger key. ..." and empty the field; Esc empties it; the blank
// shows "<SPACE>"; any other key its first typed character (upper case, as the trigger is
// stored); a key that types nothing leaves the field as it was.
std::string TriggerKeyDown(int keyCode, const std::string& typed, const std::string& current);
bool IsRefusedTriggerKey(int keyCode);
// The stored code of the field's text (32 for "<SPACE>", 0 for empty) and back.
std::int32_t TriggerKeyCode(const std::string& text);
std::string TriggerKeyText(std::int32_t code);

// "..." + separator + the last folder and the file name, when the path is longer than that.
std::string ShortenedPath(const std::string& path);

// The dog-leg offset typed so far: taken into gDogLegOffset at once when it is a number of 0 or
// more, so that a calibration uses it; anything else is left alone. True when taken.
bool TakeDogLegOffset(const std::string& text);

// The library and archive folders as the dialog stores them: empty ones fall back as at start
// (DeriveFolders), the derived ones created on the spot.
void ApplyFolderFallbacks(std::string& activeFolder, std::string& archiveFolder);

} // namespace corvane
