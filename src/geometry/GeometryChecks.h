#pragma once

// Checked element access and the arithmetic errors of the geometry code. A bad index or a
// division that would give infinity is raised as the station's numbered error, so that it
// reaches the caller's error handler instead of producing a NaN that travels on into results.

#include "model/CorvaneError.h"

#include <cstddef>
#include <vector>

namespace corvane::geometry {

// Out of line, so that At stays small enough to inline: it sits in every inner loop.
[[noreturn]] void ThrowSubscriptOutOfRange();

template <class T> T& At(std::vector<T>& v, long long i) {
    if (i < 0 || static_cast<std::size_t>(i) >= v.size()) {
        ThrowSubscriptOutOfRange();
    }
    return v[static_cast<std::size_t>(i)];
}

template <class T> const T& At(const std::vector<T>& v, long long i) {
    if (i < 0 || static_cast<std::size_t>(i) >= v.size()) {
        ThrowSubscriptOutOfRange();
    }
    return v[static_cast<std::size_t>(i)];
}

[[noreturn]] inline void ThrowDivisionByZero() {
    throw CorvaneError(ErrorNumber::DivisionByZero, "Division by zero");
}

[[noreturn]] inline void ThrowOverflow() {
    throw CorvaneError(ErrorNumber::Overflow, "Overflow");
}

} // namespace corvane::geometry
