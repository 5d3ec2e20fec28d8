// corvane: the workstation program. Wires the Qt services, runs the start-up sequence and
// enters the event loop.

#include "acquisition/ArmStation.h"
#include "acquisition/ArmTrajectory.h"
#include "acquisition/DemoProject.h"
#include "acquisition/modDAQUtilities.h"
#include "checkpage/CheckPageRules.h"
#include "files/modProjectCommands.h"
#include "files/modSettings.h"
#include "model/Globals.h"
#include "platform/InterfaceStyle.h"
#include "platform/QtServices.h"
#include "platform/USB4Library.h"
#include "shell/CheckPageController.h"
#include "shell/FileCommands.h"
#include "shell/PageNavigator.h"
#include "shell/ScanPageController.h"
#include "shell/frmCorvane.h"
#include "support/ProcessMemory.h"
#include "support/Services.h"
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

#include <cstdio>
#include <memory>
#include <optional>

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

// The help pages: installed beside the program's data, or in the source tree of a build.
QString HelpIndexPath() {
    const QString installed = QDir(QCoreApplication::applicationDirPath())
                                  .filePath(QStringLiteral("../share/corvane/help/index.html"));
    for (const QString& candidate : {installed, QStringLiteral(CORVANE_DATA_DIR "/help/index.html")}) {
        if (QFileInfo::exists(candidate)) {
            return QFileInfo(candidate).absoluteFilePath();
        }
    }
    return {};
}

// The encoder box's vendor library: the path the environment names, else the one the settings
// name, else the library's own name where the system finds libraries.
QString EncoderLibraryPath() {
    const QString fromEnvironment = qEnvironmentVariable("CORVANE_USB4_LIBRARY");
    if (!fromEnvironment.isEmpty()) {
        return fromEnvironment;
    }
    const std::string fromSettings =
        corvane::Settings().GetValue("Software\\Corvane\\DefaultOptions", "USB4Library");
    return fromSettings.empty() ? corvane::USB4Library::DefaultName() : QString::fromStdString(fromSettings);
}

