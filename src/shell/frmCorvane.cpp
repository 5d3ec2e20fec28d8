#include "shell/frmCorvane.h"

#include "model/Globals.h"
#include "support/Services.h"

#include <QCloseEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace corvane {

frmCorvane::frmCorvane(QWidget* parent) : QMainWindow(parent) {
    setObjectName(QStringLiteral("frmCorvane"));
    auto* central = new QWidget(this);
    auto* layout = new QVBoxLayout(central);
    auto* pages = new QHBoxLayout();
    for (const char* caption : {"PROJECT", "SCAN", "CHECK", "REPORT"}) {
        auto* button = new QPushButton(QString::fromLatin1(caption), central);
        button->setObjectName(QStringLiteral("cmdPage") + QString::fromLatin1(caption));
        button->setMinimumHeight(40);
        pages->addWidget(button);
    }
    layout->addLayout(pages);
    auto* body = new QLabel(QStringLiteral("No page is open yet."), central);
    body->setAlignment(Qt::AlignCenter);
    layout->addWidget(body, 1);
    setCentralWidget(central);
    resize(1100, 760);
    UpdateTitle();
}

void frmCorvane::UpdateTitle() {
    const std::string mode = gOfficeMode != 0 ? " (Office)" : "";
    setWindowTitle(QString::fromStdString(gAppTitle + mode + " - " + gProjectFileName));
}

void frmCorvane::closeEvent(QCloseEvent* event) {
    const int answer = Prompts().MessageBox("OK to close " + gAppTitle + "?",
                                            MsgBox::OKCancel | MsgBox::Question, "Close " + gAppTitle);
    if (answer != Answer::OK) {
        event->ignore();
        return;
    }
    event->accept();
}

} // namespace corvane
