#include "shell/frmHelp.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRegularExpression>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocument>
#include <QVBoxLayout>

namespace corvane {
namespace {

// The plain text of a page and its title.
struct PageText {
    QString title;
    QString text;
};

PageText ReadPage(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QString html = QString::fromUtf8(file.readAll());
    QTextDocument document;
    document.setHtml(html);
    static const QRegularExpression kTitle(QStringLiteral("<title>(.*?)</title>"),
                                           QRegularExpression::CaseInsensitiveOption |
                                               QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch title = kTitle.match(html);
    return {title.hasMatch() ? title.captured(1).trimmed() : QFileInfo(path).baseName(),
            document.toPlainText()};
}

} // namespace

frmHelp::frmHelp(const QString& indexPath, QWidget* parent)
    : QDialog(parent, Qt::Window), folder_(QFileInfo(indexPath).absolutePath()),
      txtSearch_(new QLineEdit(this)), lstResults_(new QListWidget(this)), txtHelp_(new QTextBrowser(this)) {
    setObjectName(QStringLiteral("frmHelp"));
    setWindowTitle(QStringLiteral("Corvane Help"));
    txtSearch_->setObjectName(QStringLiteral("txtSearch"));
    txtSearch_->setPlaceholderText(QStringLiteral("Search for help on..."));
    txtSearch_->setClearButtonEnabled(true);
    lstResults_->setObjectName(QStringLiteral("lstResults"));
    txtHelp_->setObjectName(QStringLiteral("txtHelp"));
    txtHelp_->setSearchPaths({folder_});
    txtHelp_->setOpenExternalLinks(true);

    auto* side = new QWidget(this);
    auto* sideLayout = new QVBoxLayout(side);
    sideLayout->setContentsMargins(0, 0, 0, 0);
    sideLayout->addWidget(new QLabel(QStringLiteral("Search:"), side));
    sideLayout->addWidget(txtSearch_);
    sideLayout->addWidget(lstResults_, 1);
    auto* splitter = new QSplitter(this);
    splitter->addWidget(side);
    splitter->addWidget(txtHelp_);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({200, 600});
    auto* layout = new QHBoxLayout(this);
    layout->addWidget(splitter);

    connect(txtSearch_, &QLineEdit::returnPressed, this, [this] { RunSearch(); });
    connect(txtSearch_, &QLineEdit::textChanged, this, [this] { RunSearch(); });
    connect(lstResults_, &QListWidget::currentRowChanged, this, [this](int row) {
        if (row >= 0) {
            ShowPage(lstResults_->item(row)->data(Qt::UserRole).toString());
        }
    });
    resize(900, 640);
    ShowPage(QFileInfo(indexPath).fileName());
}

void frmHelp::ShowPage(const QString& page) {
    const QString file = page.section(QLatin1Char('#'), 0, 0);
    QUrl url = QUrl::fromLocalFile(QDir(folder_).filePath(file));
    const QString anchor = page.section(QLatin1Char('#'), 1);
    if (!anchor.isEmpty()) {
        url.setFragment(anchor);
    }
    txtHelp_->setSource(url);
}

void frmHelp::StartSearch() {
    txtSearch_->setFocus();
    txtSearch_->selectAll();
}

QString frmHelp::CurrentPage() const {
    return QFileInfo(txtHelp_->source().toLocalFile()).fileName();
}

QStringList frmHelp::Search(const QString& text) const {
    const QStringList words = text.simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
    QStringList pages;
    if (words.isEmpty()) {
        return pages;
    }
    QStringList files = QDir(folder_).entryList({QStringLiteral("*.html")}, QDir::Files, QDir::Name);
    files.removeAll(QStringLiteral("index.html"));
    files.prepend(QStringLiteral("index.html"));
    for (const QString& file : files) {
        const QString content = ReadPage(QDir(folder_).filePath(file)).text;
        const bool all = std::all_of(words.begin(), words.end(), [&](const QString& word) {
            return content.contains(word, Qt::CaseInsensitive);
        });
        if (all && !content.isEmpty()) {
            pages << file;
        }
    }
    return pages;
}

void frmHelp::RunSearch() {
    lstResults_->blockSignals(true);
    lstResults_->clear();
    for (const QString& page : Search(txtSearch_->text())) {
        auto* item = new QListWidgetItem(ReadPage(QDir(folder_).filePath(page)).title, lstResults_);
        item->setData(Qt::UserRole, page);
    }
    lstResults_->blockSignals(false);
}

} // namespace corvane
