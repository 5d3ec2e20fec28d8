#pragma once

// Reads a block file a chunk at a time: the bytes are hashed as they pass and, when asked,
// parsed line by line, so a large project never stands in memory twice (once as bytes and
// once as lines). UTF-8 is checked line by line, which is the same as checking the whole file
// (a line feed is never part of a multi-byte sequence); a file that is not UTF-8 is read again
// whole and converted from Windows-1252, as older stations wrote it.

#include "files/BlockDocument.h"

#include <cstddef>
#include <filesystem>
#include <memory>

namespace corvane {

class BlockFileReader {
public:
    // Reads the file: Hash() afterwards is ChunkedOutput::HashOf of its bytes and, with
    // `parse`, Document() its parsed text. False when the file cannot be opened or read.
    bool Read(const std::filesystem::path& path, bool parse);

    std::size_t Hash() const { return hash_; }
    std::shared_ptr<BlockDocument> Document() const { return document_; }

private:
    bool ReadWholeAsWindows1252(const std::filesystem::path& path, bool parse);

    std::size_t hash_ = 0;
    std::shared_ptr<BlockDocument> document_;
};

} // namespace corvane
