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
