// Starts the corvane program on its demo project in a virtual X server, as a technician would
// see it, and checks the picture of its main window is a window and not a blank rectangle.

#include "common/ServicesFixture.h"

#include <QColor>
#include <QImage>
#include <QProcess>
#include <QSet>
#include <QStandardPaths>
#include <QString>

namespace corvane {
namespace {

TEST(ScreenshotTest, TheMainWindowShowsTheDemoProject) {
    const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("xvfb-run"));
    ASSERT_FALSE(xvfb.isEmpty()) << "xvfb-run is not installed: scripts/deps installs it";
    test::TempFolder home;
    const QString picture = QString::fromStdString(home.File("window.png"));

    // A private home, so the run neither reads nor changes this machine's settings or library.
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    const QString homePath = QString::fromStdString(home.Path().string());
    environment.insert(QStringLiteral("HOME"), homePath);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), homePath + QStringLiteral("/.config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), homePath + QStringLiteral("/.local/share"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    process.setProcessEnvironment(environment);
    process.start(xvfb, {QStringLiteral("-a"), QStringLiteral("-s"), QStringLiteral("-screen 0 1280x1024x24"),
                         QStringLiteral(CORVANE_PROGRAM), QStringLiteral("--demo"),
                         QStringLiteral("--screenshot"), picture});
    ASSERT_TRUE(process.waitForFinished(60000)) << "the program did not quit";
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();

    QImage image(picture);
    ASSERT_FALSE(image.isNull()) << "no picture written";
    EXPECT_GE(image.width(), 640);
    EXPECT_GE(image.height(), 400);
    // A window with buttons, fields and text has many colours; a blank or black grab has one
    // or two.
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 3)
        for (int x = 0; x < image.width(); x += 3)
            colours.insert(image.pixel(x, y));
    EXPECT_GT(colours.size(), 20) << "the picture looks blank";
}

// Twice on the same private home: a run that left the project's lock behind would make the
// second one wait on "File in use" until killed. An unknown view is refused before any window.
TEST(ScreenshotTest, TheCheckPageViewCanBePicturedAgainAndAgain) {
    const QString xvfb = QStandardPaths::findExecutable(QStringLiteral("xvfb-run"));
    if (xvfb.isEmpty())
        GTEST_SKIP() << "xvfb-run is not installed";
    test::TempFolder home;
    const QString homePath = QString::fromStdString(home.Path().string());
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), homePath);
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), homePath + QStringLiteral("/.config"));
    environment.insert(QStringLiteral("XDG_DATA_HOME"), homePath + QStringLiteral("/.local/share"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    const std::pair<const char*, int> runs[] = {{"radius", 0}, {"outline", 0}, {"sideways", 2}};
    for (const auto& [view, exitCode] : runs) {
        const QString picture = QString::fromStdString(home.File(std::string(view) + ".png"));
        const QStringList arguments{QStringLiteral("--demo"),       QStringLiteral("--page"),
                                    QStringLiteral("check"),        QStringLiteral("--view"),
                                    QString::fromLatin1(view),      QStringLiteral("--reference-panel"),
                                    QStringLiteral("--screenshot"), picture};
        QProcess process;
        if (exitCode == 0) {
            process.setProcessEnvironment(environment);
            process.start(xvfb, QStringList{QStringLiteral("-a"), QStringLiteral("-s"),
                                            QStringLiteral("-screen 0 1280x1024x24"),
                                            QStringLiteral(CORVANE_PROGRAM)} +
                                    arguments);
        } else {
            // Refused before any window: no display is needed, and xvfb-run's own clean-up of a
            // server that had only just started would be what the exit status tells.
            QProcessEnvironment offscreen = environment;
            offscreen.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("offscreen"));
            process.setProcessEnvironment(offscreen);
            process.start(QStringLiteral(CORVANE_PROGRAM), arguments);
        }
        ASSERT_TRUE(process.waitForFinished(60000)) << view << ": the program did not quit";
        EXPECT_EQ(process.exitCode(), exitCode) << view;
        EXPECT_EQ(QImage(picture).isNull(), exitCode != 0) << view;
    }
}

} // namespace
} // namespace corvane
