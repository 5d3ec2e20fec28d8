#include "shell/FieldKeys.h"

#include <QKeyEvent>
#include <QLineEdit>

namespace corvane {

int KeyPressCode(const QKeyEvent& event) {
    const Qt::KeyboardModifiers shortcut = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    switch (event.key()) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Escape:
        return 27;
    default:
        break;
    }
    if ((event.modifiers() & shortcut) != 0) {
        return 0;
    }
    const QString text = event.text();
    if (text.isEmpty() || text.at(0).unicode() < 32 || text.at(0).unicode() == 127) {
        return 0;
    }
    return text.at(0).unicode();
}

bool ApplyKeyPressAnswer(QLineEdit& edit, int original, int answer) {
    if (answer == original) {
        return false;
    }
    if (answer <= 0) {
        return true; // swallowed
    }
    if (answer == 8) {
        edit.backspace();
    } else if (answer >= 32 && answer <= 0xFFFF) {
        edit.insert(QString(QChar(static_cast<char16_t>(answer))));
    }
    return true;
}

} // namespace corvane
