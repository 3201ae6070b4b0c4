// Value: tags, visiting and json_cast, copying, moving, assigning, comparing, very deep trees, and the
// text serialize gives: numbers, escapes, nesting, indentation and refused non-finite numbers.
#include <foundation/json/value.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/serialize.hpp>
#include <foundation/json/visit.hpp>

#include "expect_throw.hpp"

#include <gtest/gtest.h>

#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <typeindex>
#include <vector>

using namespace foundation::json;

// The library refuses to guess a number alternative, or to take a null pointer as text.
static_assert(!std::is_constructible_v<Value, int>);
static_assert(!std::is_constructible_v<Value, std::nullptr_t>);

namespace {

Value nested_sample()
{
    return Object{{"list", Array{1.0, "two", Object{{"deep", Array{3LL}}}}}, {"name", "zq"}};
}

// One value of each alternative, in tag order, some owning memory.
std::vector<Value> one_of_each()
{
    return {Value(), Null(), true, 2.5, "a string long enough to live on the heap", Array{1.0, Array{}},
        nested_sample(), 1.5f, -3LL, 4ULL};
}

// The class of each alternative, by tag, as visit must hand it over.
std::type_index const held[] = {typeid(Undefined), typeid(Null), typeid(bool), typeid(double),
    typeid(std::string), typeid(Array), typeid(Object), typeid(float), typeid(long long),
    typeid(unsigned long long)};

// The names messages give the alternatives, by tag.
char const* const names[] = {"undefined value", "JSON null", "JSON boolean", "JSON number", "JSON string",
    "JSON array", "JSON object", "JSON number (single)", "JSON number (int64)", "JSON number (uint64)"};

// Casting each of one_of_each() to T: the one holding T gives what it holds, every other throws with
// the exact text.
template <typename T>
void check_casts_to(int tag)
{
    for (Value const& sample : one_of_each()) {
        if (sample.which() == tag)
            EXPECT_EQ(Value(json_cast<T>(sample)), sample) << names[tag];
        else
            EXPECT_THROW_WHAT(json_cast<T>(sample), std::runtime_error,
                std::string("invalid conversion: ") + names[sample.which()] + " to " + names[tag]);
    }
}

} // namespace

TEST(JsonValue, ConstructorsGiveTheirTagsAndVisitReachesTheirOverload)
{
    std::pair<Value, int> const cases[] = {{Value(), 0}, {Value(Undefined()), 0}, {Value(Null()), 1},
        {Value(false), 2}, {Value(1.0), 3}, {Value(std::string("abc")), 4}, {Value("abc"), 4},
        {Value(std::string_view("abc")), 4}, {Value(Array()), 5}, {Value(Object()), 6}, {Value(1.0f), 7},
        {Value(1LL), 8}, {Value(1ULL), 9}};
    for (auto const& [value, tag] : cases) {
        EXPECT_EQ(value.which(), tag);
        EXPECT_EQ(visit([](auto const& v) { return std::type_index(typeid(v)); }, value), held[tag]) << tag;
    }
    // The visitor is handed the held value itself, not a copy.
    Value const array(Array{1.0});
    EXPECT_EQ(visit([](auto const& v) -> void const* { return &v; }, array), &json_cast<Array>(array));
}

TEST(JsonCast, GivesOnlyTheExactAlternative)
{
    int tag = 0;
    auto each = [&tag]<typename... T>() { (check_casts_to<T>(tag++), ...); };
    each.operator()<Undefined, Null, bool, double, std::string, Array, Object, float, long long,
        unsigned long long>();
}

TEST(JsonValue, CopyIsIndependentAndAssignmentMayComeFromInsideTheTree)
{
    Value const original = nested_sample();
    Value copy = original;
    Value& deep = json_cast<Object>(json_cast<Array>(json_cast<Object>(copy)["list"])[2])["deep"];
    json_cast<Array>(deep)[0] = 9LL;
    json_cast<std::string>(json_cast<Object>(copy)["name"]) += "!";
    EXPECT_EQ(json_cast<Object>(copy)["absent"].which(), 0);
    EXPECT_NE(copy, original);
    EXPECT_EQ(original, nested_sample());

    Value const list = json_cast<Object>(copy)["list"];
    copy = json_cast<Object>(copy)["list"];
    EXPECT_EQ(copy, list);
    Value moved = nested_sample();
    moved = std::move(json_cast<Object>(moved)["name"]);
    EXPECT_EQ(moved, Value("zq"));
}

// Moves leave their source Undefined; assigning a value to itself changes nothing.
TEST(JsonValue, CopyAndMoveAcrossEveryPairOfAlternatives)
{
    std::vector<Value> const samples = one_of_each();
    for (Value const& from : samples) {
        Value source = from;
        Value constructed(std::move(source));
        EXPECT_EQ(source.which(), 0);
        Value& alias = constructed;
        constructed = alias;
        EXPECT_EQ(constructed, from);
        constructed = std::move(alias);
        EXPECT_EQ(constructed, from);
        for (Value const& to : samples) {
            Value copied = to;
            copied = from;
            EXPECT_EQ(copied, from) << to.which() << " = " << from.which();
            Value moved = to;
            moved = std::move(copied);
            EXPECT_EQ(copied.which(), 0);
            EXPECT_EQ(moved, from) << to.which() << " = move " << from.which();
        }
    }
}

