// corvane: the workstation program. Wires the Qt services, runs the start-up sequence and
// enters the event loop.

#include "acquisition/DemoProject.h"
#include "files/modProjectCommands.h"
#include "files/modSettings.h"
#include "model/Globals.h"
#include "platform/QtServices.h"
#include "shell/FileCommands.h"
#include "shell/frmCorvane.h"
#include "support/ProcessMemory.h"
#include "support/modMain.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPixmap>
#include <QScreen>
#include <QTimer>

#include <memory>

namespace {

// The sample project: installed beside the program's data, or in the source tree of a build.
QString DemoProjectPath() {
    const QString installed =
        QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("../share/corvane/demo.cvpj"));
    for (const QString& candidate : {installed, QStringLiteral(CORVANE_DATA_DIR "/demo.cvpj")}) {
        if (QFileInfo::exists(candidate)) {
            return QFileInfo(candidate).absoluteFilePath();
        }
    }
    return {};
}

} // namespace

int main(int argc, char** argv) {
    corvane::PrepareAllocatorForLargeProjects();
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("Corvane"));
    QCoreApplication::setApplicationName(QStringLiteral("Corvane"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Propeller measurement and ISO 484 inspection"));
    parser.addHelpOption();
    QCommandLineOption demo(QStringLiteral("demo"), QStringLiteral("Start on the built-in demo."));
    QCommandLineOption office(QStringLiteral("office"), QStringLiteral("Run as an office station (no arm)."));
    QCommandLineOption screenshot(QStringLiteral("screenshot"),
                                  QStringLiteral("Save a picture of the main window to <file> once it is "
                                                 "shown, then quit."),
                                  QStringLiteral("file"));
    parser.addOption(demo);
    parser.addOption(office);
    parser.addOption(screenshot);
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
    hooks.fillEncoderTypeTags = [] { corvane::FillEncoderTypeTags(); };
    hooks.readDefaultOptions = [] { corvane::ReadDefaultOptions(); };
    hooks.createNewProject = [] { corvane::CreateNewProject(); };
    hooks.showMainWindow = [&] {
        window = std::make_unique<corvane::frmCorvane>();
        services.prompts.SetParentWindow(window.get());
        window->show();
    };
    corvane::Main(hooks);
    if (!window) {
        return 1;
    }
    // A file named on the command line (a file manager opening a .cvpj) opens from the Project
    // Library, copied there first when it lies elsewhere; the demo opens the sample project, or
    // builds it when the sample is not installed.
    const QStringList files = parser.positionalArguments();
    if (!files.isEmpty()) {
        window->Files().OpenNamedFile(QFileInfo(files.first()).absoluteFilePath().toStdString());
    } else if (parser.isSet(demo)) {
        // The demo is opened from a copy in the Project Library, so it is listed there and the
        // sample itself (and the source tree) never gets a lock or a save.
        const QString sample = DemoProjectPath();
        const QString copy =
            QDir(QString::fromStdString(corvane::gRootDirectory)).filePath(QStringLiteral("demo.cvpj"));
        if (!sample.isEmpty() && !QFileInfo::exists(copy) && !corvane::gRootDirectory.empty()) {
            QFile::copy(sample, copy);
        }
        if (!QFileInfo::exists(copy) || corvane::OpenProjectFile(copy.toStdString()) != 1) {
            corvane::BuildDemoProject();
        }
    }
    window->Files().ShowNewProject();
    if (parser.isSet(screenshot)) {
        // What the screen shows of the window (a real grab from the display server), after the
        // event loop has had time to lay out and paint it; the window's own rendering where the
        // platform cannot grab the screen.
        const QString target = parser.value(screenshot);
        QTimer::singleShot(1500, &app, [&app, &window, target] {
            QPixmap picture;
            if (QScreen* screen = window->screen()) {
                picture = screen->grabWindow(window->winId());
            }
            if (picture.isNull()) {
                picture = window->grab();
            }
            app.exit(picture.save(target, "PNG") ? 0 : 3);
        });
    }
    return app.exec();
}
