#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace corvane::test {

// A file's bytes, empty when it cannot be read.
inline std::string FileBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// Bytes written to a file as they are, replacing what it held.
inline void WriteBytes(const std::string& path, std::string_view bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace corvane::test
