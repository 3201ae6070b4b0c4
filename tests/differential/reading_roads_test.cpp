// Generated documents read by the text entry and by the tree entry must give the same arrays, the same
// failures and the same log lines: the comparison is read_both_ways's.
#include "document_generator.hpp"
#include "reading_paths.hpp"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

struct Run {
    char const* name;
    std::uint64_t seed;
    int documents;
    bool broken;
};

class ReadingRoads : public ::testing::TestWithParam<Run> {};

TEST_P(ReadingRoads, AgreeOnEveryDocument)
{
    zq::test::DocumentGenerator generator(GetParam().seed);
    int arrays = 0;
    for (int i = 0; i < GetParam().documents; ++i) {
        std::string const text = GetParam().broken ? generator.broken_document() : generator.document();
        SCOPED_TRACE(text);
        try {
            zq::test::read_both_ways(text);
            ++arrays;
        } catch (std::exception const&) {
            // Failures are compared like arrays; which it is does not matter here.
        }
        if (HasFailure())
            return;
    }
    // A generator that only made refused documents would test little.
    EXPECT_GT(arrays, GetParam().broken ? 0 : GetParam().documents / 4);
}

constexpr Run runs[] = {
    {"Valid", 1, 20000, false},
    {"ValidOtherSeed", 20261125, 20000, false},
    {"Broken", 2, 20000, true},
};

INSTANTIATE_TEST_SUITE_P(Generated, ReadingRoads, ::testing::ValuesIn(runs),
    [](::testing::TestParamInfo<Run> const& info) { return std::string(info.param.name); });

} // namespace

namespace {

// Arrays long enough for the text reader to keep their numbers in blocks of their own, which the array
// of a document's data takes over; the same arrays read through a tree must come out alike.
std::string numbers(std::size_t count, char const* first, char const* rest, char const* last = "")
{
    std::string text = "[";
    text += first;
    for (std::size_t i = 1; i < count; ++i)
        text.append(",").append(rest);
    return text + last + "]";
}

std::string large(std::string const& type, std::string const& data, std::size_t count, char const* more = "")
{
    return "{\"zqdata\":" + data + ",\"zqsize\":[1," + std::to_string(count) + "],\"zqtype\":\"" + type + "\"" + more
        + "}";
}

struct LongCase {
    char const* name;
    std::string text;
    bool reads;
};

class LongArrays : public ::testing::TestWithParam<LongCase> {};

TEST_P(LongArrays, ReadAlikeByBothRoads)
{
    bool read = true;
    try {
        zq::test::read_both_ways(GetParam().text);
    } catch (std::exception const&) {
        // Failures are compared like arrays.
        read = false;
    }
    EXPECT_EQ(read, GetParam().reads);
}

constexpr std::size_t many = 70000;

LongCase const long_cases[] = {
    {"Doubles", large("double", numbers(many, "-0.5", "1.25e3"), many), true},
    {"IntegersAsDoubles", large("double", numbers(many, "-7", "9007199254740993"), many), true},
    {"IntegersThenADouble", large("double", numbers(many, "3", "4", ",0.5"), many + 1), true},
    {"Int64", large("int64", numbers(many, "-9223372036854775808", "123"), many), true},
    {"Int64TypeFirst", "{\"zqtype\":\"int64\",\"zqdata\":" + numbers(many, "-1", "9223372036854775807") + ",\"zqsize\":[1,70000]}", true},
    {"Uint64NegativesReadAsZero", large("uint64", numbers(many, "-5", "18446744073709551615"), many), true},
    {"Int64BeyondItsRange", large("int64", numbers(many, "99999999999999999999", "1"), many), true},
    {"Int8OutOfRange", large("int8", numbers(many, "1", "300"), many), false},
    {"Int32", large("int32", numbers(many, "1", "-300"), many), true},
    {"TooFewForTheSize", large("double", numbers(many, "1", "2"), many + 1), false},
    {"Complex", large("double", numbers(many, "1", "2"), many / 2, ",\"zqcomplex\":true"), true},
    {"InACell", "{\"zqdata\":[" + large("double", numbers(many, "1", "2"), many) + "],\"zqsize\":[1,1],\"zqtype\":\"cell\"}", true},
    {"SmallForm", numbers(many, "1", "2.5"), true},
    {"ThenAString", numbers(many, "1", "2", ",\"x\""), false},
    {"ThenAnArray", large("cell", numbers(many, "1", "2", ",[3]"), many + 1), true},
    {"Rows", "[" + numbers(many, "1", "2") + "," + numbers(many, "3", "4") + "]", true},
};

INSTANTIATE_TEST_SUITE_P(Generated, LongArrays, ::testing::ValuesIn(long_cases),
    [](::testing::TestParamInfo<LongCase> const& info) { return std::string(info.param.name); });

} // namespace
