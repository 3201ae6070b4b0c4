// Sparse arrays: coordinate lists in the large form under both modes, values as in dense arrays.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/detail/element_values.hpp>
#include <foundation/zorbaldata/json/detail/sparse_writer.hpp>

#include <limits>
#include <span>
#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr float finf = std::numeric_limits<float>::infinity();

static WriteCase const forms[] = {
    {"DoubleCoordinates", [] { return sparse<double>({3, 2}, {{0, 1, 7.0}, {2, 1, 8.0}}); }, Large, String,
        R"({"zqdata":[[0u,2u],[1u,1u],[7,8]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"OrderIsTheArrays", [] { return sparse<double>({3, 2}, {{2, 1, 8.0}, {0, 1, 7.0}, {1, 0, 3.0}}); },
        Large, String,
        R"({"zqdata":[[1u,0u,2u],[0u,1u,1u],[3,7,8]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"ScalarUnderSmall", [] { return sparse<double>({1, 1}, {{0, 0, 5.0}}); }, Small, String,
        R"({"zqdata":[[0u],[0u],[5]],"zqsize":[1,1],"zqsparse":true,"zqtype":"double"})"},
    {"NoNonZeros", [] { return sparse<double>({3, 2}, {}); }, Small, String,
        R"({"zqdata":[[],[],[]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"LogicalHasNoValues", [] { return sparse<bool>({3, 2}, {{0, 0, true}, {2, 1, true}}); }, Large, String,
        R"({"zqdata":[[0u,2u],[0u,1u]],"zqsize":[3,2],"zqsparse":true,"zqtype":"logical"})"},
    {"StoredNaNFollowsNanTypeUnderSmall", [] { return sparse<double>({2, 2}, {{1, 1, nan}}); }, Small, Object,
        R"({"zqdata":[[1u],[1u],[{"zqdata":"NaN"}]],"zqsize":[2,2],"zqsparse":true,"zqtype":"double"})"},
    {"SingleStaysFloat", [] { return sparse<float>({1, 3}, {{0, 2, 0.1f}}); }, Large, String,
        R"({"zqdata":[[0u],[2u],[0.1f]],"zqsize":[1,3],"zqsparse":true,"zqtype":"single"})"},
    {"ComplexValuesArePairs", [] { return sparse<std::complex<double>>({3, 2}, {{2, 0, {1, 2}}}); }, Large,
        String,
        R"({"zqcomplex":true,"zqdata":[[2u],[0u],[1,2]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"ComplexSingleWithInfinitePart",
        [] { return sparse<std::complex<float>>({2, 2}, {{1, 1, {0.5f, finf}}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[[1u],[1u],[0.5f,"Inf"]],"zqsize":[2,2],"zqsparse":true,"zqtype":"single"})"},
};

TEST(SparseWriter, Forms)
{
    expect_writes(forms);
}

TEST(SparseWriter, ListsThatDisagreeAreRefused)
{
    using foundation::zorbaldata::json::detail::floating_value;
    using foundation::zorbaldata::json::detail::write_sparse;
    unsigned long const rows[] = {0, 1};
    unsigned long const cols[] = {0, 1};
    double const values[] = {1, 2};
    std::string const mismatch = "Number of elements did not match specified dimensions";
    floating_value<String> const make;
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_sparse(out, Dims { 2, 2 }, rows, cols, range(values, 1), make);
    }),
        std::runtime_error, mismatch);
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_sparse(out, Dims { 2, 2 }, rows, std::span(cols, 1), range(values, 2), make);
    }),
        std::runtime_error, mismatch);
    EXPECT_THROW_WHAT(
        built([&](auto& out) { write_sparse(out, Dims { 4 }, rows, cols, range(values, 2), make); }),
        std::runtime_error, "Must have at least two dimensions");
}

} // namespace
