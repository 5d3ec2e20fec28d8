#include "support/Services.h"

#include "support/FixedClock.h"
#include "support/FixedEnvironment.h"
#include "support/MemorySettingsStore.h"
#include "support/RecordingEventPump.h"
#include "support/ScriptedPrompts.h"

namespace corvane {
namespace {

Services& Installed() {
    static Services services;
    return services;
}

// Stand-ins for services nobody installed. They keep the core safe to call from anywhere
// (a tool, a benchmark) without a window system or a station behind it.
struct StandIns {
    ScriptedPrompts prompts;
    MemorySettingsStore settings;
    FixedClock clock;
    FixedEnvironment environment;
    RecordingEventPump events;
    SilentSound sound;
    RecordingMailTransport mail{-1};
    StandIns() { prompts.SetAnswerFreely(true); }
};

StandIns& Fallback() {
    static StandIns standIns;
    return standIns;
}

} // namespace

int GoOnAnswer(int style) {
    switch (style & MsgBox::ButtonsMask) {
    case MsgBox::AbortRetryIgnore:
        return Answer::Ignore;
    case MsgBox::RetryCancel:
        return Answer::Cancel;
    case MsgBox::YesNoCancel:
    case MsgBox::YesNo:
        return Answer::Yes;
    default:
        return Answer::OK;
    }
}

IPrompts& Prompts() {
    return Installed().prompts ? *Installed().prompts : Fallback().prompts;
}
ISettingsStore& Settings() {
    return Installed().settings ? *Installed().settings : Fallback().settings;
}
IClock& Clock() {
    return Installed().clock ? *Installed().clock : Fallback().clock;
}
IEnvironment& Environment() {
    return Installed().environment ? *Installed().environment : Fallback().environment;
}
IEventPump& Events() {
    return Installed().events ? *Installed().events : Fallback().events;
}
ISound& Sound() {
    return Installed().sound ? *Installed().sound : Fallback().sound;
}

IMailTransport& Mail() {
    return Installed().mail ? *Installed().mail : Fallback().mail;
}

void InstallServices(const Services& services) {
    Installed() = services;
}
const Services& InstalledServices() {
    return Installed();
}

void ResetServices() {
    Installed() = Services{};
    Fallback() = StandIns{};
}

ServiceScope::ServiceScope(const Services& services) : previous_(Installed()) {
    Installed() = services;
}
ServiceScope::~ServiceScope() {
    Installed() = previous_;
}

} // namespace corvane
