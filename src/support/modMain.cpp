#include "support/modMain.h"

#include "model/Globals.h"
#include "support/ErrorTail.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

namespace corvane {
namespace {

const char* const kContext = "at main entry";

std::string Pad2(int v) {
    return v < 10 ? "0" + std::to_string(v) : std::to_string(v);
}

// The folder of the running program file, with a trailing separator. A program started under
// another name (renamed, or run by a host) is still found by its own file, so the folder holds.
std::string ProgramFolder() {
    const std::string programFile = GetModulePath();
    return programFile.empty() ? std::string() : AddFolderSeparator(FolderOf(programFile));
}

void Run(const std::function<void()>& hook) {
    if (hook) {
        hook();
    }
}

} // namespace

std::string MakeSessionStamp(const DateTime& now) {
    return "-" + std::to_string(now.year) + Pad2(now.month) + Pad2(now.day) + "-" + Pad2(now.hour) +
           Pad2(now.minute);
}

void InitCommonSupport(const StartupHooks& hooks) {
    gAppExeName = hooks.appExeName;
    gAppTitle = hooks.appTitle;
    gAppPath = ProgramFolder();
    const std::string appData = GetAppDataFolder();
    gAppDataPath = appData.empty()
                       ? std::string()
                       : AddFolderSeparator(AddFolderSeparator(appData + "Corvane Software") + "Corvane");
    const char decimal = Environment().DecimalSeparator();
    gDecimalChar = static_cast<std::int16_t>(decimal ? decimal : '.');
    Run(hooks.chooseInterfaceFont);
}

void Main(const StartupHooks& hooks) {
    ErrorTail tail(kContext);
    tail.Step([&] { InitCommonSupport(hooks); });
    tail.Step([&] {
        Run(hooks.setGraphColours);
        CompareScanIndex = -1;
    });
    // The constants gDegToRad, gPi and the gravities are compile-time constants.
    tail.Step([&] { gDAQConnected = hooks.connectEncoder ? hooks.connectEncoder() : false; });
    tail.Step([&] {
        if (gOfficeMode != 0) {
            gScanMode = 0;
            Prompts().MessageBox("Cannot connect to DAQ. Data acquisition will be disabled. " + gAppTitle +
                                     " is now in Office mode.",
                                 MsgBox::OKOnly | MsgBox::Exclamation, gAppTitle);
        } else {
            // A Shop station without the box falls back to manual entry without a word.
            gScanMode = gDAQConnected ? 2 : 1;
        }
    });
    tail.Step([&] { gSessionStamp = MakeSessionStamp(Clock().Now()); });
    tail.Step([&] { gAppPath = ProgramFolder(); });
    tail.Step([&] { Run(hooks.fillEncoderTypeTags); });
    tail.Step([&] {
        Run(hooks.readDefaultOptions);
        Run(hooks.resetProjectPageUnit);
        gActiveProbeOffset = gStandardOffset;
        gActiveProbeDrop = 0;
    });
    tail.Step([&] { Run(hooks.applyInterfaceStyle); });
    tail.Step([&] { Run(hooks.readReportOptions); });
    tail.Step([&] {
        gHelpFileFound = false;
        gHelpFilePath.clear();
        std::string path;
        if (!hooks.helpFileName.empty() && FindFileInFolder(hooks.helpFileName, gAppPath, path)) {
            gHelpFileFound = true;
            gHelpFilePath = path;
        }
    });
    tail.Step([&] { Run(hooks.createNewProject); });
    tail.Step([&] {
        Run(hooks.showMainWindow);
        Events().DoEvents();
    });
}

} // namespace corvane
