#include "shell/frmPageScan.h"

#include "acquisition/ScanPageView.h"
#include "shell/ColorRef.h"
#include "shell/Twips.h"
#include "shell/ctlPanelButton.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

namespace corvane {
namespace {

using namespace pagecolours;
constexpr std::uint32_t kWhite = pagecolours::kPanelWhite;
constexpr std::uint32_t kStatusRed = RGBColor(192, 0, 0);
constexpr int kVisibleLetters = 3;
const int kBarWidth = TwipsToPixels(2400);

QString Q(const std::string& text) {
    return QString::fromStdString(text);
}

void Paint(QWidget* widget, std::uint32_t back) {
    QPalette colours = widget->palette();
    colours.setColor(QPalette::Window, FromBGR(back));
    widget->setPalette(colours);
    widget->setAutoFillBackground(true);
}

void SetText(QLabel* label, const std::string& text) {
    const QString value = Q(text);
    if (label->text() != value) {
        label->setText(value);
    }
}

void SetShown(QWidget* widget, bool shown) {
    if (widget->isVisibleTo(widget->parentWidget()) != shown) {
        widget->setVisible(shown);
    }
}

QLabel* NewLabel(QWidget* parent, const char* name, const QString& text, int points, bool bold) {
    auto* label = new QLabel(text, parent);
    label->setObjectName(QString::fromLatin1(name));
    QFont font = label->font();
    font.setPointSize(points);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

// The window around a nominal radius as a vertical bar, with the arm's radius as a line on it.
class ToleranceBar : public QWidget {
public:
    using QWidget::QWidget;
    void Set(bool line, double height) {
        if (line != line_ || height != height_) {
            line_ = line;
            height_ = height;
            update();
        }
    }
    QSize sizeHint() const override { return {22, 90}; }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QRect bar = rect().adjusted(4, 2, -5, -3);
        painter.fillRect(bar, QColor(255, 255, 255));
        painter.setPen(FromBGR(kFrameColor));
        painter.drawRect(bar);
        if (line_) {
            const int y = bar.top() + static_cast<int>(height_ * bar.height());
            painter.setPen(QPen(FromBGR(kPressedColor), 3));
            painter.drawLine(0, y, width(), y);
        }
    }

private:
    bool line_ = false;
    double height_ = 0;
};

} // namespace

frmPageScan::frmPageScan(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("frmPageScan"));
    setFocusPolicy(Qt::StrongFocus);
    Paint(this, kPageColor);
    auto* root = new QHBoxLayout(this);
    root->setContentsMargins(0, 0, 0, 0);
    root->setSpacing(0);
    root->addWidget(BuildLeftBar());
    root->addWidget(BuildCentre(), 1);
    root->addWidget(BuildRightBar());
}

ctlPanelButton* frmPageScan::NewButton(QWidget* parent, const char* name, const QString& caption,
                                       int clickAction) {
    auto* button = NewPagePanel(parent, name, caption, clickAction);
    button->setFixedHeight(44);
    return button;
}

QFrame* frmPageScan::NewCard(const char* name) {
    auto* card = new QFrame();
    card->setObjectName(QString::fromLatin1(name));
    card->setFrameShape(QFrame::Box);
    Paint(card, kWhite);
    QPalette colours = card->palette();
    colours.setColor(QPalette::WindowText, FromBGR(kFrameColor));
    card->setPalette(colours);
    return card;
}

