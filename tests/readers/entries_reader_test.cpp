// Struct, cell and string arrays: fields filled from one running range, plain objects as 1-by-1
// structs of all their keys, cell entries read as documents of their own, and present and missing
// strings; the count of each judged after its entries. Sparse arrays of the five kinds.
#include "reader_support.hpp"

#include <foundation/zorbaldata/sparse_array.hpp>
#include <yx/i18n/cvt_exception.hpp>

#include <complex>
#include <stdexcept>

namespace {

using namespace zq::test;
using zd::ArrayType;
using enum zd::ArrayType;
using Names = std::vector<std::string>;

Names field_names(zd::Array const& array)
{
    Names names;
    for (zd::ZorbalFieldIdentifier const& field : zd::StructArray(array).getFieldNames())
        names.push_back(field.getString());
    return names;
}

// The field's value in element index of the struct array.
zd::Array field(zd::Array const& array, std::string const& name, unsigned long index = 0)
{
    return zd::TypedArray<zd::StructElement>(array)[index].value()[name];
}

zd::Array entry(zd::Array const& cell, unsigned long index)
{
    return zd::TypedArray<zd::Array>(cell)[index];
}

// Fields come in key order; the values of all fields run on as one range, so only their total counts.
// A plain object is what fails the test for a large form or a special float, header keys included as
// fields; values are listed per field over the elements in storage order, else the fields' types.
TEST(StructReader, FillsFieldByField)
{
    static const struct { std::string json; Dims dims; Names fields; std::vector<double> values;
        std::vector<ArrayType> types; } cases[] = {
        {lf("struct", "[1,2]", R"({"b":[3,4],"a":[1,2]})"), {1, 2}, {"a", "b"}, {1, 2, 3, 4}, {}},
        {lf("struct", "[2,1]", R"({"a":[1,2,3],"b":[4]})"), {2, 1}, {"a", "b"}, {1, 2, 3, 4}, {}},
        {lf("struct", "[2,1]", "{}"), {2, 1}, {}, {}, {}}, {"{}", {1, 1}, {}, {}, {}},
        {lf("struct", "[0,1]", R"({"a":[]})"), {0, 1}, {"a"}, {}, {}},
        {lf("struct", "[0,0]", R"({"a":[],"b":5})"), {0, 0}, {"a", "b"}, {}, {}},
        {R"({"b":"x","a":1,"c":[true]})", {1, 1}, {"a", "b", "c"}, {}, {DOUBLE, CHAR, LOGICAL}},
        {R"({"zqdata":5})", {1, 1}, {"zqdata"}, {}, {DOUBLE}},
        {R"({"zqdata":"nan"})", {1, 1}, {"zqdata"}, {}, {CHAR}},
        {R"({"s":{"t":1}})", {1, 1}, {"s"}, {}, {STRUCT}},
        {R"({"zqdata":"Inf","zqsize":[1,1]})", {1, 1}, {"zqdata", "zqsize"}, {}, {CHAR, DOUBLE}},
        {R"({"zqtype":"double","zqdata":[1]})", {1, 1}, {"zqdata", "zqtype"}, {}, {DOUBLE, CHAR}},
        {R"({"zqtype":"double","zqsize":[1,1]})", {1, 1}, {"zqsize", "zqtype"}, {}, {DOUBLE, CHAR}},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.json);
        zd::Array const array = read(c.json);
        ASSERT_EQ(array.getType(), STRUCT);
        EXPECT_EQ(array.getDimensions(), c.dims);
        ASSERT_EQ(field_names(array), c.fields);
        std::vector<double> values;
        std::vector<ArrayType> types;
        for (std::string const& name : c.fields) {
            if (!c.types.empty())
                types.push_back(field(array, name).getType());
            for (unsigned long i = 0; c.types.empty() && i < array.getNumberOfElements(); ++i)
                for (double value : as<double>(field(array, name, i)))
                    values.push_back(value);
        }
        EXPECT_EQ(values, c.values);
        EXPECT_EQ(types, c.types);
    }
}

