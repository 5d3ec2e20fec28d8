#include "platform/SystemClock.h"

#include <QDateTime>

namespace corvane {

DateTime SystemClock::Now() {
    const QDateTime now = QDateTime::currentDateTime();
    const QDate d = now.date();
    const QTime t = now.time();
    return DateTime{d.year(), d.month(), d.day(), t.hour(), t.minute(), t.second()};
}

} // namespace corvane
