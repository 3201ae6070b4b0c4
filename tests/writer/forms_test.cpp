// What every array type becomes under each mode and NaN spelling: type names, number tags, non-finite
// words, small forms and their nesting, text on its way to UTF-8, and what containers hold.
#include "writer_test_support.hpp"

#include <cmath>
#include <limits>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;
using zd::ArrayType;
using Complex = std::complex<double>;
using ComplexSingle = std::complex<float>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();
constexpr float fmax = std::numeric_limits<float>::max();
constexpr float finf = std::numeric_limits<float>::infinity();

// Each type's 1-by-1 array of default elements under Large, and under Small where that differs: only
// double, logical, char, cell and struct arrays have small forms.
TEST(Writer, EveryTypeReachesItsWriter)
{
    static struct {
        ArrayType type;
        char const* large;
        char const* small;
    } const cases[] = {
        {ArrayType::LOGICAL, R"({"zqdata":[false],"zqsize":[1,1],"zqtype":"logical"})", "false"},
        {ArrayType::CHAR, R"({"zqdata":["\u0000"],"zqsize":[1,1],"zqtype":"char"})", R"("\u0000")"},
        {ArrayType::STRING, R"({"zqdata":[{"zqdata":"missing"}],"zqsize":[1,1],"zqtype":"string"})", nullptr},
        {ArrayType::DOUBLE, R"({"zqdata":[0],"zqsize":[1,1],"zqtype":"double"})", "0"},
        {ArrayType::SINGLE, R"({"zqdata":[0f],"zqsize":[1,1],"zqtype":"single"})", nullptr},
        {ArrayType::INT8, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int8"})", nullptr},
        {ArrayType::UINT8, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint8"})", nullptr},
        {ArrayType::INT16, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int16"})", nullptr},
        {ArrayType::UINT16, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint16"})", nullptr},
        {ArrayType::INT32, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int32"})", nullptr},
        {ArrayType::UINT32, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint32"})", nullptr},
        {ArrayType::INT64, R"({"zqdata":[0i],"zqsize":[1,1],"zqtype":"int64"})", nullptr},
        {ArrayType::UINT64, R"({"zqdata":[0u],"zqsize":[1,1],"zqtype":"uint64"})", nullptr},
        {ArrayType::COMPLEX_DOUBLE, R"({"zqcomplex":true,"zqdata":[0,0],"zqsize":[1,1],"zqtype":"double"})", nullptr},
        {ArrayType::COMPLEX_SINGLE, R"({"zqcomplex":true,"zqdata":[0f,0f],"zqsize":[1,1],"zqtype":"single"})", nullptr},
        {ArrayType::COMPLEX_INT8, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int8"})", nullptr},
        {ArrayType::COMPLEX_UINT8, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint8"})", nullptr},
        {ArrayType::COMPLEX_INT16, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int16"})", nullptr},
        {ArrayType::COMPLEX_UINT16, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint16"})", nullptr},
        {ArrayType::COMPLEX_INT32, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int32"})", nullptr},
        {ArrayType::COMPLEX_UINT32, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint32"})", nullptr},
        {ArrayType::COMPLEX_INT64, R"({"zqcomplex":true,"zqdata":[0i,0i],"zqsize":[1,1],"zqtype":"int64"})", nullptr},
        {ArrayType::COMPLEX_UINT64, R"({"zqcomplex":true,"zqdata":[0u,0u],"zqsize":[1,1],"zqtype":"uint64"})", nullptr},
        {ArrayType::CELL, R"({"zqdata":[{"zqdata":[],"zqsize":[0,0],"zqtype":"double"}],"zqsize":[1,1],"zqtype":"cell"})",
            R"({"zqdata":[[]],"zqsize":[1,1],"zqtype":"cell"})"},
        {ArrayType::STRUCT, R"({"zqdata":{},"zqsize":[1,1],"zqtype":"struct"})", "{}"},
        {ArrayType::ENUM, R"({"zqdata":[""],"zqsize":[1,1],"zqtype":""})", nullptr},
        {ArrayType::SPARSE_LOGICAL, R"({"zqdata":[[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"logical"})", nullptr},
        {ArrayType::SPARSE_DOUBLE, R"({"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"double"})", nullptr},
        {ArrayType::SPARSE_COMPLEX_DOUBLE,
            R"({"zqcomplex":true,"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"double"})", nullptr},
        {ArrayType::SPARSE_SINGLE, R"({"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"single"})", nullptr},
        {ArrayType::SPARSE_COMPLEX_SINGLE,
            R"({"zqcomplex":true,"zqdata":[[],[],[]],"zqsize":[1,1],"zqsparse":true,"zqtype":"single"})", nullptr},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(std::string(zd::getTypeName(c.type)));
        EXPECT_EQ(write(factory.createArray(c.type, {1, 1}), Large), c.large);
        EXPECT_EQ(write(factory.createArray(c.type, {1, 1}), Small), c.small ? c.small : c.large);
    }
}

