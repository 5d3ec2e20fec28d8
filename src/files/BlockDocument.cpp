#include "files/BlockDocument.h"

#include <algorithm>

namespace corvane {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trim(std::string_view text) {
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// True for a header line; `name` gets the text between the brackets.
bool ParseHeader(std::string_view line, std::string_view& name) {
    const std::string_view trimmed = Trim(line);
    if (trimmed.empty() || trimmed.front() != '[') {
        return false;
    }
    const std::size_t close = trimmed.find(']');
    if (close == std::string_view::npos) {
        return false;
    }
    name = trimmed.substr(1, close - 1);
    return true;
}

// Calls `take` for each line of the text; a last line without LF counts.
template <typename Take> void ForEachLine(std::string_view text, Take&& take) {
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        const std::size_t next = end == std::string_view::npos ? text.size() : end + 1;
        if (end == std::string_view::npos) {
            end = text.size();
        }
        std::string_view line = text.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        take(line);
        start = next;
    }
}

} // namespace

std::string BlockDocument::NameKey(std::string_view name) {
    std::string key(Trim(name));
    for (char& c : key) {
        if (c >= 'A' && c <= 'Z') {
            c = static_cast<char>(c - 'A' + 'a');
        }
    }
    return key;
}

void BlockDocument::AddBlock(std::string header, std::string_view name) {
    index_.try_emplace(NameKey(name), blocks_.size());
    blocks_.push_back(Block{std::move(header), {}});
}

BlockDocument BlockDocument::Parse(std::string_view text) {
    BlockDocument document;
    ForEachLine(text, [&](std::string_view line) { document.AppendLine(line); });
    return document;
}

void BlockDocument::AppendLine(std::string_view line) {
    std::string_view name;
    if (ParseHeader(line, name)) {
        AddBlock(std::string(line), name);
    } else if (blocks_.empty()) {
        preamble_.emplace_back(line);
    } else {
        blocks_.back().lines.emplace_back(line);
    }
}

const std::vector<std::string>* BlockDocument::FindBlock(std::string_view name) const {
    const auto found = index_.find(NameKey(name));
    return found == index_.end() ? nullptr : &blocks_[found->second].lines;
}

void BlockDocument::ReplaceBlock(std::string_view name, std::vector<std::string> lines) {
    const auto hasBreak = [](const std::string& line) { return line.find('\n') != std::string::npos; };
    std::vector<std::string> stored;
    if (std::any_of(lines.begin(), lines.end(), hasBreak)) {
        for (const std::string& line : lines) {
            ForEachLine(line, [&](std::string_view part) { stored.emplace_back(part); });
        }
    } else {
        stored = std::move(lines);
    }
    bool looksLikeHeader = false;
    std::string_view ignored;
    for (const std::string& line : stored) {
        looksLikeHeader = looksLikeHeader || ParseHeader(line, ignored);
    }

    const auto found = index_.find(NameKey(name));
    if (found != index_.end()) {
        blocks_[found->second].lines = std::move(stored);
    } else {
        AddBlock("[" + std::string(Trim(name)) + "]", name);
        blocks_.back().lines = std::move(stored);
    }
    // A value that smuggles in a header line starts a new block when the file is read again;
    // parse our own text so that memory and file agree.
    if (looksLikeHeader) {
        *this = Parse(Serialize());
    }
}

std::string BlockDocument::Serialize() const {
    std::size_t total = 0;
    for (const std::string& line : preamble_) {
        total += line.size() + 2;
    }
    for (const Block& block : blocks_) {
        total += block.header.size() + 2;
        for (const std::string& line : block.lines) {
            total += line.size() + 2;
        }
    }
    std::string text;
    text.reserve(total);
    WriteTo([&text](std::string_view piece) { text += piece; });
    return text;
}

void BlockDocument::WriteTo(const std::function<void(std::string_view)>& put) const {
    const auto line = [&put](const std::string& text) {
        put(text);
        put("\r\n");
    };
    for (const std::string& text : preamble_) {
        line(text);
    }
    for (const Block& block : blocks_) {
        line(block.header);
        for (const std::string& text : block.lines) {
            line(text);
        }
    }
}

} // namespace corvane
