#include "shell/UnavailablePage.h"

#include "model/Globals.h"
#include "support/Services.h"

#include <QLabel>
#include <QVBoxLayout>

namespace corvane {

UnavailablePage::UnavailablePage(const QString& heading, const QString& what, QWidget* parent)
    : QWidget(parent), heading_(heading) {
    setObjectName(QStringLiteral("page") + heading);
    auto* layout = new QVBoxLayout(this);
    layout->addStretch(2);

    auto* title = new QLabel(heading.toUpper(), this);
    title->setObjectName(QStringLiteral("lblHeading"));
    title->setAlignment(Qt::AlignCenter);
    QFont titleFont = title->font();
    titleFont.setPointSizeF(titleFont.pointSizeF() * 2.2);
    titleFont.setBold(true);
    title->setFont(titleFont);
    title->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(title);

    auto* message = new QLabel(Message(), this);
    message->setObjectName(QStringLiteral("lblMessage"));
    message->setAlignment(Qt::AlignCenter);
    QFont messageFont = message->font();
    messageFont.setPointSizeF(messageFont.pointSizeF() * 1.25);
    message->setFont(messageFont);
    layout->addWidget(message);

    auto* detail = new QLabel(what, this);
    detail->setObjectName(QStringLiteral("lblDetail"));
    detail->setAlignment(Qt::AlignCenter);
    detail->setWordWrap(true);
    detail->setForegroundRole(QPalette::PlaceholderText);
    layout->addWidget(detail);
    layout->addStretch(3);
}

QString UnavailablePage::Message() const {
    return QStringLiteral("The %1 page is not available yet.").arg(heading_);
}

void SayNotAvailableYet(const std::string& what) {
    Prompts().MessageBox(what + " is not available yet.", MsgBox::Information, gAppTitle);
}

} // namespace corvane
