// The encoder against an independent decoder: Debian's djpeg (libjpeg-turbo) must read every file
// it writes, and give the picture back as closely as the quality promises.
#include "reports/clsImageJPEG.h"
#include "common/ServicesFixture.h"
#include "model/CorvaneError.h"
#include "reports/JPEGTables.h"
#include "reports/clsImageDIB.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace corvane {
namespace {

// A picture with what photographs have: smooth gradients, texture and a few hard edges.
clsImageDIB PhotoLike(int width, int height) {
    clsImageDIB image;
    image.Create(width, height);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double fx = static_cast<double>(x) / width, fy = static_cast<double>(y) / height;
            int r = static_cast<int>(128 + 100 * std::sin(6.0 * fx + 2.0 * fy));
            int g = static_cast<int>(60 + 150 * fy + 10 * std::sin(x * 0.7) * std::cos(y * 0.5));
            int b = static_cast<int>(200 - 120 * fx * fy);
            if ((x / 40 + y / 40) % 5 == 0) {
                r = 250; // a patch with hard edges
            }
            image.SetPixel(x, y,
                           static_cast<std::uint32_t>(std::clamp(r, 0, 255)) << 16 |
                               static_cast<std::uint32_t>(std::clamp(g, 0, 255)) << 8 |
                               static_cast<std::uint32_t>(std::clamp(b, 0, 255)));
        }
    }
    return image;
}

class clsImageJPEGTest : public test::ServicesTest {
protected:
    // Decodes with djpeg into a PPM (colour) or PGM (grey); false when djpeg refuses the file.
    bool Decode(const std::vector<std::uint8_t>& jpeg, int& width, int& height, int& channels,
                std::vector<std::uint8_t>& pixels) {
        const std::string in = temp->File("in.jpg"), out = temp->File("out.pnm");
        std::ofstream(in, std::ios::binary)
            .write(reinterpret_cast<const char*>(jpeg.data()), static_cast<std::streamsize>(jpeg.size()));
        if (std::system(("djpeg -pnm -outfile '" + out + "' '" + in + "' 2>/dev/null").c_str()) != 0) {
            return false;
        }
        std::ifstream pnm(out, std::ios::binary);
        std::string magic;
        int maxValue = 0;
        pnm >> magic >> width >> height >> maxValue;
        pnm.get();
        channels = magic == "P6" ? 3 : 1;
        pixels.assign(std::istreambuf_iterator<char>(pnm), std::istreambuf_iterator<char>());
        return pixels.size() == static_cast<std::size_t>(width * height * channels);
    }

    // Peak signal to noise of the decoded picture against the original, over the colour values.
    static double PSNR(const clsImageDIB& image, const std::vector<std::uint8_t>& pixels, int channels) {
        double sum = 0;
        std::size_t n = 0;
        for (int y = 0; y < image.Height(); ++y) {
            for (int x = 0; x < image.Width(); ++x) {
                const std::uint32_t rgb = image.Pixel(x, y);
                const double original[3] = {static_cast<double>((rgb >> 16) & 0xFF),
                                            static_cast<double>((rgb >> 8) & 0xFF),
                                            static_cast<double>(rgb & 0xFF)};
                for (int c = 0; c < channels; ++c) {
                    const double want =
                        channels == 3 ? original[c] : (original[0] + original[1] + original[2]) / 3;
                    const double got =
                        pixels[(static_cast<std::size_t>(y) * image.Width() + x) * channels + c];
                    sum += (want - got) * (want - got);
                    ++n;
                }
            }
        }
        return 10.0 * std::log10(255.0 * 255.0 / (sum / static_cast<double>(n)));
    }
};

