#pragma once

#include <QVariantMap>
#include <QWidget>

#include <cstdint>

class QLineEdit;
class QListWidget;

namespace corvane {

// A drop-down drawn as a text box with a separate arrow button. The items live in a list that
// stays hidden until the arrow opens it; choosing an item copies its text into the text box.
// The text box may also take free text unless the field is locked.
class ctlComboField : public QWidget {
    Q_OBJECT

public:
    explicit ctlComboField(QWidget* parent = nullptr);

    // Opens the list when it is closed and closes it when it is open.
    void OpenCombo();
    bool Dropped() const;
    // Lays the text box and the arrow button out again.
    void Resize();

    void Clear();
    // Inserts at index, or appends with -1 (or any index past the end).
    void AddItem(const QString& text, int index = -1);
    // The selected row, -1 for none. Setting it copies the row's text without raising Click;
    // rows out of range are ignored.
    int ListIndex() const { return listIndex_; }
    void SetListIndex(int index);
    int ListCount() const;
    // A number kept with each row (for example the class index behind a caption); 0 out of range.
    std::int32_t ItemData(int index) const;
    void SetItemData(int index, std::int32_t value);
    // The row the last AddItem made, -1 before any.
    int NewIndex() const { return newIndex_; }
    // The row's text, "" out of range.
    QString List(int index) const;
    void SetList(int index, const QString& text);
    QString ToolTipText() const { return toolTip(); }
    void SetToolTipText(const QString& text);

    // Colours 0xBBGGRR: field back, field text, and the rows of the open list.
    std::uint32_t Backcolor() const { return backColor_; }
    void SetBackcolor(std::uint32_t bgr);
    std::uint32_t ForeColor() const { return foreColor_; }
    void SetForeColor(std::uint32_t bgr);
    std::uint32_t LabelFontColor() const { return labelFontColor_; }
    void SetLabelFontColor(std::uint32_t bgr);
    // Text of the field, in points and as a font; sizes at or below 0 are ignored.
    int FontSize() const;
    void SetFontSize(int points);
    QFont Font() const;
    void SetFont(const QFont& textFont);
    // Font of the rows of the open list.
    int LabelFontSize() const;
    void SetLabelFontSize(int points);
    bool LabelFontBold() const;
    void SetLabelFontBold(bool bold);
    QFont LabelFont() const;
    void SetLabelFont(const QFont& labelFont);

    // A locked field swallows every typed key; the list still chooses.
    bool Locked() const { return locked_; }
    void SetLocked(bool locked);
    QString Text() const;
    void SetText(const QString& text);
    bool Border() const { return border_; }
    void SetBorder(bool border);
    // Inner space left of the text, in twips.
    int Padding() const { return paddingTwips_; }
    void SetPadding(int twips);
    bool Enabled() const { return isEnabled(); }
    void SetEnabled(bool enabled);
    int Height() const { return height(); }
    int Width() const { return width(); }
    void SetHeight(int pixels) { resize(width(), pixels); }
    void SetWidth(int pixels) { resize(pixels, height()); }

    bool Focused() const { return focused_; }
    QRect ButtonRect() const;
    QLineEdit* TextBox() const { return txtField_; }
    QListWidget* ListBox() const { return cboList_; }

    // The list as saved properties "List1", "List2", ...
    QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap& bag);

    QSize sizeHint() const override;

signals:
    void Click();
    void Change();
    // keyCode: see KeyPressCode; set it to 0 to swallow the key or to another character.
    void KeyPress(int& keyCode);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ChooseItem(int index);
    void ShowList();
    bool TextKeyPress(QKeyEvent& event);
    void ApplyColours();
    bool FocusStaysInside() const;

    QLineEdit* txtField_;
    QListWidget* cboList_;
    int listIndex_ = -1;
    int newIndex_ = -1;
    std::uint32_t backColor_ = 0xFFFFFF;
    std::uint32_t foreColor_ = 0;
    std::uint32_t labelFontColor_ = 0;
    bool locked_ = false;
    bool border_ = true;
    int paddingTwips_ = 120;
    bool focused_ = false;
    bool buttonDown_ = false;
};

} // namespace corvane
