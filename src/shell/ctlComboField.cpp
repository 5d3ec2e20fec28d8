#include "shell/ctlComboField.h"

#include "shell/ColorRef.h"
#include "shell/FieldKeys.h"
#include "shell/Twips.h"

#include <QApplication>
#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>

#include <algorithm>

namespace corvane {
namespace {

constexpr int kFrameRoom = 2;
// The open list shows this many rows before it scrolls.
constexpr int kVisibleRows = 12;
// Gap between the two separator lines left of the arrow button.
constexpr int kSeparatorGap = 3;
constexpr std::uint32_t kRestingFrame = RGBColor(192, 192, 192);

} // namespace

ctlComboField::ctlComboField(QWidget* parent)
    : QWidget(parent), txtField_(new QLineEdit(this)), cboList_(new QListWidget(this)) {
    txtField_->setObjectName(QStringLiteral("txtField"));
    txtField_->setFrame(false);
    txtField_->installEventFilter(this);
    setFocusProxy(txtField_);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(txtField_, &QLineEdit::textChanged, this, [this] { emit Change(); });

    // The list is a popup of its own; the press that closes it by a click on the arrow must not
    // come back to the arrow and open it again.
    cboList_->setObjectName(QStringLiteral("listOptions"));
    cboList_->setWindowFlags(Qt::Popup);
    cboList_->setAttribute(Qt::WA_NoMouseReplay);
    cboList_->setSelectionMode(QAbstractItemView::SingleSelection);
    cboList_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    cboList_->installEventFilter(this);
    cboList_->hide();
    connect(cboList_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { ChooseItem(cboList_->row(item)); });
    ApplyColours();
}

void ctlComboField::OpenCombo() {
    if (Dropped()) {
        cboList_->hide();
    } else {
        ShowList();
    }
}

bool ctlComboField::Dropped() const {
    return cboList_->isVisible();
}

void ctlComboField::ShowList() {
    if (!isEnabled()) {
        return;
    }
    const int rowHeight =
        cboList_->count() > 0 ? cboList_->sizeHintForRow(0) : QFontMetrics(cboList_->font()).height() + 4;
    const int rows = std::clamp(cboList_->count(), 1, kVisibleRows);
    const int frame = 2 * cboList_->frameWidth();
    QRect area(mapToGlobal(QPoint(0, height())), QSize(width(), rows * rowHeight + frame));
    if (const QScreen* shown = screen(); shown != nullptr) {
        const QRect available = shown->availableGeometry();
        if (area.bottom() > available.bottom()) {
            area.moveBottom(mapToGlobal(QPoint(0, 0)).y() - 1); // no room below: open upwards
        }
    }
    cboList_->setGeometry(area);
    cboList_->setCurrentRow(listIndex_);
    cboList_->show();
    cboList_->setFocus(Qt::PopupFocusReason);
    if (listIndex_ >= 0) {
        cboList_->scrollToItem(cboList_->item(listIndex_));
    }
}

void ctlComboField::ChooseItem(int index) {
    cboList_->hide();
    if (index < 0 || index >= ListCount()) {
        return;
    }
    SetListIndex(index);
    emit Click();
}

void ctlComboField::Clear() {
    cboList_->clear();
    listIndex_ = -1;
    newIndex_ = -1;
    txtField_->clear();
}

void ctlComboField::AddItem(const QString& text, int index) {
    if (index < 0 || index > ListCount()) {
        index = ListCount();
    }
    auto* item = new QListWidgetItem(text);
    item->setData(Qt::UserRole, 0);
    cboList_->insertItem(index, item);
    newIndex_ = index;
    if (listIndex_ >= index) {
        ++listIndex_; // the selected row keeps its text
    }
}

void ctlComboField::SetListIndex(int index) {
    if (index < -1 || index >= ListCount()) {
        return;
    }
    listIndex_ = index;
    txtField_->setText(index >= 0 ? cboList_->item(index)->text() : QString());
    cboList_->setCurrentRow(index);
}

int ctlComboField::ListCount() const {
    return cboList_->count();
}

std::int32_t ctlComboField::ItemData(int index) const {
    if (index < 0 || index >= ListCount()) {
        return 0;
    }
    return cboList_->item(index)->data(Qt::UserRole).toInt();
}

void ctlComboField::SetItemData(int index, std::int32_t value) {
    if (index >= 0 && index < ListCount()) {
        cboList_->item(index)->setData(Qt::UserRole, value);
    }
}

QString ctlComboField::List(int index) const {
    if (index < 0 || index >= ListCount()) {
        return {};
    }
    return cboList_->item(index)->text();
}

void ctlComboField::SetList(int index, const QString& text) {
    if (index >= 0 && index < ListCount()) {
        cboList_->item(index)->setText(text);
    }
}

void ctlComboField::SetToolTipText(const QString& text) {
    setToolTip(text);
    txtField_->setToolTip(text);
}

void ctlComboField::SetBackcolor(std::uint32_t bgr) {
    if (bgr != backColor_) {
        backColor_ = bgr;
        ApplyColours();
        update();
    }
}

void ctlComboField::SetForeColor(std::uint32_t bgr) {
    if (bgr != foreColor_) {
        foreColor_ = bgr;
        ApplyColours();
    }
}

void ctlComboField::SetLabelFontColor(std::uint32_t bgr) {
    if (bgr != labelFontColor_) {
        labelFontColor_ = bgr;
        ApplyColours();
    }
}

void ctlComboField::ApplyColours() {
    QPalette field = txtField_->palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        field.setColor(group, QPalette::Base, FromBGR(backColor_));
    }
    field.setColor(QPalette::Active, QPalette::Text, FromBGR(foreColor_));
    field.setColor(QPalette::Inactive, QPalette::Text, FromBGR(foreColor_));
    txtField_->setPalette(field);

