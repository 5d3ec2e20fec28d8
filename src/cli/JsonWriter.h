#pragma once

// A small streaming JSON writer for the command-line program's machine-readable output.
// Numbers are written in the shortest form that reads back to the same double, whatever the
// locale; a number that is not finite is written as null, so no NaN or infinity ever reaches a
// reader. Strings are escaped; bytes from 0x80 up pass through (the core's text is UTF-8).

#include <cstdint>
#include <ostream>
#include <string_view>
#include <vector>

namespace corvane::cli {

class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out, bool pretty = true) : out_(out), pretty_(pretty) {}

    JsonWriter& BeginObject();
    JsonWriter& EndObject();
    JsonWriter& BeginArray();
    JsonWriter& EndArray();
    JsonWriter& Key(std::string_view key);

    JsonWriter& String(std::string_view value);
    JsonWriter& Number(double value);
    JsonWriter& Integer(std::int64_t value);
    JsonWriter& Bool(bool value);
    JsonWriter& Null();

    // Key and value in one call.
    JsonWriter& Field(std::string_view key, std::string_view value) { return Key(key).String(value); }
    JsonWriter& Field(std::string_view key, const char* value) { return Key(key).String(value); }
    JsonWriter& Field(std::string_view key, double value) { return Key(key).Number(value); }
    JsonWriter& Field(std::string_view key, int value) { return Key(key).Integer(value); }
    JsonWriter& Field(std::string_view key, std::int16_t value) { return Key(key).Integer(value); }
    JsonWriter& Field(std::string_view key, bool value) { return Key(key).Bool(value); }

    // Ends the document with a line break; every object and array must be closed.
    void Finish();

private:
    // Before a value: the separator and indentation its place needs.
    void BeforeValue();
    void NewLine();
    void WriteEscaped(std::string_view value);

    struct Level {
        bool isObject = false;
        bool empty = true;
    };
    std::ostream& out_;
    bool pretty_;
    bool afterKey_ = false;
    std::vector<Level> levels_;
};

} // namespace corvane::cli
