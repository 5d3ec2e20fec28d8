#pragma once

// What a procedure has to tell the user, handed back instead of shown: the front end decides
// where it appears (a message box in the window, a line on standard error in the command line).

#include <string>
#include <vector>

namespace corvane {

struct Notice {
    std::string title;
    std::string text;
    int style = 0; // MsgBox flags of the box the window shows it in
};

// Shows each notice in a message box through the installed prompts, in order.
void ShowNotices(const std::vector<Notice>& notices);

} // namespace corvane
