#pragma once

// Text of the data files is UTF-8 without BOM. Files from older stations were written in the
// Windows ANSI code page (1252), and a file this system wrote may since have been edited there,
// so one file can hold both. The encoding is decided line by line: a line that is valid UTF-8
// is UTF-8, any other line is Windows-1252 and converted. A line feed never falls inside a
// multi-byte character, so the lines can be told apart before their encoding is known.

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace corvane {

// Strict UTF-8: no overlong forms, no surrogates, nothing above U+10FFFF.
bool IsValidUtf8(std::string_view bytes);

// Every byte to its Windows-1252 character in UTF-8. The five codes the code page leaves
// undefined (0x81, 0x8D, 0x8F, 0x90, 0x9D) map to the C1 controls of the same number, as the
// platform's own conversion does.
std::string Windows1252ToUtf8(std::string_view bytes);

// One line (or any run of bytes without a line feed) as UTF-8: a view of `line` when it is
// valid UTF-8, otherwise a view of `storage`, which receives its Windows-1252 reading.
std::string_view DecodeFileLine(std::string_view line, std::string& storage);

// File bytes to UTF-8 text: a leading UTF-8 BOM is dropped and each line decoded as above.
std::string DecodeFileText(std::string_view bytes);
// The same text without a copy where none is needed: a view into `bytes` when they are UTF-8
// already, otherwise a view of `storage`, which receives the converted text.
std::string_view DecodeFileText(std::string_view bytes, std::string& storage);

// The longest start of UTF-8 text that holds at most `count` characters; it never ends inside
// a character.
std::string_view FirstCharacters(std::string_view text, std::size_t count);

// The decoded text of a whole file; throws FileNotFound when it cannot be read.
std::string ReadFileText(const std::string& path);

// The lines of a text. Lines end in CR LF; files copied through other systems may end them in
// LF alone, so a CR before the LF is dropped. A last line without LF counts.
std::vector<std::string_view> SplitFileLines(std::string_view text);

} // namespace corvane
