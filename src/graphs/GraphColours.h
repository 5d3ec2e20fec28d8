#pragma once

// The one conversion between the program's colours and the anti-aliased layer's. The program
// keeps 24-bit colours laid out 0xBBGGRR (red in the low byte: 0xFF0000 is blue, the colour of
// blade 0); the layer takes 32-bit ARGB (alpha, red, green, blue from the top byte down).

#include <array>
#include <cstdint>

namespace corvane {

// A negative colour names a system colour by its low byte (the Windows COLOR_ indexes); the
// values are those of the classic light scheme.
constexpr std::uint32_t SystemColourToBGR(std::int64_t colour) {
    constexpr std::array<std::uint32_t, 31> scheme = {
        0xC8D0D4, 0xA56E3A, 0x6A240A, 0x808080, 0xC8D0D4, 0xFFFFFF, 0x000000, 0x000000,
        0x000000, 0xFFFFFF, 0xC8D0D4, 0xC8D0D4, 0x808080, 0x6A240A, 0xFFFFFF, 0xC8D0D4,
        0x808080, 0x808080, 0x000000, 0xC8D0D4, 0xFFFFFF, 0x404040, 0xC8D0D4, 0x000000,
        0xE1FFFF, 0xB5B5B5, 0x800000, 0xF0CAA6, 0xC0C0C0, 0xFF6633, 0xC8D0D4};
    const auto index = static_cast<std::size_t>(static_cast<std::uint64_t>(colour) & 0xFF);
    return index < scheme.size() ? scheme[index] : 0;
}

// 0xBBGGRR and an alpha (0 to 255) to ARGB: red and blue change places.
constexpr std::uint32_t BGRToARGB(std::int64_t colour, int alpha = 255) {
    const std::uint32_t bgr = colour < 0 ? SystemColourToBGR(colour) : static_cast<std::uint32_t>(colour);
    const std::uint32_t red = bgr & 0xFF;
    const std::uint32_t green = (bgr >> 8) & 0xFF;
    const std::uint32_t blue = (bgr >> 16) & 0xFF;
    return (static_cast<std::uint32_t>(alpha & 0xFF) << 24) | (red << 16) | (green << 8) | blue;
}

// ARGB back to 0xBBGGRR; the alpha comes out separately.
constexpr std::uint32_t ARGBToBGR(std::uint32_t argb, int& alpha) {
    alpha = static_cast<int>(argb >> 24);
    const std::uint32_t red = (argb >> 16) & 0xFF;
    const std::uint32_t green = (argb >> 8) & 0xFF;
    const std::uint32_t blue = argb & 0xFF;
    return red | (green << 8) | (blue << 16);
}

} // namespace corvane
