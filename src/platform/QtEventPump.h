#pragma once

#include "support/Services.h"

namespace corvane {

// Window events and the program's end on Qt.
class QtEventPump : public IEventPump {
public:
    void DoEvents() override;
    void CloseAllFormsAndEnd() override;
};

} // namespace corvane
