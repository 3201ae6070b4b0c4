// Dense numeric, logical and complex arrays in the large form: type names, number tags, non-finite words.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/detail/element_values.hpp>
#include <foundation/zorbaldata/json/detail/numeric_writer.hpp>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;
using Complex = std::complex<double>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr float fmax = std::numeric_limits<float>::max();
constexpr float finf = std::numeric_limits<float>::infinity();

static WriteCase const forms[] = {
    {"MatrixInStorageOrder", [] { return doubles({2, 3}, {1, 4, 2, 5, 3, 6}); }, Large, String,
        R"({"zqdata":[1,4,2,5,3,6],"zqsize":[2,3],"zqtype":"double"})"},
    {"ScalarUnderLarge", [] { return scalar(5); }, Large, String,
        R"({"zqdata":[5],"zqsize":[1,1],"zqtype":"double"})"},
    {"TrailingOneKept", [] { return doubles({2, 1, 1}, {1, 2}); }, Large, String,
        R"({"zqdata":[1,2],"zqsize":[2,1,1],"zqtype":"double"})"},
    {"NonFiniteAsStrings", [] { return doubles({1, 4}, {nan, 1, inf, -inf}); }, Large, String,
        R"({"zqdata":["NaN",1,"Inf","-Inf"],"zqsize":[1,4],"zqtype":"double"})"},
    {"NonFiniteAsObjects", [] { return doubles({1, 4}, {nan, 1, inf, -inf}); }, Large, Object,
        R"({"zqdata":[{"zqdata":"NaN"},1,{"zqdata":"Inf"},{"zqdata":"-Inf"}],"zqsize":[1,4],"zqtype":"double"})"},
    {"NegativeNaNIsNaN", [] { return scalar(std::copysign(nan, -1.0)); }, Large, String,
        R"({"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"double"})"},
    {"SingleIsNotWidened", [] { return numbers<float>({1, 2}, {0.1f, -3.0f}); }, Large, String,
        R"({"zqdata":[0.1f,-3f],"zqsize":[1,2],"zqtype":"single"})"},
    {"SingleLargestFiniteThenInf", [] { return numbers<float>({1, 3}, {fmax, finf, -finf}); }, Large, String,
        R"({"zqdata":[3.4028234663852886e+38f,"Inf","-Inf"],"zqsize":[1,3],"zqtype":"single"})"},
    {"Int8SignExtended", [] { return numbers<signed char>({1, 2}, {-56, 127}); }, Large, String,
        R"({"zqdata":[-56i,127i],"zqsize":[1,2],"zqtype":"int8"})"},
    {"Uint8ZeroExtended", [] { return numbers<unsigned char>({1, 1}, {200}); }, Large, String,
        R"({"zqdata":[200u],"zqsize":[1,1],"zqtype":"uint8"})"},
    {"Int64KeepsEveryDigit",
        [] { return numbers<long long>({1, 2}, {std::numeric_limits<long long>::min(), (1LL << 53) + 1}); },
        Large, String, R"({"zqdata":[-9223372036854775808i,9007199254740993i],"zqsize":[1,2],"zqtype":"int64"})"},
    {"Uint64KeepsEveryDigit", [] { return numbers<unsigned long long>({1, 1}, {18446744073709551615ULL}); },
        Large, String, R"({"zqdata":[18446744073709551615u],"zqsize":[1,1],"zqtype":"uint64"})"},
    {"ComplexRealThenImaginary", [] { return numbers<Complex>({1, 2}, {{1, 2}, {3, 4}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[1,2,3,4],"zqsize":[1,2],"zqtype":"double"})"},
    {"ComplexPartsNonFiniteApartAsString", [] { return numbers<Complex>({1, 1}, {{1, nan}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[1,"NaN"],"zqsize":[1,1],"zqtype":"double"})"},
    {"ComplexSingle", [] { return numbers<std::complex<float>>({1, 1}, {{0.1f, -finf}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[0.1f,"-Inf"],"zqsize":[1,1],"zqtype":"single"})"},
    // Only double and logical arrays have small forms: every other numeric scalar stays a large form.
    {"SingleScalar", [] { return numbers<float>({1, 1}, {5}); }, Small, String,
        R"({"zqdata":[5f],"zqsize":[1,1],"zqtype":"single"})"},
    {"ComplexIntegerScalar", [] { return numbers<std::complex<int>>({1, 1}, {{1, 2}}); }, Small, String,
        R"({"zqcomplex":true,"zqdata":[1i,2i],"zqsize":[1,1],"zqtype":"int32"})"},
    {"SingleNonFiniteFollowsNanType", [] { return numbers<float>({1, 1}, {finf}); }, Small, String,
        R"({"zqdata":["Inf"],"zqsize":[1,1],"zqtype":"single"})"},
};

TEST(NumericWriter, Forms)
{
    expect_writes(forms);
}

TEST(NumericWriter, ElementsThatDisagreeWithTheDimensionsAreRefused)
{
    using foundation::zorbaldata::json::detail::exact_value;
    using foundation::zorbaldata::json::detail::write_numeric;
    int const three[] = {1, 2, 3};
    auto const elements = range(three, 3);
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_numeric(out, Dims { 2, 2 }, elements, exact_value());
    }),
        std::runtime_error, "Number of elements did not match specified dimensions");
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_numeric(out, Dims { 1, 2 }, elements, exact_value());
    }),
        std::runtime_error, "Number of elements did not match specified dimensions");
    EXPECT_EQ(tagged(built([&](auto& out) { write_numeric(out, Dims{3, 1}, elements, exact_value()); })),
        R"({"zqdata":[1i,2i,3i],"zqsize":[3,1],"zqtype":"int32"})");
}

} // namespace
