#pragma once

// Program-wide state: the open project, the selection, the station and the settings read from
// the default options. One user-interface thread owns all of it; nothing here is locked.
// Only CreateNewProject replaces gProject, gUnits and gISO484.

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace corvane {

class clsCorvane;
class clsUnits;
class clsISO484;

// Constants. gDegToRad is the literal the station has always used, not pi/180.
inline constexpr double gDegToRad = 0.01745329252;
inline constexpr double gPi = 3.14159265358979;
inline constexpr double gGravityFeet = 32.174;    // ft/s^2
inline constexpr double gGravityMetric = 9.80665; // m/s^2

// Standard section radii as fractions of the radius, row 0 outermost. Row 7 takes the inner
// radius (ISOInnerRadius / 100) when one is set.
extern std::array<double, 8> gRadialPositions;
inline constexpr std::array<double, 8> kStandardRadialPositions = {0.95, 0.9, 0.8, 0.7, 0.6, 0.5, 0.4, 0.3};

inline constexpr const char* kUntitledFileName = "untitled.cvpj";
inline constexpr const char* kReadOnlyUntitledFileName = "~untitled.cvpj";

// Program state.
extern std::shared_ptr<clsCorvane> gProject;
extern std::shared_ptr<clsUnits> gUnits;
extern std::shared_ptr<clsISO484> gISO484;
extern std::string gProjectFileName;
extern bool gProjectDirty;
extern std::int16_t ActiveBlade;
extern std::int16_t ActiveRadius;
extern std::int16_t CompareScanIndex;
extern bool GraphsStale;
extern std::int16_t gCheckPageMode;
extern std::array<bool, 8> gShowRadiusFlags;
extern std::array<bool, 8> gISORadiusFlags;
extern std::array<bool, 7> gShowBladeFlags;
extern bool ZoomActive;
extern bool gPitchIgnoreTrack;
// Scan sequence: 0 all blades per radius, 1 all radii per blade. Back to 0 whenever the default
// options are read again or a new project starts.
extern std::int16_t gScanOrderMode;

// Station state: how the program runs on this station, fixed at start-up.
struct StationState {
    std::int32_t officeMode = 0; // 0 Shop, 1 Office
    std::int32_t scanMode = 0;   // 0 no scanning, 1 manual entry, 2 digital acquisition
    bool daqConnected = false;
    std::string appTitle = "Corvane";
    std::string appExeName = "corvane";
    std::string appPath{};     // with a trailing separator
    std::string appDataPath{}; // with a trailing separator
    std::string logFolder{};   // empty: gAppDataPath
    std::string buildTag{};
    std::string sessionStamp{}; // "-yyyymmdd-hhmm"
    bool helpFileFound = false;
    std::string helpFilePath{};
    std::int16_t decimalChar = '.'; // character code of the user's decimal separator
    std::string uiFontName = "Arial";
    double uiFontSize = 9.0;
};

// Settings read from the default options; read again whenever the settings dialog closes. The
// encoder type words by index (0 off, 1 dual channel, 2 single channel) are filled at start:
// encoderTypeTag for the settings and the ScanDrop of project files, encoderFileTag for
// calibration files. The probe chosen on the Project page: the selection it stores (0 no dog
// leg, 1 and 2 overlap to the left and right, 3 towards hub or tip) and the offsets it puts in
// force, in mm, sideways from the arm's radial line and along it; activeProbeOffset and
// activeProbeDrop are the working values of the probe.
struct StationSettings {
    std::string defaultInspector{};
    std::string repairShopName{};
    std::string repairShopAddress{};
    std::string repairShopLogoFilePath{};
    std::string scanSourceDevice{};
    std::string defaultManufacturer{};
    double angleCalibration = 0;  // pulses in a rotation
    double radiusCalibration = 0; // pulses in a millimetre
    double dropCalibration = 0;   // pulses in a millimetre
    std::int16_t angleEncoderType = 0;
    std::int16_t radiusEncoderType = 0;
    std::int16_t dropEncoderType = 0;
    bool angleEncoderFlip = false;
    bool radiusEncoderFlip = false;
    bool dropEncoderFlip = false;
    double standardOffset = 0;
    double dogLegOffset = 0;
    double calibrationRadius = 0;
    double calibrationPulse = 0;
    std::string rootDirectory{}; // the Project Library folder
    std::string archiveDirectory{};
    std::int16_t panelSize = 0;
    std::int16_t radiusDisplayRulerIndex = 0;
    bool radiusDisplayRulerFlip = false;
    std::int16_t reportLayout = 0;
    bool audioFeedback = false;
    bool footPedal = false;
    std::int32_t keyboardTrigger = 0;        // key code, 0 for none
    std::int32_t scanBladeOrder = 0;         // 0 in blade order, 1 in rotation direction
    std::int16_t defaultPropLengthIndex = 2; // unit of new projects (PropLengthIndex of the options)
    std::array<std::string, 3> encoderTypeTag{};
    std::array<std::string, 3> encoderFileTag{};
    double activeProbeOffset = 0;
    double activeProbeDrop = 0;
    std::int16_t scanArmOffsetIndex = 0;
    double activeProbeOffsetSide = 0;
    double activeProbeOffsetRadial = 0;
};

// The defaults: a reset of either is one assignment of a fresh value.
extern StationState gStationState;
extern StationSettings gStation;

// The names the program has always used, one for each member above.
extern std::int32_t& gOfficeMode;
extern std::int32_t& gScanMode;
extern bool& gDAQConnected;
extern std::string& gAppTitle;
extern std::string& gAppExeName;
extern std::string& gAppPath;
extern std::string& gAppDataPath;
extern std::string& gLogFolder;
extern std::string& gBuildTag;
extern std::string& gSessionStamp;
extern bool& gHelpFileFound;
extern std::string& gHelpFilePath;
extern std::int16_t& gDecimalChar;
extern std::string& gUIFontName;
extern double& gUIFontSize;
extern std::string& gDefaultInspector;
extern std::string& gRepairShopName;
extern std::string& gRepairShopAddress;
extern std::string& gRepairShopLogoFilePath;
extern std::string& gScanSourceDevice;
extern std::string& gDefaultManufacturer;
extern double& gAngleCalibration;
extern double& gRadiusCalibration;
extern double& gDropCalibration;
extern std::int16_t& gAngleEncoderType;
extern std::int16_t& gRadiusEncoderType;
extern std::int16_t& gDropEncoderType;
extern bool& gAngleEncoderFlip;
extern bool& gRadiusEncoderFlip;
extern bool& gDropEncoderFlip;
extern double& gStandardOffset;
extern double& gDogLegOffset;
extern double& gCalibrationRadius;
extern double& gCalibrationPulse;
extern std::string& gRootDirectory;
extern std::string& gArchiveDirectory;
extern std::int16_t& gPanelSize;
extern std::int16_t& gRadiusDisplayRulerIndex;
extern bool& gRadiusDisplayRulerFlip;
extern std::int16_t& gReportLayout;
extern bool& gAudioFeedback;
extern bool& gFootPedal;
extern std::int32_t& gKeyboardTrigger;
extern std::int32_t& gScanBladeOrder;
extern std::int16_t& gDefaultPropLengthIndex;
extern std::array<std::string, 3>& gEncoderTypeTag;
extern std::array<std::string, 3>& gEncoderFileTag;
extern double& gActiveProbeOffset;
extern double& gActiveProbeDrop;
extern std::int16_t& gScanArmOffsetIndex;
extern double& ActiveProbeOffsetSide;
extern double& ActiveProbeOffsetRadial;

// Sets every global above back to its state before start-up. Tests call it between cases.
void ResetGlobals();

} // namespace corvane
