#include "files/modCalibrationFile.h"

#include "files/FileAccess.h"
#include "files/TextEncoding.h"
#include "files/clsFileINI.h"
#include "files/modSettings.h"
#include "model/AppVersion.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "model/modUtilities.h"
#include "support/ErrorTail.h"
#include "support/Services.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

namespace corvane {
namespace {

const char* const kBlock = "Calibration";
constexpr double kMillimetresPerInch = 25.4;

std::string Lower(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

std::string Padded(int value, std::size_t width) {
    std::string text = std::to_string(value);
    return text.size() < width ? std::string(width - text.size(), '0') + text : text;
}

// The program and version that wrote a file: "Corvane 1.00.0000", with the build tag behind.
std::string SourceText() {
    std::string text = gAppTitle + " " + std::to_string(kVersionMajor) + "." + Padded(kVersionMinor, 2) +
                       "." + Padded(kVersionRevision, 4);
    if (!gBuildTag.empty()) {
        text += "." + gBuildTag;
    }
    return text;
}

std::string EncoderWord(int type) {
    return type >= 0 && static_cast<std::size_t>(type) < kEncoderFileWords.size()
               ? kEncoderFileWords[static_cast<std::size_t>(type)]
               : "";
}

// "off", "dual" or "single" in any case; another word leaves the type as it was.
void ReadEncoderWord(const std::string& word, std::int16_t& type) {
    const std::string lower = Lower(word);
    for (std::size_t i = 0; i < kEncoderFileWords.size(); ++i) {
        if (lower == Lower(kEncoderFileWords[i])) {
            type = static_cast<std::int16_t>(i);
            return;
        }
    }
}

bool StartsWithNoCase(std::string_view line, std::string_view prefix) {
    return line.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), line.begin(), [](char a, char b) {
               return std::tolower(static_cast<unsigned char>(a)) ==
                      std::tolower(static_cast<unsigned char>(b));
           });
}

// One line of a Hale MRI file into the values. The sense of the depth flip is the reverse of
// the other two: that machine counts depth the other way round.
void ReadHaleMRILine(std::string_view line, CalibrationValues& values) {
    enum Field {
        AngleResolution,
        AngleCalibration,
        RadiusResolution,
        RadiusCalibration,
        DepthResolution,
        DepthCalibration,
        ShopName
    };
    static constexpr std::array<std::string_view, 7> kPrefixes = {
        "\"AngleResolution = \",",   "\"AngleCalibration = \",", "\"RadiusResolution = \",",
        "\"RadiusCalibration = \",", "\"DepthResolution = \",",  "\"DepthCalibration = \",",
        "\"ShopName = \","};
    for (std::size_t field = 0; field < kPrefixes.size(); ++field) {
        if (!StartsWithNoCase(line, kPrefixes[field])) {
            continue;
        }
        if (field == ShopName) {
            return;
        }
        const double value = StringToDouble(line.substr(kPrefixes[field].size()));
        switch (field) {
        case AngleResolution:
            values.angleType = 1;
            values.anglePulses = value;
            break;
        case AngleCalibration:
            values.angleFlip = !(value > 0);
            break;
        case RadiusResolution:
            values.radiusType = 1;
            values.radiusPulses = value / kMillimetresPerInch;
            break;
        case RadiusCalibration:
            values.radiusFlip = !(value > 0);
            break;
        case DepthResolution:
            values.dropType = 1;
            values.dropPulses = value / kMillimetresPerInch;
            break;
        case DepthCalibration:
            values.dropFlip = value > 0;
            break;
        default:
            break;
        }
        return;
    }
}

} // namespace

int WriteCalibrationFile(const std::string& path, const CalibrationValues& values) {
    ErrorTail tail("writing calibration file to disk");
    int result = 0;
    tail.Step([&] {
        clsFileINI file;
        bool flag = false;
        std::string text;
        file.ResetArrayIndex();
        file.SetStringToBlockTag("LastModified", DateToStamp(Clock().Now()), flag, text);
        file.SetStringToBlockTag("Source", SourceText(), flag, text);
        file.SetStringToBlockTag("ScanSourceDevice", values.device, flag, text);
        file.SetStringToBlockTag("AngleEncoder", EncoderWord(values.angleType), flag, text);
        file.SetFloatToBlockTag("AnglePulsePerRotation", values.anglePulses, flag, text);
        file.SetStringToBlockTag("AngleEncoderFlip", values.angleFlip ? "On" : "Off", flag, text);
        file.SetStringToBlockTag("RadiusEncoder", EncoderWord(values.radiusType), flag, text);
        file.SetFloatToBlockTag("RadiusPulsePerMM", values.radiusPulses, flag, text);
        file.SetStringToBlockTag("RadiusEncoderFlip", values.radiusFlip ? "On" : "Off", flag, text);
        file.SetStringToBlockTag("DropEncoder", EncoderWord(values.dropType), flag, text);
        file.SetFloatToBlockTag("DropPulsePerMM", values.dropPulses, flag, text);
        file.SetStringToBlockTag("DropEncoderFlip", values.dropFlip ? "On" : "Off", flag, text);
        file.SetFloatToBlockTag("DeviceStandardProbeOffset", values.standardOffset, flag, text);
        file.SetFloatToBlockTag("DeviceDoglegProbeOffset", values.dogLegOffset, flag, text);
        file.SetFloatToBlockTag("DeviceCalibrationPointRadiusMM", values.calibrationRadius, flag, text);
        file.SetFloatToBlockTag("DeviceCalibrationPointPulse", values.calibrationPulse, flag, text);
        if (file.WriteBlock(kBlock, path) == 0) {
            throw CorvaneError(ErrorNumber::PathFileAccessError, "Path/File access error");
        }
        result = flag ? 0 : 1;
    });
    return tail.Failed() ? 0 : result;
}

