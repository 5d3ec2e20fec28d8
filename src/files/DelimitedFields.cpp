#include "files/DelimitedFields.h"

namespace corvane {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

bool IsLineEnd(char c) {
    return c == '\r' || c == '\n';
}

// Past the line end at i: CR LF counts as one.
std::size_t SkipLineEnd(std::string_view text, std::size_t i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') {
        return i + 2;
    }
    return i + 1;
}

} // namespace

DelimitedFields::DelimitedFields(std::string_view text) {
    std::size_t i = 0;
    // True after a comma: the next delimiter closes a field even when nothing stands before it.
    bool afterComma = false;
    while (i < text.size()) {
        while (i < text.size() && IsBlank(text[i])) {
            ++i;
        }
        if (i >= text.size()) {
            break;
        }
        if (IsLineEnd(text[i]) && !afterComma) {
            i = SkipLineEnd(text, i); // an empty line, or the end of one whose last field was read
            continue;
        }
        DelimitedField field;
        if (text[i] == '"') {
            field.quoted = true;
            const std::size_t close = text.find('"', i + 1);
            const std::size_t end = close == std::string_view::npos ? text.size() : close;
            field.text.assign(text.substr(i + 1, end - i - 1));
            i = end == text.size() ? end : end + 1;
            while (i < text.size() && text[i] != ',' && !IsLineEnd(text[i])) {
                ++i;
            }
        } else {
            const std::size_t start = i;
            while (i < text.size() && text[i] != ',' && !IsLineEnd(text[i])) {
                ++i;
            }
            std::size_t end = i;
            while (end > start && IsBlank(text[end - 1])) {
                --end;
            }
            field.text.assign(text.substr(start, end - start));
        }
        fields_.push_back(std::move(field));
        afterComma = i < text.size() && text[i] == ',';
        if (i < text.size()) {
            i = afterComma ? i + 1 : SkipLineEnd(text, i);
        }
    }
    if (afterComma) {
        fields_.push_back(DelimitedField{}); // "a," at the very end: an empty last field
    }
}

} // namespace corvane
