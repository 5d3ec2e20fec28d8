#pragma once

// A matcher for a call that throws the program's error of the given number.

#include "model/CorvaneError.h"

#include <gmock/gmock.h>

namespace corvane::test {

inline auto Fails(int number) {
    return testing::Throws<CorvaneError>(testing::Property(&CorvaneError::Number, number));
}

} // namespace corvane::test
