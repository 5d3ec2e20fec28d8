#include "support/PromptRecorder.h"

namespace corvane {

PromptRecorder::PromptRecorder() : next_(Prompts()) {
    Services services = InstalledServices();
    services.prompts = this;
    scope_ = std::make_unique<ServiceScope>(services);
}

PromptRecorder::~PromptRecorder() = default;

void PromptRecorder::Keep(const std::string& title, const std::string& text) {
    shown_.push_back(title.empty() ? text : title + ": " + text);
}

int PromptRecorder::MessageBox(const std::string& text, int style, const std::string& title) {
    Keep(title, text);
    return next_.MessageBox(text, style, title);
}

std::optional<std::string> PromptRecorder::InputBox(const std::string& prompt, const std::string& title,
                                                    const std::string& defaultValue) {
    Keep(title, prompt);
    return next_.InputBox(prompt, title, defaultValue);
}

int PromptRecorder::ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) {
    Keep({}, report);
    return next_.ShowCriticalError(report, showEmail, showAbort);
}

} // namespace corvane
