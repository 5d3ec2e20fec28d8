#pragma once

// An in-memory bitmap: what a picture surface shows, taken over to be turned, scaled or written
// as a JPEG file. Rows are kept bottom-up and padded to four bytes, as a device-independent
// bitmap of the screen keeps them; pixels are blue, green, red (and a fourth byte at 32 bits).
// Nothing here knows of propellers or of any window system: the platform copies its pictures in
// through CopyPixels.

#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class clsImageDIB {
public:
    // A bitmap of width x height at 24 or 32 bits, all black. Any other size or depth gives an
    // empty bitmap and false.
    bool Create(int width, int height, int bitCount = 24);

    int Width() const { return width_; }
    int Height() const { return height_; }
    int BitCount() const { return bitCount_; }
    int BytesPerScanLine() const { return stride_; }
    // Row 0 of the buffer is the bottom row of the picture.
    const std::uint8_t* DIBitsPtr() const { return bits_.data(); }
    std::uint8_t* DIBitsPtr() { return bits_.data(); }

    // Colour of a pixel, (0, 0) the top left, as 0xRRGGBB; outside the bitmap 0.
    std::uint32_t Pixel(int x, int y) const;
    void SetPixel(int x, int y, std::uint32_t rgb);

    // Takes over a picture of the same size: top-down rows of red, green, blue bytes (and a
    // fourth, ignored, when bytesPerPixel is 4), `stride` bytes apart.
    void CopyPixels(const std::uint8_t* rgb, int bytesPerPixel, int stride);

    // Every pixel becomes the mean of its three colour values.
    void Greyscale();
    // Scales to the new size: a smaller bitmap averages the pixels each new one covers, a larger
    // one repeats the nearest. The same size is a plain copy. false for a size of 0 or less.
    bool Resample(int newWidth, int newHeight);
    void Mirror(bool horizontal, bool vertical);
    // Turns by 90, 180 or 270 degrees clockwise; a negative angle is brought into 0..359 first.
    // Any other angle leaves the bitmap as it is.
    void Rotate(int degrees);

    // Writes the bitmap as a baseline JPEG through clsImageJPEG with the given quality,
    // sampling and comment. Errors of the encoder are raised to the caller.
    void SaveImageToJPEGFile(const std::string& target, int quality = 75, int h1 = 2, int v1 = 2, int h2 = 1,
                             int v2 = 1, int h3 = 1, int v3 = 1, const std::string& comment = {}) const;
    std::vector<std::uint8_t> SaveImageToJPEGByteArray(int quality = 75, int h1 = 2, int v1 = 2, int h2 = 1,
                                                       int v2 = 1, int h3 = 1, int v3 = 1,
                                                       const std::string& comment = {}) const;

private:
    std::size_t Offset(int x, int y) const;
    int BytesPerPixel() const { return bitCount_ / 8; }

    int width_ = 0;
    int height_ = 0;
    int bitCount_ = 0;
    int stride_ = 0;
    std::vector<std::uint8_t> bits_;
};

} // namespace corvane
