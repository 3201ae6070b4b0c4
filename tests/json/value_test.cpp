// Value: tags and visiting, copying, moving, assigning, comparing and very deep trees.
#include <foundation/json/value.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/serialize.hpp>
#include <foundation/json/visit.hpp>

#include <gtest/gtest.h>

#include <limits>
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
        char const* what;
        Value a;
        Value b;
        bool equal;
    };
    static const Case cases[] = {
        {"undefined", Value(), Undefined(), true}, {"null", Null(), Null(), true},
        {"undefined is no null", Value(), Null(), false}, {"double is no float", 1.0, 1.0f, false},
        {"int64 is no uint64", 1LL, 1ULL, false}, {"signed zeros", 0.0, -0.0, true}, {"NaN", nan, nan, false},
        {"NaN in an array", Array{nan}, Array{nan}, false}, {"array sizes", Array{1.0}, Array{1.0, 1.0}, false},
        {"array last element", Array{1.0, 2.0}, Array{1.0, 3.0}, false},
        {"object keys", Object{{"a", 1.0}}, Object{{"b", 1.0}}, false},
        {"nested object value", nested_sample(),
         Object{{"list", Array{1.0, "two", Object{{"deep", Array{4LL}}}}}, {"name", "zq"}}, false},
        {"nested equal", nested_sample(), nested_sample(), true},
        {"empty array is no empty object", Array(), Object(), false},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(c.a == c.b, c.equal) << c.what;
        EXPECT_EQ(c.b == c.a, c.equal) << c.what;
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
