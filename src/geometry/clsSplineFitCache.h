#pragma once

// Fitted curves kept for a while, keyed on everything a fit reads: the input points, the end
// tangents, the spacing method and the base shift, all compared bit for bit. A fit of the same
// input is the same arithmetic on the same numbers, so a kept result is exactly the result the
// fit would give again.
//
// The cache is only active while a SplineFitHold lives (see HoldSplineFits): the evaluation chain
// holds one while it brings the scan and its reference up to date, and the search for the best
// class holds one over its four runs, where only the tolerance windows change from run to run
// (the panels are counted by the project's own class every time) and every raw curve is
// fitted again unchanged. A fit that ran into an error is never kept,
// so that it is fitted, and told about, again.

#include "geometry/clsSplineFit.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

namespace corvane {

class clsSplineFitCache {
public:
    // What a fit reads besides its input points.
    struct Settings {
        std::array<double, 4> tangents{}; // start X, start Y, end X, end Y as handed in
        std::int32_t method = 0;
        std::int32_t baseShift = 0;
    };
    static_assert(sizeof(Settings) == 4 * sizeof(double) + 2 * sizeof(std::int32_t),
                  "Settings is hashed as bytes: no padding");
    // What a fit leaves behind.
    struct Result {
        std::array<double, 4> tangents{}; // as handed back
        std::vector<PointDouble> points;  // after repeats were dropped; empty when none were
        std::shared_ptr<const std::vector<PointDouble>> control; // shared with the fits that use it
        int knotOrder = 0;
    };

    // The cache in force on this thread, or null when no hold is alive.
    static clsSplineFitCache* Active();

    // The kept result of a fit of `input` with `settings`, or null.
    const Result* Find(const std::vector<PointDouble>& input, const Settings& settings) const;
    // Keeps a result that Find did not find, unless the cache has reached its size limit.
    void Keep(std::vector<PointDouble>&& input, const Settings& settings, Result result);

    std::size_t Entries() const { return entries_; }
    std::size_t Bytes() const { return bytes_; }

    // A limit on the memory kept: beyond it fits are simply not kept. Well above what a heavy
    // scan and its reference need (some 30 MB for 7 blades of 8 sections of 2,000 points).
    static constexpr std::size_t kMaxBytes = std::size_t{256} << 20;

private:
    struct Entry {
        std::vector<PointDouble> input;
        Settings settings;
        Result result;
    };
    static std::uint64_t KeyOf(const std::vector<PointDouble>& input, const Settings& settings);
    static bool Same(const Entry& entry, const std::vector<PointDouble>& input, const Settings& settings);

    std::unordered_multimap<std::uint64_t, Entry> map_;
    std::size_t entries_ = 0;
    std::size_t bytes_ = 0;
};

// Makes a cache active on this thread until the handle is released. Holds nest: an inner hold
// shares the cache of the outer one.
std::shared_ptr<void> HoldSplineFits();

// While one lives on this thread no fit is kept or looked up, whatever holds are alive: every
// curve is fitted afresh. A run under it is what a kept run must give, bit for bit.
class SplineFitsFresh {
public:
    SplineFitsFresh();
    ~SplineFitsFresh();
    SplineFitsFresh(const SplineFitsFresh&) = delete;
    SplineFitsFresh& operator=(const SplineFitsFresh&) = delete;
};

// Forgets every hold and every SplineFitsFresh of this thread: no cache is active. Tests call it
// between cases, when no hold or fresh scope of theirs is alive any more.
void ResetSplineFitHolds();

} // namespace corvane
