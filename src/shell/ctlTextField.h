#pragma once

#include <QWidget>

#include <cstdint>

class QLineEdit;

namespace corvane {

// A framed one-line text box with an optional little button at its right end (the "..." that
// opens a chooser). Focus shows as a frame in the system highlight colour, two pixels thick;
// the field's height never drops below the text height plus the inner padding above and below.
class ctlTextField : public QWidget {
    Q_OBJECT

public:
    explicit ctlTextField(QWidget* parent = nullptr);

    // The little button; it shows only while the field is enabled.
    bool ShowButton() const { return showButton_; }
    void SetShowButton(bool show);
    bool ButtonShown() const { return showButton_ && isEnabled(); }
    // Colours 0xBBGGRR of the field's back and its text.
    std::uint32_t Backcolor() const { return backColor_; }
    void SetBackcolor(std::uint32_t bgr);
    std::uint32_t Forecolor() const { return foreColor_; }
    void SetForecolor(std::uint32_t bgr);
    bool Enabled() const { return isEnabled(); }
    void SetEnabled(bool enabled) { setEnabled(enabled); }
    // Text size in points; sizes at or below 0 are ignored.
    int FontSize() const;
    void SetFontSize(int points);
    QFont Font() const;
    void SetFont(const QFont& textFont);
    QString Text() const;
    void SetText(const QString& text);
    int Height() const { return height(); }
    int Width() const { return width(); }
    void SetHeight(int pixels) { resize(width(), pixels); }
    void SetWidth(int pixels) { resize(pixels, height()); }
    bool Border() const { return border_; }
    void SetBorder(bool border);
    // A locked field shows its text but takes no typing (read-only copies, switched-off inputs).
    bool Locked() const;
    void SetLocked(bool locked);
    // Lays the text box and the button out again and clamps the height to the minimum.
    void Resize();

    // Text height plus twice the inner padding; "txtLogo" has room for one more row.
    int MinimumFieldHeight() const;
    bool Focused() const { return focused_; }
    bool ButtonDown() const { return buttonDown_; }
    QRect ButtonRect() const;
    QLineEdit* TextBox() const { return txtField_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void Click(); // of the little button
    void Change();
    // keyCode: see KeyPressCode; set it to 0 to swallow the key or to another character.
    void KeyPress(int& keyCode);
    void LostFocus();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ApplyColours();
    void UpdateMinimumHeight();
    int FrameWidth() const { return focused_ ? 2 : 1; }

    QLineEdit* txtField_;
    bool showButton_ = false;
    bool border_ = true;
    std::uint32_t backColor_ = 0xFFFFFF;
    std::uint32_t foreColor_ = 0;
    bool focused_ = false;
    bool buttonDown_ = false;
};

} // namespace corvane