    QPalette rows = cboList_->palette();
    rows.setColor(QPalette::Active, QPalette::Text, FromBGR(labelFontColor_));
    rows.setColor(QPalette::Inactive, QPalette::Text, FromBGR(labelFontColor_));
    cboList_->setPalette(rows);
}

int ctlComboField::FontSize() const {
    return txtField_->font().pointSize();
}

void ctlComboField::SetFontSize(int points) {
    if (points > 0) {
        QFont textFont = txtField_->font();
        textFont.setPointSize(points);
        SetFont(textFont);
    }
}

QFont ctlComboField::Font() const {
    return txtField_->font();
}

void ctlComboField::SetFont(const QFont& textFont) {
    txtField_->setFont(textFont);
    updateGeometry();
    Resize();
}

int ctlComboField::LabelFontSize() const {
    return cboList_->font().pointSize();
}

void ctlComboField::SetLabelFontSize(int points) {
    if (points > 0) {
        QFont labelFont = cboList_->font();
        labelFont.setPointSize(points);
        cboList_->setFont(labelFont);
    }
}

bool ctlComboField::LabelFontBold() const {
    return cboList_->font().bold();
}

void ctlComboField::SetLabelFontBold(bool bold) {
    QFont labelFont = cboList_->font();
    labelFont.setBold(bold);
    cboList_->setFont(labelFont);
}

QFont ctlComboField::LabelFont() const {
    return cboList_->font();
}

void ctlComboField::SetLabelFont(const QFont& labelFont) {
    cboList_->setFont(labelFont);
}

void ctlComboField::SetLocked(bool locked) {
    locked_ = locked;
    txtField_->setReadOnly(locked); // no Delete and no paste either
}

QString ctlComboField::Text() const {
    return txtField_->text();
}

void ctlComboField::SetText(const QString& text) {
    txtField_->setText(text);
}

void ctlComboField::SetBorder(bool border) {
    if (border != border_) {
        border_ = border;
        update();
    }
}

void ctlComboField::SetPadding(int twips) {
    paddingTwips_ = std::max(0, twips);
    updateGeometry();
    Resize();
}

void ctlComboField::SetEnabled(bool enabled) {
    if (!enabled) {
        cboList_->hide();
    }
    setEnabled(enabled); // text, button and list go together as children
}

QRect ctlComboField::ButtonRect() const {
    const int side = std::min(height() - 2 * kFrameRoom, width() / 2);
    return {width() - kFrameRoom - side, kFrameRoom, side, height() - 2 * kFrameRoom};
}

void ctlComboField::Resize() {
    const int padding = TwipsToPixels(paddingTwips_);
    const int right = ButtonRect().left() - kSeparatorGap - 2 * kFrameRoom;
    const int textHeight = std::min(height() - 2 * kFrameRoom, QFontMetrics(txtField_->font()).height() + 4);
    txtField_->setGeometry(padding, (height() - textHeight) / 2, std::max(0, right - padding), textHeight);
}

QSize ctlComboField::sizeHint() const {
    const QFontMetrics metrics(txtField_->font());
    const int height = metrics.height() + 2 * TwipsToPixels(paddingTwips_);
    return {metrics.averageCharWidth() * 16 + height, height};
}

void ctlComboField::resizeEvent(QResizeEvent* /*event*/) {
    Resize();
}

