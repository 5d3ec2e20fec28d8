#pragma once

#include <QWidget>

#include <string>

namespace corvane {

// A page whose work this build does not do yet. It fills the window like any page and says
// so in plain words, so the technician never mistakes it for an empty result.
class UnavailablePage : public QWidget {
    Q_OBJECT

public:
    // heading: the page's name ("Scan"); what: what the page will do.
    UnavailablePage(const QString& heading, const QString& what, QWidget* parent = nullptr);

    // "The <heading> page is not available yet."
    QString Message() const;

private:
    QString heading_;
};

// Tells the technician, under the program's title, that a command of this build does not
// work yet: "<what> is not available yet."
void SayNotAvailableYet(const std::string& what);

} // namespace corvane
