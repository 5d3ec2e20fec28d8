#pragma once

// A block file held in memory: the lines before the first block, then the blocks in file order,
// each with its header line and the lines up to the next header. Untouched blocks keep their
// lines as read; the file is written back with CR LF after every line.

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace corvane {

class BlockDocument {
public:
    // Parses UTF-8 text. Lines end at LF, with or without CR before it. A header is a line that,
    // blanks aside, starts with "[" and holds a "]"; its name is the trimmed text between them.
    static BlockDocument Parse(std::string_view text);

    // Adds one line read from a file (without its line end), as Parse does with each.
    void AppendLine(std::string_view line);

    // The lines of the first block of that name, compared without regard to ASCII case and
    // surrounding blanks, blank lines included; nullptr when there is no such block.
    const std::vector<std::string>* FindBlock(std::string_view name) const;

    // Replaces the lines of the first block of that name where it stands, or appends the block
    // at the end of the file. Lines holding line breaks are split as a reader would split them.
    void ReplaceBlock(std::string_view name, std::vector<std::string> lines);

    // The file text: every line followed by CR LF.
    std::string Serialize() const;
    // The same text, handed over a piece at a time.
    void WriteTo(const std::function<void(std::string_view)>& put) const;

    std::size_t BlockCount() const { return blocks_.size(); }

    // The key a block name is indexed under: trimmed and ASCII lower case.
    static std::string NameKey(std::string_view name);

private:
    struct Block {
        std::string header; // the header line as it stands in the file
        std::vector<std::string> lines;
    };

    void AddBlock(std::string header, std::string_view name);

    std::vector<std::string> preamble_; // lines before the first header: no block's
    std::vector<Block> blocks_;
    std::unordered_map<std::string, std::size_t> index_; // name key -> first block of that name
};

} // namespace corvane
