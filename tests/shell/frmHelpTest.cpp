#include "shell/frmHelp.h"

#include "shell/QtTestApp.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>

namespace corvane {
namespace {

const QString kHelpFolder = QStringLiteral(CORVANE_SOURCE_DIR "/data/help");

// The pages installed with the program: every link between them lands on a page, and the
// search finds a page by the words a technician would look for.
TEST(frmHelpTest, ThePagesLinkUpAndTheSearchFindsThem) {
    test::TestApp();
    const QDir folder(kHelpFolder);
    const QStringList pages = folder.entryList({QStringLiteral("*.html")}, QDir::Files);
    ASSERT_GE(pages.size(), 10);
    static const QRegularExpression kLink(QStringLiteral("href=\"([^\"#:]+)"));
    for (const QString& page : pages) {
        QFile file(folder.filePath(page));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << page.toStdString();
        const QString html = QString::fromUtf8(file.readAll());
        for (const QRegularExpressionMatch& link : kLink.globalMatch(html)) {
            EXPECT_TRUE(folder.exists(link.captured(1)))
                << page.toStdString() << " -> " << link.captured(1).toStdString();
        }
    }

    frmHelp help(folder.filePath(QStringLiteral("index.html")));
    EXPECT_EQ(help.CurrentPage(), QStringLiteral("index.html"));
    help.ShowPage(QStringLiteral("support.html"));
    EXPECT_EQ(help.CurrentPage(), QStringLiteral("support.html"));
    EXPECT_TRUE(help.Search(QStringLiteral("known RADIUS")).contains(QStringLiteral("calibration.html")));
    EXPECT_TRUE(
        help.Search(QStringLiteral("corvane-cli evaluate")).contains(QStringLiteral("command-line.html")));
    EXPECT_TRUE(help.Search(QStringLiteral("zzxqy")).isEmpty());
}

} // namespace
} // namespace corvane
