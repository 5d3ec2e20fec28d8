#include "files/ChunkedOutput.h"

#include <algorithm>
#include <utility>

namespace corvane {

namespace {

std::size_t Combine(std::size_t hash, std::string_view chunk) {
    // 64-bit FNV prime as the multiplier: cheap, and order matters.
    return hash * 1099511628211ULL ^ std::hash<std::string_view>{}(chunk);
}

} // namespace

// The buffer grows with what is appended, up to a chunk: hashing a small file costs no more
// than the file.
ChunkedOutput::ChunkedOutput(Sink sink) : sink_(std::move(sink)) {}

void ChunkedOutput::Pass(std::string_view chunk) {
    hash_ = Combine(hash_, chunk);
    if (ok_ && sink_) {
        ok_ = sink_(chunk);
    }
}

void ChunkedOutput::Append(std::string_view bytes) {
    while (!bytes.empty()) {
        if (buffer_.empty() && bytes.size() >= kChunkSize) {
            Pass(bytes.substr(0, kChunkSize)); // a whole chunk needs no copy
            bytes.remove_prefix(kChunkSize);
            continue;
        }
        const std::size_t take = std::min(kChunkSize - buffer_.size(), bytes.size());
        buffer_.append(bytes.substr(0, take));
        bytes.remove_prefix(take);
        if (buffer_.size() == kChunkSize) {
            Pass(buffer_);
            buffer_.clear();
        }
    }
}

bool ChunkedOutput::Finish() {
    if (!buffer_.empty()) {
        Pass(buffer_);
        buffer_.clear();
    }
    return ok_;
}

std::size_t ChunkedOutput::HashOf(std::string_view bytes) {
    ChunkedOutput output(nullptr);
    output.Append(bytes);
    output.Finish();
    return output.Hash();
}

} // namespace corvane
