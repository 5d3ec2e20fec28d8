#pragma once

// A strict reader of the JSON the command line writes, for the tests: any departure from the
// grammar (NaN, a trailing comma, an unescaped control character, text after the value) makes
// Parse return nothing, so a test that parses the output also checks that it is valid.

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane::cli::test {

struct JsonValue {
    enum class Type { Null, Bool, Number, String, Array, Object } type = Type::Null;
    bool flag = false;
    double number = 0;
    std::string text;
    std::vector<JsonValue> items;
    std::map<std::string, JsonValue> members;

    bool IsNull() const { return type == Type::Null; }
    bool Has(const std::string& key) const { return members.count(key) != 0; }
    // A missing member or item reads as null, so that a chain of lookups fails in the assertion
    // that looks at the end of it rather than crashing.
    const JsonValue& operator[](const std::string& key) const;
    const JsonValue& operator[](std::size_t index) const;
    std::size_t size() const { return type == Type::Array ? items.size() : members.size(); }
};

std::optional<JsonValue> ParseJson(const std::string& text);

} // namespace corvane::cli::test