// Each value of a struct or a cell is a whole document, read with the same backend.
TEST(StructReader, ValuesAndEntriesAreDocuments)
{
    zd::Array const array = read(lf("struct", "[1,1]", R"({"a":["xy"],"b":[{"c":true}]})"));
    EXPECT_EQ(as<char16_t>(field(array, "a")), (std::vector<double> {'x', 'y'}));
    ASSERT_EQ(field_names(field(array, "b")), (Names {"c"}));
    EXPECT_EQ(as<bool>(field(field(array, "b"), "c")), (std::vector<double> {1}));

    std::string const inner = lf("cell", "[1,1]", "[" + lf("int8", "[1,1]", "[3]") + "]");
    zd::Array const cell = read(lf("cell", "[2,2]", R"([1,"ab",[true,false],)" + inner + "]"));
    ASSERT_EQ(cell.getType(), CELL);
    EXPECT_EQ(cell.getDimensions(), (Dims {2, 2}));
    EXPECT_EQ(as<double>(entry(cell, 0)), (std::vector<double> {1}));
    EXPECT_EQ(as<char16_t>(entry(cell, 1)), (std::vector<double> {'a', 'b'}));
    EXPECT_EQ(entry(cell, 2).getType(), LOGICAL);
    EXPECT_EQ(entry(cell, 2).getDimensions(), (Dims {2, 1}));
    ASSERT_EQ(entry(cell, 3).getType(), CELL);
    EXPECT_EQ(as<signed char>(entry(entry(cell, 3), 0)), (std::vector<double> {3}));

    for (Dims const& dims : {Dims {0, 0}, Dims {0, 5}, Dims {3, 0, 2}}) {
        std::vector<double> const size(dims.begin(), dims.end());
        zd::Array const empty = read_tree(large_form("cell", size, fj::Array {}));
        EXPECT_EQ(empty.getType(), CELL);
        EXPECT_EQ(empty.getDimensions(), dims);
    }
}

// A missing string is no string at all, unlike the empty string and the plain word "missing"; a present
// one is shown quoted.
TEST(StringReader, ReadsPresentAndMissingElements)
{
    static const struct { std::string json; Dims dims; std::vector<std::u16string> expected; } cases[] = {
        {lf("string", "[2,2]", R"(["a",{"zqdata":"missing"},"","missing"])"), {2, 2},
            {u"\"a\"", u"(missing)", u"\"\"", u"\"missing\""}},
        {lf("string", "[1,1]", R"([{"x":1,"zqdata":"missing"}])"), {1, 1}, {u"(missing)"}},
        {lf("string", "[1,1]", "[\"\xC3\xA9\xF0\x9F\x98\x80\"]"), {1, 1}, {u"\"\u00E9\U0001F600\""}},
        {lf("string", "[0,3]", "[]"), {0, 3}, {}},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.json);
        zd::Array const array = read(c.json);
        ASSERT_EQ(array.getType(), STRING);
        EXPECT_EQ(array.getDimensions(), c.dims);
        std::vector<std::u16string> elements;
        for (auto const element : zd::getReadOnlyElements<zorbal::data::optional<std::u16string>>(array))
            elements.push_back(element.value() ? u'"' + *element.value() + u'"' : u"(missing)");
        EXPECT_EQ(elements, c.expected);
    }
    fj::Array const bad_bytes {fj::Value("a\xFF")};
    EXPECT_THROW(read_tree(large_form("string", {1, 1}, bad_bytes)), yx::i18n::CvtInvalidCharacter);
}

std::string const not_a_list = "invalid conversion: JSON number to JSON array";
std::string const anonymous_name = R"(Invalid field name "" specified.)";
std::string const null_refused = "JSON null not supported";