// Undefined is no null, a double no float, an int64 no uint64, an empty array no empty object; NaN
// equals nothing, not even itself inside an array.
TEST(JsonValue, Equality)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    Value const changed = Object{{"list", Array{1.0, "two", Object{{"deep", Array{4LL}}}}}, {"name", "zq"}};
    std::tuple<Value, Value, bool> const cases[] = {{Value(), Undefined(), true}, {Null(), Null(), true},
        {Value(), Null(), false}, {1.0, 1.0f, false}, {1LL, 1ULL, false}, {0.0, -0.0, true},
        {nan, nan, false}, {Array{nan}, Array{nan}, false}, {Array{1.0}, Array{1.0, 1.0}, false},
        {Array{1.0, 2.0}, Array{1.0, 3.0}, false}, {Object{{"a", 1.0}}, Object{{"b", 1.0}}, false},
        {Array(), Object(), false}, {nested_sample(), changed, false},
        {nested_sample(), nested_sample(), true}};
    int row = 0;
    for (auto const& [a, b, equal] : cases) {
        EXPECT_EQ(a == b, equal) << "row " << row;
        EXPECT_EQ(b == a, equal) << "row " << row++;
    }
}

// Chains of a million containers, each holding the next, built by moving as a reader would (not
// through initializer lists: those copy their elements).
TEST(JsonValue, MillionDeepTreesCopyCompareSerializeAndFree)
{
    constexpr int deep = 1'000'000;
    for (bool const objects : {false, true}) {
        auto chain = [objects](Value inner) {
            for (int level = 0; level < deep; ++level) {
                Value outer = objects ? Value(Object()) : Value(Array());
                if (objects)
                    json_cast<Object>(outer).emplace("k", std::move(inner));
                else
                    json_cast<Array>(outer).push_back(std::move(inner));
                inner = std::move(outer);
            }
            return inner;
        };
        Value const original = chain(Array());
        Value copy = original;
        EXPECT_TRUE(copy == original);
        EXPECT_FALSE(copy == chain(Array{Null()}));
        EXPECT_EQ(serialize(copy).size(), objects ? 6u * deep + 2 : 2u * deep + 2);
        Value moved_over = original;
        moved_over = std::move(copy);
    }
}

TEST(Serialize, NumbersStringsLiteralsAndNesting)
{
    float const below_flt_max = std::nextafter(FLT_MAX, 0.0f);
    std::pair<Value, std::string> const cases[] = {
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
        {"\xED\x9F\xBF", "\"\xED\x9F\xBF\""}, {"\xED\xA0", "\"\xED\xA0\""},
        {"\xED\xA0\x7F", "\"\xED\xA0\x7F\""}, {"\xFF\xFE\x80", "\"\xFF\xFE\x80\""},
        // Literals and containers; members in the byte order of their keys, whatever order they came in.
        {true, "true"}, {false, "false"}, {Null(), "null"}, {Value(), "null"},
        {Array{Value(), Null()}, "[null,null]"}, {Object{{"u", Value()}}, R"({"u":null})"}, {Array(), "[]"},
        {Object(), "{}"}, {Array{Array(), Object()}, "[[],{}]"},
        {Array{1.0, "a", Array{2LL, Array{3ULL}}}, R"([1,"a",[2,[3]]])"},
        {Object{{"a\"", Object{{"\n", Array{Object()}}}}}, R"({"a\"":{"\n":[{}]}})"},
        {Object{{"b", 1.0}, {"ab", 1.0}, {"\xC3\xA9", 1.0}, {"a", 1.0}, {"z", 1.0}, {"Z", 1.0}, {"", 1.0}},
         "{\"\":1,\"Z\":1,\"a\":1,\"ab\":1,\"b\":1,\"z\":1,\"\xC3\xA9\":1}"},
    };
    for (auto const& [value, text] : cases)
        EXPECT_EQ(serialize(value), text);
}

TEST(Serialize, IndentedForPeopleAndNonFiniteNumbersRefused)
{
    Value const tree = Object{{"b", Array{1.0, Object{{"c", true}}, Array()}}, {"a", Object()}, {"d", "x"}};
    EXPECT_EQ(serialize(tree, 2),
        "{\n  \"a\": {},\n  \"b\": [\n    1,\n    {\n      \"c\": true\n    },\n    []\n  ],\n"
        "  \"d\": \"x\"\n}");
    EXPECT_EQ(serialize(Array{1.0, 2.0}, 1), "[\n 1,\n 2\n]");
    EXPECT_EQ(serialize(tree, 0), serialize(tree));
    EXPECT_EQ(serialize(1.5, 4), "1.5");
    double const nan = std::numeric_limits<double>::quiet_NaN();
    double const inf = std::numeric_limits<double>::infinity();
    char const text[] = "Cannot serialize a non-finite number: JSON has no NaN or infinity";
    for (Value const& value : {Value(nan), Value(-inf), Value(std::numeric_limits<float>::infinity()),
             Value(Array{1.0, Array{nan}}), Value(Object{{"a", 1.0}, {"b", Object{{"c", -inf}}}})}) {
        EXPECT_THROW_WHAT(serialize(value), SerializeError, text);
        EXPECT_THROW_WHAT(serialize(value, 2), SerializeError, text);
    }
}