QWidget* frmPageScan::BuildLeftBar() {
    auto* bar = new QWidget();
    bar->setObjectName(QStringLiteral("picLeftBar"));
    Paint(bar, kFrameColor);
    bar->setFixedWidth(kBarWidth);
    auto* layout = new QVBoxLayout(bar);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(8);

    ctlScanZeroGoStop =
        NewButton(bar, "ctlScanZeroGoStop", QStringLiteral("HOME"), ctlPanelButton::ClickMomentary);
    ctlScanZeroGoStop->setFixedHeight(130);
    ctlScanZeroGoStop->SetFontSize(20);
    ctlScanOops =
        NewButton(bar, "ctlScanOops", QStringLiteral("RE-SCAN LAST"), ctlPanelButton::ClickMomentary);
    ctlScanAdd = NewButton(bar, "ctlScanAdd", QStringLiteral("ADD"), ctlPanelButton::ClickMomentary);
    layout->addWidget(ctlScanZeroGoStop);
    layout->addWidget(ctlScanOops);
    layout->addWidget(ctlScanAdd);

    auto* scans = NewLabel(bar, "lblScans", QStringLiteral("SCANS"), 9, true);
    scans->setStyleSheet(QStringLiteral("color: white"));
    layout->addSpacing(6);
    layout->addWidget(scans);
    historyRow_ = new QWidget(bar);
    auto* letters = new QHBoxLayout(historyRow_);
    letters->setContentsMargins(0, 0, 0, 0);
    letters->setSpacing(4);
    layout->addWidget(historyRow_);
    auto* paging = new QHBoxLayout();
    paging->setSpacing(4);
    ctlScanUp = NewButton(bar, "ctlScanUp", QStringLiteral("PREV"), ctlPanelButton::ClickMomentary);
    ctlScanDown = NewButton(bar, "ctlScanDown", QStringLiteral("NEXT"), ctlPanelButton::ClickMomentary);
    paging->addWidget(ctlScanUp);
    paging->addWidget(ctlScanDown);
    layout->addLayout(paging);

    auto* description = NewLabel(bar, "lblScanDescription", QStringLiteral("DESCRIPTION"), 9, true);
    description->setStyleSheet(QStringLiteral("color: white"));
    layout->addSpacing(6);
    layout->addWidget(description);
    txtScanDescription = new QComboBox(bar);
    txtScanDescription->setObjectName(QStringLiteral("txtScanDescription"));
    txtScanDescription->setEditable(true);
    txtScanDescription->addItems(
        {QStringLiteral("Initial"), QStringLiteral("Check"), QStringLiteral("Final")});
    txtScanDescription->setCurrentIndex(-1);
    layout->addWidget(txtScanDescription);
    layout->addStretch(1);

    connect(ctlScanZeroGoStop, &ctlPanelButton::Click, this, &frmPageScan::ScanButtonClicked);
    connect(ctlScanOops, &ctlPanelButton::Click, this, &frmPageScan::OopsClicked);
    connect(ctlScanAdd, &ctlPanelButton::Click, this, &frmPageScan::AddClicked);
    connect(ctlScanUp, &ctlPanelButton::Click, this, [this] { emit HistoryPaged(-1); });
    connect(ctlScanDown, &ctlPanelButton::Click, this, [this] { emit HistoryPaged(1); });
    connect(txtScanDescription, &QComboBox::currentTextChanged, this, [this](const QString& text) {
        if (!showing_)
            emit DescriptionEdited(text);
    });
    return bar;
}

