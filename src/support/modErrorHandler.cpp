#include "support/modErrorHandler.h"

#include "model/AppVersion.h"
#include "model/CorvaneError.h"
#include "model/Globals.h"
#include "support/Services.h"
#include "support/modNVSystemUtilities.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <ios>
#include <new>
#include <stdexcept>
#include <system_error>

namespace corvane {

bool gShowEmailOption = false;
bool gShowAbortOption = false;
bool gLogErrorShown = false;

namespace {

const std::string kCrLf = "\r\n";
bool gCriticalErrorShowing = false;

ShutdownSteps& InstalledShutdownSteps() {
    static ShutdownSteps steps;
    return steps;
}

enum class Action { Dialog, Silent, FileInUse, DiskNotReady, Database, Printer };

bool In(int n, std::initializer_list<int> list) {
    for (int v : list) {
        if (n == v) {
            return true;
        }
    }
    return false;
}

Action ActionOf(int n) {
    if (n == ErrorNumber::CommonDialogCancelled || n == 32001) {
        return Action::Silent;
    }
    if (n == ErrorNumber::FileAlreadyInUse) {
        return Action::FileInUse;
    }
    if (n == ErrorNumber::DiskNotReady) {
        return Action::DiskNotReady;
    }
    if (n >= 3000 && n <= 3751) {
        return Action::Database;
    }
    if (In(n, {482, 483, 28660}) || (n >= 28662 && n <= 28667)) {
        return Action::Printer;
    }
    return Action::Dialog;
}

std::string Pad(int value, int width) {
    std::string text = std::to_string(value);
    return text.size() >= static_cast<std::size_t>(width) ? text
                                                          : std::string(width - text.size(), '0') + text;
}

std::string DatabaseText(const std::string& context, const ErrorInfo& e) {
    return "The database table could not be opened or modified because the error:" + kCrLf + kCrLf +
           e.description + "  (Err. #: " + std::to_string(e.number) + ")" + kCrLf + kCrLf + "occured while " +
           context + ". " +
           "This generally means that a field in the database is missing or invalid. All database fields "
           "must "
           "match" +
           " spelling and data type exactly.";
}

std::string PrinterText(const std::string& context, const ErrorInfo& e) {
    return "The error:  " + e.description + kCrLf + kCrLf + "occurred while " + context +
           ". Please check your printer and try again.";
}

int RetryBox(const std::string& text, const std::string& title) {
    return Prompts().MessageBox(text, MsgBox::RetryCancel | MsgBox::Exclamation, title) == Answer::Retry
               ? Answer::Retry
               : Answer::Ignore;
}

void ShowLogFailureOnce(const std::string& message) {
    if (gLogErrorShown) {
        return;
    }
    gLogErrorShown = true;
    Prompts().MessageBox(message, MsgBox::OKOnly | MsgBox::Information, "Logging Error");
}

} // namespace

ErrorInfo ErrorInfoFrom(std::exception_ptr error) {
    try {
        if (error) {
            std::rethrow_exception(error);
        }
        return {51, "Internal error", "Corvane", 0};
    } catch (const CorvaneError& e) {
        return {e.Number(), e.Description(), e.Source(), e.LastDllError()};
    } catch (const std::bad_alloc&) {
        return {ErrorNumber::OutOfMemory, "Out of memory", "Corvane", 0};
    } catch (const std::out_of_range&) {
        return {ErrorNumber::SubscriptOutOfRange, "Subscript out of range", "Corvane", 0};
    } catch (const std::overflow_error&) {
        return {ErrorNumber::Overflow, "Overflow", "Corvane", 0};
    } catch (const std::range_error&) {
        return {ErrorNumber::Overflow, "Overflow", "Corvane", 0};
    } catch (const std::filesystem::filesystem_error& e) {
        const auto code = e.code();
        int number = ErrorNumber::PathFileAccessError;
        if (code == std::errc::no_such_file_or_directory) {
            number = ErrorNumber::FileNotFound;
        } else if (code == std::errc::permission_denied || code == std::errc::device_or_resource_busy) {
            number = ErrorNumber::FileAlreadyInUse;
        }
        return {number, e.what(), "Corvane", code.value()};
    } catch (const std::ios_base::failure& e) {
        return {ErrorNumber::PathFileAccessError, "Path/File access error", "Corvane", e.code().value()};
    } catch (const std::invalid_argument&) {
        return {ErrorNumber::InvalidProcedureCall, "Invalid procedure call or argument", "Corvane", 0};
    } catch (const std::exception& e) {
        return {51, std::string("Internal error: ") + e.what(), "Corvane", 0};
    } catch (...) {
        return {51, "Internal error", "Corvane", 0};
    }
}

ErrorInfo CurrentErrorInfo() {
    return ErrorInfoFrom(std::current_exception());
}

std::string ClassifiedErrorText(const std::string& context, const ErrorInfo& e) {
    const int n = e.number;
    const std::string around = context + ".";
    if (ActionOf(n) == Action::Silent) {
        return {};
    }
    if (In(n, {3, 5, 9, 10, 13, 17, 18, 20, 35})) {
        return "A process error has occurred " + around;
    }
    if (In(n, {6, 11, 16})) {
        return "A mathematical error has occurred " + around;
    }
    if (In(n, {7, 14, 28, 51})) {
        return "A system error has occurred " + around;
    }
    if (In(n, {47, 48, 49})) {
        return "A DLL library error has occurred " + around;
    }
    if (n == ErrorNumber::BadFileName) {
        return "The file name is invalid " + around;
    }
    if (n == ErrorNumber::FileNotFound) {
        return "File not found " + around;
    }
    if (n >= 3000 && n <= 3751) {
        return DatabaseText(context, e);
    }
    if (ActionOf(n) == Action::Printer) {
        return PrinterText(context, e);
    }
    if (n >= 32002 && n <= 32007) {
        return "An email client error has occured. The error occurred while " + context +
               ". Please check your email settings.";
    }
    if (n >= 32008 && n <= 32010) {
        return "An email client error has occured. The error occurred while " + context +
               ". Please reduce the instances of the email client.";
    }
    if (n >= 32011 && n <= 32013) {
        return "An email attatchment error has occured. The error occurred while " + context +
               ". Please check email attachments.";
    }
    if (n >= 32014 && n <= 32025) {
        return "An email client error has occurred " + context +
               ". Please check email recipients, message, and subject.";
    }
    return "An error has occurred " + around;
}

std::string BuildErrorReport(const std::string& classifiedText, const ErrorInfo& e) {
    return classifiedText + kCrLf + kCrLf + gAppTitle + " " + std::to_string(kVersionMajor) + "." +
           Pad(kVersionMinor, 2) + "." + Pad(kVersionRevision, 4) + kCrLf +
           "Error number: " + std::to_string(e.number) + kCrLf + "Description: " + e.description + kCrLf +
           "Source: " + e.source + kCrLf + "Last DLL err: " + std::to_string(e.lastDllError) + kCrLf;
}

std::string FormatLogLine(const std::string& context, const ErrorInfo& e) {
    // Month names are English whatever the user's language, so logs from any station read alike.
    static constexpr std::array<const char*, 12> kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                            "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
    const DateTime now = Clock().Now();
    const std::string month = (now.month >= 1 && now.month <= 12) ? kMonths[now.month - 1] : "???";
    return month + " " + std::to_string(now.day) + " " + std::to_string(now.year) + ", " + Pad(now.hour, 2) +
           ":" + Pad(now.minute, 2) + ":" + Pad(now.second, 2) + ", " + std::to_string(e.number) + ", " +
           e.description + ", " + e.source + ", " + std::to_string(e.lastDllError) + ", " + context;
}

std::string GetErrorLogPath() {
    if (gLogFolder.empty()) {
        gLogFolder = gAppDataPath;
    }
    return AddFolderSeparator(gLogFolder) + gAppExeName + "Error.log";
}

void LogError(const std::string& context, const ErrorInfo& error) {
    namespace fs = std::filesystem;
    const std::string folder = gLogFolder.empty() ? gAppDataPath : gLogFolder;
    const std::string path = GetErrorLogPath();
    std::error_code ec;
    if (!folder.empty() && !fs::is_directory(folder, ec)) {
        fs::create_directories(folder, ec);
        if (ec || !fs::is_directory(folder, ec)) {
            ShowLogFailureOnce("A permissions error occurred creating the log file directory [" + folder +
                               "].");
            return;
        }
    }
    if (fs::exists(path, ec) && IsFileReadOnly(path)) {
        ShowLogFailureOnce("The log could not be written to [" + path + "]. The log file is Read-only.");
        return;
    }
    std::ofstream log(path, std::ios::binary | std::ios::app);
    if (log) {
        log << FormatLogLine(context, error) << kCrLf;
        log.flush();
    }
    if (!log) {
        ShowLogFailureOnce("An error occured writing to the log file [" + path + "].");
    }
}

bool CriticalErrorShowing() {
    return gCriticalErrorShowing;
}

int ShowCriticalError(const std::string& text, bool showEmail, bool showAbort) {
    gCriticalErrorShowing = true;
    int answer = Answer::Ignore;
    try {
        answer = Prompts().ShowCriticalError(text, showEmail, showAbort);
    } catch (...) {
        answer = Answer::Ignore; // the handler itself must not fail
    }
    gCriticalErrorShowing = false;
    return answer;
}

ShutdownSteps SetShutdownSteps(ShutdownSteps steps) {
    ShutdownSteps previous = std::move(InstalledShutdownSteps());
    InstalledShutdownSteps() = std::move(steps);
    return previous;
}

void CloseAllForms() {
    // Taken out first: an error inside the steps must not run them again.
    const ShutdownSteps steps = std::move(InstalledShutdownSteps());
    InstalledShutdownSteps() = nullptr;
    if (steps) {
        try {
            steps();
        } catch (...) {
            // The program ends all the same.
        }
    }
    Events().CloseAllFormsAndEnd();
}

int HandleError(const std::string& context, const ErrorInfo& error, std::optional<bool> showEmail,
                std::optional<bool> showAbort) {
    // No error dialog over an error dialog.
    if (gCriticalErrorShowing) {
        return Answer::Ignore;
    }
    const bool email = showEmail.value_or(gShowEmailOption);
    const bool abort = showAbort.value_or(gShowAbortOption);
    int answer = Answer::Ignore;
    if (gLogFolder.empty()) {
        gLogFolder = gAppDataPath;
    }

    const std::string classified = ClassifiedErrorText(context, error);
    switch (ActionOf(error.number)) {
    case Action::Silent:
        return Answer::Ignore;
    case Action::FileInUse:
        answer = RetryBox("File already in use. Close the file and retry the operation.", gAppTitle);
        break;
    case Action::DiskNotReady:
        return RetryBox(
            "Disk not ready. Put a disk in the drive or close the drive door, and retry the operation.",
            gAppTitle);
    case Action::Database:
        answer = RetryBox(classified, gAppTitle + " database error");
        break;
    case Action::Printer:
        answer = Prompts().MessageBox(classified, MsgBox::RetryCancel | MsgBox::Exclamation, gAppTitle) ==
                         Answer::Retry
                     ? Answer::Retry
                     : Answer::Abort;
        break;
    case Action::Dialog:
        break;
    }

    // Every error that is not silent reaches the report, after a retry box as well.
    const std::string report = BuildErrorReport(classified, error);
    try {
        LogError(context, error);
    } catch (...) {
        // Logging never stops the handler.
    }
    const int dialogAnswer = ShowCriticalError(report, email, abort);
    Events().DoEvents();
    if (dialogAnswer == Answer::Abort) {
        CloseAllForms();
        return Answer::Abort;
    }
    if (dialogAnswer == Answer::Retry || dialogAnswer == Answer::Ignore) {
        return dialogAnswer;
    }
    return answer;
}

int HandleError(const std::string& context, std::optional<bool> showEmail, std::optional<bool> showAbort) {
    return HandleError(context, CurrentErrorInfo(), showEmail, showAbort);
}

void ResetErrorHandlerState() {
    gLogErrorShown = false;
    gCriticalErrorShowing = false;
    gShowEmailOption = false;
    gShowAbortOption = false;
    InstalledShutdownSteps() = nullptr;
}

} // namespace corvane
