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

} // namespace corvane
