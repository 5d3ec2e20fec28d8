#include "platform/QtEventPump.h"

#include <QApplication>
#include <QWidget>

#include <cstdlib>

namespace corvane {

void QtEventPump::DoEvents() {
    QCoreApplication::processEvents();
}

void QtEventPump::CloseAllFormsAndEnd() {
    // Last opened first, as the windows were stacked; nothing is saved on the way out.
    const auto windows = QApplication::topLevelWidgets();
    for (auto it = windows.rbegin(); it != windows.rend(); ++it) {
        (*it)->hide();
    }
    QCoreApplication::processEvents();
    std::exit(EXIT_FAILURE);
}

} // namespace corvane