TEST_F(clsImageJPEGTest, DecodesAndKeepsThePictureAsTheQualityPromises) {
    struct Case {
        const char* name;
        int width, height, quality;
        std::array<int, 6> sampling;
        bool grey;
        double minimumPSNR;
    };
    const Case cases[] = {
        {"photo at 75, chroma halved both ways", 200, 150, 75, {2, 2, 1, 1, 1, 1}, false, 30.0},
        {"photo at 75, no subsampling", 200, 150, 75, {1, 1, 1, 1, 1, 1}, false, 30.0},
        {"photo at 75, chroma halved across", 203, 97, 75, {2, 1, 1, 1, 1, 1}, false, 30.0},
        {"photo at 100", 64, 64, 100, {1, 1, 1, 1, 1, 1}, false, 45.0},
        {"grey at 75", 121, 77, 75, {1, 1, 0, 0, 0, 0}, true, 40.0},
        {"smaller than a block", 5, 3, 90, {2, 2, 1, 1, 1, 1}, false, 25.0},
        {"coarse at 10", 160, 120, 10, {2, 2, 1, 1, 1, 1}, false, 20.0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        clsImageDIB image = PhotoLike(c.width, c.height);
        if (c.grey) {
            image.Greyscale();
        }
        const auto bytes =
            image.SaveImageToJPEGByteArray(c.quality, c.sampling[0], c.sampling[1], c.sampling[2],
                                           c.sampling[3], c.sampling[4], c.sampling[5], "Corvane test");
        int width = 0, height = 0, channels = 0;
        std::vector<std::uint8_t> pixels;
        ASSERT_TRUE(Decode(bytes, width, height, channels, pixels));
        EXPECT_EQ(width, c.width);
        EXPECT_EQ(height, c.height);
        EXPECT_EQ(channels, c.grey ? 1 : 3);
        EXPECT_GE(PSNR(image, pixels, channels), c.minimumPSNR);
    }
}

TEST_F(clsImageJPEGTest, QualityScalesTheTablesAndBadSettingsAreRefused) {
    clsImageJPEG jpeg;
    jpeg.SetQuality(50); // the printed tables
    EXPECT_EQ(jpeg.QuantizationTable(0), jpeg::kBaseQuantization[0]);
    jpeg.SetQuality(100);
    for (const int slot : {0, 1}) {
        for (const int q : jpeg.QuantizationTable(slot)) {
            EXPECT_EQ(q, 1);
        }
    }
    jpeg.SetQuality(1);
    EXPECT_EQ(jpeg.QuantizationTable(0)[63], 255); // 99 * 5000 / 100, limited
    jpeg.SetQuality(0);                            // out of range: nothing changes
    EXPECT_EQ(jpeg.Quality(), 1);
    EXPECT_EQ(jpeg.QuantizationTable(0)[63], 255);

    const auto message = [](auto call) {
        try {
            call();
        } catch (const CorvaneError& error) {
            return error.Description();
        }
        return std::string();
    };
    EXPECT_EQ(message([&] { jpeg.SetSamplingFrequencies(5, 1); }), "Invalid Sampling Value");
    EXPECT_EQ(message([&] { jpeg.SetSamplingFrequencies(2, 2, 1, 0, 1, 1); }), "Invalid Sampling Value");
    EXPECT_EQ(message([&] { jpeg.SetComment(std::string(65534, 'x')); }), "Illegal Comment Length");
    EXPECT_EQ(message([&] { jpeg::DeriveCodes({{2}, {0, 1}}); }), "Bad Huffman Table"); // all-ones code

    // The comment stands in a COM marker behind the JFIF header.
    clsImageDIB image = PhotoLike(16, 16);
    const auto bytes = image.SaveImageToJPEGByteArray(75, 2, 2, 1, 1, 1, 1, "shop 7");
    const std::string text(bytes.begin(), bytes.end());
    EXPECT_EQ(text.substr(0, 4), std::string("\xFF\xD8\xFF\xE0", 4));
    EXPECT_NE(text.find(std::string("\xFF\xFE\x00\x08shop 7", 10)), std::string::npos);
    EXPECT_EQ(text.substr(text.size() - 2), std::string("\xFF\xD9", 2));
}

TEST_F(clsImageJPEGTest, BitmapTurnsMirrorsAndScales) {
    clsImageDIB image = PhotoLike(7, 4);
    const clsImageDIB original = image;
    const auto same = [&](const clsImageDIB& a) {
        if (a.Width() != original.Width() || a.Height() != original.Height()) {
            return false;
        }
        for (int y = 0; y < a.Height(); ++y)
            for (int x = 0; x < a.Width(); ++x)
                if (a.Pixel(x, y) != original.Pixel(x, y))
                    return false;
        return true;
    };
    image.Rotate(90);
    EXPECT_EQ(image.Width(), 4);
    EXPECT_EQ(image.Pixel(3, 0), original.Pixel(0, 0)); // the top left goes to the top right
    image.Rotate(-90);
    EXPECT_TRUE(same(image));
    image.Rotate(360);
    image.Rotate(45);
    EXPECT_TRUE(same(image));
    image.Rotate(180);
    image.Mirror(true, true);
    EXPECT_TRUE(same(image));
    EXPECT_EQ(image.BytesPerScanLine() % 4, 0);

    clsImageDIB flat;
    flat.Create(4, 4);
    for (int y = 0; y < 4; ++y)
        for (int x = 0; x < 4; ++x)
            flat.SetPixel(x, y, x < 2 ? 0x000000 : 0xFFFFFF);
    ASSERT_TRUE(flat.Resample(2, 1));
    EXPECT_EQ(flat.Pixel(0, 0), 0x000000u);
    EXPECT_EQ(flat.Pixel(1, 0), 0xFFFFFFu);
    flat.SetPixel(0, 0, 0x306090);
    flat.Greyscale();
    EXPECT_EQ(flat.Pixel(0, 0), 0x606060u);
}

} // namespace
} // namespace corvane