void ctlComboField::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.fillRect(rect(), FromBGR(backColor_));
    const QColor highlight = palette().color(QPalette::Active, QPalette::Highlight);
    const qreal lineWidth = focused_ ? 2.0 : 1.0;

    const QRect button = ButtonRect();
    painter.fillRect(button, palette().color(QPalette::Button));
    painter.setRenderHint(QPainter::Antialiasing);

    // The arrow: a chevron centred in the button, a third of its width.
    const QPointF centre = QRectF(button).center();
    const qreal half = button.width() / 6.0;
    QPainterPath arrow;
    arrow.moveTo(centre.x() - half, centre.y() - half / 2);
    arrow.lineTo(centre.x(), centre.y() + half / 2);
    arrow.lineTo(centre.x() + half, centre.y() - half / 2);
    painter.setPen(
        QPen(palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText), 1.5,
             Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(arrow);

    // Two separator lines set the button off the text; they share the frame's focus colour.
    painter.setPen(QPen(focused_ ? highlight : QColor(Qt::black), lineWidth, Qt::SolidLine, Qt::FlatCap));
    for (const qreal x : {button.left() - lineWidth / 2, button.left() - kSeparatorGap - lineWidth / 2}) {
        painter.drawLine(QPointF(x, button.top()), QPointF(x, button.bottom() + 1));
    }

    if (border_) {
        painter.setPen(QPen(focused_ ? highlight : FromBGR(kRestingFrame), lineWidth, Qt::SolidLine,
                            Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(Qt::NoBrush);
        const qreal inset = lineWidth / 2;
        painter.drawRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset));
    }
}

void ctlComboField::mousePressEvent(QMouseEvent* event) {
    buttonDown_ = event->button() == Qt::LeftButton && ButtonRect().contains(event->position().toPoint());
    event->accept();
}

void ctlComboField::mouseReleaseEvent(QMouseEvent* event) {
    event->accept();
    // Only a press that began on the arrow: the press that closed the list by a click on the
    // arrow never reaches it, so that click leaves the list closed.
    if (buttonDown_ && event->button() == Qt::LeftButton) {
        buttonDown_ = false;
        txtField_->setFocus(Qt::MouseFocusReason);
        OpenCombo();
    }
}

void ctlComboField::changeEvent(QEvent* event) {
    if (event->type() == QEvent::EnabledChange) {
        buttonDown_ = false;
        if (!isEnabled()) {
            cboList_->hide();
        }
        update();
    }
    QWidget::changeEvent(event);
}

bool ctlComboField::FocusStaysInside() const {
    const QWidget* now = QApplication::focusWidget();
    return cboList_->isVisible() || now == cboList_ || now == txtField_;
}

bool ctlComboField::TextKeyPress(QKeyEvent& event) {
    const bool alt = (event.modifiers() & Qt::AltModifier) != 0;
    if (event.key() == Qt::Key_F4 || (alt && event.key() == Qt::Key_Down)) {
        OpenCombo();
        return true;
    }
    if (event.key() == Qt::Key_Up || event.key() == Qt::Key_Down) {
        // A step within the list, no wrapping at either end.
        const int step = event.key() == Qt::Key_Up ? -1 : 1;
        const int index = listIndex_ + step;
        if (index >= 0 && index < ListCount()) {
            SetListIndex(index);
            emit Click();
        }
        return true;
    }
    const int code = KeyPressCode(event);
    if (code == 0) {
        return false;
    }
    if (locked_) {
        return true;
    }
    int answer = code;
    emit KeyPress(answer);
    return ApplyKeyPressAnswer(*txtField_, code, answer);
}

bool ctlComboField::eventFilter(QObject* watched, QEvent* event) {
    if (watched == txtField_) {
        switch (event->type()) {
        case QEvent::FocusIn:
            focused_ = true;
            update();
            break;
        case QEvent::FocusOut: {
            const auto reason = static_cast<QFocusEvent*>(event)->reason();
            if (!FocusStaysInside() && reason != Qt::ActiveWindowFocusReason) {
                focused_ = false;
                update();
            }
            break;
        }
        case QEvent::KeyPress:
            if (TextKeyPress(*static_cast<QKeyEvent*>(event))) {
                return true;
            }
            break;
        default:
            break;
        }
    } else if (watched == cboList_) {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent*>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                ChooseItem(cboList_->currentRow());
                return true;
            }
            if (key == Qt::Key_Escape || key == Qt::Key_F4) {
                cboList_->hide();
                return true;
            }
        } else if (event->type() == QEvent::Hide && !txtField_->hasFocus()) {
            focused_ = false;
            update();
        }
    }
    return QWidget::eventFilter(watched, event);
}

QVariantMap ctlComboField::WriteProperties() const {
    QVariantMap bag;
    for (int i = 0; i < ListCount(); ++i) {
        bag.insert(QStringLiteral("List") + QString::number(i + 1), List(i));
    }
    return bag;
}

void ctlComboField::ReadProperties(const QVariantMap& bag) {
    Clear();
    for (int i = 1;; ++i) {
        const auto found = bag.constFind(QStringLiteral("List") + QString::number(i));
        if (found == bag.constEnd()) {
            break;
        }
        AddItem(found->toString());
    }
}

} // namespace corvane
