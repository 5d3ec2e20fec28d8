#include "cli/OffscreenGui.h"

#include <cstdio>

namespace corvane::cli {
namespace {

std::string& QuietCommand() {
    static std::string command;
    return command;
}

void QuietQt(QtMsgType type, const QMessageLogContext&, const QString& message) {
    if (type == QtFatalMsg || type == QtCriticalMsg)
        std::fprintf(stderr, "corvane-cli %s: %s\n", QuietCommand().c_str(),
                     message.toLocal8Bit().constData());
}

} // namespace

OffscreenGui::OffscreenGui(const std::string& command) {
    QuietCommand() = command;
    previous_ = qInstallMessageHandler(QuietQt);
    if (QCoreApplication::instance() != nullptr)
        return;
    // Qt takes the platform options out of argv: they are put back for each application.
    static int argc = 3;
    static char name[] = "corvane-cli";
    static char platform[] = "-platform";
    static char offscreen[] = "offscreen";
    static char* argv[] = {name, platform, offscreen, nullptr};
    argc = 3;
    argv[0] = name;
    argv[1] = platform;
    argv[2] = offscreen;
    argv[3] = nullptr;
    app_ = std::make_unique<QGuiApplication>(argc, argv);
}

OffscreenGui::~OffscreenGui() {
    app_.reset();
    qInstallMessageHandler(previous_);
}

} // namespace corvane::cli
