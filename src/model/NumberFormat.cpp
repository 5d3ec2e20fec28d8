#include "model/NumberFormat.h"

#include "model/NumberText.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace corvane {

namespace {

enum class TokenKind { Zero, Hash, Point, Literal };

struct Token {
    TokenKind kind;
    std::string text; // literals only
};

// Sections of a format are separated by ";" outside quotes: positive;negative;zero.
std::vector<std::string_view> SplitSections(std::string_view format) {
    std::vector<std::string_view> sections;
    std::size_t start = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < format.size(); ++i) {
        if (format[i] == '"') {
            quoted = !quoted;
        } else if (!quoted && format[i] == '\\') {
            ++i;
        } else if (!quoted && format[i] == ';') {
            sections.push_back(format.substr(start, i - start));
            start = i + 1;
        }
    }
    sections.push_back(format.substr(start));
    return sections;
}

std::vector<Token> Tokenize(std::string_view section, int& percentCount) {
    std::vector<Token> tokens;
    bool seenPoint = false;
    const auto literal = [&](std::string_view text) {
        if (!tokens.empty() && tokens.back().kind == TokenKind::Literal) {
            tokens.back().text.append(text);
        } else {
            tokens.push_back({TokenKind::Literal, std::string(text)});
        }
    };
    for (std::size_t i = 0; i < section.size(); ++i) {
        const char c = section[i];
        if (c == '0') {
            tokens.push_back({TokenKind::Zero, {}});
        } else if (c == '#') {
            tokens.push_back({TokenKind::Hash, {}});
        } else if (c == '.' && !seenPoint) {
            seenPoint = true;
            tokens.push_back({TokenKind::Point, {}});
        } else if (c == '%') {
            ++percentCount;
            literal("%");
        } else if (c == '\\' && i + 1 < section.size()) {
            literal(section.substr(++i, 1));
        } else if (c == '"') {
            const std::size_t close = section.find('"', i + 1);
            const std::size_t end = close == std::string_view::npos ? section.size() : close;
            literal(section.substr(i + 1, end - i - 1));
            i = end;
        } else {
            literal(section.substr(i, 1));
        }
    }
    return tokens;
}

// Rounds a magnitude, taken at 15 significant digits, to `decimals` places, ties away from
// zero. `whole` gets the integer digits without leading zeros ("" below 1), `fraction`
// exactly `decimals` digits.
void RoundToDecimals(double magnitude, int decimals, std::string& whole, std::string& fraction) {
    whole.clear();
    fraction.assign(static_cast<std::size_t>(decimals), '0');
    if (magnitude == 0.0) {
        return;
    }
    const DecimalDigits d = ToDecimalDigits(magnitude, 15);
    std::string digits = d.digits;
    int exponent = d.exponent;
    const long keep = static_cast<long>(exponent) + decimals + 1;
    if (keep < 0) {
        return;
    }
    if (keep < static_cast<long>(digits.size())) {
        const bool up = digits[static_cast<std::size_t>(keep)] >= '5';
        digits.resize(static_cast<std::size_t>(keep));
        if (up) {
            std::size_t i = digits.size();
            while (i > 0 && digits[i - 1] == '9') {
                digits[--i] = '0';
            }
            if (i == 0) {
                digits.insert(digits.begin(), '1');
                ++exponent;
            } else {
                ++digits[i - 1];
            }
        }
    }
    const auto digitAt = [&](long index) {
        return index >= 0 && index < static_cast<long>(digits.size())
                   ? digits[static_cast<std::size_t>(index)]
                   : '0';
    };
    for (long i = 0; i <= exponent; ++i) {
        whole.push_back(digitAt(i));
    }
    const std::size_t firstNonZero = whole.find_first_not_of('0');
    whole.erase(0, firstNonZero == std::string::npos ? whole.size() : firstNonZero);
    for (int k = 1; k <= decimals; ++k) {
        fraction[static_cast<std::size_t>(k - 1)] = digitAt(static_cast<long>(exponent) + k);
    }
}