int ReadCalibrationFile(const std::string& path, CalibrationValues& values, CalibrationLimits& limits) {
    ErrorTail tail("reading calibration file from disk");
    // Read into copies, so that a file that fails halfway changes nothing.
    CalibrationValues read = values;
    CalibrationLimits readLimits = limits;
    bool flag = false;
    std::string text;
    bool found = false;
    tail.Step([&] {
        clsFileINI file;
        if (file.ReadBlock(kBlock, path) == 0) {
            Prompts().MessageBox("An error occurred reading the calibration file. Check the file format.",
                                 MsgBox::OKOnly | MsgBox::Critical, gAppTitle);
            return;
        }
        found = true;
        read.device = file.GetStringFromBlockTag("ScanSourceDevice", flag, text);
        ReadEncoderWord(file.GetStringFromBlockTag("AngleEncoder", flag, text), read.angleType);
        read.anglePulses = file.GetFloatFromBlockTag("AnglePulsePerRotation", flag, text);
        read.angleFlip = Lower(file.GetStringFromBlockTag("AngleEncoderFlip", flag, text)) == "on";
        ReadEncoderWord(file.GetStringFromBlockTag("RadiusEncoder", flag, text), read.radiusType);
        read.radiusPulses = file.GetFloatFromBlockTag("RadiusPulsePerMM", flag, text);
        read.radiusFlip = Lower(file.GetStringFromBlockTag("RadiusEncoderFlip", flag, text)) == "on";
        ReadEncoderWord(file.GetStringFromBlockTag("DropEncoder", flag, text), read.dropType);
        read.dropPulses = file.GetFloatFromBlockTag("DropPulsePerMM", flag, text);
        read.dropFlip = Lower(file.GetStringFromBlockTag("DropEncoderFlip", flag, text)) == "on";
        read.standardOffset = file.GetFloatFromBlockTag("DeviceStandardProbeOffset", flag, text);
        read.dogLegOffset = file.GetFloatFromBlockTag("DeviceDoglegProbeOffset", flag, text);
        read.calibrationRadius = file.GetFloatFromBlockTag("DeviceCalibrationPointRadiusMM", flag, text);
        read.calibrationPulse = file.GetFloatFromBlockTag("DeviceCalibrationPointPulse", flag, text);
        readLimits.radiusMinMM = file.GetFloatFromBlockTag("RadiusLimitMinMM", flag, text);
        readLimits.radiusMaxMM = file.GetFloatFromBlockTag("RadiusLimitMaxMM", flag, text);
        readLimits.dropMinMM = file.GetFloatFromBlockTag("DropLimitMinMM", flag, text);
        readLimits.dropMaxMM = file.GetFloatFromBlockTag("DropLimitMaxMM", flag, text);
    });
    if (!found || flag || tail.Failed()) {
        return 0;
    }
    values = read;
    limits = readLimits;
    return 1;
}

int ReadHaleMRICalibrationFile(const std::string& path, CalibrationValues& values,
                               CalibrationLimits& limits) {
    ErrorTail tail("reading HaleMRI calibration file from disk");
    CalibrationValues read = values;
    tail.Step([&] {
        const std::string text = ReadFileText(path);
        for (const std::string_view line : SplitFileLines(text)) {
            ReadHaleMRILine(line, read);
        }
    });
    if (tail.Failed()) {
        return 0;
    }
    read.device = "Hale MRI";
    read.standardOffset = 0;
    read.dogLegOffset = 0;
    read.calibrationRadius = 0;
    read.calibrationPulse = 0;
    values = read;
    limits.radiusMinMM = 0;
    limits.radiusMaxMM = 50 * kMillimetresPerInch;
    limits.dropMinMM = -10 * kMillimetresPerInch;
    limits.dropMaxMM = 40 * kMillimetresPerInch;
    return 1;
}

} // namespace corvane
