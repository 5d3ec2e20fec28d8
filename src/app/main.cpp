// corvane: the workstation program. Wires the Qt services, runs the start-up sequence and
// enters the event loop.

#include "model/Globals.h"
#include "platform/QtServices.h"
#include "shell/frmCorvane.h"
#include "support/modMain.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFontDatabase>

#include <memory>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Propeller measurement and ISO 484 inspection"));
    parser.addHelpOption();
    QCommandLineOption demo(QStringLiteral("demo"), QStringLiteral("Start on the built-in demo."));
    QCommandLineOption office(QStringLiteral("office"), QStringLiteral("Run as an office station (no arm)."));
    parser.addOption(demo);
    parser.addOption(office);
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Project file to open."));
    parser.process(app);

    corvane::QtServices services;
    corvane::gOfficeMode = parser.isSet(office) ? 1 : 0;

    std::unique_ptr<corvane::frmCorvane> window;
    corvane::StartupHooks hooks;
    hooks.chooseInterfaceFont = [] {
        const QStringList families = QFontDatabase::families();
        if (families.contains(QStringLiteral("Segoe UI"))) {
            corvane::gUIFontName = "Segoe UI";
            corvane::gUIFontSize = 9;
        } else if (families.contains(QStringLiteral("Tahoma"))) {
            corvane::gUIFontName = "Tahoma";
            corvane::gUIFontSize = 8.25;
        } else {
            corvane::gUIFontName = "Arial";
            corvane::gUIFontSize = 9;
        }
    };
    hooks.showMainWindow = [&] {
        window = std::make_unique<corvane::frmCorvane>();
        services.prompts.SetParentWindow(window.get());
        window->show();
    };
    corvane::Main(hooks);
    if (!window) {
        return 1;
    }
    return app.exec();
}