// The arm of this run: a trajectory played on the simulated arm, the scripted demo, or the
// vendor's box; a trajectory that cannot be read leaves the station without an arm and says why.
std::unique_ptr<corvane::ArmStation> ChooseArm(const QString& trajectoryPath, bool demo,
                                               std::string& problem) {
    if (!trajectoryPath.isEmpty()) {
        auto trajectory = std::make_shared<corvane::ArmTrajectory>();
        std::string why;
        if (corvane::ReadArmTrajectory(trajectoryPath.toStdString(), *trajectory, why)) {
            return corvane::ArmStation::Playing(std::move(trajectory));
        }
        problem = "The arm trajectory " + trajectoryPath.toStdString() + " cannot be played: " + why + ".";
        return std::make_unique<corvane::ArmStation>();
    }
    if (demo) {
        return corvane::ArmStation::ScriptedDemo();
    }
    return corvane::ArmStation::WithBox(std::make_unique<corvane::USB4Library>(EncoderLibraryPath()));
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
    QCommandLineOption arm(
        QStringLiteral("arm"),
        QStringLiteral("Play an arm trajectory (cvarm) on the simulated arm, from each HOME on."),
        QStringLiteral("file"));
    QCommandLineOption recordArm(
        QStringLiteral("record-arm"),
        QStringLiteral("Record the session with the arm as a trajectory (cvarm) <file>."),
        QStringLiteral("file"));
    QCommandLineOption page(QStringLiteral("page"),
                            QStringLiteral("Open the page <name> (project, scan, check or report) as its "
                                           "button does, gates included."),
                            QStringLiteral("name"));
    QCommandLineOption scanSeconds(
        QStringLiteral("scan-seconds"),
        QStringLiteral("With --page scan and a simulated arm: press HOME and let the arm play <seconds> "
                       "before the screenshot."),
        QStringLiteral("seconds"));
    QCommandLineOption view(
        QStringLiteral("view"),
        QStringLiteral("With --page check: show the view <name> (top, pitch, blade, radius, "
                       "path or outline)."),
        QStringLiteral("name"));
    QCommandLineOption referencePanel(QStringLiteral("reference-panel"),
                                      QStringLiteral("With --page check: open the reference panel (REF)."));
    parser.addOption(page);
    parser.addOption(view);
    parser.addOption(referencePanel);
    parser.addOption(scanSeconds);
    parser.addOption(demo);
    parser.addOption(office);
    parser.addOption(arm);
    parser.addOption(recordArm);
    parser.addOption(screenshot);
    parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("Project file to open."));
    parser.process(app);

    corvane::QtServices services;
    corvane::gOfficeMode = parser.isSet(office) ? 1 : 0;
    std::string armProblem;
    std::unique_ptr<corvane::ArmStation> station =
        ChooseArm(parser.value(arm), parser.isSet(demo), armProblem);
    if (parser.isSet(recordArm)) {
        station->Record(QFileInfo(parser.value(recordArm)).absoluteFilePath().toStdString());
    }

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
    hooks.connectEncoder = [&station] {
        corvane::DAQState daq(station->Box());
        return corvane::DAQDiscover(daq) == 1;
    };
    hooks.applyInterfaceStyle = [] { corvane::ApplyInterfaceFont(); };
    hooks.fillEncoderTypeTags = [] { corvane::FillEncoderTypeTags(); };
    hooks.readDefaultOptions = [] { corvane::ReadDefaultOptions(); };
    hooks.createNewProject = [] {
        // The help pages are found where they were installed, not only beside the program.
        const QString help = HelpIndexPath();
        if (!corvane::gHelpFileFound && !help.isEmpty()) {
            corvane::gHelpFileFound = true;
            corvane::gHelpFilePath = help.toStdString();
        }
        corvane::CreateNewProject();
    };
    hooks.showMainWindow = [&] {
        window = std::make_unique<corvane::frmCorvane>(std::move(station));
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
        // The demo's scan stays; the Scan page opens on a new one, ready for HOME.
        window->ScanPage().StartOnNewScan();
    }
    window->Files().ShowNewProject();
    if (!armProblem.empty()) {
        corvane::Prompts().MessageBox(armProblem, corvane::MsgBox::Exclamation, corvane::gAppTitle);
    }
    if (parser.isSet(page)) {
        const QStringList names{QStringLiteral("project"), QStringLiteral("scan"), QStringLiteral("check"),
                                QStringLiteral("report")};
        const int index = static_cast<int>(names.indexOf(parser.value(page).toLower()));
        if (index < 0) {
            std::fprintf(stderr, "corvane: unknown page %s (project, scan, check or report)\n",
                         qPrintable(parser.value(page)));
            return 2;
        }
        window->Navigator().Open(index);
    }
    if (parser.isSet(view) || parser.isSet(referencePanel)) {
        const std::optional<int> mode = corvane::CheckViewByName(parser.value(view).toLower().toStdString());
        if (parser.isSet(view) && !mode) {
            std::fprintf(stderr, "corvane: unknown view %s (top, pitch, blade, radius, path or outline)\n",
                         qPrintable(parser.value(view)));
            return 2;
        }
        if (window->ActivePage() == corvane::frmCorvane::PageCheck) {
            if (parser.isSet(referencePanel)) {
                window->CheckPage().ShowReferencePanel();
            }
            if (mode) {
                window->CheckPage().SetView(*mode);
            }
        }
    }
    if (parser.isSet(scanSeconds) && window->ActivePage() == corvane::frmCorvane::PageScan) {
        // The simulated arm's clock runs 10 ms a tick: the ticks are played here at once, so the
        // picture shows the same moment of the scan on every machine.
        const int ticks = static_cast<int>(parser.value(scanSeconds).toDouble() * 100);
        QTimer::singleShot(300, &app, [&window, ticks] {
            window->ScanPage().PressScanButton();
            for (int i = 0; i < ticks; ++i) {
                window->ScanPage().Tick();
            }
        });
    }
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
            const bool saved = picture.save(target, "PNG");
            // The project's lock goes with the program, or the next run would find it in use.
            window->RunShutdownSteps(false);
            app.exit(saved ? 0 : 3);
        });
    }
    return app.exec();
}
