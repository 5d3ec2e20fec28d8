#pragma once

#include "support/Services.h"

#include <iosfwd>

namespace corvane::cli {

// Prompts for a program with no one at the screen: every message goes to the error stream,
// and every question gets the answer of a technician who wants to go on with the work.
class ConsolePrompts : public IPrompts {
public:
    explicit ConsolePrompts(std::ostream& err) : err_(err) {}

    int MessageBox(const std::string& text, int style, const std::string& title) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultValue) override;
    int ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) override;

    int MessagesShown() const { return shown_; }

private:
    std::ostream& err_;
    int shown_ = 0;
};

} // namespace corvane::cli
