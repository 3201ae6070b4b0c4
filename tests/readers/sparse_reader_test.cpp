// Sparse arrays: the lists of indices and values for the five kinds, what the factory makes of them, and
// the failures of the lists and of their entries.
#include "reader_support.hpp"

#include <foundation/zorbaldata/sparse_array.hpp>

#include <complex>
#include <stdexcept>
#include <string>

namespace {

using namespace zq::test;
using Indices = std::vector<unsigned long>;

std::string sp(char const* type, char const* size, std::string const& data, bool complex = false)
{
    return lf(type, size, data, complex ? R"(,"zqsparse":true,"zqcomplex":true)" : R"(,"zqsparse":true)");
}

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
    SparseContent content {Indices(sparse.getRows().begin(), sparse.getRows().end()),
        Indices(sparse.getCols().begin(), sparse.getCols().end()), {}};
    for (auto it = sparse.begin(); it != sparse.end(); ++it) {
        if constexpr (zd::detail::isComplex<T>)
            content.values.insert(content.values.end(), {it->real(), it->imag()});
        else
            content.values.push_back(*it);
    }
    return content;
}

// Indices pass unchanged, and the factory sorts by column and adds up elements at one place.
TEST(SparseReader, ReadsTheStoredElements)
{
    static const struct {
        std::string json;
        SparseContent (*content)(zd::Array const&);
        Dims dims;
        SparseContent expected;
    } cases[] = {
        {sp("double", "[3,3]", "[[2,0,0],[2,1,1],[5.5,1,2]]"), sparse_as<double>, {3, 3}, {{0, 2}, {1, 2}, {3, 5.5}}},
        {sp("double", "[3,3]", "[[1.9],[0.5],[1]]"), sparse_as<double>, {3, 3}, {{1}, {0}, {1}}},
        {sp("double", "[2,2]", "[[],[],[]]"), sparse_as<double>, {2, 2}, {}},
        {sp("single", "[1,1]", R"([[0],[0],["Inf"]])"), sparse_as<float>, {1, 1}, {{0}, {0}, {inf}}},
        {sp("double", "[2,2]", "[[1],[0],[1,2,3]]", true), sparse_as<std::complex<double>>, {2, 2}, {{1}, {0}, {1, 2}}},
        // A complex single narrows without a range test.
        {sp("single", "[1,1]", R"([[0],[0],[1e39,"NaN"]])", true), sparse_as<std::complex<float>>, {1, 1},
            {{0}, {0}, {inf, signed_nan()}}},
        // An empty complex one looks at its rows only.
        {sp("double", "[2,2]", "[[],5,6]", true), sparse_as<std::complex<double>>, {2, 2}, {}},
        {sp("logical", "[3,2]", "[[2,0],[1,1]]", true), sparse_as<bool>, {3, 2}, {{0, 2}, {1, 1}, {1, 1}}},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.json);
        zd::Array const array = read(c.json);
        EXPECT_EQ(array.getDimensions(), c.dims);
        SparseContent const content = c.content(array);
        EXPECT_EQ(content.rows, c.expected.rows);
        EXPECT_EQ(content.cols, c.expected.cols);
        EXPECT_EQ(bits_of(content.values), bits_of(c.expected.values));
    }
}

std::string const wrong_lists
    = R"(Sparse array expects a row array, column array, and an optional data array inside "zqdata". Unexpected data found)";
std::string const not_lists
    = R"(Attempt to cast to JSON Array failed. Expected JSON array of JSON arrays in "zqdata" for a sparse array)";
std::string const lengths_differ
    = R"(Expected JSON array of JSON arrays to be of appropriate size in "zqdata" for a sparse array)";

std::string incompatible(std::string const& type)
{
    return "Incompatible data for sparse. Invalid value for type " + type + floating_choices;
}

// An index error names double in every kind; the row of an element is read before its value.
static FailureCase const failures[] = {
    {"DoubleTwoLists", sp("double", "[1,1]", "[[0],[0]]"), fails_with<InvalidSparseArray>, wrong_lists},
    {"LogicalThreeLists", sp("logical", "[1,1]", "[[0],[0],[true]]"), fails_with<InvalidSparseArray>, wrong_lists},
    {"RealColumnsNotAList", sp("double", "[1,1]", "[[],5,6]"), fails_with<CannotCastToArray>, not_lists},
    {"RealRowsCastUnguarded", sp("double", "[1,1]", "[5,[],[]]"), fails_with<std::runtime_error>,
        "invalid conversion: JSON number to JSON array"},
    {"LogicalRowsNotAList", sp("logical", "[1,1]", "[5,[]]"), fails_with<CannotCastToArray>, not_lists},
    {"LengthsDiffer", sp("double", "[2,2]", "[[0],[0,1],[1]]"), fails_with<MismatchInRowColDataArraySize>,
        lengths_differ},
    {"ComplexOneValue", sp("double", "[1,1]", "[[0],[0],[1]]", true), fails_with<MismatchInRowColDataArraySize>,
        lengths_differ},
    {"RowBeforeValue", sp("single", "[1,1]", R"([["x"],[0],["y"]])"), fails_with<InvalidZQDataForSparse>,
        incompatible("double")},
    {"BadValue", sp("single", "[1,1]", R"([[0],[0],["y"]])"), fails_with<InvalidZQDataForSparse>,
        incompatible("single")},
    {"LogicalBadColumn", sp("logical", "[1,1]", "[[0],[true]]"), fails_with<InvalidZQDataForSparse>,
        incompatible("double")},
};
INSTANTIATE_TEST_SUITE_P(Sparse, FailsFirst, ::testing::ValuesIn(failures), row_name<FailureCase>);

// Integer indices, as a written tree holds them, are refused: the text reader gives doubles instead.
// Where the indices lie is the factory's to judge; a negative index is the largest, outside any matrix.
TEST(SparseReader, IndicesJudged)
{
    fj::Array const lists {fj::Value(fj::Array {fj::Value(0ULL)}), fj::Value(fj::Array {fj::Value(0.0)}),
        fj::Value(fj::Array {fj::Value(1.0)})};
    EXPECT_THROW_WHAT(read_tree(large_form("double", {1, 1}, lists, fj::Object {{"zqsparse", fj::Value(true)}})),
        zj::InvalidZQDataForSparse, incompatible("double"));
    EXPECT_THROW(read(sp("double", "[2,2]", "[[2],[0],[1]]")), zd::EIndexOutOfRange);
    EXPECT_THROW(read(sp("logical", "[2,2]", "[[-3],[0]]")), zd::EIndexOutOfRange);
}

} // namespace
