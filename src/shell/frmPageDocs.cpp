#include "shell/frmPageDocs.h"

#include "shell/ColorRef.h"
#include "shell/ReportView.h"
#include "shell/ctlPanelButton.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane {

namespace {

using namespace pagecolours;

} // namespace

ctlPanelButton* frmPageDocs::NewButton(const char* name, const QString& caption, int clickAction) {
    auto* button = NewPagePanel(this, name, caption, clickAction);
    button->setFixedHeight(40);
    button->setMinimumWidth(70);
    return button;
}

frmPageDocs::frmPageDocs(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmPageDocs"));
    QPalette colours = palette();
    colours.setColor(QPalette::Window, FromBGR(kPageColor));
    setPalette(colours);
    setAutoFillBackground(true);

    auto* root = new QHBoxLayout(this);
    auto* bar = new QVBoxLayout();
    ctlShowStatus = NewButton("ctlShowStatus", QStringLiteral("STATUS"), ctlPanelButton::ClickMomentary);
    ctlShowReport = NewButton("ctlShowReport", QStringLiteral("FULL"), ctlPanelButton::ClickMomentary);
    ctlRepairReport = NewButton("ctlRepairReport", QStringLiteral("COMPARE"), ctlPanelButton::ClickMomentary);
    ctlRepairReport->SetToolTips(QStringLiteral("Select Scan Overlay from Reference Editor on Check Page"));
    for (ctlPanelButton* b : {ctlShowStatus, ctlShowReport, ctlRepairReport})
        bar->addWidget(b);
    cboScanCompare = new QComboBox(this);
    cboScanCompare->setObjectName(QStringLiteral("cboScanCompare"));
    bar->addWidget(cboScanCompare);
    bar->addSpacing(16);

    auto* paging = new QHBoxLayout();
    ctlPrevPage = NewButton("ctlPrevPage", QStringLiteral("<"), ctlPanelButton::ClickMomentary);
    ctlPrevPage->SetToolTips(QStringLiteral("Show Previous page in report"));
    ctlNextPage = NewButton("ctlNextPage", QStringLiteral(">"), ctlPanelButton::ClickMomentary);
    ctlNextPage->SetToolTips(QStringLiteral("Show Next page in report"));
    ctlPrevPage->setMinimumWidth(36);
    ctlNextPage->setMinimumWidth(36);
    lblPageIndex = new QLabel(QStringLiteral("0"), this);
    lblPageIndex->setObjectName(QStringLiteral("lblPageIndex"));
    lblPageOf = new QLabel(QStringLiteral("OF 0"), this);
    lblPageOf->setObjectName(QStringLiteral("lblPageOf"));
    paging->addWidget(ctlPrevPage);
    paging->addWidget(lblPageIndex);
    paging->addWidget(lblPageOf);
    paging->addWidget(ctlNextPage);
    bar->addLayout(paging);
    bar->addSpacing(16);
    ctlPrintReport = NewButton("ctlPrintReport", QStringLiteral("PRINT"), ctlPanelButton::ClickMomentary);
    ctlSaveReport = NewButton("ctlSaveReport", QStringLiteral("SAVE"), ctlPanelButton::ClickMomentary);
    bar->addWidget(ctlPrintReport);
    bar->addWidget(ctlSaveReport);
    bar->addSpacing(16);
    for (std::size_t k = 0; k < ctlScanRadius.size(); ++k) {
        ctlScanRadius[k] = NewButton("ctlScanRadius", QString(), ctlPanelButton::ClickToggle);
        ctlScanRadius[k]->setFixedHeight(30);
        bar->addWidget(ctlScanRadius[k]);
    }
    bar->addStretch(1);
    root->addLayout(bar);
    MyReports = new ReportView(this);
    MyReports->setObjectName(QStringLiteral("MyReports"));
    root->addWidget(MyReports, 1);
}

} // namespace corvane
