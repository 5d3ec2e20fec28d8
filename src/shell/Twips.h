#pragma once

namespace corvane {

// Sizes of the field controls and dialogs are given in twips (1/1440 inch). Qt lays widgets out
// in logical pixels of 1/96 inch and scales them to the screen itself, so one logical pixel is
// always 15 twips, whatever the monitor's density.
inline constexpr int kTwipsPerPixel = 15;

// Rounds to the nearest logical pixel; sizes are never negative.
constexpr int TwipsToPixels(int twips) {
    return (twips + kTwipsPerPixel / 2) / kTwipsPerPixel;
}

} // namespace corvane
