#pragma once

// Qt's drawing needs an application object; the command line has none until a command draws,
// and then one on the offscreen platform, whatever the environment asks for. While it lives,
// Qt's own notes (a missing runtime folder of the offscreen platform...) are kept from the
// user: only fatal and critical ones reach standard error, under the command's name.

#include <QGuiApplication>
#include <QtGlobal>

#include <memory>
#include <string>

namespace corvane::cli {

class OffscreenGui {
public:
    explicit OffscreenGui(const std::string& command);
    ~OffscreenGui();
    OffscreenGui(const OffscreenGui&) = delete;
    OffscreenGui& operator=(const OffscreenGui&) = delete;

private:
    QtMessageHandler previous_ = nullptr;
    std::unique_ptr<QGuiApplication> app_; // null when the process had an application already
};

} // namespace corvane::cli
