#include "reports/clsImageDIB.h"

#include "model/CorvaneError.h"
#include "reports/clsImageJPEG.h"

#include <algorithm>
#include <array>

namespace corvane {

namespace {

// Rows of a bitmap are padded to whole 32-bit words.
int Stride(int width, int bitCount) {
    return ((width * bitCount + 31) / 32) * 4;
}

// The encoder set up as the save calls ask, with the whole bitmap sampled.
clsImageJPEG PrepareJPEG(const clsImageDIB& image, int quality, const std::array<int, 6>& sampling,
                         const std::string& comment) {
    clsImageJPEG jpeg;
    jpeg.SetComment(comment);
    jpeg.SetQuality(quality);
    jpeg.SetSamplingFrequencies(sampling[0], sampling[1], sampling[2], sampling[3], sampling[4], sampling[5]);
    jpeg.SampleImage(image, image.Width(), image.Height());
    return jpeg;
}

} // namespace

bool clsImageDIB::Create(int width, int height, int bitCount) {
    if (width <= 0 || height <= 0 || (bitCount != 24 && bitCount != 32)) {
        *this = clsImageDIB();
        return false;
    }
    width_ = width;
    height_ = height;
    bitCount_ = bitCount;
    stride_ = Stride(width, bitCount);
    bits_.assign(static_cast<std::size_t>(stride_) * static_cast<std::size_t>(height), 0);
    return true;
}

std::size_t clsImageDIB::Offset(int x, int y) const {
    // Bottom-up: picture row y is buffer row height - 1 - y.
    return static_cast<std::size_t>(height_ - 1 - y) * static_cast<std::size_t>(stride_) +
           static_cast<std::size_t>(x) * static_cast<std::size_t>(BytesPerPixel());
}

std::uint32_t clsImageDIB::Pixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) {
        return 0;
    }
    const std::uint8_t* p = bits_.data() + Offset(x, y);
    return static_cast<std::uint32_t>(p[2]) << 16 | static_cast<std::uint32_t>(p[1]) << 8 | p[0];
}

void clsImageDIB::SetPixel(int x, int y, std::uint32_t rgb) {
    if (x < 0 || y < 0 || x >= width_ || y >= height_) {
        return;
    }
    std::uint8_t* p = bits_.data() + Offset(x, y);
    p[0] = static_cast<std::uint8_t>(rgb & 0xFF);
    p[1] = static_cast<std::uint8_t>((rgb >> 8) & 0xFF);
    p[2] = static_cast<std::uint8_t>((rgb >> 16) & 0xFF);
}

void clsImageDIB::CopyPixels(const std::uint8_t* rgb, int bytesPerPixel, int stride) {
    for (int y = 0; y < height_; ++y) {
        const std::uint8_t* row = rgb + static_cast<std::ptrdiff_t>(y) * stride;
        for (int x = 0; x < width_; ++x) {
            const std::uint8_t* p = row + static_cast<std::ptrdiff_t>(x) * bytesPerPixel;
            SetPixel(x, y,
                     static_cast<std::uint32_t>(p[0]) << 16 | static_cast<std::uint32_t>(p[1]) << 8 | p[2]);
        }
    }
}

void clsImageDIB::Greyscale() {
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            const std::uint32_t rgb = Pixel(x, y);
            const std::uint32_t mean = (((rgb >> 16) & 0xFF) + ((rgb >> 8) & 0xFF) + (rgb & 0xFF)) / 3;
            SetPixel(x, y, mean << 16 | mean << 8 | mean);
        }
    }
}

bool clsImageDIB::Resample(int newWidth, int newHeight) {
    if (newWidth <= 0 || newHeight <= 0) {
        return false;
    }
    if (newWidth == width_ && newHeight == height_) {
        return true;
    }
    clsImageDIB out;
    out.Create(newWidth, newHeight, bitCount_ == 0 ? 24 : bitCount_);
    const bool shrinking = newWidth < width_ || newHeight < height_;
    for (int y = 0; y < newHeight; ++y) {
        for (int x = 0; x < newWidth; ++x) {
            if (!shrinking) {
                out.SetPixel(x, y, Pixel(x * width_ / newWidth, y * height_ / newHeight));
                continue;
            }
            // The mean of the source pixels the new one covers.
            const int x0 = x * width_ / newWidth;
            const int x1 = std::max(x0 + 1, (x + 1) * width_ / newWidth);
            const int y0 = y * height_ / newHeight;
            const int y1 = std::max(y0 + 1, (y + 1) * height_ / newHeight);
            std::uint32_t r = 0, g = 0, b = 0, n = 0;
            for (int sy = y0; sy < y1; ++sy) {
                for (int sx = x0; sx < x1; ++sx) {
                    const std::uint32_t rgb = Pixel(sx, sy);
                    r += (rgb >> 16) & 0xFF;
                    g += (rgb >> 8) & 0xFF;
                    b += rgb & 0xFF;
                    ++n;
                }
            }
            out.SetPixel(x, y, (r / n) << 16 | (g / n) << 8 | (b / n));
        }
    }
    *this = std::move(out);
    return true;
}

void clsImageDIB::Mirror(bool horizontal, bool vertical) {
    clsImageDIB out = *this;
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            out.SetPixel(horizontal ? width_ - 1 - x : x, vertical ? height_ - 1 - y : y, Pixel(x, y));
        }
    }
    *this = std::move(out);
}

void clsImageDIB::Rotate(int degrees) {
    while (degrees < 0) {
        degrees += 360;
    }
    if (degrees != 90 && degrees != 180 && degrees != 270) {
        return;
    }
    if (degrees == 180) {
        Mirror(true, true);
        return;
    }
    clsImageDIB out;
    out.Create(height_, width_, bitCount_);
    for (int y = 0; y < height_; ++y) {
        for (int x = 0; x < width_; ++x) {
            // Clockwise by 90: the left column becomes the top row.
            if (degrees == 90) {
                out.SetPixel(height_ - 1 - y, x, Pixel(x, y));
            } else {
                out.SetPixel(y, width_ - 1 - x, Pixel(x, y));
            }
        }
    }
    *this = std::move(out);
}

std::vector<std::uint8_t> clsImageDIB::SaveImageToJPEGByteArray(int quality, int h1, int v1, int h2, int v2,
                                                                int h3, int v3,
                                                                const std::string& comment) const {
    return PrepareJPEG(*this, quality, {h1, v1, h2, v2, h3, v3}, comment).SaveJPEGImageToByteArray();
}

void clsImageDIB::SaveImageToJPEGFile(const std::string& target, int quality, int h1, int v1, int h2, int v2,
                                      int h3, int v3, const std::string& comment) const {
    if (!PrepareJPEG(*this, quality, {h1, v1, h2, v2, h3, v3}, comment).SaveJPEGImageToFile(target)) {
        throw CorvaneError(ErrorNumber::PathFileAccessError, "Path/File access error");
    }
}

} // namespace corvane
