#include "files/modSettings.h"

#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <functional>
#include <limits>
#include <span>

namespace corvane {
namespace {

const char* const kReadContext = "reading default options";
const char* const kWriteContext = "writing default options";

constexpr std::array<const char*, 4> kUnitWords = {"ft", "m", "in", "mm"};
constexpr std::array<const char*, 2> kOnOffWords = {"Off", "On"};
constexpr std::array<const char*, 2> kBladeOrderWords = {"BladeOrder", "RotationDirection"};
constexpr std::array<const char*, 4> kReportLayoutWords = {"Letter", "A4", "Legal", "Custom"};
const char* const kPanelSizeWord = "Small";

std::string JoinKey(const std::string& root, const std::string& sub) {
    return root + "\\" + sub;
}

bool SameWord(const std::string& a, const char* b) {
    const std::string_view w(b);
    return a.size() == w.size() && std::equal(a.begin(), a.end(), w.begin(), [](char x, char y) {
               return std::tolower(static_cast<unsigned char>(x)) ==
                      std::tolower(static_cast<unsigned char>(y));
           });
}

// The position of the word in the table, or -1.
int WordIndex(const std::string& word, std::span<const char* const> table) {
    for (std::size_t i = 0; i < table.size(); ++i) {
        if (SameWord(word, table[i])) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

std::string Value(const std::string& key, const std::string& name) {
    return GetRegistryValue(key, name);
}

void Put(const std::string& key, const std::string& name, const std::string& value) {
    // A store that refuses the value is silent: the next start reads the default.
    SetRegistryValue(key, name, value, true);
}

std::string TextOr(const std::string& key, const std::string& name, const std::string& defaultValue) {
    const std::string text = Value(key, name);
    return text.empty() ? defaultValue : text;
}

// A count or length that must be above 0 to mean anything: empty, 0 and negative values (an
// offset of -2, a calibration of -5) take the default.
double PositiveOr(const std::string& key, const std::string& name, double defaultValue) {
    const std::string text = Value(key, name);
    if (text.empty()) {
        return defaultValue;
    }
    const double value = StringToDouble(text);
    return value > 0 ? value : defaultValue;
}

// "True" and "False" in any case; anything else is the default of that flip.
bool FlipOr(const std::string& key, const std::string& name, bool defaultValue) {
    const std::string text = Value(key, name);
    if (SameWord(text, "true")) {
        return true;
    }
    if (SameWord(text, "false")) {
        return false;
    }
    return defaultValue;
}

std::int32_t KeyCode(const std::string& key, const std::string& name) {
    const std::string text = Value(key, name);
    if (text.empty() || text == "0") {
        return 0;
    }
    const double value = std::nearbyint(StringToDouble(text)); // ties to even, as CLng
    if (!(value >= std::numeric_limits<std::int32_t>::min() &&
          value <= std::numeric_limits<std::int32_t>::max())) {
        return 0;
    }
    return static_cast<std::int32_t>(value);
}

std::string FlipWord(bool flip) {
    return flip ? "True" : "False";
}

std::string TableWord(std::span<const char* const> table, int index, const char* otherwise) {
    return index >= 0 && static_cast<std::size_t>(index) < table.size()
               ? table[static_cast<std::size_t>(index)]
               : otherwise;
}

} // namespace

// The parents are created too: on a fresh machine not even the application data folder's
// "Corvane" folder exists.
void DeriveFolders(DefaultOptions& values) {
    std::string& root = values.rootDirectory;
    std::string& archive = values.archiveDirectory;
    if (root.empty() && archive.empty()) {
        const std::string appData = GetAppDataFolder();
        if (appData.empty()) {
            return; // no place to put them; the library checks ask the user for folders
        }
        const std::string base = AddFolderSeparator(appData + "Corvane");
        root = base + "Project";
        archive = base + "Archive";
        EnsureFolderTree(root);
        EnsureFolderTree(archive);
    } else if (archive.empty()) {
        archive = AddFolderSeparator(root) + "Archive";
        // The archive itself is left to the library, which checks its folders before use.
        EnsureFolderTree(root);
    } else if (root.empty()) {
        root = AddFolderSeparator(archive) + "Project";
        EnsureFolderTree(root);
    }
}

// The registry of the historic stations holds numbers as the user's locale printed them, and
// so does this store: a comma user finds "0,5" in a value, as before. Reading goes through
// StringToDouble, which converts a complete number written with the user's separator
// (gDecimalChar, set at start from the same environment this writes with) and otherwise takes
// the leading number with ".": values written by a point user read right for everybody, and a
// comma user's own values read right for that user. Only a value written with "," and read
// after the user switched to a point locale loses its decimals (then "0,5" reads 0 and takes
// its default); files shared between stations never use this format.
std::string FormatSettingsNumber(double value) {
    std::string text = FormatNumber(RoundSignificant(value, 12), "");
    const char separator = Environment().DecimalSeparator();
    if (separator != '\0' && separator != '.') {
        std::replace(text.begin(), text.end(), '.', separator);
    }
    return text;
}

std::int16_t ReadEncoderTypeWord(const std::string& key, const std::string& name, std::int16_t defaultValue) {
    const std::string word = Value(key, name);
    if (SameWord(word, "Off") || word == "0") {
        return 0;
    }
    if (SameWord(word, "DualChannel") || SameWord(word, "Absolute")) {
        return 1;
    }
    if (SameWord(word, "SingleChannel") || SameWord(word, "Differential")) {
        return 2;
    }
    return defaultValue;
}

void WriteEncoderTypeWord(const std::string& key, const std::string& name, int value) {
    Put(key, name, TableWord(kEncoderTypeWords, value, ""));
}

std::int16_t ReadOnOffWord(const std::string& key, const std::string& name, std::int16_t defaultValue) {
    const std::string word = Value(key, name);
    if (SameWord(word, "Off") || word == "0") {
        return 0;
    }
    if (SameWord(word, "On") || word == "1") {
        return 1;
    }
    return defaultValue;
}

void WriteOnOffWord(const std::string& key, const std::string& name, int value) {
    Put(key, name, TableWord(kOnOffWords, value, ""));
}

std::int16_t ReadUnitWord(const std::string& key, const std::string& name) {
    const std::string word = Value(key, name);
    const int index = WordIndex(word, kUnitWords);
    if (index >= 0) {
        return static_cast<std::int16_t>(index);
    }
    if (word.size() == 1 && word[0] >= '0' && word[0] <= '3') {
        return static_cast<std::int16_t>(word[0] - '0');
    }
    return 2;
}

void WriteUnitWord(const std::string& key, const std::string& name, int value) {
    Put(key, name, TableWord(kUnitWords, value, "in"));
}

std::int16_t ReadPanelSizeWord(const std::string& /*key*/, const std::string& /*name*/) {
    return 0;
}

void WritePanelSizeWord(const std::string& key, const std::string& name, int /*value*/) {
    Put(key, name, kPanelSizeWord);
}

std::int16_t ReadBladeOrderWord(const std::string& key, const std::string& name) {
    return static_cast<std::int16_t>(std::max(0, WordIndex(Value(key, name), kBladeOrderWords)));
}

std::int16_t ReadReportLayoutWord(const std::string& key, const std::string& name) {
    return static_cast<std::int16_t>(std::max(0, WordIndex(Value(key, name), kReportLayoutWords)));
}

void ReadDefaultOptions(const std::string& rootKey, const std::string& subKey, DefaultOptions& values,
                        const std::string& oldRootKey) {
    ErrorTail tail(kReadContext);
    DefaultOptions read; // every member starts at its default
    std::string key = JoinKey(rootKey, subKey);
    bool fromOldKey = false;

    // One step per value: a value that fails to read keeps its default and the rest still read.
    const auto step = [&tail](const std::function<void()>& statement) { tail.Step(statement); };

    step([&] {
        if (Value(key, "RepairShopName").empty()) {
            key = JoinKey(oldRootKey, subKey);
            fromOldKey = true;
        }
    });
    step([&] { read.repairShopName = TextOr(key, "RepairShopName", kDefaultRepairShopName); });
    step([&] { read.repairShopAddress = TextOr(key, "RepairShopAddress", kDefaultRepairShopAddress); });
    step([&] { read.repairShopInspector = Value(key, "RepairShopInspector"); });
    step([&] { read.repairShopLogoFilePath = Value(key, "RepairShopLogoFilePath"); });
    step([&] { read.scanSourceDevice = TextOr(key, "ScanSourceDevice", kDefaultScanSourceDevice); });
    step([&] { read.defaultManufacturer = Value(key, "DefaultManufacturer"); });

    step([&] { read.angleEncoderType = ReadEncoderTypeWord(key, "AngleEncoderType", 1); });
    step([&] { read.angleEncoderFlip = FlipOr(key, "AngleEncoderFlip", false); });
    step([&] { read.angleCalibration = PositiveOr(key, "AngleCalibration", 8000); });
    step([&] { read.radiusEncoderType = ReadEncoderTypeWord(key, "RadiusEncoderType", 1); });
    step([&] { read.radiusEncoderFlip = FlipOr(key, "RadiusEncoderFlip", true); });
    step([&] { read.radiusCalibration = PositiveOr(key, "RadiusCalibration", 200); });
    step([&] { read.dropEncoderType = ReadEncoderTypeWord(key, "DropEncoderType", 1); });
    step([&] { read.dropEncoderFlip = FlipOr(key, "DropEncoderFlip", true); });
    step([&] { read.dropCalibration = PositiveOr(key, "DropCalibration", 200); });
    step([&] { read.standardOffset = PositiveOr(key, "StandardOffset", 0); });
    step([&] { read.dogLegOffset = PositiveOr(key, "DogLegOffset", 0); });
    step([&] { read.calibrationRadius = PositiveOr(key, "Radius", 0); });
    step([&] { read.calibrationPulse = PositiveOr(key, "Pulse", 0); });

    step([&] {
        read.rootDirectory = Value(key, "RootDirectory");
        read.archiveDirectory = Value(key, "ArchiveDirectory");
        DeriveFolders(read);
    });
    step([&] { read.panelSize = ReadPanelSizeWord(key, "PanelSize"); });
    step([&] { read.audioFeedback = ReadOnOffWord(key, "AudioFeedback", 1); });
    step([&] { read.footPedal = ReadOnOffWord(key, "FootPedal", 0); });
    step([&] { read.keyboardTrigger = KeyCode(key, "KeyboardTrigger"); });
    step([&] { read.propLengthIndex = ReadUnitWord(key, "PropLengthIndex"); });
    step([&] { read.radiusDisplayRulerIndex = ReadUnitWord(key, "RadiusDisplayRulerIndex"); });
    step([&] { read.radiusDisplayRulerFlip = FlipOr(key, "RadiusDisplayRulerFlip", false); });
    step([&] { read.scanBladeOrder = ReadBladeOrderWord(key, "ScanBladeOrder"); });
    step([&] { read.reportLayout = ReadReportLayoutWord(key, "ReportLayout"); });

    values = read;
    if (fromOldKey && !tail.Aborted()) {
        // Settings found only under the earlier location move to the new key; the next start
        // reads them from there. A fresh machine gets its defaults written the same way.
        WriteDefaultOptions(rootKey, subKey, values);
    }
}

void WriteDefaultOptions(const std::string& rootKey, const std::string& subKey,
                         const DefaultOptions& values) {
    ErrorTail tail(kWriteContext);
    const std::string key = JoinKey(rootKey, subKey);
    tail.Step([&] {
        CreateRegistryKey(key);
        Put(key, "RepairShopName", values.repairShopName);
        Put(key, "RepairShopAddress", values.repairShopAddress);
        Put(key, "RepairShopInspector", values.repairShopInspector);
        Put(key, "RepairShopLogoFilePath", values.repairShopLogoFilePath);
        Put(key, "ScanSourceDevice", values.scanSourceDevice);
        Put(key, "DefaultManufacturer", values.defaultManufacturer);
        WriteEncoderTypeWord(key, "AngleEncoderType", values.angleEncoderType);
        Put(key, "AngleEncoderFlip", FlipWord(values.angleEncoderFlip));
        Put(key, "AngleCalibration", FormatSettingsNumber(values.angleCalibration));
        WriteEncoderTypeWord(key, "RadiusEncoderType", values.radiusEncoderType);
        Put(key, "RadiusEncoderFlip", FlipWord(values.radiusEncoderFlip));
        Put(key, "RadiusCalibration", FormatSettingsNumber(values.radiusCalibration));
        WriteEncoderTypeWord(key, "DropEncoderType", values.dropEncoderType);
        Put(key, "DropEncoderFlip", FlipWord(values.dropEncoderFlip));
        Put(key, "DropCalibration", FormatSettingsNumber(values.dropCalibration));
        Put(key, "StandardOffset", FormatSettingsNumber(values.standardOffset));
        Put(key, "DogLegOffset", FormatSettingsNumber(values.dogLegOffset));
        Put(key, "Radius", FormatSettingsNumber(values.calibrationRadius));
        Put(key, "Pulse", FormatSettingsNumber(values.calibrationPulse));
        Put(key, "RootDirectory", values.rootDirectory);
        Put(key, "ArchiveDirectory", values.archiveDirectory);
        WritePanelSizeWord(key, "PanelSize", values.panelSize);
        WriteOnOffWord(key, "AudioFeedback", values.audioFeedback);
        WriteOnOffWord(key, "FootPedal", values.footPedal);
        Put(key, "KeyboardTrigger", FormatSettingsNumber(values.keyboardTrigger));
        WriteUnitWord(key, "PropLengthIndex", values.propLengthIndex);
        WriteUnitWord(key, "RadiusDisplayRulerIndex", values.radiusDisplayRulerIndex);
        Put(key, "RadiusDisplayRulerFlip", FlipWord(values.radiusDisplayRulerFlip));
        // The number first, then the word over it: readers of either kind find a value, and the
        // word is what stays.
        Put(key, "ScanBladeOrder", FormatSettingsNumber(values.scanBladeOrder));
        Put(key, "ScanBladeOrder", TableWord(kBladeOrderWords, values.scanBladeOrder, "BladeOrder"));
        Put(key, "ReportLayout", TableWord(kReportLayoutWords, values.reportLayout, "Letter"));
    });
}

void ApplyDefaultOptionsToGlobals(const DefaultOptions& values) {
    gRepairShopName = values.repairShopName;
    gRepairShopAddress = values.repairShopAddress;
    gDefaultInspector = values.repairShopInspector;
    gRepairShopLogoFilePath = values.repairShopLogoFilePath;
    gScanSourceDevice = values.scanSourceDevice;
    gDefaultManufacturer = values.defaultManufacturer;
    gAngleEncoderType = values.angleEncoderType;
    gAngleEncoderFlip = values.angleEncoderFlip;
    gAngleCalibration = values.angleCalibration;
    gRadiusEncoderType = values.radiusEncoderType;
    gRadiusEncoderFlip = values.radiusEncoderFlip;
    gRadiusCalibration = values.radiusCalibration;
    gDropEncoderType = values.dropEncoderType;
    gDropEncoderFlip = values.dropEncoderFlip;
    gDropCalibration = values.dropCalibration;
    gStandardOffset = values.standardOffset;
    gDogLegOffset = values.dogLegOffset;
    gCalibrationRadius = values.calibrationRadius;
    gCalibrationPulse = values.calibrationPulse;
    gRootDirectory = values.rootDirectory;
    gArchiveDirectory = values.archiveDirectory;
    gPanelSize = values.panelSize;
    gAudioFeedback = values.audioFeedback == 1;
    gFootPedal = values.footPedal == 1;
    gKeyboardTrigger = values.keyboardTrigger;
    gDefaultPropLengthIndex = values.propLengthIndex;
    gRadiusDisplayRulerIndex = values.radiusDisplayRulerIndex;
    gRadiusDisplayRulerFlip = values.radiusDisplayRulerFlip;
    gScanBladeOrder = values.scanBladeOrder;
    gReportLayout = values.reportLayout;
}

DefaultOptions DefaultOptionsFromGlobals() {
    DefaultOptions values;
    values.repairShopName = gRepairShopName;
    values.repairShopAddress = gRepairShopAddress;
    values.repairShopInspector = gDefaultInspector;
    values.repairShopLogoFilePath = gRepairShopLogoFilePath;
    values.scanSourceDevice = gScanSourceDevice;
    values.defaultManufacturer = gDefaultManufacturer;
    values.angleEncoderType = gAngleEncoderType;
    values.angleEncoderFlip = gAngleEncoderFlip;
    values.angleCalibration = gAngleCalibration;
    values.radiusEncoderType = gRadiusEncoderType;
    values.radiusEncoderFlip = gRadiusEncoderFlip;
    values.radiusCalibration = gRadiusCalibration;
    values.dropEncoderType = gDropEncoderType;
    values.dropEncoderFlip = gDropEncoderFlip;
    values.dropCalibration = gDropCalibration;
    values.standardOffset = gStandardOffset;
    values.dogLegOffset = gDogLegOffset;
    values.calibrationRadius = gCalibrationRadius;
    values.calibrationPulse = gCalibrationPulse;
    values.rootDirectory = gRootDirectory;
    values.archiveDirectory = gArchiveDirectory;
    values.panelSize = gPanelSize;
    values.audioFeedback = gAudioFeedback ? 1 : 0;
    values.footPedal = gFootPedal ? 1 : 0;
    values.keyboardTrigger = gKeyboardTrigger;
    values.propLengthIndex = gDefaultPropLengthIndex;
    values.radiusDisplayRulerIndex = gRadiusDisplayRulerIndex;
    values.radiusDisplayRulerFlip = gRadiusDisplayRulerFlip;
    values.scanBladeOrder = static_cast<std::int16_t>(gScanBladeOrder);
    values.reportLayout = gReportLayout;
    return values;
}

void ReadDefaultOptions() {
    DefaultOptions values;
    ReadDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, values, kOldDefaultOptionsRootKey);
    ApplyDefaultOptionsToGlobals(values);
}

void WriteDefaultOptions() {
    WriteDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, DefaultOptionsFromGlobals());
}

void FillEncoderTypeTags() {
    for (std::size_t i = 0; i < kEncoderTypeWords.size(); ++i) {
        gEncoderTypeTag[i] = kEncoderTypeWords[i];
        gEncoderFileTag[i] = kEncoderFileWords[i];
    }
}

} // namespace corvane
