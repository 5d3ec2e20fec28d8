#include "platform/QtServices.h"

namespace corvane {

QtServices::QtServices() : previous_(InstalledServices()) {
    InstallServices(Services{&prompts, &settings, &clock, &environment, &events, &sound, &mail});
}

QtServices::~QtServices() {
    InstallServices(previous_);
}

} // namespace corvane
