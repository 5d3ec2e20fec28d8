#include "model/Globals.h"

namespace corvane {

std::array<double, 8> gRadialPositions = kStandardRadialPositions;

std::shared_ptr<clsCorvane> gProject;
std::shared_ptr<clsUnits> gUnits;
std::shared_ptr<clsISO484> gISO484;
std::string gProjectFileName = kUntitledFileName;
bool gProjectDirty = false;
std::int16_t ActiveBlade = 0;
std::int16_t ActiveRadius = 0;
std::int16_t CompareScanIndex = -1;
bool GraphsStale = false;
std::int16_t gCheckPageMode = 0;
std::array<bool, 8> gShowRadiusFlags{};
std::array<bool, 8> gISORadiusFlags{};
std::array<bool, 7> gShowBladeFlags{};
bool ZoomActive = false;
std::int16_t gScanOrderMode = 0;
bool gPitchIgnoreTrack = true;

std::int32_t gOfficeMode = 0;
std::int32_t gScanMode = 0;
bool gDAQConnected = false;
std::string gAppTitle = "Corvane";
std::string gAppExeName = "corvane";
std::string gAppPath;
std::string gAppDataPath;
std::string gLogFolder;
std::string gBuildTag;
std::string gSessionStamp;
bool gHelpFileFound = false;
std::string gHelpFilePath;
std::int16_t gDecimalChar = '.';
std::string gUIFontName = "Arial";
double gUIFontSize = 9.0;

std::string gDefaultInspector;
std::string gRepairShopName;
std::string gRepairShopAddress;
std::string gRepairShopLogoFilePath;
std::string gScanSourceDevice;
std::string gDefaultManufacturer;
double gAngleCalibration = 0;
double gRadiusCalibration = 0;
double gDropCalibration = 0;
std::int16_t gAngleEncoderType = 0;
std::int16_t gRadiusEncoderType = 0;
std::int16_t gDropEncoderType = 0;
bool gAngleEncoderFlip = false;
bool gRadiusEncoderFlip = false;
bool gDropEncoderFlip = false;
double gStandardOffset = 0;
double gDogLegOffset = 0;
double gCalibrationRadius = 0;
double gCalibrationPulse = 0;
std::string gRootDirectory;
std::string gArchiveDirectory;
std::int16_t gPanelSize = 0;
std::int16_t gRadiusDisplayRulerIndex = 0;
bool gRadiusDisplayRulerFlip = false;
std::int16_t gReportLayout = 0;
bool gAudioFeedback = false;
bool gFootPedal = false;
std::int32_t gKeyboardTrigger = 0;
std::int32_t gScanBladeOrder = 0;
std::int16_t gDefaultPropLengthIndex = 2;
std::array<std::string, 3> gEncoderTypeTag{};
std::array<std::string, 3> gEncoderFileTag{};

double gActiveProbeOffset = 0;
double gActiveProbeDrop = 0;
std::int16_t gScanArmOffsetIndex = 0;
double ActiveProbeOffsetSide = 0;
double ActiveProbeOffsetRadial = 0;

void ResetGlobals() {
    gRadialPositions = kStandardRadialPositions;
    gProject.reset();
    gUnits.reset();
    gISO484.reset();
    gProjectFileName = kUntitledFileName;
    gProjectDirty = false;
    ActiveBlade = 0;
    ActiveRadius = 0;
    CompareScanIndex = -1;
    GraphsStale = false;
    gCheckPageMode = 0;
    gShowRadiusFlags = {};
    gISORadiusFlags = {};
    gShowBladeFlags = {};
    ZoomActive = false;
    gScanOrderMode = 0;
    gPitchIgnoreTrack = true;

    gOfficeMode = 0;
    gScanMode = 0;
    gDAQConnected = false;
    gAppTitle = "Corvane";
    gAppExeName = "corvane";
    gAppPath.clear();
    gAppDataPath.clear();
    gLogFolder.clear();
    gBuildTag.clear();
    gSessionStamp.clear();
    gHelpFileFound = false;
    gHelpFilePath.clear();
    gDecimalChar = '.';
    gUIFontName = "Arial";
    gUIFontSize = 9.0;

    gDefaultInspector.clear();
    gRepairShopName.clear();
    gRepairShopAddress.clear();
    gRepairShopLogoFilePath.clear();
    gScanSourceDevice.clear();
    gDefaultManufacturer.clear();
    gAngleCalibration = gRadiusCalibration = gDropCalibration = 0;
    gAngleEncoderType = gRadiusEncoderType = gDropEncoderType = 0;
    gAngleEncoderFlip = gRadiusEncoderFlip = gDropEncoderFlip = false;
    gStandardOffset = gDogLegOffset = gCalibrationRadius = gCalibrationPulse = 0;
    gRootDirectory.clear();
    gArchiveDirectory.clear();
    gPanelSize = 0;
    gRadiusDisplayRulerIndex = 0;
    gRadiusDisplayRulerFlip = false;
    gReportLayout = 0;
    gAudioFeedback = false;
    gFootPedal = false;
    gKeyboardTrigger = 0;
    gScanBladeOrder = 0;
    gDefaultPropLengthIndex = 2;
    gEncoderTypeTag = {};
    gEncoderFileTag = {};
    gActiveProbeOffset = 0;
    gActiveProbeDrop = 0;
    gScanArmOffsetIndex = 0;
    ActiveProbeOffsetSide = 0;
    ActiveProbeOffsetRadial = 0;
}

} // namespace corvane
