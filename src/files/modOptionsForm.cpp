#include "files/modOptionsForm.h"

#include "model/Globals.h"
#include "model/NumberFormat.h"
#include "model/modUtilities.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <algorithm>
#include <cctype>
#include <cmath>

namespace corvane {
namespace {

const char* const kDefaultOptionsKey = "Software\\Corvane\\DefaultOptions";
const char* const kSpaceText = "<SPACE>";

std::string Number(double value) {
    return FormatNumber(RoundSignificant(value, 12), "");
}

double ReadNumber(const std::string& key, const char* name, double defaultValue) {
    const std::string text = GetRegistryValue(key, name);
    return text.empty() ? defaultValue : StringToDouble(text);
}

std::int16_t ReadIndex(const std::string& key, const char* name, std::int16_t defaultValue) {
    const std::string text = GetRegistryValue(key, name);
    return text.empty() ? defaultValue : StringToInteger(text);
}

void Put(const std::string& key, const char* name, const std::string& value) {
    SetRegistryValue(key, name, value, true);
}

} // namespace

ReportPageData ReportLayoutPageData(int layout, const ReportPageData& custom) {
    ReportPageData page; // Letter
    switch (layout) {
    case 1: // A4, in centimetres
        page.unitsIndex = 7;
        page.marginTop = 2.5;
        page.marginBottom = page.marginLeft = page.marginRight = 1.25;
        page.paperSizeIndex = 9;
        break;
    case 2:
        page.paperSizeIndex = 5;
        break;
    case 3:
        page.paperSizeIndex = 256;
        page.paperSizeUserWidth = custom.paperSizeUserWidth;
        page.paperSizeUserHeight = custom.paperSizeUserHeight;
        page.paperOrientationIndex = custom.paperOrientationIndex;
        break;
    default:
        break;
    }
    return page;
}

ReportPageData ReadReportPageData() {
    ReportPageData page;
    const std::string key = kReportOptionsKey;
    page.unitsIndex = ReadIndex(key, "UnitsIndex", page.unitsIndex);
    page.marginTop = ReadNumber(key, "MarginTop", page.marginTop);
    page.marginBottom = ReadNumber(key, "MarginBottom", page.marginBottom);
    page.marginLeft = ReadNumber(key, "MarginLeft", page.marginLeft);
    page.marginRight = ReadNumber(key, "MarginRight", page.marginRight);
    page.paperSizeIndex = ReadIndex(key, "PaperSizeIndex", page.paperSizeIndex);
    page.paperOrientationIndex = ReadIndex(key, "PaperOrientationIndex", page.paperOrientationIndex);
    page.paperSizeUserWidth = ReadNumber(key, "PaperSizeUserWidth", page.paperSizeUserWidth);
    page.paperSizeUserHeight = ReadNumber(key, "PaperSizeUserHeight", page.paperSizeUserHeight);
    return page;
}

void WriteReportPageData(const ReportPageData& page) {
    const std::string key = kReportOptionsKey;
    // The report options keep their numbers with "." whatever the user's locale.
    Put(key, "UnitsIndex", std::to_string(page.unitsIndex));
    Put(key, "MarginTop", FormatPoint(page.marginTop, "0.0##############"));
    Put(key, "MarginBottom", FormatPoint(page.marginBottom, "0.0##############"));
    Put(key, "MarginLeft", FormatPoint(page.marginLeft, "0.0##############"));
    Put(key, "MarginRight", FormatPoint(page.marginRight, "0.0##############"));
    Put(key, "PaperSizeIndex", std::to_string(page.paperSizeIndex));
    Put(key, "PaperOrientationIndex", std::to_string(page.paperOrientationIndex));
    Put(key, "PaperSizeUserWidth", FormatPoint(page.paperSizeUserWidth, "0.0##############"));
    Put(key, "PaperSizeUserHeight", FormatPoint(page.paperSizeUserHeight, "0.0##############"));
}

InterfaceFont ReadInterfaceFont() {
    InterfaceFont font;
    font.name = GetRegistryValue(kDefaultOptionsKey, "InterfaceFontName");
    const double size = StringToDouble(GetRegistryValue(kDefaultOptionsKey, "InterfaceFontSize"));
    font.size = size >= 6 && size <= 24 ? size : 0;
    return font;
}

void WriteInterfaceFont(const InterfaceFont& font) {
    Put(kDefaultOptionsKey, "InterfaceFontName", font.name);
    Put(kDefaultOptionsKey, "InterfaceFontSize", font.size > 0 ? FormatSettingsNumber(font.size) : "");
}

OptionsForm FormFromOptions(const DefaultOptions& o, const ReportPageData& page, const EmailSettings& email,
                            const InterfaceFont& font) {
    OptionsForm f;
    f.units = o.propLengthIndex;
    f.inspectorName = o.repairShopInspector;
    f.repairShopName = o.repairShopName;
    f.repairShopAddress = o.repairShopAddress;
    f.logoPath = o.repairShopLogoFilePath;
    f.defaultManufacturer = o.defaultManufacturer;
    f.reportLayout = std::clamp<int>(o.reportLayout, 0, 3);
    f.page = page;
    f.scanSourceDevice = o.scanSourceDevice;
    // Angle and radius know only Off and On: a single-channel type shows as On.
    f.angleEncoderIndex = o.angleEncoderType > 0 ? 1 : 0;
    f.radiusEncoderIndex = o.radiusEncoderType > 0 ? 1 : 0;
    f.dropEncoderIndex = std::clamp<int>(o.dropEncoderType, 0, 2);
    f.angleFlip = o.angleEncoderFlip;
    f.radiusFlip = o.radiusEncoderFlip;
    f.dropFlip = o.dropEncoderFlip;
    f.angleCalib = Number(o.angleCalibration);
    f.radiusCalibMM = Number(o.radiusCalibration);
    f.dropCalib = Number(o.dropCalibration);
    f.standardOffset = Number(o.standardOffset);
    f.dogLegOffset = Number(o.dogLegOffset);
    f.calibRad = Number(o.calibrationRadius);
    f.calibPulse = Number(o.calibrationPulse);
    f.activeFolder = o.rootDirectory;
    f.archiveFolder = o.archiveDirectory;
    f.email = email;
    f.audioFeedback = o.audioFeedback == 0 ? 0 : 1;
    f.footPedal = o.footPedal == 1 ? 1 : 0;
    f.triggerKey = TriggerKeyText(o.keyboardTrigger);
    f.rulerDisplay = std::clamp<int>(o.radiusDisplayRulerIndex, 0, 3);
    f.rulerFlip = o.radiusDisplayRulerFlip;
    f.bladeOrder = o.scanBladeOrder == 1 ? 1 : 0;
    f.font = font;
    return f;
}

OptionsForm LoadOptionsForm() {
    DefaultOptions options;
    ReadDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, options, kOldDefaultOptionsRootKey);
    return FormFromOptions(options, ReadReportPageData(), LoadEmailSettings(kEmailOptionsKey),
                           ReadInterfaceFont());
}

