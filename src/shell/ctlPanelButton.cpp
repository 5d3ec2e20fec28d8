#include "shell/ctlPanelButton.h"

#include "shell/ColorRef.h"
#include "shell/Twips.h"

#include <QEvent>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <iterator>

namespace corvane {
namespace {

// A momentary button stays pressed this long so the technician sees the press.
constexpr int kMomentaryPressMs = 100;
// Rounding of the face's corners, in pixels; the frame colour shows in the corners.
constexpr qreal kFaceRadius = 3.0;

QString PlainLines(QString caption) {
    return caption.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(QChar('\r'), QChar('\n'));
}

} // namespace

ctlPanelButton::ctlPanelButton(QWidget* parent)
    : QWidget(parent), frameColor_(RGBColor(208, 104, 48)),
      disabledColor_(ToBGR(palette().color(QPalette::Disabled, QPalette::WindowText))),
      normalColor_(RGBColor(255, 224, 192)), pressedColor_(RGBColor(243, 181, 124)),
      momentaryTimer_(new QTimer(this)) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    setFocusPolicy(Qt::NoFocus);
    momentaryTimer_->setSingleShot(true);
    momentaryTimer_->setInterval(kMomentaryPressMs);
    connect(momentaryTimer_, &QTimer::timeout, this, &ctlPanelButton::MomentaryReleased);
}

void ctlPanelButton::SetFontSize(std::int16_t points) {
    if (points <= 0 || points == fontSize_) {
        return;
    }
    fontSize_ = points;
    updateGeometry();
    update();
}

void ctlPanelButton::SetCaption(const QString& caption) {
    if (caption == caption_) {
        return;
    }
    caption_ = caption;
    updateGeometry();
    update();
}

void ctlPanelButton::SetForeColor(std::uint32_t bgr) {
    if (bgr != foreColor_) {
        foreColor_ = bgr;
        update();
    }
}

void ctlPanelButton::SetToolTips(const QString& text) {
    toolTips_ = text;
    setToolTip(text);
}

void ctlPanelButton::SetShowBorder(bool show) {
    if (show != showBorder_) {
        showBorder_ = show;
        update();
    }
}

void ctlPanelButton::SetActiveBorder(bool show) {
    if (show != activeBorder_) {
        activeBorder_ = show;
        update();
    }
}

void ctlPanelButton::SetBoldWhenPressed(bool bold) {
    if (bold != boldWhenPressed_) {
        boldWhenPressed_ = bold;
        update();
    }
}

void ctlPanelButton::SetBorderWidth(std::int16_t pixels) {
    pixels = std::max<std::int16_t>(pixels, 0);
    if (pixels != borderWidth_) {
        borderWidth_ = pixels;
        update();
    }
}

bool ctlPanelButton::Visible() const {
    return !(testAttribute(Qt::WA_WState_ExplicitShowHide) && testAttribute(Qt::WA_WState_Hidden));
}

void ctlPanelButton::SetVisible(bool visible) {
    if (visible != Visible()) {
        setVisible(visible);
    }
}

void ctlPanelButton::SetPressed(bool pressed) {
    if (pressed != pressed_) {
        pressed_ = pressed;
        update();
    }
}

void ctlPanelButton::SetSize(int row) {
    if (row < 0 || row >= static_cast<int>(std::size(kPanelSizes))) {
        return;
    }
    size_ = row;
    SetFontSize(kPanelSizes[row].captionFont);
    updateGeometry();
}

void ctlPanelButton::SetClickAction(int action) {
    clickAction_ = action;
}

void ctlPanelButton::SetPanelColors(std::uint32_t frame, std::uint32_t disabled, std::uint32_t normal,
                                    std::uint32_t pressed) {
    if (frame == frameColor_ && disabled == disabledColor_ && normal == normalColor_ &&
        pressed == pressedColor_) {
        return;
    }
    frameColor_ = frame;
    disabledColor_ = disabled;
    normalColor_ = normal;
    pressedColor_ = pressed;
    update();
}

void ctlPanelButton::RefreshPanel() {
    setToolTip(toolTips_);
    update();
}

