#include "files/TagIndex.h"

#include <algorithm>

namespace corvane {

namespace {

char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// FNV-1a over the lower-cased bytes, then a final mix so that the low bits used for the
// position depend on every byte.
std::uint32_t HashTag(std::string_view tag) {
    std::uint64_t h = 14695981039346656037ULL;
    for (const char c : tag) {
        h = (h ^ static_cast<unsigned char>(LowerAscii(c))) * 1099511628211ULL;
    }
    h ^= h >> 33;
    h *= 0xff51afd7ed558ccdULL;
    h ^= h >> 33;
    return static_cast<std::uint32_t>(h);
}

void Prefetch(const void* address) {
#if defined(__GNUC__) || defined(__clang__)
    __builtin_prefetch(address, 1);
#else
    (void)address;
#endif
}

bool EqualsIgnoreCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) {
        return false;
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (LowerAscii(a[i]) != LowerAscii(b[i])) {
            return false;
        }
    }
    return true;
}

} // namespace

bool TagIndex::TagOfLine(std::string_view line, std::string_view& tag) {
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) {
        return false;
    }
    tag = line.substr(0, equals);
    const std::size_t first = tag.find_first_not_of(' ');
    tag = first == std::string_view::npos ? std::string_view()
                                          : tag.substr(first, tag.find_last_not_of(' ') - first + 1);
    return true;
}

void TagIndex::Clear() {
    slots_.clear();
    isFirst_.clear();
    next_ = 0;
    indexed_ = 0;
}

void TagIndex::Grow(std::size_t lineCount) {
    std::size_t capacity = slots_.empty() ? 16 : slots_.size();
    while (capacity < 2 * lineCount) {
        capacity *= 2;
    }
    if (capacity == slots_.size()) {
        return;
    }
    std::vector<Slot> old(capacity);
    old.swap(slots_);
    const std::size_t mask = slots_.size() - 1;
    for (const Slot& slot : old) {
        if (slot.linePlusOne != 0) {
            std::size_t at = slot.hash & mask;
            while (slots_[at].linePlusOne != 0) {
                at = (at + 1) & mask;
            }
            slots_[at] = slot;
        }
    }
}

bool TagIndex::Insert(const std::vector<std::string>& lines, std::string_view tag, std::uint32_t hash,
                      std::size_t line) {
    const std::size_t mask = slots_.size() - 1;
    std::size_t at = hash & mask;
    while (slots_[at].linePlusOne != 0) {
        std::string_view other;
        if (slots_[at].hash == hash && TagOfLine(lines[slots_[at].linePlusOne - 1], other) &&
            EqualsIgnoreCase(tag, other)) {
            return false; // the first line of a tag wins
        }
        at = (at + 1) & mask;
    }
    slots_[at] = Slot{hash, static_cast<std::uint32_t>(line + 1)};
    return true;
}

void TagIndex::Extend(const std::vector<std::string>& lines) {
    if (indexed_ >= lines.size()) {
        return;
    }
    // Sized for every line up front: at most half full whatever the lines hold.
    Grow(lines.size());
    isFirst_.resize(lines.size());
    // In groups: hash a group of lines and fetch their slots ahead, then insert them, so that
    // the cache misses of a table larger than the cache overlap instead of queueing.
    constexpr std::size_t kGroup = 16;
    std::string_view tags[kGroup];
    std::uint32_t hashes[kGroup];
    bool hasTag[kGroup];
    const std::size_t mask = slots_.size() - 1;
    while (indexed_ < lines.size()) {
        const std::size_t count = std::min(kGroup, lines.size() - indexed_);
        for (std::size_t i = 0; i < count; ++i) {
            hasTag[i] = TagOfLine(lines[indexed_ + i], tags[i]);
            hashes[i] = hasTag[i] ? HashTag(tags[i]) : 0;
            Prefetch(&slots_[hashes[i] & mask]);
        }
        for (std::size_t i = 0; i < count; ++i) {
            isFirst_[indexed_ + i] = hasTag[i] && Insert(lines, tags[i], hashes[i], indexed_ + i) ? 1 : 0;
        }
        indexed_ += count;
    }
}

std::size_t TagIndex::Find(const std::vector<std::string>& lines, std::string_view tag) {
    std::string_view other;
    if (next_ < indexed_ && isFirst_[next_] != 0 && TagOfLine(lines[next_], other) &&
        EqualsIgnoreCase(tag, other)) {
        return next_++;
    }
    if (slots_.empty()) {
        return npos;
    }
    const std::uint32_t hash = HashTag(tag);
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t at = hash & mask; slots_[at].linePlusOne != 0; at = (at + 1) & mask) {
        if (slots_[at].hash != hash) {
            continue;
        }
        const std::size_t line = slots_[at].linePlusOne - 1;
        if (TagOfLine(lines[line], other) && EqualsIgnoreCase(tag, other)) {
            next_ = line + 1;
            return line;
        }
    }
    return npos;
}

} // namespace corvane
