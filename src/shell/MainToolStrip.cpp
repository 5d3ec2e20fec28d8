#include "shell/MainToolStrip.h"

#include "shell/ColorRef.h"
#include "shell/Twips.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace corvane {
namespace {

// Widths in twips: page buttons hold "PROJECT" in bold, blade buttons are square.
constexpr int kPageButtonTwips = 1275;
constexpr int kAllButtonTwips = 930;
constexpr int kBladeButtonTwips = 600;
constexpr int kStripMarginTwips = 90;

void UsePageColors(ctlPanelButton* button) {
    button->SetPanelColors(kStripFrameColor, kPageButtonDisabled, kPageButtonFace, kPageButtonPressed);
}

} // namespace

MainToolStrip::MainToolStrip(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("picButtonBar"));
    setAutoFillBackground(true);
    QPalette strip = palette();
    strip.setColor(QPalette::Window, FromBGR(kStripFrameColor));
    strip.setColor(QPalette::WindowText, FromBGR(kCaptionWhite));
    setPalette(strip);

    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    picButtonBarTop = new QWidget(this);
    picButtonBarTop->setObjectName(QStringLiteral("picButtonBarTop"));
    picButtonBarTop->setFixedHeight(3);
    picButtonBarTop->setAutoFillBackground(true);
    QPalette accent = picButtonBarTop->palette();
    accent.setColor(QPalette::Window, FromBGR(kPageButtonPressed));
    picButtonBarTop->setPalette(accent);
    outer->addWidget(picButtonBarTop);

    auto* row = new QHBoxLayout();
    const int margin = TwipsToPixels(kStripMarginTwips);
    row->setContentsMargins(margin, margin, margin, margin);
    row->setSpacing(margin);
    outer->addLayout(row);

    picLogo = new QLabel(QStringLiteral("CORVANE"), this);
    picLogo->setObjectName(QStringLiteral("picLogo"));
    QFont logoFont = picLogo->font();
    logoFont.setPointSizeF(logoFont.pointSizeF() * 1.35);
    logoFont.setBold(true);
    logoFont.setLetterSpacing(QFont::PercentageSpacing, 110);
    picLogo->setFont(logoFont);
    row->addWidget(picLogo);
    row->addSpacing(2 * margin);

    ctlProjButton = MakeButton(QStringLiteral("PROJECT"), QStringLiteral("ctlProjButton"), kPageButtonTwips);
    ctlScanButton = MakeButton(QStringLiteral("SCAN"), QStringLiteral("ctlScanButton"), kPageButtonTwips);
    ctlCheckButton = MakeButton(QStringLiteral("CHECK"), QStringLiteral("ctlCheckButton"), kPageButtonTwips);
    ctlDocsButton = MakeButton(QStringLiteral("REPORT"), QStringLiteral("ctlDocsButton"), kPageButtonTwips);
    pageButtons_ = {ctlProjButton, ctlScanButton, ctlCheckButton, ctlDocsButton};
    for (int page = 0; page < PageButtonCount(); ++page) {
        ctlPanelButton* button = PageButton(page);
        button->setToolTip(QStringLiteral("Open the %1 page").arg(button->Caption()));
        row->addWidget(button);
        connect(button, &ctlPanelButton::Click, this, [this, page] { emit PageButtonClicked(page); });
    }
    row->addStretch(1);

    ctlAll = MakeButton(QStringLiteral("ISO"), QStringLiteral("ctlAll"), kAllButtonTwips);
    ctlAll->setToolTip(QStringLiteral("Radial stations shown: all, the ISO stations, or the chosen ones"));
    row->addWidget(ctlAll);
    connect(ctlAll, &ctlPanelButton::Click, this, &MainToolStrip::AllClicked);
    for (int blade = 0; blade < 7; ++blade) {
        ctlPanelButton* button = MakeButton(QString::number(blade + 1),
                                            QStringLiteral("ctlBlades_%1").arg(blade), kBladeButtonTwips);
        button->setToolTip(QStringLiteral("Blade %1").arg(blade + 1));
        ctlBlades[static_cast<std::size_t>(blade)] = button;
        row->addWidget(button);
        connect(button, &ctlPanelButton::Click, this, [this, blade] { emit BladeClicked(blade); });
    }
    row->addSpacing(2 * margin);

    picCapture = new QLabel(this);
    picCapture->setObjectName(QStringLiteral("picCapture"));
    picCapture->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QFont captureFont = picCapture->font();
    captureFont.setPointSizeF(captureFont.pointSizeF() * 0.85);
    picCapture->setFont(captureFont);
    row->addWidget(picCapture);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

ctlPanelButton* MainToolStrip::MakeButton(const QString& caption, const QString& name, int widthTwips) {
    auto* button = new ctlPanelButton(this);
    button->setObjectName(name);
    button->SetCaption(caption);
    button->SetForeColor(kCaptionWhite);
    UsePageColors(button);
    button->setMinimumWidth(TwipsToPixels(widthTwips));
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setCursor(Qt::PointingHandCursor);
    return button;
}

ctlPanelButton* MainToolStrip::PageButton(int page) const {
    return page >= 0 && page < PageButtonCount() ? pageButtons_[static_cast<std::size_t>(page)] : nullptr;
}

void MainToolStrip::PressPageButton(int page) {
    for (int other = 0; other < PageButtonCount(); ++other) {
        ctlPanelButton* button = PageButton(other);
        button->SetPressed(other == page);
        button->SetForeColor(other == page ? kCaptionBlack : kCaptionWhite);
    }
}

void MainToolStrip::ShowViewMode(int bladeViewMode) {
    switch (bladeViewMode) {
    case 0:
        ctlAll->SetCaption(QStringLiteral("ALL"));
        ctlAll->SetPanelColors(kStripFrameColor, kPageButtonDisabled, kPageButtonFace, kCaptionBlack);
        ctlAll->SetForeColor(kCaptionWhite);
        ctlAll->SetPressed(true);
        break;
    case 2:
        ctlAll->SetCaption(QStringLiteral("ANY"));
        UsePageColors(ctlAll);
        ctlAll->SetForeColor(kCaptionBlack);
        ctlAll->SetPressed(true);
        break;
    default:
        ctlAll->SetCaption(QStringLiteral("ISO"));
        UsePageColors(ctlAll);
        ctlAll->SetForeColor(kCaptionWhite);
        ctlAll->SetPressed(false);
        break;
    }
}

void MainToolStrip::SetBladePressed(int blade, bool pressed) {
    if (blade < 0 || blade >= static_cast<int>(ctlBlades.size())) {
        return;
    }
    ctlPanelButton* button = ctlBlades[static_cast<std::size_t>(blade)];
    button->SetPanelColors(kStripFrameColor, kPageButtonDisabled, kPageButtonFace,
                           kBladeColors[static_cast<std::size_t>(blade)]);
    button->SetForeColor(kCaptionWhite);
    button->SetPressed(pressed);
}

void MainToolStrip::SetStationCaption(const QString& caption) {
    picCapture->setText(caption);
}

} // namespace corvane