std::uint32_t ctlPanelButton::FaceColor() const {
    if (!isEnabled()) {
        return disabledColor_;
    }
    return pressed_ ? pressedColor_ : normalColor_;
}

bool ctlPanelButton::CaptionBold() const {
    return isEnabled() && pressed_ && boldWhenPressed_;
}

bool ctlPanelButton::FrameLineShown() const {
    if (isEnabled() && pressed_) {
        return activeBorder_ || showBorder_;
    }
    return showBorder_;
}

QFont ctlPanelButton::CaptionFont() const {
    QFont captionFont = font(); // the platform's interface family
    captionFont.setPointSize(fontSize_);
    captionFont.setBold(CaptionBold());
    return captionFont;
}

int ctlPanelButton::CaptionLines() const {
    return PlainLines(caption_).contains(QChar('\n')) ? 2 : 1;
}

QSize ctlPanelButton::sizeHint() const {
    const PanelSizeRow& row = kPanelSizes[size_];
    const int offset = TwipsToPixels(row.captionOffsetTwips);
    QFont boldFont = CaptionFont();
    boldFont.setBold(true); // room for the pressed caption, so a press never clips it
    const QFontMetrics metrics(boldFont);
    int textWidth = 0;
    for (const QString& line : PlainLines(caption_).split(QChar('\n'))) {
        textWidth = std::max(textWidth, metrics.horizontalAdvance(line));
    }
    return {std::max(TwipsToPixels(row.panelTwips), textWidth + 2 * offset),
            metrics.height() * CaptionLines() + 2 * offset};
}

void ctlPanelButton::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.fillRect(rect(), FromBGR(frameColor_));

    // The face is inset by one pixel so the frame colour outlines it and fills the corners.
    const QRectF face = QRectF(rect()).adjusted(1, 1, -1, -1);
    QPainterPath facePath;
    facePath.addRoundedRect(face, kFaceRadius, kFaceRadius);
    painter.fillPath(facePath, FromBGR(FaceColor()));

    const QColor fore = FromBGR(foreColor_);
    if (FrameLineShown() && borderWidth_ > 0) {
        const qreal half = borderWidth_ / 2.0;
        QPen pen(fore, borderWidth_);
        pen.setJoinStyle(Qt::MiterJoin);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawRoundedRect(face.adjusted(half, half, -half, -half), kFaceRadius, kFaceRadius);
    }

    // The caption box is as tall as its lines and centred in the panel.
    const QFont captionFont = CaptionFont();
    const int boxHeight = QFontMetrics(captionFont).height() * CaptionLines();
    const QRect box(0, (height() - boxHeight) / 2, width(), boxHeight);
    painter.setFont(captionFont);
    painter.setPen(fore);
    painter.drawText(box, Qt::AlignHCenter | Qt::AlignTop, PlainLines(caption_));
}

void ctlPanelButton::mousePressEvent(QMouseEvent* event) {
    mouseDown_ = event->button() == Qt::LeftButton;
    event->accept();
}

void ctlPanelButton::mouseReleaseEvent(QMouseEvent* event) {
    const bool wasDown = mouseDown_;
    mouseDown_ = false;
    event->accept();
    if (wasDown && event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) {
        PanelClicked();
    }
}

void ctlPanelButton::PanelClicked() {
    if (!isEnabled()) {
        return;
    }
    if (handlingClick_) {
        clickWaiting_ = true;
        return;
    }
    switch (clickAction_) {
    case ClickRadio:
        if (!pressed_) {
            SetPressed(true);
            RaiseClick();
        }
        break;
    case ClickToggle:
        pressed_ = !pressed_;
        repaint(); // the new face shows before Click does its work
        RaiseClick();
        break;
    case ClickMomentary:
        // Pressed now, released with Click when the timer ends; the button is busy till then.
        handlingClick_ = true;
        SetPressed(true);
        momentaryTimer_->start();
        break;
    default: // a label: no click
        break;
    }
}

