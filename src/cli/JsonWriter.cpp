#include "cli/JsonWriter.h"

#include <charconv>
#include <cmath>
#include <string>

namespace corvane::cli {

void JsonWriter::NewLine() {
    if (!pretty_)
        return;
    out_ << '\n';
    for (std::size_t i = 0; i < levels_.size(); ++i)
        out_ << "  ";
}

void JsonWriter::BeforeValue() {
    if (afterKey_) {
        afterKey_ = false;
        return;
    }
    if (!levels_.empty()) {
        if (!levels_.back().empty)
            out_ << ',';
        levels_.back().empty = false;
        NewLine();
    }
}

JsonWriter& JsonWriter::BeginObject() {
    BeforeValue();
    out_ << '{';
    levels_.push_back({true, true});
    return *this;
}

JsonWriter& JsonWriter::EndObject() {
    const bool empty = levels_.back().empty;
    levels_.pop_back();
    if (!empty)
        NewLine();
    out_ << '}';
    return *this;
}

JsonWriter& JsonWriter::BeginArray() {
    BeforeValue();
    out_ << '[';
    levels_.push_back({false, true});
    return *this;
}

JsonWriter& JsonWriter::EndArray() {
    const bool empty = levels_.back().empty;
    levels_.pop_back();
    if (!empty)
        NewLine();
    out_ << ']';
    return *this;
}

JsonWriter& JsonWriter::Key(std::string_view key) {
    BeforeValue();
    WriteEscaped(key);
    out_ << (pretty_ ? ": " : ":");
    afterKey_ = true;
    return *this;
}

JsonWriter& JsonWriter::String(std::string_view value) {
    BeforeValue();
    WriteEscaped(value);
    return *this;
}

void JsonWriter::WriteEscaped(std::string_view value) {
    out_ << '"';
    for (unsigned char c : value) {
        switch (c) {
        case '"':
            out_ << "\\\"";
            break;
        case '\\':
            out_ << "\\\\";
            break;
        case '\n':
            out_ << "\\n";
            break;
        case '\r':
            out_ << "\\r";
            break;
        case '\t':
            out_ << "\\t";
            break;
        default:
            if (c < 0x20) {
                const char* hex = "0123456789abcdef";
                out_ << "\\u00" << hex[c >> 4] << hex[c & 15];
            } else {
                out_ << static_cast<char>(c);
            }
        }
    }
    out_ << '"';
}

JsonWriter& JsonWriter::Number(double value) {
    if (!std::isfinite(value))
        return Null();
    BeforeValue();
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    out_.write(buffer, result.ptr - buffer);
    return *this;
}

JsonWriter& JsonWriter::Integer(std::int64_t value) {
    BeforeValue();
    out_ << std::to_string(value);
    return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
    BeforeValue();
    out_ << (value ? "true" : "false");
    return *this;
}

JsonWriter& JsonWriter::Null() {
    BeforeValue();
    out_ << "null";
    return *this;
}

void JsonWriter::Finish() {
    out_ << '\n';
}

} // namespace corvane::cli
