#pragma once

class QKeyEvent;
class QLineEdit;

namespace corvane {

// The key codes the field controls hand to their KeyPress event: the character typed (its
// Unicode value), 8 for backspace, 13 for Enter and 27 for Escape. Other keys (arrows, Delete,
// function keys, shortcuts) give 0 and raise no KeyPress.
int KeyPressCode(const QKeyEvent& event);

// After the KeyPress handlers ran: 0 or -1 swallows the key, the same code lets it through,
// another character code is typed in its place. Returns true when the key was consumed here.
bool ApplyKeyPressAnswer(QLineEdit& edit, int original, int answer);

} // namespace corvane
