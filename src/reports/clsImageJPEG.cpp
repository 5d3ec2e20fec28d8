#include "reports/clsImageJPEG.h"

#include "files/FileAccess.h"
#include "model/CorvaneError.h"
#include "reports/JPEGTables.h"
#include "reports/clsImageDIB.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace corvane {

namespace {

constexpr int kMaxComment = 65535 - 2; // the marker's length field counts itself
constexpr int kMaxSampling = 4;

[[noreturn]] void Raise(const char* text) {
    throw CorvaneError(ErrorNumber::InvalidProcedureCall, text);
}

// Bits of the entropy-coded data, most significant first; every 0xFF byte is followed by a
// stuffed 0x00 so that no marker can be read into the data.
class BitWriter {
public:
    explicit BitWriter(std::vector<std::uint8_t>& out) : out_(out) {}

    void Put(std::uint32_t code, int size) {
        buffer_ = (buffer_ << size) | (code & ((1u << size) - 1u));
        count_ += size;
        while (count_ >= 8) {
            count_ -= 8;
            Byte(static_cast<std::uint8_t>(buffer_ >> count_));
        }
        buffer_ &= (1u << count_) - 1u;
    }

    // The last byte is filled with 1 bits.
    void Flush() {
        if (count_ > 0) {
            Put(0x7F, 8 - count_);
        }
    }

private:
    void Byte(std::uint8_t b) {
        out_.push_back(b);
        if (b == 0xFF) {
            out_.push_back(0x00);
        }
    }

    std::vector<std::uint8_t>& out_;
    std::uint32_t buffer_ = 0;
    int count_ = 0;
};

// The accurate integer forward DCT of the Independent JPEG Group (the Loeffler, Ligtenberg and
// Moschytz arrangement): 13-bit constants, two extra bits of precision between the passes. The
// outputs come out 8 times the true coefficients; quantisation takes that factor out.
constexpr int kConstBits = 13;
constexpr int kPass1Bits = 2;
constexpr std::int32_t Fix(double x) {
    return static_cast<std::int32_t>(x * (1 << kConstBits) + 0.5);
}

inline std::int32_t Descale(std::int32_t x, int n) {
    return (x + (1 << (n - 1))) >> n;
}

void ForwardDCT(std::array<std::int32_t, 64>& data) {
    for (int pass = 0; pass < 2; ++pass) {
        const int step = pass == 0 ? 1 : 8; // along a row, then down a column
        const int next = pass == 0 ? 8 : 1; // the next row, then the next column
        const int shift = pass == 0 ? kConstBits - kPass1Bits : kConstBits + kPass1Bits;
        for (int line = 0; line < 8; ++line) {
            std::int32_t* d = data.data() + line * next;
            const auto at = [&](int i) -> std::int32_t& { return d[i * step]; };
            const std::int32_t tmp0 = at(0) + at(7), tmp7 = at(0) - at(7);
            const std::int32_t tmp1 = at(1) + at(6), tmp6 = at(1) - at(6);
            const std::int32_t tmp2 = at(2) + at(5), tmp5 = at(2) - at(5);
            const std::int32_t tmp3 = at(3) + at(4), tmp4 = at(3) - at(4);
            const std::int32_t tmp10 = tmp0 + tmp3, tmp13 = tmp0 - tmp3;
            const std::int32_t tmp11 = tmp1 + tmp2, tmp12 = tmp1 - tmp2;
            if (pass == 0) {
                at(0) = (tmp10 + tmp11) * (1 << kPass1Bits);
                at(4) = (tmp10 - tmp11) * (1 << kPass1Bits);
            } else {
                at(0) = Descale(tmp10 + tmp11, kPass1Bits);
                at(4) = Descale(tmp10 - tmp11, kPass1Bits);
            }
            const std::int32_t z1 = (tmp12 + tmp13) * Fix(0.541196100);
            at(2) = Descale(z1 + tmp13 * Fix(0.765366865), shift);
            at(6) = Descale(z1 - tmp12 * Fix(1.847759065), shift);

            std::int32_t a = tmp4 + tmp7, b = tmp5 + tmp6, c = tmp4 + tmp6, e = tmp5 + tmp7;
            const std::int32_t z5 = (c + e) * Fix(1.175875602);
            const std::int32_t t4 = tmp4 * Fix(0.298631336), t5 = tmp5 * Fix(2.053119869);
            const std::int32_t t6 = tmp6 * Fix(3.072711026), t7 = tmp7 * Fix(1.501321110);
            a *= -Fix(0.899976223);
            b *= -Fix(2.562915447);
            c = c * -Fix(1.961570560) + z5;
            e = e * -Fix(0.390180644) + z5;
            at(7) = Descale(t4 + a + c, shift);
            at(5) = Descale(t5 + b + e, shift);
            at(3) = Descale(t6 + b + c, shift);
            at(1) = Descale(t7 + a + e, shift);
        }
    }
}

// Bits needed for the magnitude of a coefficient: its category.
inline int Category(int value) {
    int magnitude = std::abs(value);
    int bits = 0;
    while (magnitude) {
        ++bits;
        magnitude >>= 1;
    }
    return bits;
}

struct Encoder {
    std::array<jpeg::HuffmanCodes, 2> dc;
    std::array<jpeg::HuffmanCodes, 2> ac;
    BitWriter& bits;

