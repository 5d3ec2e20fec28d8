#include "files/TextEncoding.h"

#include <gtest/gtest.h>

namespace corvane {
namespace {

// ASCII is passed eight bytes at a time: a character, a stray byte and a character cut short by
// the end are each judged wherever they fall against those steps.
TEST(TextEncodingTest, Utf8IsJudgedWhereverTheFirstNonAsciiByteFalls) {
    for (std::size_t at = 0; at <= 17; ++at) {
        const std::string ascii(at, 'a');
        EXPECT_TRUE(IsValidUtf8(ascii + "\xC3\xBC" + ascii)) << at;
        EXPECT_FALSE(IsValidUtf8(ascii + "\xFC" + ascii)) << at;
        EXPECT_FALSE(IsValidUtf8(ascii + "\xE2\x82")) << at;
    }
}

} // namespace
} // namespace corvane
