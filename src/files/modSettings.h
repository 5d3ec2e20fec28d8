#pragma once

// The station's default options: per-user string values under one settings key
// ("Software\Corvane\DefaultOptions"), read at start and whenever the settings dialog closes,
// written by that dialog. Every value is a string; numbers are written in the user's own number
// format, switches and choices as words. A value that is empty, unknown or unreadable takes its
// default, so a fresh machine starts with a working set. Settings that still live under the
// earlier location ("Software\Norvelle\Corvane") are read from there once and copied over.

#include <array>
#include <cstdint>
#include <string>

namespace corvane {

inline constexpr const char* kDefaultOptionsRootKey = "Software\\Corvane";
inline constexpr const char* kDefaultOptionsSubKey = "DefaultOptions";
inline constexpr const char* kOldDefaultOptionsRootKey = "Software\\Norvelle\\Corvane";

// Encoder type words by index: 0 off, 1 dual channel, 2 single channel.
inline constexpr std::array<const char*, 3> kEncoderTypeWords = {"Off", "DualChannel", "SingleChannel"};
inline constexpr std::array<const char*, 3> kEncoderFileWords = {"Off", "Dual", "Single"};

inline constexpr const char* kDefaultRepairShopName = "My Repair Shop";
inline constexpr const char* kDefaultRepairShopAddress =
    "My Address\r\nMy Address\r\nMy Tel\r\nMy Fax\r\nMy Website\r\nMy Email";
inline constexpr const char* kDefaultScanSourceDevice = "NOT SPECIFIED";

// One set of default options, each member initialised to the default it takes when its value
// reads empty. Calibrations are pulses per rotation (angle) and per millimetre (radius, drop).
struct DefaultOptions {
    std::string repairShopName = kDefaultRepairShopName;
    std::string repairShopAddress = kDefaultRepairShopAddress;
    std::string repairShopInspector;
    std::string repairShopLogoFilePath;
    std::string scanSourceDevice = kDefaultScanSourceDevice;
    std::string defaultManufacturer;
    std::int16_t angleEncoderType = 1;
    bool angleEncoderFlip = false;
    double angleCalibration = 8000;
    std::int16_t radiusEncoderType = 1;
    bool radiusEncoderFlip = true;
    double radiusCalibration = 200;
    std::int16_t dropEncoderType = 1;
    bool dropEncoderFlip = true;
    double dropCalibration = 200;
    double standardOffset = 0;
    double dogLegOffset = 0;
    double calibrationRadius = 0; // value "Radius"
    double calibrationPulse = 0;  // value "Pulse"
    std::string rootDirectory;    // the Project Library folder
    std::string archiveDirectory;
    std::int16_t panelSize = 0;
    std::int16_t audioFeedback = 1; // 0 off, 1 on
    std::int16_t footPedal = 0;     // 0 off, 1 on
    std::int32_t keyboardTrigger = 0;
    std::int16_t propLengthIndex = 2; // unit of new projects: 0 ft, 1 m, 2 in, 3 mm
    std::int16_t radiusDisplayRulerIndex = 2;
    bool radiusDisplayRulerFlip = false;
    std::int16_t scanBladeOrder = 0; // 0 in blade order, 1 in rotation direction
    std::int16_t reportLayout = 0;   // 0 Letter, 1 A4, 2 Legal, 3 Custom

    bool operator==(const DefaultOptions&) const = default;
};

// Reads the options under rootKey "\" subKey, or under oldRootKey "\" subKey when the new key has
// no RepairShopName; in that case everything read is written to the new key as well. Missing
// library or archive folders are derived (under the application data folder when both are
// missing) and created. Settings that cannot be read are silent and take their defaults; other
// errors go to the error handler with the context "reading default options".
void ReadDefaultOptions(const std::string& rootKey, const std::string& subKey, DefaultOptions& values,
                        const std::string& oldRootKey);
// Fills the library and archive folders that are empty: both under the application data folder
// ("Corvane/Project", "Corvane/Archive"), or "Archive" below the library, or "Project" below the
// archive; the folders derived are created (the archive below a given library is left to the
// library's own checks).
void DeriveFolders(DefaultOptions& values);
// Creates the key and writes every value, in a fixed order. Errors: "writing default options".
void WriteDefaultOptions(const std::string& rootKey, const std::string& subKey, const DefaultOptions& values);

// The station's own key and the globals: reads into the settings globals and derives
// gAudioFeedback, gFootPedal, gKeyboardTrigger and gScanBladeOrder; writes from the globals.
void ReadDefaultOptions();
void WriteDefaultOptions();
void ApplyDefaultOptionsToGlobals(const DefaultOptions& values);
DefaultOptions DefaultOptionsFromGlobals();

// Fills gEncoderTypeTag and gEncoderFileTag; the start-up calls it before reading the options.
void FillEncoderTypeTags();

// The word tables behind the values. Readers take the value `name` under `key`; words compare
// without regard to case, and an empty or unknown word gives the default (2 for the units, 0
// for the others that take no default).
std::int16_t ReadEncoderTypeWord(const std::string& key, const std::string& name, std::int16_t defaultValue);
void WriteEncoderTypeWord(const std::string& key, const std::string& name, int value);
std::int16_t ReadOnOffWord(const std::string& key, const std::string& name, std::int16_t defaultValue);
void WriteOnOffWord(const std::string& key, const std::string& name, int value);
std::int16_t ReadUnitWord(const std::string& key, const std::string& name);
void WriteUnitWord(const std::string& key, const std::string& name, int value);
// One panel size exists: it always reads 0 and writes "Small".
std::int16_t ReadPanelSizeWord(const std::string& key, const std::string& name);
void WritePanelSizeWord(const std::string& key, const std::string& name, int value);
std::int16_t ReadBladeOrderWord(const std::string& key, const std::string& name);
std::int16_t ReadReportLayoutWord(const std::string& key, const std::string& name);

// A number as the settings hold it: rounded to 12 significant digits and written with the
// user's decimal separator.
std::string FormatSettingsNumber(double value);

} // namespace corvane
