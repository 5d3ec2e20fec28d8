#pragma once

#include "platform/DesktopMailTransport.h"
#include "platform/QtEnvironment.h"
#include "platform/QtEventPump.h"
#include "platform/QtPrompts.h"
#include "platform/QtSettingsStore.h"
#include "platform/QtSound.h"
#include "platform/SystemClock.h"

namespace corvane {

// The Qt implementations of every service, owned together and installed for the life of the
// object. The program makes one right after its QApplication.
class QtServices {
public:
    QtServices();
    ~QtServices();
    QtServices(const QtServices&) = delete;
    QtServices& operator=(const QtServices&) = delete;

    QtPrompts prompts;
    QtSettingsStore settings;
    SystemClock clock;
    QtEnvironment environment;
    QtEventPump events;
    QtSound sound;
    DesktopMailTransport mail;

private:
    Services previous_;
};

} // namespace corvane
