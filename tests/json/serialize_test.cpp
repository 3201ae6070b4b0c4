// serialize: numbers, escapes, nesting, indentation and refused non-finite numbers.
#include <foundation/json/serialize.hpp>

#include "expect_throw.hpp"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <string>

using namespace foundation::json;

namespace {

char const non_finite[] = "Cannot serialize a non-finite number: JSON has no NaN or infinity";

struct Case {
    Value value;
    std::string text;
};

TEST(Serialize, NumbersStringsLiteralsAndNesting)
{
    float const below_flt_max = std::nextafter(FLT_MAX, 0.0f);
    static const Case cases[] = {
        // Doubles: integers in plain digits up to 2^53 and beyond, the shortest text that reads back.
        {8.0, "8"}, {100000.0, "100000"}, {-0.0, "-0"}, {0.0, "0"}, {-123456789.0, "-123456789"},
        {9007199254740991.0, "9007199254740991"}, {9007199254740992.0, "9007199254740992"},
        {1e17, "1e+17"}, {1e21, "1e+21"}, {1e22, "1e+22"}, {0.1, "0.1"}, {1.5, "1.5"}, {-2.5e-7, "-2.5e-07"},
        {5e-324, "5e-324"}, {DBL_MAX, "1.7976931348623157e+308"},
        // Floats, shortest as floats except at the ends of their range.
        {0.1f, "0.1"}, {-0.0f, "-0"}, {16777215.0f, "16777215"}, {16777216.0f, "16777216"}, {1e10f, "1e+10"},
        {1.5f, "1.5"}, {FLT_MAX, "3.4028234663852886e+38"}, {-FLT_MAX, "-3.4028234663852886e+38"},
        {below_flt_max, "3.4028233e+38"}, {FLT_MIN, "1.1754944e-38"},
        {LLONG_MIN, "-9223372036854775808"}, {LLONG_MAX, "9223372036854775807"},
        {ULLONG_MAX, "18446744073709551615"}, {0ULL, "0"},
        // Strings: escapes, and encoded surrogates as \u escapes only when a whole one is there.
        {"", R"("")"}, {"plain / text \x7F", "\"plain / text \x7F\""}, {"\"", R"("\"")"}, {"\\", R"("\\")"},
        {"\b\f\n\r\t", R"("\b\f\n\r\t")"}, {std::string(1, '\0'), R"("\u0000")"},
        {"\x01\x1f", R"("\u0001\u001f")"}, {"\x0b", R"("\u000b")"}, {"a\"b\\c\nd", R"("a\"b\\c\nd")"},
        {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", "\"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80\""},
        {"\xED\xA0\x80", "\"\xED\xA0\x80\""}, {"\xED\xA0\x80\xED\xB0\x80", R"("\ud800\udc00")"},
        {"\xED\xBF\xBF", R"("\udfff")"}, {"x\xED\xAF\xBFy\xED\xB0\x80z", "\"x\xED\xAF\xBFy\\udc00z\""},
        {"\xED\x9F\xBF", "\"\xED\x9F\xBF\""}, {"\xED\xA0", "\"\xED\xA0\""}, {"\xED\xA0\x7F", "\"\xED\xA0\x7F\""},
        {"\xFF\xFE\x80", "\"\xFF\xFE\x80\""},
        // Literals and containers; members in the byte order of their keys, whatever the order they were made in.
        {true, "true"}, {false, "false"}, {Null(), "null"}, {Value(), "null"}, {Array{Value(), Null()}, "[null,null]"},
        {Object{{"u", Value()}}, R"({"u":null})"}, {Array(), "[]"}, {Object(), "{}"}, {Array{Array(), Object()}, "[[],{}]"},
        {Array{1.0, "a", Array{2LL, Array{3ULL}}}, R"([1,"a",[2,[3]]])"},
        {Object{{"a\"", Object{{"\n", Array{Object()}}}}}, R"({"a\"":{"\n":[{}]}})"},
        {Object{{"b", 1.0}, {"ab", 1.0}, {"\xC3\xA9", 1.0}, {"a", 1.0}, {"z", 1.0}, {"Z", 1.0}, {"", 1.0}},
         "{\"\":1,\"Z\":1,\"a\":1,\"ab\":1,\"b\":1,\"z\":1,\"\xC3\xA9\":1}"},
    };
    for (Case const& c : cases)
        EXPECT_EQ(serialize(c.value), c.text);
}

TEST(Serialize, IndentedForPeople)
{
    Value const tree = Object{{"b", Array{1.0, Object{{"c", true}}, Array()}}, {"a", Object()}, {"d", "x"}};
    EXPECT_EQ(serialize(tree, 2), "{\n  \"a\": {},\n  \"b\": [\n    1,\n    {\n      \"c\": true\n    },\n    []\n  ],\n"
                                  "  \"d\": \"x\"\n}");
    EXPECT_EQ(serialize(Array{1.0, 2.0}, 1), "[\n 1,\n 2\n]");
    EXPECT_EQ(serialize(tree, 0), serialize(tree));
    EXPECT_EQ(serialize(1.5, 4), "1.5");
}

TEST(Serialize, NonFiniteNumbersAreRefused)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const inf = std::numeric_limits<double>::infinity();
    Value const values[] = {nan, -inf, std::numeric_limits<float>::infinity(), Array{1.0, Array{nan}},
                            Object{{"a", 1.0}, {"b", Object{{"c", -inf}}}}};
    for (Value const& value : values) {
        EXPECT_THROW_WHAT(serialize(value), SerializeError, non_finite);
        EXPECT_THROW_WHAT(serialize(value, 2), SerializeError, non_finite);
    }
}

} // namespace