// An empty list met with elements left to fill fails at once, instead of reading past it. An entry's
// failure comes through unchanged and before the count; surplus entries are never read.
static FailureCase const failures[] = {
    {"StructDataNotAnObject", lf("struct", "[1,1]", "[]"), fails_with<InvalidZQDataType>,
        R"(""struct arrays must be a JSON object)"},
    {"FirstFieldCastBeforeTheArray", lf("struct", "[0,0]", R"({"a":5})"), fails_with<std::runtime_error>,
        not_a_list},
    {"LaterFieldCastWhenReached", lf("struct", "[1,1]", R"({"a":[1],"b":5})"), fails_with<std::runtime_error>,
        not_a_list},
    size_mismatch("EmptyFirstField", lf("struct", "[1,1]", R"({"a":[],"b":[1,2]})")),
    size_mismatch("EmptyLastField", lf("struct", "[1,1]", R"({"a":[1],"b":[]})")),
    size_mismatch("TooFewInTotal", lf("struct", "[2,1]", R"({"a":[1,2],"b":[3]})")),
    size_mismatch("TooManyInTotal", lf("struct", "[1,1]", R"({"a":[1],"b":[2,3]})")),
    {"ValueBeforeCount", lf("struct", "[1,2]", R"({"a":[null]})"), fails_with<NullNotSupported>,
        null_refused},
    {"IllegalName", lf("struct", "[1,1]", R"({"a b":[1]})"), fails_with<InvalidFieldName>, anonymous_name},
    {"IllegalNameWithoutElements", lf("struct", "[0,0]", R"({"_a":[]})"), fails_with<InvalidFieldName>,
        anonymous_name},
    {"PlainObjectBadName", R"({"1a":1})", fails_with<InvalidFieldName>, anonymous_name},
    {"PlainObjectNull", R"({"a":1,"b":null})", fails_with<NullNotSupported>, null_refused},
    size_mismatch("CellSurplusNeverConverted", lf("cell", "[2,2]", "[1,2,3,4,null]")),
    size_mismatch("CellTooFew", lf("cell", "[1,3]", "[1,2]")),
    {"CellEntryBeforeCount", lf("cell", "[2,2]", "[1," + lf("x", "[1,1]", "5") + ",3]"),
        fails_with<InvalidPropertyType>, R"("zqdata" must be a JSON array)"},
    {"CellNullEntry", lf("cell", "[1,1]", "[null]"), fails_with<NullNotSupported>, null_refused},
    {"CellScalarData", lf("cell", "[1,1]", "1"), fails_with<InvalidZQDataType>,
        R"(""cell arrays must be a JSON array)"},
    {"StringNumberFailsAsObject", lf("string", "[1,2]", R"(["a",5])"), fails_with<std::runtime_error>,
        "invalid conversion: JSON number to JSON object"},
    {"StringObjectWithoutData", lf("string", "[1,1]", R"([{"x":"missing"}])"), fails_with<std::runtime_error>,
        "zqdata field not found"},
    {"StringDataNotAString", lf("string", "[1,1]", R"([{"zqdata":1}])"), fails_with<std::runtime_error>,
        "Expected a data inside special float objects to be a string"},
    {"StringWordExact", lf("string", "[1,3]", R"([{"zqdata":"Missing"}])"), fails_with<InvalidStringElemType>,
        R"(String array must contain JSON String, or {"zqdata":"missing"})"},
    size_mismatch("StringTooFew", lf("string", "[1,1]", "[]")),
    size_mismatch("StringSurplusNeverRead", lf("string", "[1,1]", R"(["a",5])")),
    {"StringScalarData", lf("string", "[1,1]", R"("a")"), fails_with<InvalidZQDataType>,
        R"(""string arrays must be a JSON array)"},
};
INSTANTIATE_TEST_SUITE_P(Entries, FailsFirst, ::testing::ValuesIn(failures), row_name<FailureCase>);

