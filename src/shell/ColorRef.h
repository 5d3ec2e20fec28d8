#pragma once

#include <QColor>

#include <cstdint>

namespace corvane {

// Colours of the model, the options and the pages are 24-bit values laid out 0xBBGGRR: red in
// the low byte, blue in the high one (0xFF0000 is blue, the colour of blade 0). Every place that
// hands such a value to Qt goes through FromBGR, and back through ToBGR.

constexpr std::uint32_t RGBColor(int red, int green, int blue) {
    return static_cast<std::uint32_t>(red & 0xFF) | (static_cast<std::uint32_t>(green & 0xFF) << 8) |
           (static_cast<std::uint32_t>(blue & 0xFF) << 16);
}

inline QColor FromBGR(std::uint32_t bgr) {
    return QColor(static_cast<int>(bgr & 0xFF), static_cast<int>((bgr >> 8) & 0xFF),
                  static_cast<int>((bgr >> 16) & 0xFF));
}

inline std::uint32_t ToBGR(const QColor& colour) {
    return RGBColor(colour.red(), colour.green(), colour.blue());
}

// The pages' palette: the frames and faces of the panels, a pressed (or pending) panel, a
// disabled one, the page ground.
namespace pagecolours {
inline constexpr std::uint32_t kFrameColor = RGBColor(37, 64, 97);
inline constexpr std::uint32_t kFaceColor = RGBColor(55, 96, 145);
inline constexpr std::uint32_t kPressedColor = RGBColor(228, 109, 10);
inline constexpr std::uint32_t kDisabledColor = RGBColor(165, 165, 165);
inline constexpr std::uint32_t kPageColor = RGBColor(232, 237, 243);
inline constexpr std::uint32_t kPanelWhite = RGBColor(255, 255, 255);
} // namespace pagecolours

} // namespace corvane
