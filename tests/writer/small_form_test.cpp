// The small forms of double and logical arrays under ToJsonMode::Small: which arrays take them, and nesting.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/detail/element_values.hpp>
#include <foundation/zorbaldata/json/detail/small_form.hpp>

#include <boost/numeric/conversion/cast.hpp>

#include <limits>
#include <numeric>
#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

static WriteCase const doubleForms[] = {
    {"MatrixIsRowOfRows", [] { return doubles({2, 3}, {1, 4, 2, 5, 3, 6}); }, Small, String,
        "[[1,2,3],[4,5,6]]"},
    {"ScalarIsBareNumber", [] { return scalar(5); }, Small, String, "5"},
    {"ScalarNaNIsObjectUnderString", [] { return scalar(nan); }, Small, String, R"({"zqdata":"NaN"})"},
    {"ScalarInfIsObjectUnderObject", [] { return scalar(inf); }, Small, Object, R"({"zqdata":"Inf"})"},
    {"EmptySquareIsEmptyArray", [] { return doubles({0, 0}, {}); }, Small, String, "[]"},
    {"EmptyRowsKeepLargeForm", [] { return doubles({0, 3}, {}); }, Small, String,
        R"({"zqdata":[],"zqsize":[0,3],"zqtype":"double"})"},
    {"OneByZeroKeepsLargeForm", [] { return doubles({1, 0}, {}); }, Small, String,
        R"({"zqdata":[],"zqsize":[1,0],"zqtype":"double"})"},
    {"ColumnIsFlat", [] { return doubles({3, 1}, {1, 2, 3}); }, Small, String, "[1,2,3]"},
    {"RowIsNested", [] { return doubles({1, 3}, {1, 2, 3}); }, Small, String, "[[1,2,3]]"},
    {"CubeNestsByIndices", [] { return doubles({2, 2, 2}, {111, 211, 121, 221, 112, 212, 122, 222}); }, Small,
        String, "[[[111,112],[121,122]],[[211,212],[221,222]]]"},
    {"ThreeDimensionalScalarNests", [] { return doubles({1, 1, 1}, {7}); }, Small, String, "[[[7]]]"},
    {"NestedNonFiniteIsObjectUnderString", [] { return doubles({1, 2}, {nan, 1}); }, Small, String,
        R"([[{"zqdata":"NaN"},1]])"},
    {"FlatNegativeInfinity", [] { return doubles({2, 1}, {-inf, 2}); }, Small, String,
        R"([{"zqdata":"-Inf"},2])"},
};

static WriteCase const logicalForms[] = {
    {"ScalarIsBareBoolean", [] { return logicals({1, 1}, {true}); }, Small, String, "true"},
    {"ColumnIsFlat", [] { return logicals({2, 1}, {true, false}); }, Small, String, "[true,false]"},
    {"RowIsNested", [] { return logicals({1, 2}, {true, false}); }, Small, String, "[[true,false]]"},
    {"EmptySquareKeepsLargeForm", [] { return logicals({0, 0}, {}); }, Small, String,
        R"({"zqdata":[],"zqsize":[0,0],"zqtype":"logical"})"},
};

TEST(SmallForm, DoubleForms)
{
    expect_writes(doubleForms);
}

TEST(SmallForm, LogicalForms)
{
    expect_writes(logicalForms);
}

// Every element must land at [i1][i2]..., whatever the shape: element k of storage holds k, and each
// position is checked against the column-major index of its indices.
TEST(SmallForm, EveryElementStandsAtItsIndices)
{
    static Dims const shapes[] = {{4, 7}, {7, 4}, {3, 4, 5}, {2, 1, 3}, {1, 4, 2}, {3, 2, 1, 2}, {6, 1}};
    for (Dims const& dims : shapes) {
        SCOPED_TRACE(::testing::PrintToString(dims));
        unsigned long const count = std::accumulate(dims.begin(), dims.end(), 1UL, std::multiplies<>());
        zd::TypedArray<double> array = factory.createArray<double>(dims);
        auto const elements = zd::getWritableElements<double>(array);
        std::iota(elements.begin(), elements.end(), 0.0);
        fj::Value const json = foundation::zorbaldata::json::zorbaldata_to_json(
            array, Small, String, zd::ObjectFilter::AllowAll);

        Dims const shape = dims.size() == 2 && dims[1] == 1 ? Dims{dims[0]} : dims;
        for (unsigned long k = 0; k < count; ++k) {
            fj::Value const* place = &json;
            unsigned long rest = k;
            for (unsigned long const extent : shape) {
                fj::Array const& level = fj::json_cast<fj::Array>(*place);
                ASSERT_EQ(level.size(), extent);
                place = &level[rest % extent];
                rest /= extent;
            }
            ASSERT_EQ(fj::json_cast<double>(*place), static_cast<double>(k));
        }
    }
}

TEST(SmallForm, WhatCannotBeNestedIsRefused)
{
    using foundation::zorbaldata::json::detail::exact_value;
    using foundation::zorbaldata::json::detail::nested_form;
    using foundation::zorbaldata::json::detail::nesting_shape;
    using foundation::zorbaldata::json::detail::scalar_form;
    bool const two[] = {true, false};
    EXPECT_THROW_WHAT(built([&](auto& out) {
        nested_form(out, Dims { 3, 1 }, range(two, 2), exact_value());
    }),
        std::runtime_error, "Number of elements did not match specified dimensions");
    EXPECT_THROW_WHAT(built([&](auto& out) { scalar_form(out, range(two, 2), exact_value()); }),
        std::runtime_error, "Number of elements did not match specified dimensions");
    EXPECT_THROW_WHAT(nesting_shape({std::numeric_limits<unsigned long>::max(), 2}),
        boost::numeric::positive_overflow, "bad numeric conversion: positive overflow");
}

} // namespace