// Sparse arrays: the lists of indices and values for the five kinds, what the factory makes of them, and
// the failures of the lists and of their entries.
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
    static const struct { std::string json; SparseContent (*content)(zd::Array const&); Dims dims;
        SparseContent expected; } cases[] = {
        {sp("double", "[3,3]", "[[2,0,0],[2,1,1],[5.5,1,2]]"), sparse_as<double>, {3, 3},
            {{0, 2}, {1, 2}, {3, 5.5}}},
        {sp("double", "[3,3]", "[[1.9],[0.5],[1]]"), sparse_as<double>, {3, 3}, {{1}, {0}, {1}}},
        {sp("double", "[2,2]", "[[],[],[]]"), sparse_as<double>, {2, 2}, {}},
        {sp("single", "[1,1]", R"([[0],[0],["Inf"]])"), sparse_as<float>, {1, 1}, {{0}, {0}, {inf}}},
        {sp("double", "[2,2]", "[[1],[0],[1,2,3]]", true), sparse_as<std::complex<double>>, {2, 2},
            {{1}, {0}, {1, 2}}},
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

std::string const wrong_lists = "Sparse array expects a row array, column array, and an optional data array "
                                R"(inside "zqdata". Unexpected data found)";
std::string const not_lists = "Attempt to cast to JSON Array failed. "
                              R"(Expected JSON array of JSON arrays in "zqdata" for a sparse array)";
std::string const lengths_differ
    = R"(Expected JSON array of JSON arrays to be of appropriate size in "zqdata" for a sparse array)";

std::string incompatible(std::string const& type)
{
    return "Incompatible data for sparse. Invalid value for type " + type + floating_choices;
}

// An index error names double in every kind; the row of an element is read before its value.
static FailureCase const sparse_failures[] = {
    {"DoubleTwoLists", sp("double", "[1,1]", "[[0],[0]]"), fails_with<InvalidSparseArray>, wrong_lists},
    {"LogicalThreeLists", sp("logical", "[1,1]", "[[0],[0],[true]]"), fails_with<InvalidSparseArray>,
        wrong_lists},
    {"RealColumnsNotAList", sp("double", "[1,1]", "[[],5,6]"), fails_with<CannotCastToArray>, not_lists},
    {"RealRowsCastUnguarded", sp("double", "[1,1]", "[5,[],[]]"), fails_with<std::runtime_error>,
        "invalid conversion: JSON number to JSON array"},
    {"LogicalRowsNotAList", sp("logical", "[1,1]", "[5,[]]"), fails_with<CannotCastToArray>, not_lists},
    {"LengthsDiffer", sp("double", "[2,2]", "[[0],[0,1],[1]]"), fails_with<MismatchInRowColDataArraySize>,
        lengths_differ},
    {"ComplexOneValue", sp("double", "[1,1]", "[[0],[0],[1]]", true),
        fails_with<MismatchInRowColDataArraySize>, lengths_differ},
    {"RowBeforeValue", sp("single", "[1,1]", R"([["x"],[0],["y"]])"), fails_with<InvalidZQDataForSparse>,
        incompatible("double")},
    {"BadValue", sp("single", "[1,1]", R"([[0],[0],["y"]])"), fails_with<InvalidZQDataForSparse>,
        incompatible("single")},
    {"LogicalBadColumn", sp("logical", "[1,1]", "[[0],[true]]"), fails_with<InvalidZQDataForSparse>,
        incompatible("double")},
};
INSTANTIATE_TEST_SUITE_P(Sparse, FailsFirst, ::testing::ValuesIn(sparse_failures), row_name<FailureCase>);

// Integer indices, as a written tree holds them, are refused: the text reader gives doubles instead.
// Where the indices lie is the factory's to judge; a negative index is the largest, outside any matrix.
TEST(SparseReader, IndicesJudged)
{
    fj::Array const lists {fj::Value(fj::Array {fj::Value(0ULL)}), fj::Value(fj::Array {fj::Value(0.0)}),
        fj::Value(fj::Array {fj::Value(1.0)})};
    fj::Object const sparse {{"zqsparse", fj::Value(true)}};
    EXPECT_THROW_WHAT(read_tree(large_form("double", {1, 1}, lists, sparse)), zj::InvalidZQDataForSparse,
        incompatible("double"));
    EXPECT_THROW(read(sp("double", "[2,2]", "[[2],[0],[1]]")), zd::EIndexOutOfRange);
    EXPECT_THROW(read(sp("logical", "[2,2]", "[[-3],[0]]")), zd::EIndexOutOfRange);
}

} // namespace
