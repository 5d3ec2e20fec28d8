#include "shell/frmPageCheck.h"

#include "checkpage/CheckPageRules.h"
#include "shell/CheckGraphView.h"
#include "shell/ColorRef.h"
#include "shell/ctlPanelButton.h"
#include "shell/frmReferenceScanEditor.h"

#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

#include <cmath>

namespace corvane {

namespace {

using namespace pagecolours;

ctlPanelButton* BarButton(QWidget* parent, const char* name, const QString& caption, int action) {
    auto* button = NewPagePanel(parent, name, caption, action);
    button->setFixedSize(78, 40);
    return button;
}

} // namespace

frmPageCheck::frmPageCheck(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmPageCheck"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 4, 4, 4);

    auto* bar = new QWidget(this);
    bar->setObjectName(QStringLiteral("picLeftBar"));
    auto* left = new QVBoxLayout(bar);
    left->setContentsMargins(0, 0, 0, 0);
    left->setSpacing(3);
    const int radio = ctlPanelButton::ClickRadio;
    ctlTop = BarButton(bar, "ctlTop", QStringLiteral("TOP"), radio);
    ctlSumPitch = BarButton(bar, "ctlSumPitch", QStringLiteral("PITCH"), radio);
    ctlBladePitch = BarButton(bar, "ctlBladePitch", QStringLiteral("BLADE\nLOCAL"), radio);
    ctlRadiusPitch = BarButton(bar, "ctlRadiusPitch", QStringLiteral("RADIUS\nLOCAL"), radio);
    ctlOutline = BarButton(bar, "ctlOutline", QStringLiteral("OUTLINE"), radio);
    ctlPath = BarButton(bar, "ctlPath", QStringLiteral("PATH"), radio);
    ctlReference = BarButton(bar, "ctlReference", QStringLiteral("REF"), ctlPanelButton::ClickToggle);
    ctlZoom = BarButton(bar, "ctlZoom", QStringLiteral("ZOOM"), ctlPanelButton::ClickToggle);
    for (auto* button : {ctlTop, ctlSumPitch, ctlBladePitch, ctlRadiusPitch, ctlOutline, ctlPath}) {
        left->addWidget(button);
    }
    left->addSpacing(8);
    left->addWidget(ctlReference);
    left->addWidget(ctlZoom);
    left->addSpacing(8);
    ctlScanMaxRadius = BarButton(bar, "ctlScanMaxRadius", QStringLiteral("TIP"), ctlPanelButton::ClickNone);
    ctlScanMaxRadius->setFixedHeight(28);
    left->addWidget(ctlScanMaxRadius);
    for (int k = 0; k < 8; ++k) {
        auto* button =
            BarButton(bar, "ctlScanRadius", QStringLiteral("R%1").arg(k), ctlPanelButton::ClickToggle);
        button->setObjectName(QStringLiteral("ctlScanRadius%1").arg(k));
        button->setFixedHeight(28);
        ctlScanRadius[static_cast<std::size_t>(k)] = button;
        left->addWidget(button);
        connect(button, &ctlPanelButton::Click, this, [this, k] { emit RadiusClicked(k); });
    }
    left->addStretch(1);
    row->addWidget(bar);

    auto* middle = new QVBoxLayout;
    auto* head = new QHBoxLayout;
    ctlSetISOClass = new QComboBox(this);
    ctlSetISOClass->setObjectName(QStringLiteral("ctlSetISOClass"));
    lblMeetsClass = new QLabel(this);
    lblMeetsClass->setObjectName(QStringLiteral("lblMeetsClass"));
    lblMeetsClass->setMinimumWidth(160);
    QFont verdictFont = lblMeetsClass->font();
    verdictFont.setBold(true);
    verdictFont.setPointSizeF(verdictFont.pointSizeF() * 1.4);
    lblMeetsClass->setFont(verdictFont);
    lblMeetsClass->setCursor(Qt::PointingHandCursor);
    lblMeetsClass->installEventFilter(this);
    cboISOTask = new QComboBox(this);
    cboISOTask->setObjectName(QStringLiteral("cboISOTask"));
    cboScanCompare = new QComboBox(this);
    cboScanCompare->setObjectName(QStringLiteral("cboScanCompare"));
    cboScanCompare->setMinimumWidth(180);
    head->addWidget(new QLabel(QStringLiteral("ISO 484 Class"), this));
    head->addWidget(ctlSetISOClass);
    head->addWidget(lblMeetsClass);
    head->addStretch(1);
    head->addWidget(new QLabel(QStringLiteral("Task"), this));
    head->addWidget(cboISOTask);
    head->addWidget(new QLabel(QStringLiteral("Compare"), this));
    head->addWidget(cboScanCompare);
    middle->addLayout(head);

    graphArea = new QStackedWidget(this);
    picGraph = new CheckGraphView(graphArea);
    picGraph->setObjectName(QStringLiteral("picGraph"));
    picSectionGraphs = new QWidget(graphArea);
    picSectionGraphs->setObjectName(QStringLiteral("picSectionGraphs"));
    sectionLayout_ = new QGridLayout(picSectionGraphs);
    sectionLayout_->setContentsMargins(0, 0, 0, 0);
    sectionLayout_->setSpacing(4);
    graphArea->addWidget(picGraph);
    graphArea->addWidget(picSectionGraphs);
    connect(picGraph, &CheckGraphView::Resized, this, &frmPageCheck::GraphResized);
    middle->addWidget(graphArea, 1);
    row->addLayout(middle, 1);

    picReferenceEditor = new frmReferenceScanEditor(this);
    picReferenceEditor->setFixedWidth(300);
    picReferenceEditor->hide();
    row->addWidget(picReferenceEditor);

    const std::pair<ctlPanelButton*, int> views[] = {
        {ctlTop, kViewTop},          {ctlSumPitch, kViewPitch},
        {ctlBladePitch, kViewBlade}, {ctlRadiusPitch, kViewRadius},
        {ctlOutline, kViewOutline},  {ctlPath, kViewPath}};
    for (const auto& [button, view] : views) {
        connect(button, &ctlPanelButton::Click, this, [this, v = view] { emit ViewClicked(v); });
    }
}

ctlPanelButton* frmPageCheck::ViewButton(int view) const {
    switch (view) {
    case kViewTop:
        return ctlTop;
    case kViewBlade:
        return ctlBladePitch;
    case kViewPitch:
        return ctlSumPitch;
    case kViewRadius:
        return ctlRadiusPitch;
    case kViewPath:
        return ctlPath;
    case kViewOutline:
        return ctlOutline;
    default:
        return nullptr;
    }
}

void frmPageCheck::ShowBigGraph() {
    graphArea->setCurrentWidget(picGraph);
}

const std::vector<CheckGraphView*>& frmPageCheck::ShowSectionGraphs(int count) {
    graphArea->setCurrentWidget(picSectionGraphs);
    while (static_cast<int>(sectionGraphs_.size()) < count) {
        auto* view = new CheckGraphView(picSectionGraphs);
        const int element = static_cast<int>(sectionGraphs_.size());
        view->setObjectName(QStringLiteral("picSectionGraph%1").arg(element));
        connect(view, &CheckGraphView::Clicked, this, [this, element] { emit SectionGraphClicked(element); });
        connect(view, &CheckGraphView::Resized, this, &frmPageCheck::GraphResized);
        sectionGraphs_.push_back(view);
    }
    // Two side by side; from three on, two columns.
    const int columns = count <= 2 ? std::max(count, 1) : 2;
    for (int i = 0; i < static_cast<int>(sectionGraphs_.size()); ++i) {
        CheckGraphView* view = sectionGraphs_[static_cast<std::size_t>(i)];
        sectionLayout_->removeWidget(view);
        view->setVisible(i < count);
        if (i < count) {
            sectionLayout_->addWidget(view, i / columns, i % columns);
        }
    }
    return sectionGraphs_;
}

bool frmPageCheck::eventFilter(QObject* watched, QEvent* event) {
    if (watched == lblMeetsClass && event->type() == QEvent::MouseButtonPress) {
        emit VerdictClicked();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace corvane
