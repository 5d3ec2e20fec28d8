#pragma once

// The program's start-up sequence, free of any window system. The program fills the hooks
// with what its front end and the later subsystems provide (encoder box, settings, new
// project, main window); a hook left empty is a step this station does not have.

#include "model/DateTime.h"

#include <functional>
#include <string>

namespace corvane {

struct StartupHooks {
    std::string appTitle = "Corvane";
    std::string appExeName = "corvane";
    std::string helpFileName; // looked for beside the program; empty: no help file

    std::function<void()> chooseInterfaceFont;  // sets gUIFontName and gUIFontSize
    std::function<void()> setGraphColours;      // fixed colours of the graphs
    std::function<bool()> connectEncoder;       // true when exactly one encoder box answered
    std::function<void()> fillEncoderTypeTags;  // the encoder type word tables
    std::function<void()> readDefaultOptions;   // the station's settings, and what derives from them
    std::function<void()> resetProjectPageUnit; // the unit memory of the Project page
    std::function<void()> applyInterfaceStyle;  // fonts, colours, panel metrics
    std::function<void()> readReportOptions;    // the report options
    std::function<void()> createNewProject;     // an empty project in gProject
    std::function<void()> showMainWindow;       // the main window, then pending events
};

// "-yyyymmdd-hhmm", the suffix of the session's temporary report files.
std::string MakeSessionStamp(const DateTime& now);

// Sets the program's name, folders, decimal separator and interface font.
void InitCommonSupport(const StartupHooks& hooks);

// The whole start-up in its fixed order. A failing step goes to the error handler with the
// context "at main entry": Retry runs it again, Ignore goes on with the next step.
void Main(const StartupHooks& hooks);

} // namespace corvane
