// Visiting a Value reaches the overload of the alternative it holds, with the held value.
#include <foundation/json/visit.hpp>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <type_traits>
#include <vector>

namespace {

using namespace foundation::json;

// Answers with the tag that each overload stands for, so a wrong branch shows as a wrong number.
struct TagOf {
    int operator()(Undefined) const { return 0; }
    int operator()(Null) const { return 1; }
    int operator()(bool) const { return 2; }
    int operator()(double) const { return 3; }
    int operator()(std::string const&) const { return 4; }
    int operator()(Array const&) const { return 5; }
    int operator()(Object const&) const { return 6; }
    int operator()(float) const { return 7; }
    int operator()(long long) const { return 8; }
    int operator()(unsigned long long) const { return 9; }
};

TEST(Visit, CallsTheOverloadOfTheHeldAlternative)
{
    Value const values[] = {Value(), Value(Null{}), Value(true), Value(1.0), Value("s"), Value(Array{}),
        Value(Object{}), Value(1.0f), Value(1LL), Value(1ULL)};
    for (Value const& v : values)
        EXPECT_EQ(visit(TagOf{}, v), v.which());
}

TEST(Visit, PassesTheHeldValueWithoutCopying)
{
    Value const v(Array{Value(1.0), Value(2.0)});
    auto const* seen = visit(
        [](auto const& held) -> void const* {
            if constexpr (std::is_same_v<std::decay_t<decltype(held)>, Array>)
                return &held;
            return nullptr;
        },
        v);
    EXPECT_EQ(seen, &json_cast<Array>(v));
}

} // namespace