// The general form: up to 15 significant digits with a leading zero below 1.
std::string FormatGeneral(double value) {
    std::string text = FormatFileFloat(value);
    if (text.front() == '.') {
        text.insert(text.begin(), '0');
    } else if (text.size() > 1 && text[0] == '-' && text[1] == '.') {
        text.insert(text.begin() + 1, '0');
    }
    return text;
}

std::string FormatSection(double value, bool withSign, std::string_view section) {
    int percentCount = 0;
    const std::vector<Token> tokens = Tokenize(section, percentCount);
    for (int i = 0; i < percentCount; ++i) {
        value *= 100.0;
    }
    std::size_t point = tokens.size();
    std::size_t firstPlaceholder = tokens.size();
    std::size_t firstZero = tokens.size();
    int decimals = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const TokenKind kind = tokens[i].kind;
        if (kind == TokenKind::Point) {
            point = i;
        } else if (kind == TokenKind::Zero || kind == TokenKind::Hash) {
            firstPlaceholder = std::min(firstPlaceholder, i);
            if (point < i) {
                ++decimals;
            } else if (kind == TokenKind::Zero) {
                firstZero = std::min(firstZero, i);
            }
        }
    }

    std::string whole;
    std::string fraction;
    RoundToDecimals(std::fabs(value), decimals, whole, fraction);
    const bool isZero = whole.empty() && fraction.find_first_not_of('0') == std::string::npos;

    std::vector<std::string> pieces(tokens.size());
    // Integer places fill from the point leftwards; digits beyond the places go in front of
    // the leftmost one, "#" places print nothing where no digit is left.
    std::size_t remaining = whole.size();
    for (std::size_t i = std::min(point, tokens.size()); i-- > 0;) {
        const Token& token = tokens[i];
        if (token.kind == TokenKind::Literal) {
            pieces[i] = token.text;
            continue;
        }
        if (remaining > 0) {
            pieces[i] = std::string(1, whole[--remaining]);
        } else if (i >= firstZero) {
            pieces[i] = "0";
        }
        if (i == firstPlaceholder && remaining > 0) {
            pieces[i].insert(0, whole, 0, remaining);
            remaining = 0;
        }
    }
    // No integer places but decimal ones: the integer digits stand in front of the point.
    if (remaining > 0 && point < tokens.size()) {
        pieces[point] = whole.substr(0, remaining);
    }
    if (point < tokens.size()) {
        pieces[point] += '.';
        // Trailing "#" places that would show a zero are left out.
        std::size_t shown = fraction.size();
        for (std::size_t i = tokens.size(); i-- > point + 1 && shown > 0;) {
            if (tokens[i].kind == TokenKind::Literal) {
                continue;
            }
            if (tokens[i].kind != TokenKind::Hash || fraction[shown - 1] != '0') {
                break;
            }
            --shown;
        }
        std::size_t k = 0;
        for (std::size_t i = point + 1; i < tokens.size(); ++i) {
            if (tokens[i].kind == TokenKind::Literal) {
                pieces[i] = tokens[i].text;
            } else {
                if (k < shown) {
                    pieces[i] = std::string(1, fraction[k]);
                }
                ++k;
            }
        }
    }

    std::string out = withSign && value < 0.0 && !isZero ? "-" : "";
    for (const std::string& piece : pieces) {
        out += piece;
    }
    return out;
}

} // namespace

std::string FormatNumber(double value, std::string_view format) {
    if (!std::isfinite(value)) {
        return FormatFileFloat(value);
    }
    const std::vector<std::string_view> sections = SplitSections(format);
    if (value < 0.0 && sections.size() >= 2 && !sections[1].empty()) {
        return FormatSection(-value, false, sections[1]);
    }
    if (value == 0.0 && sections.size() >= 3 && !sections[2].empty()) {
        return FormatSection(value, false, sections[2]);
    }
    if (sections[0].empty()) {
        return FormatGeneral(value);
    }
    return FormatSection(value, true, sections[0]);
}

} // namespace corvane