    void Emit(const jpeg::HuffmanCodes& table, int symbol) {
        const auto s = static_cast<std::size_t>(symbol);
        if (table.size[s] == 0) {
            Raise("Bad Huffman Table");
        }
        bits.Put(table.code[s], table.size[s]);
    }

    // Negative values go as their one's complement in `size` bits.
    void Value(int value, int size) {
        if (size > 0) {
            bits.Put(static_cast<std::uint32_t>(value < 0 ? value - 1 : value), size);
        }
    }

    void Block(const std::array<int, 64>& zigzag, int table, int& previousDC) {
        const int diff = zigzag[0] - previousDC;
        previousDC = zigzag[0];
        const int dcSize = Category(diff);
        Emit(dc[static_cast<std::size_t>(table)], dcSize);
        Value(diff, dcSize);
        int run = 0;
        for (int k = 1; k < 64; ++k) {
            const int v = zigzag[static_cast<std::size_t>(k)];
            if (v == 0) {
                ++run;
                continue;
            }
            while (run > 15) {
                Emit(ac[static_cast<std::size_t>(table)], 0xF0); // sixteen zeros
                run -= 16;
            }
            const int size = Category(v);
            Emit(ac[static_cast<std::size_t>(table)], (run << 4) | size);
            Value(v, size);
            run = 0;
        }
        if (run > 0) {
            Emit(ac[static_cast<std::size_t>(table)], 0x00); // end of block
        }
    }
};

void PutWord(std::vector<std::uint8_t>& out, int value) {
    out.push_back(static_cast<std::uint8_t>(value >> 8));
    out.push_back(static_cast<std::uint8_t>(value & 0xFF));
}

void PutMarker(std::vector<std::uint8_t>& out, std::uint8_t marker, int length) {
    out.push_back(0xFF);
    out.push_back(marker);
    PutWord(out, length);
}

void PutHuffmanTable(std::vector<std::uint8_t>& out, int classAndSlot, const jpeg::HuffmanSpec& spec) {
    out.push_back(static_cast<std::uint8_t>(classAndSlot));
    out.insert(out.end(), spec.bits.begin(), spec.bits.end());
    out.insert(out.end(), spec.values.begin(), spec.values.end());
}

} // namespace

clsImageJPEG::clsImageJPEG() {
    MakeQuantizationTables();
}

void clsImageJPEG::SetQuality(int quality) {
    if (quality < 1 || quality > 100) {
        return;
    }
    quality_ = quality;
    MakeQuantizationTables();
}

void clsImageJPEG::MakeQuantizationTables() {
    // The scaling of the Independent JPEG Group: 50 is the tables as printed, 100 all ones.
    const int scale = quality_ < 50 ? 5000 / quality_ : 200 - 2 * quality_;
    for (std::size_t slot = 0; slot < 2; ++slot) {
        for (std::size_t i = 0; i < 64; ++i) {
            const long entry = (static_cast<long>(jpeg::kBaseQuantization[slot][i]) * scale + 50) / 100;
            quant_[slot][i] = static_cast<int>(std::clamp(entry, 1L, 255L));
        }
    }
}

const std::array<int, 64>& clsImageJPEG::QuantizationTable(int slot) const {
    return quant_[slot == 0 ? 0 : 1];
}

void clsImageJPEG::SetSamplingFrequencies(int h1, int v1, int h2, int v2, int h3, int v3) {
    const auto valid = [](int f) { return f >= 1 && f <= kMaxSampling; };
    if (!valid(h1) || !valid(v1)) {
        Raise("Invalid Sampling Value");
    }
    const bool grey = h2 == 0 && v2 == 0 && h3 == 0 && v3 == 0;
    if (!grey && !(valid(h2) && valid(v2) && valid(h3) && valid(v3))) {
        Raise("Invalid Sampling Value");
    }
    sampling_ = {h1, v1, h2, v2, h3, v3};
}