DefaultOptions OptionsFromForm(const OptionsForm& f) {
    DefaultOptions o;
    o.propLengthIndex = static_cast<std::int16_t>(f.units);
    o.repairShopInspector = f.inspectorName;
    o.repairShopName = f.repairShopName;
    o.repairShopAddress = f.repairShopAddress;
    o.repairShopLogoFilePath = f.logoPath;
    o.defaultManufacturer = f.defaultManufacturer;
    o.reportLayout = static_cast<std::int16_t>(f.reportLayout);
    o.scanSourceDevice = f.scanSourceDevice.empty() ? kDefaultScanSourceDevice : f.scanSourceDevice;
    o.angleEncoderType = static_cast<std::int16_t>(f.angleEncoderIndex == 1 ? 1 : 0);
    o.radiusEncoderType = static_cast<std::int16_t>(f.radiusEncoderIndex == 1 ? 1 : 0);
    o.dropEncoderType = static_cast<std::int16_t>(f.dropEncoderIndex);
    o.angleEncoderFlip = f.angleFlip;
    o.radiusEncoderFlip = f.radiusFlip;
    o.dropEncoderFlip = f.dropFlip;
    o.angleCalibration = StringToDouble(f.angleCalib);
    o.radiusCalibration = StringToDouble(f.radiusCalibMM);
    o.dropCalibration = StringToDouble(f.dropCalib);
    o.standardOffset = StringToDouble(f.standardOffset);
    o.dogLegOffset = StringToDouble(f.dogLegOffset);
    o.calibrationRadius = StringToDouble(f.calibRad);
    o.calibrationPulse = StringToDouble(f.calibPulse);
    o.rootDirectory = f.activeFolder;
    o.archiveDirectory = f.archiveFolder;
    o.audioFeedback = static_cast<std::int16_t>(f.audioFeedback);
    o.footPedal = static_cast<std::int16_t>(f.footPedal);
    o.keyboardTrigger = TriggerKeyCode(f.triggerKey);
    o.radiusDisplayRulerIndex = static_cast<std::int16_t>(f.rulerDisplay);
    o.radiusDisplayRulerFlip = f.rulerFlip;
    o.scanBladeOrder = static_cast<std::int16_t>(f.bladeOrder);
    return o;
}

