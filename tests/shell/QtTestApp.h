#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QFocusEvent>
#include <QImage>
#include <QWidget>

#include <ostream>

namespace corvane::test {

// The one application object of the test program, made on first use.
inline QApplication& TestApp() {
    static int argc = 1;
    static char name[] = "corvane_shell_tests";
    static char* argv[] = {name, nullptr};
    static QApplication* app = [] {
        auto* existing = qobject_cast<QApplication*>(QCoreApplication::instance());
        return existing != nullptr ? existing : new QApplication(argc, argv);
    }();
    return *app;
}

// The widget as it paints, children included, at one device pixel per logical pixel.
inline QImage Render(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    widget.render(&image);
    return image;
}

inline QColor PixelAt(const QImage& image, int x, int y) {
    return QColor::fromRgb(image.pixel(x, y));
}

// The named child of a window; a missing one fails the test.
template <typename T> T* Child(QWidget& window, const char* name) {
    T* child = window.findChild<T*>(QString::fromLatin1(name));
    EXPECT_NE(child, nullptr) << name;
    return child;
}

inline void SendFocus(QWidget* target, QEvent::Type type) {
    QFocusEvent event(type, Qt::TabFocusReason);
    QApplication::sendEvent(target, &event);
}

} // namespace corvane::test

// Readable QString values in test failure messages.
inline void PrintTo(const QString& text, std::ostream* out) {
    *out << '"' << text.toStdString() << '"';
}