void clsImageJPEG::SetComment(const std::string& comment) {
    if (comment.size() > static_cast<std::size_t>(kMaxComment)) {
        Raise("Illegal Comment Length");
    }
    comment_ = comment;
}

void clsImageJPEG::SampleImage(const clsImageDIB& image, int width, int height, int x, int y) {
    imageWidth_ = std::max(width, 0);
    imageHeight_ = std::max(height, 0);
    const bool grey = sampling_[2] == 0 && sampling_[3] == 0 && sampling_[4] == 0 && sampling_[5] == 0;
    const std::size_t count = grey ? 1 : 3;
    int hMax = 1;
    int vMax = 1;
    for (std::size_t c = 0; c < count; ++c) {
        hMax = std::max(hMax, sampling_[2 * c]);
        vMax = std::max(vMax, sampling_[2 * c + 1]);
    }
    const int mcusAcross = (imageWidth_ + 8 * hMax - 1) / (8 * hMax);
    const int mcusDown = (imageHeight_ + 8 * vMax - 1) / (8 * vMax);

    // Per component the samples proper (used x usedDown), then, where a sample covers several
    // pixels, the sums of the pixels that fall into it and how many did.
    components_.assign(count, Component{});
    std::array<int, 3> used{}, usedDown{};
    std::array<std::vector<std::int32_t>, 3> sums;
    std::array<std::vector<std::uint8_t>, 3> cells;
    std::array<std::vector<int>, 3> columnOf;
    std::array<bool, 3> direct{};
    for (std::size_t c = 0; c < count; ++c) {
        Component& comp = components_[c];
        comp.h = sampling_[2 * c];
        comp.v = sampling_[2 * c + 1];
        comp.table = c == 0 ? 0 : 1;
        comp.width = mcusAcross * 8 * comp.h;
        comp.height = mcusDown * 8 * comp.v;
        comp.samples.assign(static_cast<std::size_t>(comp.width) * static_cast<std::size_t>(comp.height), 0);
        used[c] = std::max(1, (imageWidth_ * comp.h + hMax - 1) / hMax);
        usedDown[c] = std::max(1, (imageHeight_ * comp.v + vMax - 1) / vMax);
        direct[c] = comp.h == hMax && comp.v == vMax;
        if (!direct[c]) {
            const std::size_t size =
                static_cast<std::size_t>(used[c]) * static_cast<std::size_t>(usedDown[c]);
            sums[c].assign(size, 0);
            cells[c].assign(size, 0);
            columnOf[c].resize(static_cast<std::size_t>(imageWidth_));
            for (int col = 0; col < imageWidth_; ++col) {
                columnOf[c][static_cast<std::size_t>(col)] = col * comp.h / hMax;
            }
        }
    }

    // The JFIF equations in 16-bit fixed point; each pixel falls into the sample its position
    // scales to, so a sample is the mean over its sampling cell. Pixels beyond the bitmap repeat
    // its edge.
    constexpr std::int32_t kHalf = 1 << 15;
    constexpr std::int32_t kCentre = 128 << 16;
    const int lastX = std::max(image.Width() - 1, 0);
    const int lastY = std::max(image.Height() - 1, 0);
    const auto bytesPerPixel = static_cast<std::size_t>(image.BitCount() / 8);
    for (int row = 0; row < imageHeight_ && image.Width() > 0; ++row) {
        const int py = std::clamp(y + row, 0, lastY);
        const std::uint8_t* line = image.DIBitsPtr() + static_cast<std::size_t>(image.Height() - 1 - py) *
                                                           static_cast<std::size_t>(image.BytesPerScanLine());
        std::array<std::int16_t*, 3> out{};
        std::array<std::int32_t*, 3> rowSums{};
        std::array<std::uint8_t*, 3> rowCells{};
        for (std::size_t c = 0; c < count; ++c) {
            if (direct[c]) {
                out[c] = components_[c].samples.data() +
                         static_cast<std::size_t>(row) * static_cast<std::size_t>(components_[c].width);
            } else {
                const std::size_t start = static_cast<std::size_t>(row * components_[c].v / vMax) *
                                          static_cast<std::size_t>(used[c]);
                rowSums[c] = sums[c].data() + start;
                rowCells[c] = cells[c].data() + start;
            }
        }
        for (int col = 0; col < imageWidth_; ++col) {
            const std::uint8_t* p =
                line + static_cast<std::size_t>(std::clamp(x + col, 0, lastX)) * bytesPerPixel;
            const std::int32_t b = p[0], g = p[1], r = p[2];
            const std::int32_t values[3] = {19595 * r + 38470 * g + 7471 * b + kHalf,
                                            -11059 * r - 21709 * g + 32768 * b + kCentre + kHalf - 1,
                                            32768 * r - 27439 * g - 5329 * b + kCentre + kHalf - 1};
            for (std::size_t c = 0; c < count; ++c) {
                if (direct[c]) {
                    out[c][col] = static_cast<std::int16_t>((values[c] >> 16) - 128);
                } else {
                    const int at = columnOf[c][static_cast<std::size_t>(col)];
                    rowSums[c][at] += values[c];
                    ++rowCells[c][at];
                }
            }
        }
    }
    for (std::size_t c = 0; c < count; ++c) {
        Component& comp = components_[c];
        for (int sy = 0; sy < comp.height; ++sy) {
            std::int16_t* out =
                comp.samples.data() + static_cast<std::size_t>(sy) * static_cast<std::size_t>(comp.width);
            if (sy >= usedDown[c]) {
                // Below the picture the last row repeats to whole blocks.
                const std::int16_t* last = comp.samples.data() + static_cast<std::size_t>(usedDown[c] - 1) *
                                                                     static_cast<std::size_t>(comp.width);
                std::copy(last, last + comp.width, out);
                continue;
            }
            if (!direct[c]) {
                const std::size_t from = static_cast<std::size_t>(sy) * static_cast<std::size_t>(used[c]);
                for (int sx = 0; sx < used[c]; ++sx) {
                    const int n = cells[c][from + static_cast<std::size_t>(sx)];
                    const std::int32_t mean =
                        n > 0 ? sums[c][from + static_cast<std::size_t>(sx)] / n : kCentre;
                    out[sx] = static_cast<std::int16_t>((mean >> 16) - 128);
                }
            }
            // Beyond the picture the last sample of the row repeats.
            std::fill(out + used[c], out + comp.width, out[used[c] - 1]);
        }
    }
}

