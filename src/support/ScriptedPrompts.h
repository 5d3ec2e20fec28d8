#pragma once

#include "support/Services.h"

#include <deque>
#include <string>
#include <vector>

namespace corvane {

// Prompts that answer from a script and record everything shown. Tests queue the answers they
// expect to give; a prompt that finds the queue empty (or whose text does not contain the
// expected fragment) is recorded as unexpected and gets the go-on answer, so the code under
// test runs on and the test can report exactly which prompt was not foreseen. The command-line
// program uses the same class with an empty script: every prompt takes the go-on answer.
class ScriptedPrompts : public IPrompts {
public:
    enum class Kind { MessageBox, InputBox, CriticalError };

    struct Shown {
        Kind kind;
        std::string text; // message, prompt or report
        std::string title;
        int style = 0; // message box style, or showEmail | showAbort << 1 for critical errors
        int answer = 0;
    };

    // Queues an answer for the next prompt of any kind. With a fragment, the prompt's text must
    // contain it or the prompt counts as unexpected.
    void Expect(int answer, std::string textFragment = {});
    void ExpectInput(std::optional<std::string> value, std::string promptFragment = {});
    // When true, prompts with an empty script are not unexpected: they take the go-on answer.
    void SetAnswerFreely(bool freely) { answerFreely_ = freely; }

    const std::vector<Shown>& History() const { return history_; }
    std::vector<std::string> Texts() const;
    const std::vector<std::string>& Unexpected() const { return unexpected_; }
    std::size_t Pending() const { return script_.size(); }
    void Clear();

    int MessageBox(const std::string& text, int style, const std::string& title) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultValue) override;
    int ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) override;

private:
    struct Step {
        bool isInput = false;
        int answer = 0;
        std::optional<std::string> input;
        std::string fragment;
    };

    // Takes the next step if it fits the prompt; records an unexpected prompt otherwise.
    const Step* Take(const std::string& text, bool isInput);

    std::deque<Step> script_;
    Step current_;
    std::vector<Shown> history_;
    std::vector<std::string> unexpected_;
    bool answerFreely_ = false;
};

} // namespace corvane
