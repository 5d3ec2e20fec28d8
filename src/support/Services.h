#pragma once

// The seams between the GUI-free core and the platform. The core never opens a dialog, reads
// the clock, the environment or the settings by itself: it asks the services installed here.
// The program wires Qt implementations (src/platform), the command-line program its console
// ones, and tests scripted ones that answer prompts and record every text shown.

#include "model/DateTime.h"
#include "support/MailTransport.h"

#include <optional>
#include <string>

namespace corvane {

// Message box styles and answers keep the historic numeric codes: callers and error handling
// compare against them, and Error.log readers know them.
namespace MsgBox {
inline constexpr int OKOnly = 0;
inline constexpr int OKCancel = 1;
inline constexpr int AbortRetryIgnore = 2;
inline constexpr int YesNoCancel = 3;
inline constexpr int YesNo = 4;
inline constexpr int RetryCancel = 5;
inline constexpr int ButtonsMask = 0x7;
inline constexpr int Critical = 16;
inline constexpr int Question = 32;
inline constexpr int Exclamation = 48;
inline constexpr int Information = 64;
inline constexpr int IconMask = 0x70;
inline constexpr int DefaultButton2 = 256;
inline constexpr int DefaultButton3 = 512;
} // namespace MsgBox

namespace Answer {
inline constexpr int OK = 1;
inline constexpr int Cancel = 2;
inline constexpr int Abort = 3;
inline constexpr int Retry = 4;
inline constexpr int Ignore = 5;
inline constexpr int Yes = 6;
inline constexpr int No = 7;
} // namespace Answer

// The answer of a user who wants to go on with the work without repeating a failed step:
// OK, Yes, Ignore, or Cancel of a retry box (a retry would fail the same way again).
int GoOnAnswer(int style);

class IPrompts {
public:
    virtual ~IPrompts() = default;
    // A message box: text, buttons and icon (MsgBox flags), title. Returns an Answer code.
    virtual int MessageBox(const std::string& text, int style, const std::string& title) = 0;
    // A one-line input box; no value when cancelled.
    virtual std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                                const std::string& defaultValue) = 0;
    // The critical error dialog: report text and its two options. Returns 3 (abort and close),
    // 4 (retry, the hidden double click) or 5 (OK).
    virtual int ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) = 0;
};

// Per-user string values under a key path such as "Software\Corvane\DefaultOptions". On
// Windows these are registry keys; elsewhere the store keeps the same key paths. A path under
// another program's root ("Software\Norvelle\Corvane\...", where earlier releases kept the
// station's settings) reads that program's settings where it kept them, so they can be moved.
class ISettingsStore {
public:
    virtual ~ISettingsStore() = default;
    virtual bool KeyExists(const std::string& key) = 0;
    virtual void CreateKey(const std::string& key) = 0;
    // "" when the value is missing.
    virtual std::string GetValue(const std::string& key, const std::string& name) = 0;
    // Returns false when the value could not be stored.
    virtual bool SetValue(const std::string& key, const std::string& name, const std::string& value) = 0;
    virtual void DeleteValue(const std::string& key, const std::string& name) = 0;
};

class IClock {
public:
    virtual ~IClock() = default;
    virtual DateTime Now() = 0; // local time
};

// What the station knows about its user, machine and folders. Folders end in a separator.
class IEnvironment {
public:
    virtual ~IEnvironment() = default;
    virtual std::string UserName() = 0;
    virtual std::string ComputerName() = 0;
    virtual std::string AppDataFolder() = 0; // the system's per-user application data folder
    virtual std::string DesktopFolder() = 0;
    virtual std::string TempFolder() = 0;
    virtual std::string ProgramFilePath() = 0; // full path of the running program
    virtual char DecimalSeparator() = 0;       // the user's decimal separator
};

class IEventPump {
public:
    virtual ~IEventPump() = default;
    // Lets pending window events run (the loops of long operations call it).
    virtual void DoEvents() = 0;
    // Closes every window, last opened first, and ends the program without saving.
    virtual void CloseAllFormsAndEnd() = 0;
};

class ISound {
public:
    virtual ~ISound() = default;
    virtual void Beep(int frequencyHz, int durationMs) = 0;
};

struct Services {
    IPrompts* prompts = nullptr;
    ISettingsStore* settings = nullptr;
    IClock* clock = nullptr;
    IEnvironment* environment = nullptr;
    IEventPump* events = nullptr;
    ISound* sound = nullptr;
    IMailTransport* mail = nullptr;
};

// The installed services. Any service not installed answers with a harmless stand-in: prompts
// take the go-on answer, settings live in memory, the clock stands still at the zero date.
IPrompts& Prompts();
ISettingsStore& Settings();
IClock& Clock();
IEnvironment& Environment();
IEventPump& Events();
ISound& Sound();
// Without a mail program installed, messages are kept and refused (status -1).
IMailTransport& Mail();

// Installs a set of services for the life of the scope and puts the previous set back after.
class ServiceScope {
public:
    explicit ServiceScope(const Services& services);
    ~ServiceScope();
    ServiceScope(const ServiceScope&) = delete;
    ServiceScope& operator=(const ServiceScope&) = delete;

private:
    Services previous_;
};

void InstallServices(const Services& services);
const Services& InstalledServices();

// Nothing installed, and the stand-ins as new: what their prompts recorded and their settings
// held is forgotten. Tests call it between cases.
void ResetServices();

} // namespace corvane