void SaveOptions(const OptionsForm& form) {
    WriteDefaultOptions(kDefaultOptionsRootKey, kDefaultOptionsSubKey, OptionsFromForm(form));
    WriteReportPageData(form.page);
    SaveEmailSettings(kEmailOptionsKey, form.email);
    WriteInterfaceFont(form.font);
}

EncoderFieldStates UpdateEncoderFields(int angleIndex, int radiusIndex, int dropIndex) {
    EncoderFieldStates s;
    const bool angleOn = angleIndex != 0;
    s.angleCalibLocked = !angleOn;
    s.angleFlipEnabled = angleOn;
    const bool radiusOn = radiusIndex != 0;
    s.radiusFlipEnabled = radiusOn;
    s.radiusCalibLocked = !radiusOn;
    s.calibrateEnabled = radiusOn;
    s.modifyCalibrationEnabled = radiusOn;
    s.rulerEnabled = !radiusOn;
    s.rulerFlipEnabled = !radiusOn;
    // A single-channel counter has no direction to flip.
    s.dropCalibLocked = dropIndex == 0;
    s.dropFlipEnabled = dropIndex == 1;
    return s;
}

bool IsRefusedTriggerKey(int k) {
    using namespace VirtualKey;
    if (k >= 1 && k <= 6 && k != Cancel) {
        return true; // the mouse buttons
    }
    if (k >= F1 && k <= F16) {
        return true;
    }
    switch (k) {
    case Enter:
    case Tab:
    case Shift:
    case Control:
    case Alt:
    case CapsLock:
    case ScrollLock:
    case Pause:
    case Left:
    case Up:
    case Right:
    case Down:
    case Home:
    case End:
    case PageUp:
    case PageDown:
    case Insert:
    case Backspace:
    case Clear:
    case Cancel:
    case Select:
    case Print:
    case Execute:
    case PrintScreen:
    case Help:
    case Separator:
        return true;
    default:
        return false;
    }
}

std::string TriggerKeyDown(int keyCode, const std::string& typed, const std::string& current) {
    if (IsRefusedTriggerKey(keyCode)) {
        Prompts().MessageBox(
            "This key is not a valid trigger key. Please select a different key and try again.",
            MsgBox::OKOnly | MsgBox::Exclamation, "Trigger Key Error");
        return {};
    }
    if (keyCode == VirtualKey::Escape) {
        return {};
    }
    if (keyCode == VirtualKey::Space || typed == " ") {
        return kSpaceText;
    }
    if (typed.empty() || static_cast<unsigned char>(typed[0]) < 32) {
        return current;
    }
    return std::string(1, static_cast<char>(std::toupper(static_cast<unsigned char>(typed[0]))));
}

std::int32_t TriggerKeyCode(const std::string& text) {
    if (text == kSpaceText) {
        return VirtualKey::Space;
    }
    if (text.empty() || text == "0") {
        return 0;
    }
    return static_cast<unsigned char>(text[0]);
}

std::string TriggerKeyText(std::int32_t code) {
    if (code == VirtualKey::Space) {
        return kSpaceText;
    }
    if (code <= 32 || code > 255) {
        return {};
    }
    return std::string(1, static_cast<char>(code));
}

std::string ShortenedPath(const std::string& path) {
    const std::size_t last = path.find_last_of("\\/");
    if (last == std::string::npos || last == 0) {
        return path;
    }
    const std::size_t previous = path.find_last_of("\\/", last - 1);
    // Only a path with something in front of its last folder gets shorter.
    if (previous == std::string::npos || path.find_first_not_of("\\/") >= previous) {
        return path;
    }
    return "..." + path.substr(previous);
}

bool TakeDogLegOffset(const std::string& text) {
    const char separator = static_cast<char>(gDecimalChar);
    if (text.empty() || !(IsNumericText(text, separator) || IsNumericText(text, '.'))) {
        return false;
    }
    const double value = StringToDouble(text);
    if (!(value >= 0)) {
        return false;
    }
    gDogLegOffset = value;
    return true;
}

void ApplyFolderFallbacks(std::string& activeFolder, std::string& archiveFolder) {
    DefaultOptions folders;
    folders.rootDirectory = activeFolder;
    folders.archiveDirectory = archiveFolder;
    DeriveFolders(folders);
    activeFolder = folders.rootDirectory;
    archiveFolder = folders.archiveDirectory;
}

} // namespace corvane
