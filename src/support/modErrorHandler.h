#pragma once

// The common error handler. Every procedure of substance ends in the same tail: on an error
// it calls HandleError with a phrase that says what it was doing ("reading the cvpj file from
// disk"), and acts on the answer: 4 Retry runs the failing step again, 5 Ignore goes on with the
// next (or fails a procedure that returns a status), 3 Abort has already ended the program.

#include <exception>
#include <functional>
#include <optional>
#include <string>

namespace corvane {

struct ErrorInfo {
    int number = 0;
    std::string description;
    std::string source;
    long lastDllError = 0;
};

// The error of an exception: a CorvaneError as it stands, standard exceptions mapped onto the
// numbers the classifier knows (bad_alloc 7, out_of_range 9, overflow 6, file errors 53/70/75).
ErrorInfo ErrorInfoFrom(std::exception_ptr error);
// The error being handled, inside a catch block.
ErrorInfo CurrentErrorInfo();

// Set by the main window when it loads; used when a caller leaves the options out.
extern bool gShowEmailOption;
extern bool gShowAbortOption;
// The log failure message was shown once; later failures stay silent.
extern bool gLogErrorShown;

int HandleError(const std::string& context, const ErrorInfo& error,
                std::optional<bool> showEmail = std::nullopt, std::optional<bool> showAbort = std::nullopt);
// Inside a catch block: handles the exception being caught.
int HandleError(const std::string& context, std::optional<bool> showEmail = std::nullopt,
                std::optional<bool> showAbort = std::nullopt);

// The text the classifier puts around the context ("A process error has occurred " ...
// context "."), as the dialog shows it. Empty for the silent numbers.
std::string ClassifiedErrorText(const std::string& context, const ErrorInfo& error);
// The report of the critical error dialog: classified text, program and version, error fields.
std::string BuildErrorReport(const std::string& classifiedText, const ErrorInfo& error);
// One line of Error.log, without the line end.
std::string FormatLogLine(const std::string& context, const ErrorInfo& error);

void LogError(const std::string& context, const ErrorInfo& error);
std::string GetErrorLogPath();
int ShowCriticalError(const std::string& text, bool showEmail, bool showAbort);
// True while the critical error dialog is open: a second error returns Ignore at once.
bool CriticalErrorShowing();
// Runs the shut-down steps installed, then closes every window and ends the program.
void CloseAllForms();

// What the program does on its way out after Abort, before the windows close: the main window
// installs its own shut-down steps (the open project's lock goes, the timers and the
// acquisition stop) for as long as it lives, so that the core never calls into the window.
// The steps ask nothing and save nothing. Gives back the steps installed before.
using ShutdownSteps = std::function<void()>;
ShutdownSteps SetShutdownSteps(ShutdownSteps steps);

// Clears the module state (the one-time log message flag, the dialog options, the shut-down
// steps installed); tests call it between cases.
void ResetErrorHandlerState();

} // namespace corvane
