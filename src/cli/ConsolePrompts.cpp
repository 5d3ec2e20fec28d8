#include "cli/ConsolePrompts.h"

#include <ostream>

namespace corvane::cli {
namespace {

// Messages keep their CR LF line ends for the screen boxes; a terminal wants plain ones.
std::string Plain(std::string text) {
    std::string out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
            continue;
        }
        out.push_back(text[i]);
    }
    while (!out.empty() && out.back() == '\n') {
        out.pop_back();
    }
    return out;
}

} // namespace

int ConsolePrompts::MessageBox(const std::string& text, int style, const std::string& title) {
    ++shown_;
    err_ << (title.empty() ? std::string() : title + ": ") << Plain(text) << "\n";
    return GoOnAnswer(style);
}

std::optional<std::string> ConsolePrompts::InputBox(const std::string& prompt, const std::string& title,
                                                    const std::string& defaultValue) {
    ++shown_;
    err_ << (title.empty() ? std::string() : title + ": ") << Plain(prompt) << " [" << defaultValue << "]\n";
    return defaultValue;
}

int ConsolePrompts::ShowCriticalError(const std::string& report, bool, bool) {
    ++shown_;
    err_ << Plain(report) << "\n";
    return Answer::Ignore;
}

} // namespace corvane::cli