QWidget* frmPageScan::BuildCentre() {
    auto* centre = new QWidget();
    Paint(centre, kPageColor);
    auto* layout = new QVBoxLayout(centre);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(10);

    lblGuidance = NewLabel(centre, "lblGuidance", QString(), 14, false);
    lblGuidance->setAutoFillBackground(true);
    Paint(lblGuidance, kWhite);
    lblGuidance->setFrameShape(QFrame::Box);
    lblGuidance->setMinimumHeight(44);
    lblGuidance->setContentsMargins(10, 4, 10, 4);
    layout->addWidget(lblGuidance);

    auto* middle = new QHBoxLayout();
    middle->setSpacing(10);
    picGraph = NewCard("picGraph");
    picGraph->setMinimumSize(360, 300);
    middle->addWidget(picGraph, 1);

    auto* panels = new QVBoxLayout();
    panels->setSpacing(10);
    auto* readOuts = NewCard("picReadOuts");
    auto* grid = new QGridLayout(readOuts);
    const std::array<std::pair<const char*, QLabel**>, 3> rows = {
        {{"ANGLE", &lblEncoderAngleDeg}, {"RADIUS", &lblEncoderRadius}, {"DROP", &lblEncoderAxialDrop}}};
    const std::array<const char*, 3> names = {"lblEncoderAngleDeg", "lblEncoderRadius",
                                              "lblEncoderAxialDrop"};
    for (int row = 0; row < 3; ++row) {
        grid->addWidget(
            NewLabel(readOuts, "", QString::fromLatin1(rows[static_cast<std::size_t>(row)].first), 9, true),
            row, 0);
        QLabel* value = NewLabel(readOuts, names[static_cast<std::size_t>(row)], QString(), 16, true);
        value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        value->setMinimumWidth(170);
        *rows[static_cast<std::size_t>(row)].second = value;
        grid->addWidget(value, row, 1);
    }
    lblFIFOCount = NewLabel(readOuts, "lblFIFOCount", QString(), 8, false);
    grid->addWidget(lblFIFOCount, 3, 0, 1, 2);
    panels->addWidget(readOuts);

    picDisplayRadialPos = NewCard("picDisplayRadialPos");
    auto* radial = new QHBoxLayout(picDisplayRadialPos);
    lblDisplayRad = NewLabel(picDisplayRadialPos, "lblDisplayRad", QStringLiteral("RAD"), 26, true);
    radial->addWidget(lblDisplayRad, 1, Qt::AlignCenter);
    picTolerance = new ToleranceBar(picDisplayRadialPos);
    picTolerance->setObjectName(QStringLiteral("picTolerance"));
    radial->addWidget(picTolerance);
    panels->addWidget(picDisplayRadialPos);

    picZeroInstructions = NewCard("picZeroInstructions");
    auto* zero = new QVBoxLayout(picZeroInstructions);
    zero->addWidget(NewLabel(picZeroInstructions, "lblZeroHeading",
                             QStringLiteral("  Please ZERO the device:"), 11, true));
    for (std::size_t i = 0; i < lblZeroLines.size(); ++i) {
        lblZeroLines[i] = NewLabel(picZeroInstructions, "", QString(), 10, false);
        zero->addWidget(lblZeroLines[i]);
    }
    panels->addWidget(picZeroInstructions);

    picDiameterCheck = NewCard("picDiameterCheck");
    auto* tip = new QVBoxLayout(picDiameterCheck);
    lblDiamCheckBlade = NewLabel(picDiameterCheck, "lblDiamCheckBlade", QString(), 11, true);
    tip->addWidget(lblDiamCheckBlade);
    cmdGet = NewButton(picDiameterCheck, "cmdGet", QStringLiteral("GET"), ctlPanelButton::ClickMomentary);
    tip->addWidget(cmdGet);
    panels->addWidget(picDiameterCheck);
    connect(cmdGet, &ctlPanelButton::Click, this, &frmPageScan::ScanButtonClicked);

    picRadiusRuler = NewCard("picRadiusRuler");
    auto* ruler = new QVBoxLayout(picRadiusRuler);
    lblRulerRadius = NewLabel(picRadiusRuler, "lblRulerRadius", QString(), 20, true);
    lblRulerMeasurement = NewLabel(picRadiusRuler, "lblRulerMeasurement", QString(), 16, false);
    ruler->addWidget(lblRulerRadius);
    ruler->addWidget(lblRulerMeasurement);
    picRadiusRuler->installEventFilter(this);
    panels->addWidget(picRadiusRuler);
    panels->addStretch(1);
    middle->addLayout(panels);
    layout->addLayout(middle, 1);
    return centre;
}

QWidget* frmPageScan::BuildRightBar() {
    auto* bar = new QWidget();
    bar->setObjectName(QStringLiteral("picRightBar"));
    Paint(bar, kFrameColor);
    bar->setFixedWidth(TwipsToPixels(kPanelSizes[0].panelTwips) + 16);
    auto* layout = new QVBoxLayout(bar);
    layout->setContentsMargins(8, 8, 8, 8);
    layout->setSpacing(6);
    for (std::size_t i = 0; i < ctlScanRadius.size(); ++i) {
        const QByteArray name = QStringLiteral("ctlScanRadius_%1").arg(i).toLatin1();
        ctlScanRadius[i] = NewButton(bar, name.constData(), QString(), ctlPanelButton::ClickRadio);
        layout->addWidget(ctlScanRadius[i]);
        connect(ctlScanRadius[i], &ctlPanelButton::Click, this,
                [this, i] { emit RadiusClicked(static_cast<int>(i)); });
    }
    layout->addSpacing(12);
    ctlScanMaxRadius = NewButton(bar, "ctlScanMaxRadius", QStringLiteral("TIP"), ctlPanelButton::ClickToggle);
    layout->addWidget(ctlScanMaxRadius);
    connect(ctlScanMaxRadius, &ctlPanelButton::Click, this, &frmPageScan::TipClicked);
    layout->addStretch(1);
    return bar;
}

void frmPageScan::ShowPanel(ctlPanelButton* button, const PanelView& panel, int clickAction) {
    const QString caption = Q(panel.caption);
    if (button->Caption() != caption)
        button->SetCaption(caption);
    if (button->Visible() != panel.visible)
        button->SetVisible(panel.visible);
    if (button->Enabled() != panel.enabled)
        button->SetEnabled(panel.enabled);
    const int action = panel.clickable ? clickAction : static_cast<int>(ctlPanelButton::ClickNone);
    if (button->ClickAction() != action)
        button->SetClickAction(action);
    if (button->Pressed() != panel.pressed)
        button->SetPressed(panel.pressed);
}

