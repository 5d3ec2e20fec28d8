#include "files/TextEncoding.h"

#include "files/FileAccess.h"
#include "model/CorvaneError.h"

#include <cstdint>
#include <cstring>
#include <utility>

namespace corvane {

namespace {

// Code points of the bytes 0x80 to 0x9F in Windows-1252.
constexpr char16_t kHighControls[32] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                        0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                        0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                        0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

void AppendUtf8(std::string& out, std::uint32_t code) {
    if (code < 0x80) {
        out.push_back(static_cast<char>(code));
    } else if (code < 0x800) {
        out.push_back(static_cast<char>(0xC0 | (code >> 6)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    } else {
        out.push_back(static_cast<char>(0xE0 | (code >> 12)));
        out.push_back(static_cast<char>(0x80 | ((code >> 6) & 0x3F)));
        out.push_back(static_cast<char>(0x80 | (code & 0x3F)));
    }
}

void AppendWindows1252(std::string& out, std::string_view bytes) {
    out.reserve(out.size() + bytes.size() + bytes.size() / 8);
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= 0x80 && byte <= 0x9F) {
            AppendUtf8(out, kHighControls[byte - 0x80]);
        } else {
            AppendUtf8(out, byte);
        }
    }
}

constexpr std::string_view kBom = "\xEF\xBB\xBF";

} // namespace

bool IsValidUtf8(std::string_view bytes) {
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    const auto* const end = p + bytes.size();
    while (p < end) {
        // Runs of ASCII, nearly all of a data file, are passed eight bytes at a time.
        std::uint64_t word = 0;
        while (end - p >= 8 && (std::memcpy(&word, p, 8), (word & 0x8080808080808080U) == 0)) {
            p += 8;
        }
        if (p == end) {
            break;
        }
        const unsigned char lead = *p;
        if (lead < 0x80) {
            ++p;
            continue;
        }
        int length = 0;
        std::uint32_t code = 0;
        std::uint32_t minimum = 0;
        if (lead >= 0xC2 && lead <= 0xDF) {
            length = 2;
            code = lead & 0x1F;
            minimum = 0x80;
        } else if (lead >= 0xE0 && lead <= 0xEF) {
            length = 3;
            code = lead & 0x0F;
            minimum = 0x800;
        } else if (lead >= 0xF0 && lead <= 0xF4) {
            length = 4;
            code = lead & 0x07;
            minimum = 0x10000;
        } else {
            return false;
        }
        if (end - p < length) {
            return false;
        }
        for (int i = 1; i < length; ++i) {
            if ((p[i] & 0xC0) != 0x80) {
                return false;
            }
            code = (code << 6) | (p[i] & 0x3F);
        }
        if (code < minimum || code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) {
            return false;
        }
        p += length;
    }
    return true;
}

std::string Windows1252ToUtf8(std::string_view bytes) {
    std::string out;
    AppendWindows1252(out, bytes);
    return out;
}

std::string DecodeFileText(std::string_view bytes) {
    std::string storage;
    const std::string_view text = DecodeFileText(bytes, storage);
    return text.data() == storage.data() ? std::move(storage) : std::string(text);
}

std::string_view DecodeFileText(std::string_view bytes, std::string& storage) {
    if (bytes.substr(0, kBom.size()) == kBom) {
        bytes.remove_prefix(kBom.size());
    }
    if (IsValidUtf8(bytes)) {
        return bytes; // the common case, at the cost of one pass
    }
    storage.clear();
    storage.reserve(bytes.size() + bytes.size() / 8);
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\n');
        const std::string_view line = bytes.substr(0, end == std::string_view::npos ? end : end + 1);
        if (IsValidUtf8(line)) {
            storage.append(line);
        } else {
            AppendWindows1252(storage, line);
        }
        bytes.remove_prefix(line.size());
    }
    return storage;
}

std::string_view DecodeFileLine(std::string_view line, std::string& storage) {
    if (IsValidUtf8(line)) {
        return line;
    }
    storage.clear();
    AppendWindows1252(storage, line);
    return storage;
}

std::string_view FirstCharacters(std::string_view text, std::size_t count) {
    std::size_t characters = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // Each character starts with a byte that is not a continuation byte (10xxxxxx).
        if ((static_cast<unsigned char>(text[i]) & 0xC0) != 0x80 && characters++ == count) {
            return text.substr(0, i);
        }
    }
    return text;
}

std::string ReadFileText(const std::string& path) {
    std::string bytes;
    if (!ReadFileBytes(path, bytes)) {
        throw CorvaneError(ErrorNumber::FileNotFound, "File not found");
    }
    return DecodeFileText(bytes);
}

std::vector<std::string_view> SplitFileLines(std::string_view text) {
    std::vector<std::string_view> lines;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos) {
            end = text.size();
        }
        std::string_view line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

} // namespace corvane
