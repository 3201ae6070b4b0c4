// The comparison behind the differential tests and fuzz targets must tell apart what the written text
// does not show, and must not tell apart equal results: one that saw no difference would let every
// road pass unchecked, one that saw a difference in equal arrays would fail every comparison.
#include "reading_difference.hpp"

#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <exception>
#include <initializer_list>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

namespace zd = foundation::zorbaldata;
using zq::test::ReadingOutcome;

using Make = ReadingOutcome (*)();

ReadingOutcome array(zd::Array value)
{
    return {std::move(value), nullptr, {}};
}

ReadingOutcome read(std::string const& text)
{
    zd::ArrayFactory factory;
    return array(zd::json::string_to_zorbaldata(text, factory));
}

ReadingOutcome scalar(double value)
{
    return array(zd::ArrayFactory().createScalar(value));
}

ReadingOutcome fields(std::initializer_list<std::string> names)
{
    return array(zd::ArrayFactory().createStructArray({1, 1}, names));
}

// Two handle elements, with the object ids given.
std::string handles(char const* first, char const* second)
{
    return std::string(R"({"zqdata":[{"p":1},{"p":1}],"zqhandle":{"zqkvxID":"1","zqobjectID":[")") + first
        + R"(",")" + second + R"("]},"zqsize":[1,2],"zqtype":"pkg.H"})";
}

ReadingOutcome thrown(std::exception_ptr failure)
{
    return {std::nullopt, std::move(failure), {}};
}

struct Pair {
    char const* name;
    Make first;
    Make second;
    bool differ;
};

class RoadComparison : public ::testing::TestWithParam<Pair> {};

TEST_P(RoadComparison, TellsApartWhatDiffersOnly)
{
    std::string const first = zq::test::describe(GetParam().first());
    std::string const second = zq::test::describe(GetParam().second());
    if (GetParam().differ)
        EXPECT_NE(first, second);
    else
        EXPECT_EQ(first, second);
}

Pair const pairs[] = {
    {"SignOfZero", [] { return scalar(0.0); }, [] { return scalar(-0.0); }, true},
    {"NaNPayload", [] { return scalar(std::bit_cast<double>(std::uint64_t{0x7FF8000000000000})); },
        [] { return scalar(std::bit_cast<double>(std::uint64_t{0x7FF8000000000001})); }, true},
    {"FieldOrder", [] { return fields({"a", "b"}); }, [] { return fields({"b", "a"}); }, true},
    {"SharedHandle", [] { return read(handles("1", "1")); }, [] { return read(handles("1", "2")); }, true},
    {"ClassOfTheSameText", [] { return thrown(std::make_exception_ptr(std::runtime_error("x"))); },
        [] { return thrown(std::make_exception_ptr(std::logic_error("x"))); }, true},
    {"ArrayOrFailure", [] { return read(R"("x")"); },
        [] { return thrown(std::make_exception_ptr(std::runtime_error("x"))); }, true},
    // Handles of two readings are other objects, but shared alike.
    {"HandlesOfTwoReadings", [] { return read(handles("1", "1")); }, [] { return read(handles("7", "7")); },
        false},
    {"EqualNaNs", [] { return read(R"({"zqdata":"NaN"})"); },
        [] { return read(R"({"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"double"})"); }, false},
};

INSTANTIATE_TEST_SUITE_P(Results, RoadComparison, ::testing::ValuesIn(pairs),
    [](::testing::TestParamInfo<Pair> const& info) { return std::string(info.param.name); });

} // namespace
