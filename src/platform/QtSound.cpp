#include "platform/QtSound.h"

#include <QApplication>

namespace corvane {

void QtSound::Beep(int frequencyHz, int durationMs) {
    (void)frequencyHz;
    (void)durationMs;
    QApplication::beep();
}

} // namespace corvane
