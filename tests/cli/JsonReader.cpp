#include "JsonReader.h"

#include <charconv>
#include <cmath>

namespace corvane::cli::test {
namespace {

const JsonValue kNull;

class Reader {
public:
    explicit Reader(const std::string& text) : text_(text) {}

    bool Document(JsonValue& value) {
        if (!Value(value, 0))
            return false;
        SkipBlanks();
        return pos_ == text_.size();
    }

private:
    void SkipBlanks() {
        while (pos_ < text_.size() &&
               (text_[pos_] == ' ' || text_[pos_] == '\n' || text_[pos_] == '\r' || text_[pos_] == '\t'))
            ++pos_;
    }
    bool Literal(const char* word) {
        const std::string w(word);
        if (text_.compare(pos_, w.size(), w) != 0)
            return false;
        pos_ += w.size();
        return true;
    }

    bool Value(JsonValue& value, int depth) {
        if (depth > 64)
            return false;
        SkipBlanks();
        if (pos_ >= text_.size())
            return false;
        const char c = text_[pos_];
        if (c == '{')
            return Object(value, depth);
        if (c == '[')
            return Array(value, depth);
        if (c == '"') {
            value.type = JsonValue::Type::String;
            return String(value.text);
        }
        if (Literal("null")) {
            value.type = JsonValue::Type::Null;
            return true;
        }
        if (Literal("true") || Literal("false")) {
            value.type = JsonValue::Type::Bool;
            value.flag = c == 't';
            return true;
        }
        return Number(value);
    }

    bool Number(JsonValue& value) {
        // The JSON grammar: -?(0|[1-9][0-9]*)(\.[0-9]+)?([eE][+-]?[0-9]+)?
        const std::size_t start = pos_;
        if (pos_ < text_.size() && text_[pos_] == '-')
            ++pos_;
        const auto digits = [this] {
            const std::size_t from = pos_;
            while (pos_ < text_.size() && text_[pos_] >= '0' && text_[pos_] <= '9')
                ++pos_;
            return pos_ - from;
        };
        const std::size_t intStart = pos_;
        const std::size_t intDigits = digits();
        if (intDigits == 0 || (intDigits > 1 && text_[intStart] == '0'))
            return false;
        if (pos_ < text_.size() && text_[pos_] == '.') {
            ++pos_;
            if (digits() == 0)
                return false;
        }
        if (pos_ < text_.size() && (text_[pos_] == 'e' || text_[pos_] == 'E')) {
            ++pos_;
            if (pos_ < text_.size() && (text_[pos_] == '+' || text_[pos_] == '-'))
                ++pos_;
            if (digits() == 0)
                return false;
        }
        value.type = JsonValue::Type::Number;
        const auto result = std::from_chars(text_.data() + start, text_.data() + pos_, value.number);
        return result.ec == std::errc() && std::isfinite(value.number);
    }

    bool String(std::string& out) {
        ++pos_;
        while (pos_ < text_.size()) {
            const char c = text_[pos_++];
            if (c == '"')
                return true;
            if (static_cast<unsigned char>(c) < 0x20)
                return false;
            if (c != '\\') {
                out.push_back(c);
                continue;
            }
            if (pos_ >= text_.size())
                return false;
            const char e = text_[pos_++];
            const std::string simple = "\"\\/bfnrt", meaning = "\"\\/\b\f\n\r\t";
            if (const auto at = simple.find(e); at != std::string::npos) {
                out.push_back(meaning[at]);
            } else if (e == 'u' && pos_ + 4 <= text_.size()) {
                unsigned code = 0;
                const auto result = std::from_chars(text_.data() + pos_, text_.data() + pos_ + 4, code, 16);
                if (result.ptr != text_.data() + pos_ + 4 || code >= 0x80)
                    return false; // the writer escapes control characters only
                out.push_back(static_cast<char>(code));
                pos_ += 4;
            } else {
                return false;
            }
        }
        return false;
    }

    bool Array(JsonValue& value, int depth) {
        value.type = JsonValue::Type::Array;
        ++pos_;
        SkipBlanks();
        if (pos_ < text_.size() && text_[pos_] == ']') {
            ++pos_;
            return true;
        }
        for (;;) {
            value.items.emplace_back();
            if (!Value(value.items.back(), depth + 1))
                return false;
            SkipBlanks();
            if (pos_ < text_.size() && text_[pos_] == ',') {
                ++pos_;
                continue;
            }
            return pos_ < text_.size() && text_[pos_++] == ']';
        }
    }

    bool Object(JsonValue& value, int depth) {
        value.type = JsonValue::Type::Object;
        ++pos_;
        SkipBlanks();
        if (pos_ < text_.size() && text_[pos_] == '}') {
            ++pos_;
            return true;
        }
        for (;;) {
            SkipBlanks();
            std::string key;
            if (pos_ >= text_.size() || text_[pos_] != '"' || !String(key) || value.members.count(key))
                return false;
            SkipBlanks();
            if (pos_ >= text_.size() || text_[pos_++] != ':')
                return false;
            if (!Value(value.members[key], depth + 1))
                return false;
            SkipBlanks();
            if (pos_ < text_.size() && text_[pos_] == ',') {
                ++pos_;
                continue;
            }
            return pos_ < text_.size() && text_[pos_++] == '}';
        }
    }

    const std::string& text_;
    std::size_t pos_ = 0;
};

} // namespace

const JsonValue& JsonValue::operator[](const std::string& key) const {
    const auto it = members.find(key);
    return it == members.end() ? kNull : it->second;
}

const JsonValue& JsonValue::operator[](std::size_t index) const {
    return index < items.size() ? items[index] : kNull;
}

std::optional<JsonValue> ParseJson(const std::string& text) {
    JsonValue value;
    Reader reader(text);
    if (!reader.Document(value))
        return std::nullopt;
    return value;
}

} // namespace corvane::cli::test