zd::Array abc() { return charRow(u"abc"); }
zd::Array redAndBlue() { return enums({1, 2}, "pkg.Color", {"red", "blue"}); }
zd::Array oneAndAbc() { return cell({1, 2}, {scalar(1), abc()}); }
zd::Array aIsOneBIsAbc() { return structs({1, 1}, {{"a", {scalar(1)}}, {"b", {abc()}}}); }

static WriteCase const forms[] = {
    // Plain numbers in the large form.
    {"MatrixInStorageOrder", [] { return doubles({2, 3}, {1, 4, 2, 5, 3, 6}); }, Large, String,
        large("double", "[2,3]", "[1,4,2,5,3,6]")},
    {"TrailingOneKept", [] { return doubles({2, 1, 1}, {1, 2}); }, Large, String, large("double", "[2,1,1]", "[1,2]")},
    {"NonFiniteAsStrings", [] { return doubles({1, 5}, {nan, 1, inf, -inf, -0.0}); }, Large, String,
        large("double", "[1,5]", R"(["NaN",1,"Inf","-Inf",-0])")},
    {"NonFiniteAsObjects", [] { return doubles({1, 4}, {nan, 1, inf, -inf}); }, Large, Object,
        large("double", "[1,4]", R"([{"zqdata":"NaN"},1,{"zqdata":"Inf"},{"zqdata":"-Inf"}])")},
    {"NegativeNaNIsNaN", [] { return scalar(std::copysign(nan, -1.0)); }, Large, String,
        large("double", "[1,1]", R"(["NaN"])")},
    {"SingleNotWidenedNoSmallForm", [] { return numbers<float>({1, 6}, {0.1f, -3.0f, fmax, finf, -finf, -0.0f}); },
        Small, String, large("single", "[1,6]", R"([0.1f,-3f,3.4028234663852886e+38f,"Inf","-Inf",-0f])")},
    {"Int8SignExtended", [] { return numbers<signed char>({1, 2}, {-56, 127}); }, Large, String,
        large("int8", "[1,2]", "[-56i,127i]")},
    {"Uint8ZeroExtended", [] { return numbers<unsigned char>({1, 1}, {200}); }, Large, String,
        large("uint8", "[1,1]", "[200u]")},
    {"Int64KeepsEveryDigit",
        [] { return numbers<long long>({1, 2}, {std::numeric_limits<long long>::min(), (1LL << 53) + 1}); },
        Large, String, large("int64", "[1,2]", "[-9223372036854775808i,9007199254740993i]")},
    {"Uint64KeepsEveryDigit", [] { return numbers<unsigned long long>({1, 1}, {18446744073709551615ULL}); },
        Large, String, large("uint64", "[1,1]", "[18446744073709551615u]")},
    {"ComplexRealThenImaginary", [] { return numbers<Complex>({1, 2}, {{1, 2}, {3, nan}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[1,2,3,"NaN"],"zqsize":[1,2],"zqtype":"double"})"},
    {"ComplexSingle", [] { return numbers<ComplexSingle>({1, 1}, {{0.1f, -finf}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[0.1f,"-Inf"],"zqsize":[1,1],"zqtype":"single"})"},
    // Small forms: rows of rows, nested by the indices.
    {"MatrixIsRowOfRows", [] { return doubles({2, 3}, {1, 4, 2, 5, 3, 6}); }, Small, String, "[[1,2,3],[4,5,6]]"},
    {"ScalarNaNIsObjectUnderString", [] { return scalar(nan); }, Small, String, R"({"zqdata":"NaN"})"},
    {"ScalarInfIsObjectUnderObject", [] { return scalar(inf); }, Small, Object, R"({"zqdata":"Inf"})"},
    {"EmptySquareIsEmptyArray", [] { return doubles({0, 0}, {}); }, Small, String, "[]"},
    {"EmptyRowsKeepLargeForm", [] { return doubles({0, 3}, {}); }, Small, String, large("double", "[0,3]", "[]")},
    {"OneByZeroKeepsLargeForm", [] { return doubles({1, 0}, {}); }, Small, String, large("double", "[1,0]", "[]")},
    {"ColumnIsFlat", [] { return doubles({3, 1}, {1, 2, 3}); }, Small, String, "[1,2,3]"},
    {"RowIsNested", [] { return doubles({1, 3}, {1, 2, 3}); }, Small, String, "[[1,2,3]]"},
    {"CubeNestsByIndices", [] { return doubles({2, 2, 2}, {111, 211, 121, 221, 112, 212, 122, 222}); }, Small,
        String, "[[[111,112],[121,122]],[[211,212],[221,222]]]"},
    {"FourDimensionsNest", [] { return doubles({3, 1, 1, 2}, {1, 2, 3, 4, 5, 6}); }, Small, String,
        "[[[[1,4]]],[[[2,5]]],[[[3,6]]]]"},
    {"ThreeDimensionalScalarNests", [] { return doubles({1, 1, 1}, {7}); }, Small, String, "[[[7]]]"},
    {"NestedNonFiniteIsObject", [] { return doubles({1, 2}, {nan, 1}); }, Small, String, R"([[{"zqdata":"NaN"},1]])"},
    {"FlatNegativeInfinity", [] { return doubles({2, 1}, {-inf, 2}); }, Small, String, R"([{"zqdata":"-Inf"},2])"},
    {"LogicalColumnIsFlat", [] { return logicals({2, 1}, {true, false}); }, Small, String, "[true,false]"},
    {"LogicalRowIsNested", [] { return logicals({1, 2}, {true, false}); }, Small, String, "[[true,false]]"},
    {"LogicalEmptySquareKeepsLargeForm", [] { return logicals({0, 0}, {}); }, Small, String,
        large("logical", "[0,0]", "[]")},
    // Char and string arrays.
    {"CharRowIsString", abc, Small, String, R"("abc")"},
    {"CharEmptySquareIsEmptyString", [] { return charRow(u""); }, Small, String, R"("")"},
    {"CharColumnKeepsLargeForm", [] { return chars({3, 1}, u"abc"); }, Small, String,
        large("char", "[3,1]", R"(["abc"])")},
    {"CharOneByZeroKeepsLargeForm", [] { return chars({1, 0}, u""); }, Small, String,
        large("char", "[1,0]", R"([""])")},
    {"CharMatrixInStorageOrder", [] { return chars({2, 3}, u"adbecf"); }, Small, String,
        large("char", "[2,3]", R"(["adbecf"])")},
    {"CharRowUnderLarge", abc, Large, String, large("char", "[1,3]", R"(["abc"])")},
    {"CharEmptySquareUnderLarge", [] { return charRow(u""); }, Large, String, large("char", "[0,0]", R"([""])")},
    {"CharNonAsciiAsUtf8", [] { return charRow(u"\u00e9\u20ac\U0001F600"); }, Small, String,
        "\"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\""},
    {"CharLoneSurrogateInThreeBytes", [] { return charRow(u"a\xd800" u"b"); }, Small, String, "\"a\xED\xA0\x80" "b\""},
    {"StringMissingIsObject", [] { return strings({1, 3}, {Text(u""), Text(), Text(u"missing")}); }, Large, String,
        large("string", "[1,3]", R"(["",{"zqdata":"missing"},"missing"])")},
    {"StringUnsetElementsAreMissing", [] { return strings({2, 1}, {}); }, Large, String,
        large("string", "[2,1]", R"([{"zqdata":"missing"},{"zqdata":"missing"}])")},
    {"StringNonAsciiAndLoneSurrogate", [] { return strings({1, 2}, {Text(u"\u00e9"), Text(u"\xdbff")}); }, Large,
        String, "{\"zqdata\":[\"\xc3\xa9\",\"\xED\xAF\xBF\"],\"zqsize\":[1,2],\"zqtype\":\"string\"}"},
    // Sparse arrays: coordinate lists in the order the arrays hold them, under both modes.
    {"SparseOrderIsTheArrays", [] { return sparse<double>({3, 2}, {{2, 1, 8.0}, {0, 1, 7.0}, {1, 0, 3.0}}); },
        Large, String, R"({"zqdata":[[1u,0u,2u],[0u,1u,1u],[3,7,8]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"SparseScalarUnderSmall", [] { return sparse<double>({1, 1}, {{0, 0, 5.0}}); }, Small, String,
        R"({"zqdata":[[0u],[0u],[5]],"zqsize":[1,1],"zqsparse":true,"zqtype":"double"})"},
    {"SparseLogicalHasNoValues", [] { return sparse<bool>({3, 2}, {{0, 0, true}, {2, 1, true}}); }, Large, String,
        R"({"zqdata":[[0u,2u],[0u,1u]],"zqsize":[3,2],"zqsparse":true,"zqtype":"logical"})"},
    {"SparseNaNFollowsNanType", [] { return sparse<double>({2, 2}, {{1, 1, nan}}); }, Small, Object,
        R"({"zqdata":[[1u],[1u],[{"zqdata":"NaN"}]],"zqsize":[2,2],"zqsparse":true,"zqtype":"double"})"},
    {"SparseSingleStaysFloat", [] { return sparse<float>({1, 3}, {{0, 2, 0.1f}}); }, Large, String,
        R"({"zqdata":[[0u],[2u],[0.1f]],"zqsize":[1,3],"zqsparse":true,"zqtype":"single"})"},
    {"SparseComplexValuesArePairs", [] { return sparse<Complex>({3, 2}, {{2, 0, {1, 2}}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[[2u],[0u],[1,2]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"SparseComplexSingle", [] { return sparse<ComplexSingle>({2, 2}, {{1, 1, {0.5f, finf}}}); }, Large, String,
        R"({"zqcomplex":true,"zqdata":[[1u],[1u],[0.5f,"Inf"]],"zqsize":[2,2],"zqsparse":true,"zqtype":"single"})"},
    // Enumerations: member names under the class name, in the large form under both modes.
    {"EnumUnderLarge", redAndBlue, Large, String, large("pkg.Color", "[1,2]", R"(["red","blue"])")},
    {"EnumUnderSmall", redAndBlue, Small, Object, large("pkg.Color", "[1,2]", R"(["red","blue"])")},
    {"EnumEmptyKeepsClassName", [] { return enums({0, 0}, "pkg.Color", {}); }, Small, String,
        large("pkg.Color", "[0,0]", "[]")},
    // Cells and structs: what they hold is written by the same variant, at every depth.
    {"CellEmptyUnderSmall", [] { return cell({0, 0}, {}); }, Small, String, large("cell", "[0,0]", "[]")},
    {"CellUnderSmall", oneAndAbc, Small, String, large("cell", "[1,2]", R"([1,"abc"])")},
    {"CellUnderLarge", oneAndAbc, Large, String,
        large("cell", "[1,2]", R"([{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"},{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}])")},
    {"CellInCellUnderSmall", [] { return cell({1, 1}, {cell({1, 1}, {scalar(5)})}); }, Small, String,
        large("cell", "[1,1]", R"([{"zqdata":[5],"zqsize":[1,1],"zqtype":"cell"}])")},
    {"StructScalarIsPlainObject", aIsOneBIsAbc, Small, String, R"({"a":1,"b":"abc"})"},
    {"StructScalarUnderLarge", aIsOneBIsAbc, Large, String,
        large("struct", "[1,1]", R"({"a":[{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}],"b":[{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}]})")},
    {"StructColumnUnderSmall",
        [] { return structs({2, 1}, {{"a", {scalar(1), scalar(2)}}, {"b", {charRow(u"x"), charRow(u"y")}}}); },
        Small, String, large("struct", "[2,1]", R"({"a":[1,2],"b":["x","y"]})")},
    {"StructFieldsWalkedOneAfterAnother",
        [] { return structs({1, 3}, {{"b", {scalar(1), scalar(2), scalar(3)}}, {"a", {scalar(4), scalar(5), scalar(6)}}}); },
        Small, String, large("struct", "[1,3]", R"({"a":[4,5,6],"b":[1,2,3]})")},
    {"StructEmptyWithoutFields", [] { return structs({0, 0}, {}); }, Small, String, "{}"},
    {"StructEmptyWithFields", [] { return structs({0, 0}, {{"a", {}}, {"b", {}}}); }, Small, String,
        large("struct", "[0,0]", R"({"a":[],"b":[]})")},
    {"StructColumnWithoutFields", [] { return structs({2, 1}, {}); }, Small, String, large("struct", "[2,1]", "{}")},
    {"StructReservedFieldNameNotEscaped", [] { return structs({1, 1}, {{"zqtype", {charRow(u"x")}}}); }, Small, String,
        R"({"zqtype":"x"})"},
    {"StructInStruct", [] { return structs({1, 1}, {{"s", {structs({1, 1}, {{"a", {scalar(1)}}})}}}); }, Small,
        String, R"({"s":{"a":1}})"},
};

TEST(Writer, Forms)
{
    for (WriteCase const& c : forms)
        EXPECT_EQ(write(c.make(), c.mode, c.nan), c.expected) << c.name;
}

} // namespace
