#pragma once

// Reads a block file a chunk at a time: the bytes are hashed as they pass and, when asked,
// parsed line by line, so a large project never stands in memory twice (once as bytes and
// once as lines). Each line is decoded on its own (see TextEncoding.h), as a whole-file read
// decodes it.

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
    std::size_t hash_ = 0;
    std::shared_ptr<BlockDocument> document_;
};

} // namespace corvane
