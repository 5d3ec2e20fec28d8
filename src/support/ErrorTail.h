#pragma once

#include "support/Services.h"
#include "support/modErrorHandler.h"

#include <optional>
#include <string>
#include <utility>

namespace corvane {

// Gives C++ procedures the meaning of the error handler's answers. Each Step runs one
// statement (or a small group) of the procedure; when it throws, the handler is asked:
//   Retry  - the same step runs again;
//   Ignore - the step is skipped and the procedure goes on with the next one (Step returns
//            false, so a procedure that returns a status can give failure and leave);
//   Abort  - the program is ending; this and every later step is skipped.
//
//   ErrorTail tail("reading the cvpj file from disk");
//   if (!tail.Step([&] { ReadHeader(); })) return 0;
//   tail.Step([&] { ReadNotes(); });       // ignored on failure, the read goes on
class ErrorTail {
public:
    explicit ErrorTail(std::string context, std::optional<bool> showEmail = std::nullopt,
                       std::optional<bool> showAbort = std::nullopt)
        : context_(std::move(context)), showEmail_(showEmail), showAbort_(showAbort) {}

    template <typename F> bool Step(F&& step) {
        if (aborted_) {
            return false;
        }
        for (;;) {
            try {
                std::forward<F>(step)();
                return true;
            } catch (...) {
                const int answer = HandleError(context_, CurrentErrorInfo(), showEmail_, showAbort_);
                if (answer == Answer::Retry) {
                    continue;
                }
                failed_ = true;
                aborted_ = answer == Answer::Abort;
                return false;
            }
        }
    }

    // Some step failed and was ignored (or aborted).
    bool Failed() const { return failed_; }
    bool Aborted() const { return aborted_; }
    const std::string& Context() const { return context_; }

private:
    std::string context_;
    std::optional<bool> showEmail_;
    std::optional<bool> showAbort_;
    bool failed_ = false;
    bool aborted_ = false;
};

} // namespace corvane
