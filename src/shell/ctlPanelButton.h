#pragma once

#include "shell/ColorRef.h"

#include <QString>
#include <QVariantMap>
#include <QWidget>

#include <cstdint>

class QTimer;

namespace corvane {

// One row of the panel size option: the caption font in points, the caption's inset from the
// panel edge and the panel's width, both in twips.
struct PanelSizeRow {
    const char* name;
    std::int16_t captionFont;
    int captionOffsetTwips;
    int panelTwips;
};

// The size rows a panel's Size property indexes; "Small" is the only one.
inline constexpr PanelSizeRow kPanelSizes[] = {{"Small", 12, 165, 930}};

// A flat button with a pressed state: the page buttons, blade buttons and tool buttons of every
// page. It paints a face in one of four colours (frame around it, disabled, normal, pressed),
// an optional frame line and a centred caption of one or two lines. What a click does depends
// on ClickAction: nothing (a label), radio, toggle or momentary.
//
// One click at a time: a click that comes while another is being handled (its Click handler
// runs, or a momentary press is still showing) waits until that one has ended and then runs
// from the event loop, never inside it. Nothing in a click sleeps or runs the event loop.
class ctlPanelButton : public QWidget {
    Q_OBJECT

public:
    enum ClickActions { ClickNone = 0, ClickRadio = 1, ClickToggle = 2, ClickMomentary = 3 };

    explicit ctlPanelButton(QWidget* parent = nullptr);

    int Height() const { return height(); }
    int Width() const { return width(); }
    void SetHeight(int pixels) { resize(width(), pixels); }
    void SetWidth(int pixels) { resize(pixels, height()); }

    // Caption size in points; a size at or below 0 is ignored.
    std::int16_t FontSize() const { return fontSize_; }
    void SetFontSize(std::int16_t points);
    QString Caption() const { return caption_; }
    // "\r\n" or "\n" splits the caption into two lines.
    void SetCaption(const QString& caption);
    // Colour of the caption and the frame line, 0xBBGGRR.
    std::uint32_t ForeColor() const { return foreColor_; }
    void SetForeColor(std::uint32_t bgr);
    QString ToolTips() const { return toolTips_; }
    void SetToolTips(const QString& text);
    void setToolTipText(const QString& text) { SetToolTips(text); }
    bool ShowBorder() const { return showBorder_; }
    void SetShowBorder(bool show);
    bool ActiveBorder() const { return activeBorder_; }
    void SetActiveBorder(bool show);
    bool BoldWhenPressed() const { return boldWhenPressed_; }
    void SetBoldWhenPressed(bool bold);
    // Frame line thickness in pixels.
    std::int16_t BorderWidth() const { return borderWidth_; }
    void SetBorderWidth(std::int16_t pixels);
    // Not hidden on purpose; a panel on a page that is not shown yet still counts as visible.
    bool Visible() const;
    void SetVisible(bool visible);
    bool Enabled() const { return isEnabled(); }
    void SetEnabled(bool enabled) { setEnabled(enabled); }
    bool Pressed() const { return pressed_; }
    void SetPressed(bool pressed);
    // Index into kPanelSizes; choosing a row takes its caption font. Unknown rows are ignored.
    int Size() const { return size_; }
    void SetSize(int row);
    int ClickAction() const { return clickAction_; }
    void SetClickAction(int action);

    // Colours, 0xBBGGRR: around the face, face when disabled, released and pressed.
    void SetPanelColors(std::uint32_t frame, std::uint32_t disabled, std::uint32_t normal,
                        std::uint32_t pressed);
    std::uint32_t FrameColor() const { return frameColor_; }
    std::uint32_t DisabledColor() const { return disabledColor_; }
    std::uint32_t NormalColor() const { return normalColor_; }
    std::uint32_t PressedColor() const { return pressedColor_; }
    void RefreshPanel();

    // The face colour and caption weight the panel shows in its present state.
    std::uint32_t FaceColor() const;
    bool CaptionBold() const;
    bool FrameLineShown() const;

    // Saved properties under their stored names ("FontSize", "Caption", "Border", ...).
    QVariantMap WriteProperties() const;
    // Missing properties take their defaults.
    void ReadProperties(const QVariantMap& bag);

    QSize sizeHint() const override;

signals:
    void Click();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void PanelClicked();
    // Raises Click with the button busy, then lets a click that came meanwhile run.
    void RaiseClick();
    void EndClick();
    // The momentary press has shown long enough.
    void MomentaryReleased();
    QFont CaptionFont() const;
    int CaptionLines() const;

    std::int16_t fontSize_ = 12;
    QString caption_;
    std::uint32_t foreColor_ = 0;
    QString toolTips_;
    bool showBorder_ = false;
    bool activeBorder_ = false;
    bool boldWhenPressed_ = true;
    std::int16_t borderWidth_ = 4;
    bool pressed_ = false;
    int size_ = 0;
    int clickAction_ = ClickRadio;

    std::uint32_t frameColor_;
    std::uint32_t disabledColor_;
    std::uint32_t normalColor_;
    std::uint32_t pressedColor_;

    bool mouseDown_ = false;
    bool handlingClick_ = false;
    bool clickWaiting_ = false;
    QTimer* momentaryTimer_;
};

// A panel of the pages' palette with a white caption, named for the tests and the settings;
// `disabled` is the face it shows when it cannot be clicked.
ctlPanelButton* NewPagePanel(QWidget* parent, const char* name, const QString& caption, int clickAction,
                             std::uint32_t disabled = pagecolours::kDisabledColor);

} // namespace corvane
