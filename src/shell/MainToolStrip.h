#pragma once

#include "shell/ctlPanelButton.h"

#include <QWidget>

#include <array>
#include <cstdint>

class QLabel;

namespace corvane {

// Colours of the tool strip, 0xBBGGRR. A page button is blue with a white caption, the one
// of the open page orange with a black caption, and grey while it cannot be used.
inline constexpr std::uint32_t kStripFrameColor = 0x614025;   // RGB 37, 64, 97
inline constexpr std::uint32_t kPageButtonFace = 0x916037;    // RGB 55, 96, 145
inline constexpr std::uint32_t kPageButtonPressed = 0x3068D0; // RGB 208, 104, 48
inline constexpr std::uint32_t kPageButtonDisabled = 0xA5A5A5;
inline constexpr std::uint32_t kCaptionWhite = 0xFFFFFF;
inline constexpr std::uint32_t kCaptionBlack = 0x000000;
// Blade colours by blade index, as the graphs draw the blades.
inline constexpr std::array<std::uint32_t, 7> kBladeColors = {0xFF0000, 0x800080, 0x257A09, 0x0000C0,
                                                              0x0080FF, 0xC0C000, 0x00C0C0};

// The strip under the menus: the four page buttons, the ALL/ISO/ANY button and the seven blade
// buttons, between the program's name and the station's mode. It only draws and reports
// clicks; the main window decides what a click means.
class MainToolStrip : public QWidget {
    Q_OBJECT

public:
    explicit MainToolStrip(QWidget* parent = nullptr);

    ctlPanelButton* ctlProjButton;
    ctlPanelButton* ctlScanButton;
    ctlPanelButton* ctlCheckButton;
    ctlPanelButton* ctlDocsButton;
    ctlPanelButton* ctlAll;
    std::array<ctlPanelButton*, 7> ctlBlades{};
    QLabel* picLogo;
    QLabel* picCapture;
    QWidget* picButtonBarTop;

    // The page button of a page, by the page's number; null for a number without a button.
    ctlPanelButton* PageButton(int page) const;
    int PageButtonCount() const { return static_cast<int>(pageButtons_.size()); }
    // Presses the button of the page and raises the others, with their caption colours.
    void PressPageButton(int page);
    // Caption and colours of ctlAll for BladeViewMode 0 "ALL" (pressed, white on black),
    // 1 "ISO" (released) and 2 "ANY" (pressed).
    void ShowViewMode(int bladeViewMode);
    // Presses or releases one blade button; its face takes the blade's colour when pressed.
    void SetBladePressed(int blade, bool pressed);
    void SetStationCaption(const QString& caption);

signals:
    void PageButtonClicked(int page);
    void AllClicked();
    void BladeClicked(int blade);

private:
    ctlPanelButton* MakeButton(const QString& caption, const QString& name, int widthTwips);

    // In the order of the pages: PROJECT, SCAN, CHECK, REPORT.
    std::array<ctlPanelButton*, 4> pageButtons_{};
};

} // namespace corvane
