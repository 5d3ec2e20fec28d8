#pragma once

// Hands every prompt on to the prompts installed before it and keeps what was shown, so that a
// use case can give back the messages its run showed. Installed for the life of the object.

#include "support/Services.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane {

class PromptRecorder : public IPrompts {
public:
    PromptRecorder();
    ~PromptRecorder() override;
    PromptRecorder(const PromptRecorder&) = delete;
    PromptRecorder& operator=(const PromptRecorder&) = delete;

    // Every text shown so far, the title first where there is one ("Title: text").
    const std::vector<std::string>& Shown() const { return shown_; }

    int MessageBox(const std::string& text, int style, const std::string& title) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultValue) override;
    int ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) override;

private:
    void Keep(const std::string& title, const std::string& text);

    IPrompts& next_;
    std::vector<std::string> shown_;
    std::unique_ptr<ServiceScope> scope_;
};

} // namespace corvane
