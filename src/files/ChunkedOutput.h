#pragma once

// Passes a stream of bytes on in chunks of a fixed size and hashes it on the way. The hash
// combines the hashes of the chunks at fixed offsets, so it is the same whether the bytes came
// in one piece or in many: a file written in pieces hashes like the same file read whole.

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace corvane {

class ChunkedOutput {
public:
    static constexpr std::size_t kChunkSize = std::size_t{1} << 20;
    using Sink = std::function<bool(std::string_view)>;

    explicit ChunkedOutput(Sink sink);

    void Append(std::string_view bytes);
    // Passes on what is left. False when any call of the sink failed; later chunks are then
    // no longer passed on.
    bool Finish();
    // The hash of all bytes appended; valid after Finish.
    std::size_t Hash() const { return hash_; }

    // The hash a ChunkedOutput gives for these bytes.
    static std::size_t HashOf(std::string_view bytes);

private:
    void Pass(std::string_view chunk);

    Sink sink_;
    std::string buffer_;
    std::size_t hash_ = 0;
    bool ok_ = true;
};

} // namespace corvane
