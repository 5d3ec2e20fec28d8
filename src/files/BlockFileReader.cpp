#include "files/BlockFileReader.h"

#include "files/ChunkedOutput.h"
#include "files/TextEncoding.h"

#include <algorithm>
#include <cstdio>
#include <span>
#include <string>
#include <string_view>
#include <system_error>

namespace corvane {

namespace {

constexpr std::string_view kBom = "\xEF\xBB\xBF";

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

} // namespace

bool BlockFileReader::Read(const std::filesystem::path& path, bool parse) {
    hash_ = 0;
    document_.reset();
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.string().c_str(), "rb"));
    if (!file) {
        return false;
    }
    ChunkedOutput hasher(nullptr);
    auto document = parse ? std::make_shared<BlockDocument>() : nullptr;
    // A chunk, or the whole file when it is smaller (one more byte sees the end at once).
    std::error_code ec;
    const std::uintmax_t size = std::filesystem::file_size(path, ec);
    const std::size_t chunkSize =
        ec ? ChunkedOutput::kChunkSize
           : static_cast<std::size_t>(std::min<std::uintmax_t>(ChunkedOutput::kChunkSize, size + 1));
    const auto buffer = std::make_unique_for_overwrite<char[]>(chunkSize);
    const std::span<char> chunk(buffer.get(), chunkSize);
    std::string pending;   // the start of a line that runs on into the next chunk
    std::string converted; // a line that was not UTF-8, in UTF-8
    bool first = true;
    const auto take = [&](std::string_view line) {
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        document->AppendLine(DecodeFileLine(line, converted));
    };
    for (;;) {
        const std::size_t got = std::fread(chunk.data(), 1, chunk.size(), file.get());
        std::string_view bytes(chunk.data(), got);
        hasher.Append(bytes);
        if (parse && first && got > 0) {
            if (bytes.substr(0, kBom.size()) == kBom) {
                bytes.remove_prefix(kBom.size());
            }
            first = false;
        }
        while (parse && !bytes.empty()) {
            const std::size_t end = bytes.find('\n');
            if (end == std::string_view::npos) {
                pending.append(bytes);
                break;
            }
            if (pending.empty()) {
                take(bytes.substr(0, end));
            } else {
                pending.append(bytes.substr(0, end));
                take(pending);
                pending.clear();
            }
            bytes.remove_prefix(end + 1);
        }
        if (got < chunk.size()) {
            break;
        }
    }
    if (std::ferror(file.get()) != 0) {
        return false;
    }
    hasher.Finish();
    hash_ = hasher.Hash();
    if (parse && !pending.empty()) {
        take(pending);
    }
    document_ = std::move(document);
    return true;
}

} // namespace corvane