std::vector<std::uint8_t> clsImageJPEG::SaveJPEGImageToByteArray() const {
    for (const auto& table : quant_) {
        for (const int q : table) {
            if (q < 1) {
                Raise("Bad Quantization Table");
            }
            if (q > 255) {
                Raise("Illegal precission in Quantization Table");
            }
        }
    }
    std::vector<std::uint8_t> out;
    out.reserve(static_cast<std::size_t>(imageWidth_) * static_cast<std::size_t>(imageHeight_) / 4 + 1024);
    out.push_back(0xFF);
    out.push_back(0xD8); // SOI
    PutMarker(out, 0xE0, 16);
    for (const char c : {'J', 'F', 'I', 'F', '\0'}) {
        out.push_back(static_cast<std::uint8_t>(c));
    }
    out.insert(out.end(), {1, 1, 0, 0, 1, 0, 1, 0, 0}); // version 1.01, aspect 1:1, no thumbnail
    if (!comment_.empty()) {
        PutMarker(out, 0xFE, static_cast<int>(comment_.size()) + 2);
        out.insert(out.end(), comment_.begin(), comment_.end());
    }
    const int count = static_cast<int>(components_.size());
    const int slots = count > 1 ? 2 : 1;
    PutMarker(out, 0xDB, 2 + 65 * slots);
    for (int slot = 0; slot < slots; ++slot) {
        out.push_back(static_cast<std::uint8_t>(slot));
        for (const int n : jpeg::kNaturalOrder) {
            out.push_back(static_cast<std::uint8_t>(
                quant_[static_cast<std::size_t>(slot)][static_cast<std::size_t>(n)]));
        }
    }
    PutMarker(out, 0xC0, 8 + 3 * count);
    out.push_back(8);
    PutWord(out, imageHeight_);
    PutWord(out, imageWidth_);
    out.push_back(static_cast<std::uint8_t>(count));
    for (int c = 0; c < count; ++c) {
        const Component& comp = components_[static_cast<std::size_t>(c)];
        out.insert(out.end(),
                   {static_cast<std::uint8_t>(c + 1), static_cast<std::uint8_t>(comp.h << 4 | comp.v),
                    static_cast<std::uint8_t>(comp.table)});
    }
    int dhtLength = 2;
    for (int slot = 0; slot < slots; ++slot) {
        dhtLength += 34 + static_cast<int>(jpeg::kDCTables[static_cast<std::size_t>(slot)].values.size() +
                                           jpeg::kACTables[static_cast<std::size_t>(slot)].values.size());
    }
    PutMarker(out, 0xC4, dhtLength);
    for (int slot = 0; slot < slots; ++slot) {
        PutHuffmanTable(out, slot, jpeg::kDCTables[static_cast<std::size_t>(slot)]);
        PutHuffmanTable(out, 0x10 | slot, jpeg::kACTables[static_cast<std::size_t>(slot)]);
    }
    PutMarker(out, 0xDA, 6 + 2 * count);
    out.push_back(static_cast<std::uint8_t>(count));
    for (int c = 0; c < count; ++c) {
        const int slot = components_[static_cast<std::size_t>(c)].table;
        out.insert(out.end(),
                   {static_cast<std::uint8_t>(c + 1), static_cast<std::uint8_t>(slot << 4 | slot)});
    }
    out.insert(out.end(), {0, 63, 0});

    BitWriter bits(out);
    Encoder encoder{{jpeg::DeriveCodes(jpeg::kDCTables[0]), jpeg::DeriveCodes(jpeg::kDCTables[1])},
                    {jpeg::DeriveCodes(jpeg::kACTables[0]), jpeg::DeriveCodes(jpeg::kACTables[1])},
                    bits};
    if (count > 0 && imageWidth_ > 0 && imageHeight_ > 0) {
        const int mcusAcross = components_[0].width / (8 * components_[0].h);
        const int mcusDown = components_[0].height / (8 * components_[0].v);
        std::vector<int> previousDC(static_cast<std::size_t>(count), 0);
        // The DCT's outputs are 8 times the coefficients: each divisor is the table's entry x 8.
        struct Divisors {
            std::array<double, 64> reciprocal{};
            std::array<int, 64> half{};
        };
        std::array<Divisors, 2> divisors;
        for (std::size_t slot = 0; slot < 2; ++slot) {
            for (std::size_t n = 0; n < 64; ++n) {
                const int divisor = quant_[slot][n] * 8;
                divisors[slot].reciprocal[n] = 1.0 / divisor;
                divisors[slot].half[n] = divisor / 2;
            }
        }
        std::array<std::int32_t, 64> block{};
        std::array<int, 64> zigzag{};
        for (int my = 0; my < mcusDown; ++my) {
            for (int mx = 0; mx < mcusAcross; ++mx) {
                for (int c = 0; c < count; ++c) {
                    const Component& comp = components_[static_cast<std::size_t>(c)];
                    for (int by = 0; by < comp.v; ++by) {
                        for (int bx = 0; bx < comp.h; ++bx) {
                            const int x0 = (mx * comp.h + bx) * 8;
                            const int y0 = (my * comp.v + by) * 8;
                            for (int r = 0; r < 8; ++r) {
                                const std::int16_t* src =
                                    comp.samples.data() +
                                    static_cast<std::size_t>(y0 + r) * static_cast<std::size_t>(comp.width) +
                                    static_cast<std::size_t>(x0);
                                for (int k = 0; k < 8; ++k) {
                                    block[static_cast<std::size_t>(r * 8 + k)] = src[k];
                                }
                            }
                            ForwardDCT(block);
                            const Divisors& d = divisors[static_cast<std::size_t>(comp.table)];
                            for (std::size_t k = 0; k < 64; ++k) {
                                const std::size_t n = static_cast<std::size_t>(jpeg::kNaturalOrder[k]);
                                // (|v| + d/2) / d, the quotient taken by the reciprocal: exact
                                // quotients gain a hair so that they never fall to the one below.
                                const int v = block[n];
                                const int a = (v < 0 ? -v : v) + d.half[n];
                                const int quotient = static_cast<int>(a * d.reciprocal[n] + 1e-9);
                                zigzag[k] = v < 0 ? -quotient : quotient;
                            }
                            encoder.Block(zigzag, comp.table, previousDC[static_cast<std::size_t>(c)]);
                        }
                    }
                }
            }
        }
    }
    bits.Flush();
    out.push_back(0xFF);
    out.push_back(0xD9); // EOI
    return out;
}

bool clsImageJPEG::SaveJPEGImageToFile(const std::string& path) const {
    const std::vector<std::uint8_t> bytes = SaveJPEGImageToByteArray();
    return WriteFileAtomically(path,
                               std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

} // namespace corvane
