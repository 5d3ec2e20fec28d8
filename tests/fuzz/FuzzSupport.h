#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace corvane::fuzz {

// Everything a reader needs to run inside a fuzz target: scripted services that answer every
// prompt with the go-on answer, fresh global state, and the input written to a file in a private
// temporary folder (the readers take paths). Cheap enough to build once per input.
class FuzzScope {
public:
    FuzzScope(const std::uint8_t* data, std::size_t size, const std::string& fileName);
    ~FuzzScope();
    FuzzScope(const FuzzScope&) = delete;
    FuzzScope& operator=(const FuzzScope&) = delete;

    // The input as a file with the given name (the extension matters to some readers).
    const std::string& Path() const { return path_; }
    // The folder holding it, with a trailing separator.
    std::string Folder() const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
    std::string path_;
};

} // namespace corvane::fuzz
