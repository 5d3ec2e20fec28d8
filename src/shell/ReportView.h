#pragma once

// The report control's window on the Docs page: one page of the document at a time, drawn as a
// sheet of paper scaled to fit.

#include "reports/ReportDocument.h"

#include <QWidget>

namespace corvane {

class ReportView : public QWidget {
    Q_OBJECT

public:
    explicit ReportView(QWidget* parent = nullptr);

    // The document to show (null blanks the view); the view keeps a copy.
    void SetDocument(const ReportDocument* document);
    bool HasDocument() const { return shown_; }
    const ReportDocument& Document() const { return document_; }
    int CurrentPage() const { return page_; }
    int PageCount() const { return shown_ ? document_.PageCount() : 0; }
    void ShowPage(int page);
    void PreviousPage() { ShowPage(page_ - 1); }
    void NextPage() { ShowPage(page_ + 1); }

signals:
    void PageChanged(int page);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ReportDocument document_;
    bool shown_ = false;
    int page_ = 0;
};

} // namespace corvane