void ctlPanelButton::MomentaryReleased() {
    SetPressed(false);
    if (isEnabled()) {
        RaiseClick();
    } else {
        EndClick(); // disabled meanwhile: the click no longer counts
    }
}

void ctlPanelButton::RaiseClick() {
    handlingClick_ = true;
    const QPointer<ctlPanelButton> self(this);
    emit Click();
    if (self) {
        EndClick();
    }
}

void ctlPanelButton::EndClick() {
    handlingClick_ = false;
    if (clickWaiting_) {
        clickWaiting_ = false;
        QTimer::singleShot(0, this, &ctlPanelButton::PanelClicked);
    }
}

void ctlPanelButton::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange || event->type() == QEvent::FontChange) {
        mouseDown_ = false;
        updateGeometry();
        update();
    }
    QWidget::changeEvent(event);
}

QVariantMap ctlPanelButton::WriteProperties() const {
    QVariantMap bag;
    bag.insert(QStringLiteral("FontSize"), static_cast<int>(fontSize_));
    bag.insert(QStringLiteral("Caption"), caption_);
    bag.insert(QStringLiteral("ForeColor"), static_cast<qulonglong>(foreColor_));
    bag.insert(QStringLiteral("Border"), showBorder_);
    bag.insert(QStringLiteral("ActiveBorder"), activeBorder_);
    bag.insert(QStringLiteral("BoldWhenPressed"), boldWhenPressed_);
    bag.insert(QStringLiteral("BorderWidth"), static_cast<int>(borderWidth_));
    bag.insert(QStringLiteral("Pressed"), pressed_);
    bag.insert(QStringLiteral("Visible"), Visible());
    bag.insert(QStringLiteral("Size"), size_);
    bag.insert(QStringLiteral("ClickAction"), clickAction_);
    bag.insert(QStringLiteral("Enabled"), Enabled());
    bag.insert(QStringLiteral("ToolTips"), toolTips_);
    return bag;
}

void ctlPanelButton::ReadProperties(const QVariantMap& bag) {
    const auto number = [&bag](const char* name, qlonglong fallback) {
        return bag.value(QString::fromLatin1(name), fallback).toLongLong();
    };
    const auto flag = [&bag](const char* name, bool fallback) {
        return bag.value(QString::fromLatin1(name), fallback).toBool();
    };
    const auto clampShort = [](qlonglong value) {
        return static_cast<std::int16_t>(std::clamp<qlonglong>(value, INT16_MIN, INT16_MAX));
    };
    SetFontSize(clampShort(number("FontSize", 12)));
    SetCaption(bag.value(QStringLiteral("Caption")).toString());
    SetForeColor(static_cast<std::uint32_t>(number("ForeColor", 0) & 0xFFFFFF));
    SetShowBorder(flag("Border", false));
    SetActiveBorder(flag("ActiveBorder", false));
    SetBoldWhenPressed(flag("BoldWhenPressed", true));
    SetBorderWidth(clampShort(number("BorderWidth", 4)));
    SetPressed(flag("Pressed", false));
    SetVisible(flag("Visible", true));
    SetSize(static_cast<int>(std::clamp<qlonglong>(number("Size", 0), INT32_MIN, INT32_MAX)));
    SetClickAction(static_cast<int>(std::clamp<qlonglong>(number("ClickAction", 1), INT32_MIN, INT32_MAX)));
    SetEnabled(flag("Enabled", true));
    SetToolTips(bag.value(QStringLiteral("ToolTips")).toString());
}

ctlPanelButton* NewPagePanel(QWidget* parent, const char* name, const QString& caption, int clickAction,
                             std::uint32_t disabled) {
    auto* button = new ctlPanelButton(parent);
    button->setObjectName(QString::fromLatin1(name));
    button->SetPanelColors(pagecolours::kFrameColor, disabled, pagecolours::kFaceColor,
                           pagecolours::kPressedColor);
    button->SetForeColor(pagecolours::kPanelWhite);
    button->SetSize(0);
    button->SetClickAction(clickAction);
    button->SetCaption(caption);
    return button;
}

} // namespace corvane
