#pragma once

#include "support/Services.h"

class QWidget;

namespace corvane {

// Message boxes, input boxes and the critical error dialog on Qt widgets.
class QtPrompts : public IPrompts {
public:
    // Boxes are centred on the given window when there is one (the main window, once shown).
    void SetParentWindow(QWidget* parent) { parent_ = parent; }

    int MessageBox(const std::string& text, int style, const std::string& title) override;
    std::optional<std::string> InputBox(const std::string& prompt, const std::string& title,
                                        const std::string& defaultValue) override;
    int ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) override;

private:
    QWidget* parent_ = nullptr;
};

} // namespace corvane