void frmPageScan::ShowHistory(const ScanPageView& view) {
    auto* letters = static_cast<QHBoxLayout*>(historyRow_->layout());
    while (ctlScanHistory.size() < view.history.size()) {
        const int index = static_cast<int>(ctlScanHistory.size());
        const QByteArray name = QStringLiteral("ctlScanHistory_%1").arg(index).toLatin1();
        auto* letter = NewButton(historyRow_, name.constData(), QString(), ctlPanelButton::ClickRadio);
        connect(letter, &ctlPanelButton::Click, this, [this, index] { emit HistoryClicked(index); });
        letters->addWidget(letter);
        ctlScanHistory.push_back(letter);
    }
    for (std::size_t i = 0; i < ctlScanHistory.size(); ++i) {
        PanelView panel = i < view.history.size() ? view.history[i] : PanelView{};
        if (i >= view.history.size())
            panel.visible = false;
        ShowPanel(ctlScanHistory[i], panel, ctlPanelButton::ClickRadio);
        SetShown(ctlScanHistory[i], panel.visible);
    }
    ShowPanel(ctlScanUp, view.prev, ctlPanelButton::ClickMomentary);
    ShowPanel(ctlScanDown, view.next, ctlPanelButton::ClickMomentary);
    (void)kVisibleLetters;
}

void frmPageScan::Show(const ScanPageView& view) {
    showing_ = true;
    ShowPanel(ctlScanZeroGoStop, view.scanButton, ctlPanelButton::ClickMomentary);
    ShowPanel(ctlScanOops, view.oops, ctlPanelButton::ClickMomentary);
    SetShown(ctlScanOops, view.oops.visible);
    ShowPanel(ctlScanAdd, view.add, ctlPanelButton::ClickMomentary);
    ShowPanel(cmdGet, view.getButton, ctlPanelButton::ClickMomentary);
    ShowPanel(ctlScanMaxRadius, view.tip, ctlPanelButton::ClickToggle);
    for (std::size_t i = 0; i < ctlScanRadius.size(); ++i)
        ShowPanel(ctlScanRadius[i], view.radius[i], ctlPanelButton::ClickRadio);
    ShowHistory(view);

    SetText(lblGuidance, view.ShownGuidance());
    // Level 0: black on white; a status (levels 1, 2 and 4): bold, in red.
    const bool status = view.statusLevel != 0;
    if (lblGuidance->font().bold() != status) {
        QFont font = lblGuidance->font();
        font.setBold(status);
        lblGuidance->setFont(font);
        QPalette colours = lblGuidance->palette();
        colours.setColor(QPalette::WindowText, status ? FromBGR(kStatusRed) : QColor(0, 0, 0));
        lblGuidance->setPalette(colours);
    }
    SetText(lblEncoderAngleDeg, view.angle);
    SetText(lblEncoderRadius, view.radiusText);
    SetText(lblEncoderAxialDrop, view.drop);
    SetText(lblFIFOCount, view.fifoCount);

    SetShown(picZeroInstructions, view.zeroInstructions);
    for (std::size_t i = 0; i < lblZeroLines.size(); ++i)
        SetText(lblZeroLines[i], view.zeroLines[i]);
    SetShown(picDisplayRadialPos, view.radialPos);
    SetText(lblDisplayRad, view.displayRad);
    SetShown(picTolerance, view.tolerance);
    static_cast<ToleranceBar*>(picTolerance)->Set(view.toleranceLine, view.toleranceLineHeight);
    SetShown(picDiameterCheck, view.scanButton.caption == "GET");
    SetText(lblDiamCheckBlade, view.diamCheckBlade);
    SetShown(picRadiusRuler, view.ruler);
    SetText(lblRulerRadius, view.rulerRadius);
    SetText(lblRulerMeasurement, view.rulerMeasurement);

    const QString description = Q(view.description);
    if (txtScanDescription->currentText() != description)
        txtScanDescription->setEditText(description);
    showing_ = false;
}

void frmPageScan::keyPressEvent(QKeyEvent* event) {
    emit KeyTyped(event->key(), event->text());
    event->accept();
}

bool frmPageScan::eventFilter(QObject* watched, QEvent* event) {
    if (watched == picRadiusRuler && event->type() == QEvent::MouseButtonRelease) {
        emit RulerClicked();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace corvane
