#include "support/ScriptedPrompts.h"

namespace corvane {

void ScriptedPrompts::Expect(int answer, std::string textFragment) {
    script_.push_back(Step{false, answer, std::nullopt, std::move(textFragment)});
}

void ScriptedPrompts::ExpectInput(std::optional<std::string> value, std::string promptFragment) {
    script_.push_back(Step{true, 0, std::move(value), std::move(promptFragment)});
}

std::vector<std::string> ScriptedPrompts::Texts() const {
    std::vector<std::string> texts;
    texts.reserve(history_.size());
    for (const auto& shown : history_) {
        texts.push_back(shown.text);
    }
    return texts;
}

void ScriptedPrompts::Clear() {
    script_.clear();
    history_.clear();
    unexpected_.clear();
}

const ScriptedPrompts::Step* ScriptedPrompts::Take(const std::string& text, bool isInput) {
    if (script_.empty()) {
        if (!answerFreely_) {
            unexpected_.push_back(text);
        }
        return nullptr;
    }
    const Step& next = script_.front();
    if (next.isInput != isInput ||
        (!next.fragment.empty() && text.find(next.fragment) == std::string::npos)) {
        unexpected_.push_back(text);
        return nullptr;
    }
    current_ = next;
    script_.pop_front();
    return &current_;
}

int ScriptedPrompts::MessageBox(const std::string& text, int style, const std::string& title) {
    const Step* step = Take(text, false);
    const int answer = step ? step->answer : GoOnAnswer(style);
    history_.push_back(Shown{Kind::MessageBox, text, title, style, answer});
    return answer;
}

std::optional<std::string> ScriptedPrompts::InputBox(const std::string& prompt, const std::string& title,
                                                     const std::string& defaultValue) {
    const Step* step = Take(prompt, true);
    std::optional<std::string> value = step ? step->input : std::optional<std::string>(defaultValue);
    history_.push_back(Shown{Kind::InputBox, prompt, title, 0, value ? Answer::OK : Answer::Cancel});
    return value;
}

int ScriptedPrompts::ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) {
    const Step* step = Take(report, false);
    const int answer = step ? step->answer : Answer::Ignore;
    history_.push_back(
        Shown{Kind::CriticalError, report, "", (showEmail ? 1 : 0) | (showAbort ? 2 : 0), answer});
    return answer;
}

} // namespace corvane
