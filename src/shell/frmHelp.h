#pragma once

#include <QDialog>

class QLineEdit;
class QListWidget;
class QTextBrowser;

namespace corvane {

// The help window: the HTML pages installed with the program in a browser pane, with a search
// over all pages beside it. Links between pages follow; links out of the folder open in the
// desktop's browser.
class frmHelp : public QDialog {
    Q_OBJECT

public:
    // indexPath: the contents page; the other pages lie in its folder.
    explicit frmHelp(const QString& indexPath, QWidget* parent = nullptr);

    // Shows a page of the folder ("index.html", "support.html"), optionally at an anchor.
    void ShowPage(const QString& page);
    // Puts the cursor in the search field.
    void StartSearch();
    // Lists the pages holding every word of the text (case-insensitive), contents page first.
    QStringList Search(const QString& text) const;
    QString CurrentPage() const;

private:
    void RunSearch();

    QString folder_;
    QLineEdit* txtSearch_;
    QListWidget* lstResults_;
    QTextBrowser* txtHelp_;
};

} // namespace corvane
