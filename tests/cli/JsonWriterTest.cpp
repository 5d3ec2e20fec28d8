#include "cli/JsonWriter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

namespace corvane::cli {
namespace {

TEST(JsonWriter, NestsWithCommasOnlyBetweenValues) {
    std::ostringstream out;
    JsonWriter json(out, false);
    json.BeginObject().Field("A", 1).Key("B").BeginArray();
    json.BeginObject().Field("C", "x").EndObject();
    json.BeginArray().EndArray();
    json.Null().EndArray().Field("D", true).Key("E").BeginObject().EndObject().EndObject();
    EXPECT_EQ(out.str(), R"({"A":1,"B":[{"C":"x"},[],null],"D":true,"E":{}})");
}

TEST(JsonWriter, NumbersRoundTripAndNeverLeakNaN) {
    std::ostringstream out;
    JsonWriter json(out, false);
    const double third = 1.0 / 3.0;
    json.BeginArray()
        .Number(third)
        .Number(36.0)
        .Number(1.5e-5)
        .Number(std::numeric_limits<double>::quiet_NaN())
        .Number(-std::numeric_limits<double>::infinity())
        .EndArray();
    EXPECT_EQ(out.str(), "[0.3333333333333333,36,1.5e-05,null,null]");
    EXPECT_EQ(std::stod("0.3333333333333333"), third);
}

TEST(JsonWriter, EscapesQuotesControlsAndLineBreaks) {
    std::ostringstream out;
    JsonWriter json(out, false);
    json.String("a\"b\\c\r\nd\x01 \xc3\xa9");
    EXPECT_EQ(out.str(), "\"a\\\"b\\\\c\\r\\nd\\u0001 \xc3\xa9\"");
}

TEST(JsonWriter, PrettyFormIndentsByLevel) {
    std::ostringstream out;
    JsonWriter json(out);
    json.BeginObject().Key("L").BeginArray().Integer(1).Integer(2).EndArray().EndObject().Finish();
    EXPECT_EQ(out.str(), "{\n  \"L\": [\n    1,\n    2\n  ]\n}\n");
}

} // namespace
} // namespace corvane::cli
