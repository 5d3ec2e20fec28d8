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

StationState gStationState;
StationSettings gStation;

std::int32_t& gOfficeMode = gStationState.officeMode;
std::int32_t& gScanMode = gStationState.scanMode;
bool& gDAQConnected = gStationState.daqConnected;
std::string& gAppTitle = gStationState.appTitle;
std::string& gAppExeName = gStationState.appExeName;
std::string& gAppPath = gStationState.appPath;
std::string& gAppDataPath = gStationState.appDataPath;
std::string& gLogFolder = gStationState.logFolder;
std::string& gBuildTag = gStationState.buildTag;
std::string& gSessionStamp = gStationState.sessionStamp;
bool& gHelpFileFound = gStationState.helpFileFound;
std::string& gHelpFilePath = gStationState.helpFilePath;
std::int16_t& gDecimalChar = gStationState.decimalChar;
std::string& gUIFontName = gStationState.uiFontName;
double& gUIFontSize = gStationState.uiFontSize;
std::string& gDefaultInspector = gStation.defaultInspector;
std::string& gRepairShopName = gStation.repairShopName;
std::string& gRepairShopAddress = gStation.repairShopAddress;
std::string& gRepairShopLogoFilePath = gStation.repairShopLogoFilePath;
std::string& gScanSourceDevice = gStation.scanSourceDevice;
std::string& gDefaultManufacturer = gStation.defaultManufacturer;
double& gAngleCalibration = gStation.angleCalibration;
double& gRadiusCalibration = gStation.radiusCalibration;
double& gDropCalibration = gStation.dropCalibration;
std::int16_t& gAngleEncoderType = gStation.angleEncoderType;
std::int16_t& gRadiusEncoderType = gStation.radiusEncoderType;
std::int16_t& gDropEncoderType = gStation.dropEncoderType;
bool& gAngleEncoderFlip = gStation.angleEncoderFlip;
bool& gRadiusEncoderFlip = gStation.radiusEncoderFlip;
bool& gDropEncoderFlip = gStation.dropEncoderFlip;
double& gStandardOffset = gStation.standardOffset;
double& gDogLegOffset = gStation.dogLegOffset;
double& gCalibrationRadius = gStation.calibrationRadius;
double& gCalibrationPulse = gStation.calibrationPulse;
std::string& gRootDirectory = gStation.rootDirectory;
std::string& gArchiveDirectory = gStation.archiveDirectory;
std::int16_t& gPanelSize = gStation.panelSize;
std::int16_t& gRadiusDisplayRulerIndex = gStation.radiusDisplayRulerIndex;
bool& gRadiusDisplayRulerFlip = gStation.radiusDisplayRulerFlip;
std::int16_t& gReportLayout = gStation.reportLayout;
bool& gAudioFeedback = gStation.audioFeedback;
bool& gFootPedal = gStation.footPedal;
std::int32_t& gKeyboardTrigger = gStation.keyboardTrigger;
std::int32_t& gScanBladeOrder = gStation.scanBladeOrder;
std::int16_t& gDefaultPropLengthIndex = gStation.defaultPropLengthIndex;
std::array<std::string, 3>& gEncoderTypeTag = gStation.encoderTypeTag;
std::array<std::string, 3>& gEncoderFileTag = gStation.encoderFileTag;
double& gActiveProbeOffset = gStation.activeProbeOffset;
double& gActiveProbeDrop = gStation.activeProbeDrop;
std::int16_t& gScanArmOffsetIndex = gStation.scanArmOffsetIndex;
double& ActiveProbeOffsetSide = gStation.activeProbeOffsetSide;
double& ActiveProbeOffsetRadial = gStation.activeProbeOffsetRadial;

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

    gStationState = StationState{};
    gStation = StationSettings{};
}

} // namespace corvane
