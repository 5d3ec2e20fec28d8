#pragma once

// The fixed tables of a baseline JPEG: the example quantisation and Huffman tables of Annex K of
// ITU T.81, and the zig-zag order of the coefficients.

#include <array>
#include <cstdint>
#include <vector>

namespace corvane::jpeg {

// Natural (row-major) index of the coefficient at each position of the zig-zag order.
extern const std::array<int, 64> kNaturalOrder;

// Luminance (slot 0) and chrominance (slot 1) quantisation tables at quality 50, natural order.
extern const std::array<std::array<int, 64>, 2> kBaseQuantization;

// A Huffman table as the file states it: how many codes of each length 1 to 16, and the symbols
// in order of their codes.
struct HuffmanSpec {
    std::array<std::uint8_t, 16> bits;
    std::vector<std::uint8_t> values;
};

// DC and AC tables, luminance (0) and chrominance (1).
extern const std::array<HuffmanSpec, 2> kDCTables;
extern const std::array<HuffmanSpec, 2> kACTables;

// The code and its length for each symbol, as derived from a spec; a length of 0 marks a symbol
// the table has no code for. Raises "Bad Huffman Table" for a spec that cannot be a code.
struct HuffmanCodes {
    std::array<std::uint16_t, 256> code{};
    std::array<std::uint8_t, 256> size{};
};
HuffmanCodes DeriveCodes(const HuffmanSpec& spec);

} // namespace corvane::jpeg
