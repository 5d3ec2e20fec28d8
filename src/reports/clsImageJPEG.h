#pragma once

// A baseline sequential JPEG writer (ITU T.81, JFIF 1.01): 8-bit samples, one component (grey)
// or three (Y, Cb, Cr by the JFIF equations), the quantisation and Huffman tables of Annex K,
// the quality scaling of the Independent JPEG Group, and an optional comment. It reads pixels
// from a clsImageDIB and needs nothing else.
//
// Errors are raised as CorvaneError with the texts "Invalid Sampling Value", "Illegal Comment
// Length", "Bad Huffman Table", "Bad Quantization Table" and "Illegal precission in Quantization
// Table".

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace corvane {

class clsImageDIB;

class clsImageJPEG {
public:
    clsImageJPEG();

    // 1 to 100, 75 at first. A value outside the range changes nothing. Both quantisation tables
    // are made again from the base tables; the Huffman tables stay.
    int Quality() const { return quality_; }
    void SetQuality(int quality);

    // Horizontal and vertical sampling of the components, each 1 to 4. With H2, V2, H3 and V3 all
    // 0 the picture has one component (grey). 2, 2, 1, 1, 1, 1 at first.
    void SetSamplingFrequencies(int h1, int v1, int h2 = 0, int v2 = 0, int h3 = 0, int v3 = 0);

    // Takes width x height pixels of the bitmap from (x, y), the top left of the picture.
    // Pixels beyond the bitmap repeat its edge.
    void SampleImage(const clsImageDIB& image, int width, int height, int x = 0, int y = 0);

    // Stored in a COM marker; at most 65533 bytes.
    const std::string& Comment() const { return comment_; }
    void SetComment(const std::string& comment);

    std::vector<std::uint8_t> SaveJPEGImageToByteArray() const;
    // Written in one go: a failed write leaves the old file as it was. false when it could not be
    // written.
    bool SaveJPEGImageToFile(const std::string& path) const;

    // The quantisation table of slot 0 (luminance) or 1 (chrominance), in natural order.
    const std::array<int, 64>& QuantizationTable(int slot) const;

private:
    struct Component {
        int h = 1;
        int v = 1;
        int table = 0; // quantisation and Huffman slot
        int width = 0; // samples, padded to whole blocks of the MCU
        int height = 0;
        std::vector<std::int16_t> samples; // level-shifted by -128
    };

    void MakeQuantizationTables();

    int quality_ = 75;
    std::array<int, 6> sampling_{2, 2, 1, 1, 1, 1};
    std::string comment_;
    std::array<std::array<int, 64>, 2> quant_{};
    int imageWidth_ = 0;
    int imageHeight_ = 0;
    std::vector<Component> components_;
};

} // namespace corvane
