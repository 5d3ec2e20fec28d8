#include "geometry/clsSplineFitCache.h"

#include <cstring>
#include <string_view>
#include <utility>

namespace corvane {

namespace {

thread_local clsSplineFitCache* tActive = nullptr;
thread_local int tFresh = 0;

bool SameBits(const void* a, const void* b, std::size_t bytes) {
    return bytes == 0 || std::memcmp(a, b, bytes) == 0;
}

std::size_t PointBytes(const std::vector<PointDouble>& v) {
    return v.size() * sizeof(PointDouble);
}

} // namespace

clsSplineFitCache* clsSplineFitCache::Active() {
    return tFresh > 0 ? nullptr : tActive;
}

// The key is taken from the settings, the count and a few dozen points spread over the input:
// enough to tell the curves of a calculation apart, and cheap beside the full comparison that
// every candidate gets anyway.
std::uint64_t clsSplineFitCache::KeyOf(const std::vector<PointDouble>& input, const Settings& settings) {
    constexpr std::size_t kSampled = 32;
    std::array<PointDouble, kSampled + 1> picked{};
    const std::size_t n = input.size();
    const std::size_t step = n > kSampled ? n / kSampled : 1;
    std::size_t used = 0;
    for (std::size_t i = 0; i < n && used < kSampled; i += step) {
        picked[used++] = input[i];
    }
    if (n > 0) {
        picked[used++] = input[n - 1];
    }
    const std::string_view points(reinterpret_cast<const char*>(picked.data()), used * sizeof(PointDouble));
    const std::string_view rest(reinterpret_cast<const char*>(&settings), sizeof(Settings));
    const std::uint64_t a = std::hash<std::string_view>{}(points);
    const std::uint64_t b = std::hash<std::string_view>{}(rest);
    return a ^ ((b + n) * 0x9E3779B97F4A7C15ULL);
}

bool clsSplineFitCache::Same(const Entry& entry, const std::vector<PointDouble>& input,
                             const Settings& settings) {
    return entry.input.size() == input.size() && entry.settings.method == settings.method &&
           entry.settings.baseShift == settings.baseShift &&
           SameBits(entry.settings.tangents.data(), settings.tangents.data(), sizeof(settings.tangents)) &&
           SameBits(entry.input.data(), input.data(), PointBytes(input));
}

const clsSplineFitCache::Result* clsSplineFitCache::Find(const std::vector<PointDouble>& input,
                                                         const Settings& settings) const {
    auto [first, last] = map_.equal_range(KeyOf(input, settings));
    for (auto it = first; it != last; ++it) {
        if (Same(it->second, input, settings)) {
            return &it->second.result;
        }
    }
    return nullptr;
}

void clsSplineFitCache::Keep(std::vector<PointDouble>&& input, const Settings& settings, Result result) {
    const std::size_t bytes = PointBytes(input) + PointBytes(result.points) +
                              (result.control ? PointBytes(*result.control) : 0) + sizeof(Entry);
    if (bytes_ + bytes > kMaxBytes) {
        return;
    }
    const std::uint64_t key = KeyOf(input, settings);
    map_.emplace(key, Entry{std::move(input), settings, std::move(result)});
    bytes_ += bytes;
    ++entries_;
}

SplineFitsFresh::SplineFitsFresh() {
    ++tFresh;
}

SplineFitsFresh::~SplineFitsFresh() {
    --tFresh;
}

void ResetSplineFitHolds() {
    tActive = nullptr;
    tFresh = 0;
}

std::shared_ptr<void> HoldSplineFits() {
    if (tActive || tFresh > 0) {
        return nullptr; // the outer hold keeps the cache
    }
    auto cache = std::make_shared<clsSplineFitCache>();
    tActive = cache.get();
    return std::shared_ptr<void>(cache.get(), [cache](void*) mutable {
        if (tActive == cache.get()) {
            tActive = nullptr;
        }
        cache.reset();
    });
}

} // namespace corvane
