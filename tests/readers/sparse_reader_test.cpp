// Sparse arrays: the lists of indices and values for the five kinds, what the factory makes of them, and
// the failures of the lists and of their entries.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/sparse_array.hpp>

#include <complex>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;
using Indices = std::vector<unsigned long>;

struct SparseContent {
    Indices rows;
    Indices cols;
    std::vector<double> values; // complex ones as real part then imaginary part
};

// The stored elements of a sparse array of T; reading them as T fails for a sparse array of another type.
template <typename T>
SparseContent sparse_as(zd::Array const& array)
{
    zd::SparseArray<T> const sparse(array);
    SparseContent content { Indices(sparse.getRows().begin(), sparse.getRows().end()),
        Indices(sparse.getCols().begin(), sparse.getCols().end()), {} };
    for (auto it = sparse.begin(); it != sparse.end(); ++it) {
        if constexpr (zd::detail::isComplex<T>) {
            content.values.push_back(it->real());
            content.values.push_back(it->imag());
        } else {
            content.values.push_back(*it);
        }
    }
    return content;
}

struct SparseCase {
    char const* name;
    char const* json;
    SparseContent (*content)(zd::Array const&);
    Dims dims;
    SparseContent expected;
};

class SparseReader : public ::testing::TestWithParam<SparseCase> { };

TEST_P(SparseReader, ReadsTheStoredElements)
{
    SparseCase const& c = GetParam();
    SCOPED_TRACE(c.json);
    zd::Array const array = read(c.json);
    EXPECT_EQ(array.getDimensions(), c.dims);
    SparseContent const content = c.content(array);
    EXPECT_EQ(content.rows, c.expected.rows);
    EXPECT_EQ(content.cols, c.expected.cols);
    EXPECT_EQ(bits_of(content.values), bits_of(c.expected.values));
}

double const inf = std::numeric_limits<double>::infinity();

// Indices pass unchanged, and the factory sorts by column and adds up elements at one place.
static SparseCase const arrays[] = {
    { "CombinedAndSorted",
        R"({"zqtype":"double","zqsize":[3,3],"zqsparse":true,"zqdata":[[2,0,0],[2,1,1],[5.5,1,2]]})",
        sparse_as<double>, { 3, 3 }, { { 0, 2 }, { 1, 2 }, { 3, 5.5 } } },
    { "IndexTruncated", R"({"zqtype":"double","zqsize":[3,3],"zqsparse":true,"zqdata":[[1.9],[0.5],[1]]})",
        sparse_as<double>, { 3, 3 }, { { 1 }, { 0 }, { 1 } } },
    { "EmptyDouble", R"({"zqtype":"double","zqsize":[2,2],"zqsparse":true,"zqdata":[[],[],[]]})",
        sparse_as<double>, { 2, 2 }, {} },
    { "SingleTakesPlainInf",
        R"({"zqtype":"single","zqsize":[1,1],"zqsparse":true,"zqdata":[[0],[0],["Inf"]]})", sparse_as<float>,
        { 1, 1 }, { { 0 }, { 0 }, { inf } } },
    { "ComplexDouble",
        R"({"zqtype":"double","zqsize":[2,2],"zqsparse":true,"zqcomplex":true,"zqdata":[[1],[0],[1,2,3]]})",
        sparse_as<std::complex<double>>, { 2, 2 }, { { 1 }, { 0 }, { 1, 2 } } },
    { "ComplexSingleNarrowsWithoutRangeTest",
        R"({"zqtype":"single","zqsize":[1,1],"zqsparse":true,"zqcomplex":true,"zqdata":[[0],[0],[1e39,"NaN"]]})",
        sparse_as<std::complex<float>>, { 1, 1 }, { { 0 }, { 0 }, { inf, signed_nan() } } },
    { "ComplexEmptyLooksAtRowsOnly",
        R"({"zqtype":"double","zqsize":[2,2],"zqsparse":true,"zqcomplex":true,"zqdata":[[],5,6]})",
        sparse_as<std::complex<double>>, { 2, 2 }, {} },
    { "Logical",
        R"({"zqtype":"logical","zqsize":[3,2],"zqsparse":true,"zqcomplex":true,"zqdata":[[2,0],[1,1]]})",
        sparse_as<bool>, { 3, 2 }, { { 0, 2 }, { 1, 1 }, { 1, 1 } } },
};
INSTANTIATE_TEST_SUITE_P(Arrays, SparseReader, ::testing::ValuesIn(arrays), row_name<SparseCase>);

class SparseReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(SparseReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const wrong_lists
    = R"(Sparse array expects a row array, column array, and an optional data array inside "zqdata". Unexpected data found)";
std::string const not_lists
    = R"(Attempt to cast to JSON Array failed. Expected JSON array of JSON arrays in "zqdata" for a sparse array)";
std::string const lengths_differ
    = R"(Expected JSON array of JSON arrays to be of appropriate size in "zqdata" for a sparse array)";

std::string incompatible(std::string const& type)
{
    return "Incompatible data for sparse. Invalid value for type " + type
        + R"(. Expected a number or one of the following:"NaN", "Inf", "-Inf", {"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"})";
}

// An index error names double in every kind; the row of an element is read before its value.
static FailureCase const failures[] = {
    { "DoubleTwoLists", R"({"zqtype":"double","zqsize":[1,1],"zqsparse":true,"zqdata":[[0],[0]]})",
        fails_with<zj::InvalidSparseArray>, wrong_lists },
    { "LogicalThreeLists", R"({"zqtype":"logical","zqsize":[1,1],"zqsparse":true,"zqdata":[[0],[0],[true]]})",
        fails_with<zj::InvalidSparseArray>, wrong_lists },
    { "RealColumnsNotAList", R"({"zqtype":"double","zqsize":[1,1],"zqsparse":true,"zqdata":[[],5,6]})",
        fails_with<zj::CannotCastToArray>, not_lists },
    { "RealRowsCastUnguarded", R"({"zqtype":"double","zqsize":[1,1],"zqsparse":true,"zqdata":[5,[],[]]})",
        fails_with<std::runtime_error>, "invalid conversion: JSON number to JSON array" },
    { "LogicalRowsNotAList", R"({"zqtype":"logical","zqsize":[1,1],"zqsparse":true,"zqdata":[5,[]]})",
        fails_with<zj::CannotCastToArray>, not_lists },
    { "LengthsDiffer", R"({"zqtype":"double","zqsize":[2,2],"zqsparse":true,"zqdata":[[0],[0,1],[1]]})",
        fails_with<zj::MismatchInRowColDataArraySize>, lengths_differ },
    { "ComplexOneValue",
        R"({"zqtype":"double","zqsize":[1,1],"zqsparse":true,"zqcomplex":true,"zqdata":[[0],[0],[1]]})",
        fails_with<zj::MismatchInRowColDataArraySize>, lengths_differ },
    { "RowBeforeValue", R"({"zqtype":"single","zqsize":[1,1],"zqsparse":true,"zqdata":[["x"],[0],["y"]]})",
        fails_with<zj::InvalidZQDataForSparse>, incompatible("double") },
    { "BadValue", R"({"zqtype":"single","zqsize":[1,1],"zqsparse":true,"zqdata":[[0],[0],["y"]]})",
        fails_with<zj::InvalidZQDataForSparse>, incompatible("single") },
    { "LogicalBadColumn", R"({"zqtype":"logical","zqsize":[1,1],"zqsparse":true,"zqdata":[[0],[true]]})",
        fails_with<zj::InvalidZQDataForSparse>, incompatible("double") },
};
INSTANTIATE_TEST_SUITE_P(Failures, SparseReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

// Integer indices, as a written tree holds them, are refused; the text reader gives doubles instead.
TEST(SparseReader, RefusesIntegerIndicesOfATree)
{
    fj::Array const lists { fj::Value(fj::Array { fj::Value(0ULL) }), fj::Value(fj::Array { fj::Value(0.0) }),
        fj::Value(fj::Array { fj::Value(1.0) }) };
    EXPECT_THROW_WHAT(
        read_tree(large_form("double", { 1, 1 }, lists, fj::Object { { "zqsparse", fj::Value(true) } })),
        zj::InvalidZQDataForSparse, incompatible("double"));
}

// Where the indices lie is the factory's to judge; a negative index is the largest, outside any matrix.
TEST(SparseReader, FactoryJudgesTheIndices)
{
    EXPECT_THROW(read(R"({"zqtype":"double","zqsize":[2,2],"zqsparse":true,"zqdata":[[2],[0],[1]]})"),
        zd::EIndexOutOfRange);
    EXPECT_THROW(read(R"({"zqtype":"logical","zqsize":[2,2],"zqsparse":true,"zqdata":[[-3],[0]]})"),
        zd::EIndexOutOfRange);
}

} // namespace
