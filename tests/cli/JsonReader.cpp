#include "JsonReader.h"

#include <charconv>
#include <cmath>
#include <regex>
#include <string>

namespace corvane::cli::test {
namespace {

const JsonValue kNull;

// Recursive descent over the text; every step returns false on the first departure from the
// grammar, and the caller gives up.
struct Reader {
    const std::string& s;
    std::size_t pos = 0;

    void Skip() {
        while (pos < s.size() && (s[pos] == ' ' || s[pos] == '\n' || s[pos] == '\r' || s[pos] == '\t'))
            ++pos;
    }
    bool At(char c) { return Skip(), pos < s.size() && s[pos] == c; }
    bool Take(char c) { return At(c) && ++pos; }

    bool String(std::string& out) {
        if (!Take('"'))
            return false;
        while (pos < s.size()) {
            const char c = s[pos++];
            if (c == '"')
                return true;
            if (static_cast<unsigned char>(c) < 0x20 || (c == '\\' && pos >= s.size()))
                return false;
            if (c != '\\') {
                out.push_back(c);
                continue;
            }
            const std::string simple = "\"\\/bfnrt", meaning = "\"\\/\b\f\n\r\t";
            unsigned code = 0;
            if (const auto at = simple.find(s[pos++]); at != std::string::npos)
                out.push_back(meaning[at]);
            else if (s[pos - 1] != 'u' || pos + 4 > s.size() ||
                     std::from_chars(&s[pos], &s[pos] + 4, code, 16).ptr != &s[pos] + 4 || code >= 0x80)
                return false; // the writer escapes control characters only
            else {
                out.push_back(static_cast<char>(code));
                pos += 4;
            }
        }
        return false;
    }

    bool Value(JsonValue& v, int depth) {
        using T = JsonValue::Type;
        Skip();
        if (depth > 64 || pos >= s.size())
            return false;
        if (s[pos] == '"') {
            v.type = T::String;
            return String(v.text);
        }
        const char open = s[pos];
        if (open == '[' || open == '{') {
            const char close = open == '[' ? ']' : '}';
            v.type = open == '[' ? T::Array : T::Object;
            ++pos;
            if (Take(close))
                return true;
            do {
                std::string key;
                if (open == '{' && (!String(key) || v.members.count(key) || !Take(':')))
                    return false;
                if (!Value(open == '[' ? v.items.emplace_back() : v.members[key], depth + 1))
                    return false;
            } while (Take(','));
            return Take(close);
        }
        for (const std::string word : {"null", "true", "false"}) {
            if (s.compare(pos, word.size(), word) == 0) {
                pos += word.size();
                v.type = word == "null" ? T::Null : T::Bool;
                v.flag = word == "true";
                return true;
            }
        }
        static const std::regex number(R"(-?(0|[1-9][0-9]*)(\.[0-9]+)?([eE][+-]?[0-9]+)?)");
        std::smatch match;
        if (!std::regex_search(s.begin() + static_cast<std::ptrdiff_t>(pos), s.end(), match, number,
                               std::regex_constants::match_continuous))
            return false;
        v.type = T::Number;
        const auto result = std::from_chars(&s[pos], &s[pos] + match.length(), v.number);
        pos += static_cast<std::size_t>(match.length());
        return result.ec == std::errc() && std::isfinite(v.number);
    }
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
    Reader reader{text};
    if (!reader.Value(value, 0))
        return std::nullopt;
    reader.Skip();
    if (reader.pos != text.size())
        return std::nullopt;
    return value;
}

} // namespace corvane::cli::test
