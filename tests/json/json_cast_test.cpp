// json_cast: exact-alternative access, and the text of every refused conversion.
#include <foundation/json/json_cast.hpp>

#include "expect_throw.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using namespace foundation::json;

namespace {

// The names messages give the alternatives, by tag.
char const* const names[] = {
    "undefined value", "JSON null",  "JSON boolean",         "JSON number",         "JSON string",
    "JSON array",      "JSON object", "JSON number (single)", "JSON number (int64)", "JSON number (uint64)",
};

Value const samples[] = {Value(), Null(), true, 2.5, "text", Array{1.0}, Object{{"k", 1.0}}, 1.5f, -3LL, 4ULL};

// Casting every sample to T: the one holding T gives it, every other throws with the exact text.
template <typename T>
void check_casts_to(int tag, T const& expected)
{
    for (Value const& sample : samples) {
        if (sample.which() == tag) {
            EXPECT_EQ(json_cast<T>(sample), expected) << names[tag];
        } else {
            EXPECT_THROW_WHAT(json_cast<T>(sample), std::runtime_error,
                              std::string("invalid conversion: ") + names[sample.which()] + " to " + names[tag]);
        }
    }
}

TEST(JsonCast, GivesOnlyTheExactAlternative)
{
    check_casts_to<Undefined>(0, Undefined());
    check_casts_to<Null>(1, Null());
    check_casts_to<bool>(2, true);
    check_casts_to<double>(3, 2.5);
    check_casts_to<std::string>(4, "text");
    check_casts_to<Array>(5, Array{1.0});
    check_casts_to<Object>(6, Object{{"k", 1.0}});
    check_casts_to<float>(7, 1.5f);
    check_casts_to<long long>(8, -3LL);
    check_casts_to<unsigned long long>(9, 4ULL);
}

TEST(JsonCast, MutableAccessChangesTheValueInPlace)
{
    Value value = Array();
    json_cast<Array>(value).push_back(1.0);
    json_cast<double>(json_cast<Array>(value)[0]) = 2.0;
    EXPECT_EQ(value, Value(Array{2.0}));
}

} // namespace
