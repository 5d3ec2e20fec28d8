#include "platform/QtPrompts.h"

#include "platform/frmNVCriticalErrorHandler.h"

#include <QInputDialog>
#include <QMessageBox>

namespace corvane {
namespace {

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

QMessageBox::Icon IconOf(int style) {
    switch (style & MsgBox::IconMask) {
    case MsgBox::Critical:
        return QMessageBox::Critical;
    case MsgBox::Question:
        return QMessageBox::Question;
    case MsgBox::Exclamation:
        return QMessageBox::Warning;
    case MsgBox::Information:
        return QMessageBox::Information;
    default:
        return QMessageBox::NoIcon;
    }
}

struct ButtonAnswer {
    QMessageBox::StandardButton button;
    int answer;
};

std::vector<ButtonAnswer> ButtonsOf(int style) {
    switch (style & MsgBox::ButtonsMask) {
    case MsgBox::OKCancel:
        return {{QMessageBox::Ok, Answer::OK}, {QMessageBox::Cancel, Answer::Cancel}};
    case MsgBox::AbortRetryIgnore:
        return {{QMessageBox::Abort, Answer::Abort},
                {QMessageBox::Retry, Answer::Retry},
                {QMessageBox::Ignore, Answer::Ignore}};
    case MsgBox::YesNoCancel:
        return {{QMessageBox::Yes, Answer::Yes},
                {QMessageBox::No, Answer::No},
                {QMessageBox::Cancel, Answer::Cancel}};
    case MsgBox::YesNo:
        return {{QMessageBox::Yes, Answer::Yes}, {QMessageBox::No, Answer::No}};
    case MsgBox::RetryCancel:
        return {{QMessageBox::Retry, Answer::Retry}, {QMessageBox::Cancel, Answer::Cancel}};
    default:
        return {{QMessageBox::Ok, Answer::OK}};
    }
}

// Line ends inside messages are CR LF; Qt wants plain line feeds.
QString Plain(const std::string& text) {
    return Q(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
}

} // namespace

int QtPrompts::MessageBox(const std::string& text, int style, const std::string& title) {
    QMessageBox box(IconOf(style), Q(title), Plain(text), QMessageBox::NoButton, parent_);
    const auto buttons = ButtonsOf(style);
    for (const auto& b : buttons) {
        box.addButton(b.button);
    }
    std::size_t defaultIndex = (style & MsgBox::DefaultButton3)   ? 2
                               : (style & MsgBox::DefaultButton2) ? 1
                                                                  : 0;
    if (defaultIndex < buttons.size()) {
        box.setDefaultButton(buttons[defaultIndex].button);
    }
    const auto clicked = box.exec();
    for (const auto& b : buttons) {
        if (clicked == b.button) {
            return b.answer;
        }
    }
    // Closed by the window's close button: the cancelling answer where there is one.
    return buttons.size() > 1 ? buttons.back().answer : Answer::OK;
}

std::optional<std::string> QtPrompts::InputBox(const std::string& prompt, const std::string& title,
                                               const std::string& defaultValue) {
    bool ok = false;
    const QString value =
        QInputDialog::getText(parent_, Q(title), Plain(prompt), QLineEdit::Normal, Q(defaultValue), &ok);
    if (!ok) {
        return std::nullopt;
    }
    return value.toStdString();
}

int QtPrompts::ShowCriticalError(const std::string& report, bool showEmail, bool showAbort) {
    frmNVCriticalErrorHandler dialog(report, showEmail, showAbort, parent_);
    return dialog.ShowModal();
}

} // namespace corvane
