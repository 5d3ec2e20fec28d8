#include "shell/ctlTextField.h"

#include "shell/ColorRef.h"
#include "shell/FieldKeys.h"
#include "shell/Twips.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace corvane {
namespace {

constexpr int kPaddingTwips = 120;
// Room kept for the focus frame around the text box and the button.
constexpr int kFrameRoom = 2;
constexpr std::uint32_t kButtonDownColor = RGBColor(224, 224, 224);
const QString kButtonCaption = QStringLiteral("...");

} // namespace

ctlTextField::ctlTextField(QWidget* parent) : QWidget(parent), txtField_(new QLineEdit(this)) {
    txtField_->setObjectName(QStringLiteral("txtField"));
    txtField_->setFrame(false);
    txtField_->installEventFilter(this);
    setFocusProxy(txtField_);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(txtField_, &QLineEdit::textChanged, this, [this] { emit Change(); });
    // The "txtLogo" field needs its extra row as soon as a page names it.
    connect(this, &QObject::objectNameChanged, this, [this] { Resize(); });
    ApplyColours();
    UpdateMinimumHeight();
}

void ctlTextField::SetShowButton(bool show) {
    if (show != showButton_) {
        showButton_ = show;
        Resize();
        update();
    }
}

void ctlTextField::SetBackcolor(std::uint32_t bgr) {
    if (bgr != backColor_) {
        backColor_ = bgr;
        ApplyColours();
        update();
    }
}

void ctlTextField::SetForecolor(std::uint32_t bgr) {
    if (bgr != foreColor_) {
        foreColor_ = bgr;
        ApplyColours();
        update();
    }
}

void ctlTextField::ApplyColours() {
    QPalette colours = txtField_->palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        colours.setColor(group, QPalette::Base, FromBGR(backColor_));
        colours.setColor(group, QPalette::Window, FromBGR(backColor_));
    }
    colours.setColor(QPalette::Active, QPalette::Text, FromBGR(foreColor_));
    colours.setColor(QPalette::Inactive, QPalette::Text, FromBGR(foreColor_));
    txtField_->setPalette(colours);
}

int ctlTextField::FontSize() const {
    return txtField_->font().pointSize();
}

void ctlTextField::SetFontSize(int points) {
    if (points <= 0) {
        return;
    }
    QFont textFont = txtField_->font();
    textFont.setPointSize(points);
    SetFont(textFont);
}

QFont ctlTextField::Font() const {
    return txtField_->font();
}

void ctlTextField::SetFont(const QFont& textFont) {
    txtField_->setFont(textFont);
    setFont(textFont); // the button caption follows the text
    Resize();
}

QString ctlTextField::Text() const {
    return txtField_->text();
}

void ctlTextField::SetText(const QString& text) {
    txtField_->setText(text);
}

void ctlTextField::SetBorder(bool border) {
    if (border != border_) {
        border_ = border;
        update();
    }
}

bool ctlTextField::Locked() const {
    return txtField_->isReadOnly();
}

void ctlTextField::SetLocked(bool locked) {
    txtField_->setReadOnly(locked);
}

int ctlTextField::MinimumFieldHeight() const {
    const int rows = objectName() == QStringLiteral("txtLogo") ? 2 : 1;
    return QFontMetrics(txtField_->font()).height() * rows + 2 * TwipsToPixels(kPaddingTwips);
}

void ctlTextField::UpdateMinimumHeight() {
    setMinimumHeight(MinimumFieldHeight());
}

QSize ctlTextField::minimumSizeHint() const {
    return {TwipsToPixels(kPaddingTwips) * 4, MinimumFieldHeight()};
}

QSize ctlTextField::sizeHint() const {
    return {QFontMetrics(txtField_->font()).averageCharWidth() * 20, MinimumFieldHeight()};
}

QRect ctlTextField::ButtonRect() const {
    if (!ButtonShown()) {
        return {};
    }
    const int side = std::min(height() - 2 * kFrameRoom, width() / 2);
    return {width() - kFrameRoom - side, kFrameRoom, side, height() - 2 * kFrameRoom};
}

void ctlTextField::Resize() {
    UpdateMinimumHeight(); // a shorter field is clamped by the minimum height
    if (height() < MinimumFieldHeight()) {
        resize(width(), MinimumFieldHeight());
    }
    const int padding = TwipsToPixels(kPaddingTwips);
    const QRect button = ButtonRect();
    const int right = button.isNull() ? width() - padding : button.left() - kFrameRoom;
    const int textHeight = std::min(height() - 2 * kFrameRoom, MinimumFieldHeight() - 2 * padding + 4);
    txtField_->setGeometry(padding, (height() - textHeight) / 2, std::max(0, right - padding), textHeight);
}

void ctlTextField::resizeEvent(QResizeEvent* /*event*/) {
    Resize();
}

void ctlTextField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), FromBGR(backColor_));
    const QColor highlight = palette().color(QPalette::Active, QPalette::Highlight);
    const QColor line = focused_ ? highlight : QColor(Qt::black);

    const QRect button = ButtonRect();
    if (!button.isNull()) {
        painter.fillRect(button, buttonDown_ ? FromBGR(kButtonDownColor) : palette().color(QPalette::Button));
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(button.topLeft(), button.bottomLeft());
        painter.setRenderHint(QPainter::TextAntialiasing);
        painter.setPen(line);
        painter.drawText(button, Qt::AlignCenter, kButtonCaption);
    }

    if (border_) {
        // Lines on half pixels stay crisp at any scale factor.
        const qreal width = FrameWidth();
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(line, width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(QRectF(rect()).adjusted(width / 2, width / 2, -width / 2, -width / 2));
    }
}

void ctlTextField::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton && ButtonRect().contains(event->position().toPoint())) {
        buttonDown_ = true;
        update();
    }
    event->accept();
}

void ctlTextField::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    if (!buttonDown_ || event->button() != Qt::LeftButton) {
        return;
    }
    buttonDown_ = false;
    update();
    emit Click();
}

void ctlTextField::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        buttonDown_ = false;
        Resize(); // the button comes and goes with the enabled state
        update();
    }
    QWidget::changeEvent(event);
}

bool ctlTextField::eventFilter(QObject* watched, QEvent* event) {
    if (watched != txtField_) {
        return QWidget::eventFilter(watched, event);
    }
    switch (event->type()) {
    case QEvent::FocusIn:
        focused_ = true;
        update();
        break;
    case QEvent::FocusOut: {
        // A context menu or a switch to another program leaves the field its focus.
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) {
            focused_ = false;
            update();
            emit LostFocus();
        }
        break;
    }
    case QEvent::KeyPress: {
        const int code = KeyPressCode(*static_cast<QKeyEvent*>(event));
        if (code != 0) {
            int answer = code;
            emit KeyPress(answer);
            if (ApplyKeyPressAnswer(*txtField_, code, answer)) {
                return true;
            }
        }
        break;
    }
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace corvane
