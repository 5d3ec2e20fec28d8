#pragma once

// The tag look-up of a block: tag name (blanks trimmed, ASCII case ignored) to the first line
// holding it. Open addressing in one flat table, so that a block of 100,000 tags costs one
// probe per look-up and no allocation per tag; lines are indexed lazily, as far as they exist.
// Readers ask for tags in the order writers set them, so the line after the last one found is
// tried before the table: in-order reading then walks the lines instead of jumping through a
// table larger than the cache.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

class TagIndex {
public:
    static constexpr std::size_t npos = static_cast<std::size_t>(-1);

    void Clear();
    // Indexes the lines added since the last call; an earlier line of a tag stays the one found.
    void Extend(const std::vector<std::string>& lines);
    // The first line whose tag equals `tag` without regard to ASCII case, or npos. `lines` must
    // be the lines indexed.
    std::size_t Find(const std::vector<std::string>& lines, std::string_view tag);

    // The tag of a line: the text before the first "=", blanks trimmed. False without "=".
    static bool TagOfLine(std::string_view line, std::string_view& tag);

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t linePlusOne = 0; // 0: empty
    };

    void Grow(std::size_t lineCount);
    // True when the tag of the line is not in the table yet; it is then added.
    bool Insert(const std::vector<std::string>& lines, std::string_view tag, std::uint32_t hash,
                std::size_t line);

    std::vector<Slot> slots_;           // capacity a power of two, at most half full
    std::vector<std::uint8_t> isFirst_; // per indexed line: 1 when no earlier line has its tag
    std::size_t indexed_ = 0;
    std::size_t next_ = 0; // the line after the last one found
};

} // namespace corvane
