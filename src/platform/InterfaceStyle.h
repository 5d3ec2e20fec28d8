#pragma once

namespace corvane {

// Puts the interface font in force for every window: the one the settings name, else the one
// chosen at start (gUIFontName, gUIFontSize), which then follow the font in force. Called at
// start and whenever the settings were saved. The panel metrics have one size ("Small", scale
// 1.0), which the windows are laid out for.
void ApplyInterfaceFont();

} // namespace corvane
