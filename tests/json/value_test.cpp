// Value: tags, visiting and json_cast, copying, moving, assigning, comparing and very deep trees.
#include <foundation/json/value.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/serialize.hpp>
#include <foundation/json/visit.hpp>

#include "expect_throw.hpp"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <typeindex>
#include <typeinfo>
#include <vector>

using namespace foundation::json;

namespace {

// The library refuses to guess a number alternative, or to take a null pointer as text.
static_assert(!std::is_constructible_v<Value, int>);
static_assert(!std::is_constructible_v<Value, std::nullptr_t>);

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
std::type_index const held[] = {typeid(Undefined), typeid(Null), typeid(bool), typeid(double), typeid(std::string),
    typeid(Array), typeid(Object), typeid(float), typeid(long long), typeid(unsigned long long)};

TEST(JsonValue, ConstructorsGiveTheirTagsAndVisitReachesTheirOverload)
{
    struct Case {
        char const* what;
        Value value;
        int tag;
    };
    static const Case cases[] = {
        {"default", Value(), 0}, {"Undefined", Value(Undefined()), 0}, {"Null", Value(Null()), 1},
        {"bool", Value(false), 2}, {"double", Value(1.0), 3}, {"std::string", Value(std::string("abc")), 4},
        {"string literal", Value("abc"), 4}, {"string_view", Value(std::string_view("abc")), 4},
        {"Array", Value(Array()), 5}, {"Object", Value(Object()), 6}, {"float", Value(1.0f), 7},
        {"long long", Value(1LL), 8}, {"unsigned long long", Value(1ULL), 9},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(c.value.which(), c.tag) << c.what;
        EXPECT_EQ(visit([](auto const& v) { return std::type_index(typeid(v)); }, c.value), held[c.tag]) << c.what;
    }
    // The visitor is handed the held value itself, not a copy.
    Value const array(Array{1.0});
    auto const* seen = visit([](auto const& v) -> void const* { return &v; }, array);
    EXPECT_EQ(seen, &json_cast<Array>(array));
}

// The names messages give the alternatives, by tag.
char const* const names[] = {
    "undefined value", "JSON null",  "JSON boolean",         "JSON number",         "JSON string",
    "JSON array",      "JSON object", "JSON number (single)", "JSON number (int64)", "JSON number (uint64)",
};

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

// The alternatives in tag order.
template <typename... T>
void check_casts_to_each()
{
    int tag = 0;
    (check_casts_to<T>(tag++), ...);
}

TEST(JsonCast, GivesOnlyTheExactAlternative)
{
    check_casts_to_each<Undefined, Null, bool, double, std::string, Array, Object, float, long long, unsigned long long>();
}

TEST(JsonCast, MutableAccessChangesTheValueInPlace)
{
    Value value = Array();
    json_cast<Array>(value).push_back(1.0);
    json_cast<double>(json_cast<Array>(value)[0]) = 2.0;
    EXPECT_EQ(value, Value(Array{2.0}));
}

TEST(JsonValue, CopyIsIndependentAndAssignmentMayComeFromInsideTheTree)
{
    Value const original = nested_sample();
    Value copy = original;
    EXPECT_EQ(copy, original);
    json_cast<Array>(json_cast<Object>(json_cast<Array>(json_cast<Object>(copy)["list"])[2])["deep"])[0] = 9LL;
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
        EXPECT_EQ(constructed, from);
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

TEST(JsonValue, Equality)
{
    double const nan = std::numeric_limits<double>::quiet_NaN();
    struct Case {
        Value a;
        Value b;
        bool equal;
    };
    // Undefined is no null, a double no float, an int64 no uint64, an empty array no empty object; NaN
    // equals nothing, not even itself inside an array.
    static const Case cases[] = {{Value(), Undefined(), true}, {Null(), Null(), true}, {Value(), Null(), false},
        {1.0, 1.0f, false}, {1LL, 1ULL, false}, {0.0, -0.0, true}, {nan, nan, false}, {Array{nan}, Array{nan}, false},
        {Array{1.0}, Array{1.0, 1.0}, false}, {Array{1.0, 2.0}, Array{1.0, 3.0}, false},
        {Object{{"a", 1.0}}, Object{{"b", 1.0}}, false}, {Array(), Object(), false},
        {nested_sample(), Object{{"list", Array{1.0, "two", Object{{"deep", Array{4LL}}}}}, {"name", "zq"}}, false},
        {nested_sample(), nested_sample(), true}};
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        EXPECT_EQ(cases[i].a == cases[i].b, cases[i].equal) << "row " << i;
        EXPECT_EQ(cases[i].b == cases[i].a, cases[i].equal) << "row " << i;
    }
}

constexpr int deep = 1'000'000;

// A chain of `deep` containers around inner, each holding the next: built by moving, as a reader would.
Value deep_chain(bool objects, Value inner)
{
    for (int level = 0; level < deep; ++level) {
        // Not through initializer lists: those copy their elements.
        if (objects) {
            Object object;
            object.emplace("k", std::move(inner));
            inner = std::move(object);
        } else {
            Array array;
            array.push_back(std::move(inner));
            inner = std::move(array);
        }
    }
    return inner;
}

TEST(JsonValue, MillionDeepTreesCopyCompareSerializeAndFree)
{
    for (bool const objects : {false, true}) {
        Value const chain = deep_chain(objects, Array());
        Value copy = chain;
        EXPECT_TRUE(copy == chain);
        EXPECT_FALSE(copy == deep_chain(objects, Array{Null()}));
        EXPECT_EQ(serialize(copy).size(), objects ? 6u * deep + 2 : 2u * deep + 2);
        Value moved_over = chain;
        moved_over = std::move(copy);
    }
}

} // namespace
