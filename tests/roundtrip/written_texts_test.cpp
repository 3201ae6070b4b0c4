// Texts in the shapes the writers give them read as arrays that are written back as the same text.
#include "roundtrip_support.hpp"

#include <string>

namespace {

using namespace zq::test::roundtrip;
using enum ToJsonMode;
using enum NanType;

struct TextCase {
    char const* name;
    Setting setting;
    char const* text;
};

static TextCase const texts[] = {
    {"DoubleMatrixLarge", {Large, String}, R"({"zqdata":[1,4,2,5,3,6],"zqsize":[2,3],"zqtype":"double"})"},
    {"DoubleMatrixSmall", {Small, String}, "[[1,2,3],[4,5,6]]"},
    {"DoubleColumnSmall", {Small, String}, "[1,2,3]"},
    {"DoubleRowSmall", {Small, String}, "[[1,2,3]]"},
    {"DoubleScalarLarge", {Large, String}, R"({"zqdata":[5],"zqsize":[1,1],"zqtype":"double"})"},
    {"DoubleScalarSmall", {Small, String}, "5"},
    {"NaNStringLarge", {Large, String}, R"({"zqdata":["NaN"],"zqsize":[1,1],"zqtype":"double"})"},
    {"NaNObjectLarge", {Large, Object}, R"({"zqdata":[{"zqdata":"NaN"}],"zqsize":[1,1],"zqtype":"double"})"},
    {"NaNSmallString", {Small, String}, R"({"zqdata":"NaN"})"},
    {"NaNSmallObject", {Small, Object}, R"({"zqdata":"NaN"})"},
    {"NonFiniteNestedSmall", {Small, String}, R"([[{"zqdata":"NaN"},1],[{"zqdata":"Inf"},{"zqdata":"-Inf"}]])"},
    {"NonFiniteStringsLarge", {Large, String},
        R"({"zqdata":["NaN",1,"Inf","-Inf"],"zqsize":[1,4],"zqtype":"double"})"},
    {"ComplexScalarSmall", {Small, String},
        R"({"zqcomplex":true,"zqdata":[1,2],"zqsize":[1,1],"zqtype":"double"})"},
    {"SingleScalarSmall", {Small, String}, R"({"zqdata":[5],"zqsize":[1,1],"zqtype":"single"})"},
    {"PagesSmall", {Small, String}, "[[[1,3]],[[2,4]]]"},
    {"PagesLarge", {Large, String}, R"({"zqdata":[1,2,3,4],"zqsize":[2,1,2],"zqtype":"double"})"},
    {"DoubleEmpty0x0Small", {Small, String}, "[]"},
    {"DoubleEmpty0x3Small", {Small, String}, R"({"zqdata":[],"zqsize":[0,3],"zqtype":"double"})"},
    {"LogicalEmpty0x0Small", {Small, String}, R"({"zqdata":[],"zqsize":[0,0],"zqtype":"logical"})"},
    {"LogicalMatrixSmall", {Small, String}, "[[true,false],[false,true]]"},
    {"CharRowSmall", {Small, String}, R"("abc")"},
    {"CharEmpty0x0Small", {Small, String}, R"("")"},
    {"CharEmpty0x0Large", {Large, String}, R"({"zqdata":[""],"zqsize":[0,0],"zqtype":"char"})"},
    {"CharEmpty1x0Small", {Small, String}, R"({"zqdata":[""],"zqsize":[1,0],"zqtype":"char"})"},
    {"CharMatrix", {Small, String}, R"({"zqdata":["adbecf"],"zqsize":[2,3],"zqtype":"char"})"},
    {"SparseDouble", {Small, String},
        R"({"zqdata":[[0,2],[1,1],[7,8]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"SparseLogical", {Large, String},
        R"({"zqdata":[[0,2],[1,1]],"zqsize":[3,2],"zqsparse":true,"zqtype":"logical"})"},
    {"SparseComplexNaN", {Large, Object},
        R"({"zqcomplex":true,"zqdata":[[0],[1],[{"zqdata":"NaN"},8]],"zqsize":[3,2],"zqsparse":true,"zqtype":"double"})"},
    {"Int64Extremes", {Large, String},
        R"({"zqdata":[-9223372036854775808,9223372036854775807],"zqsize":[1,2],"zqtype":"int64"})"},
    {"Uint64Largest", {Small, String}, R"({"zqdata":[18446744073709551615],"zqsize":[1,1],"zqtype":"uint64"})"},
    {"StringWithMissing", {Small, String},
        R"({"zqdata":["abc",{"zqdata":"missing"}],"zqsize":[1,2],"zqtype":"string"})"},
    {"StructOneByOneSmall", {Small, String}, R"({"a":1,"b":"abc"})"},
    {"StructOneByOneLarge", {Large, String},
        R"({"zqdata":{"a":[{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"}],"b":[{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}]},"zqsize":[1,1],"zqtype":"struct"})"},
    {"StructColumnSmall", {Small, String},
        R"({"zqdata":{"a":[1,2],"b":["x","y"]},"zqsize":[2,1],"zqtype":"struct"})"},
    {"StructNoFieldsSmall", {Small, String}, "{}"},
    {"StructEmptyWithFields", {Small, String},
        R"({"zqdata":{"a":[],"b":[]},"zqsize":[0,0],"zqtype":"struct"})"},
    {"CellSmall", {Small, String}, R"({"zqdata":[1,"abc"],"zqsize":[1,2],"zqtype":"cell"})"},
    {"CellLarge", {Large, String},
        R"({"zqdata":[{"zqdata":[1],"zqsize":[1,1],"zqtype":"double"},{"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"}],"zqsize":[1,2],"zqtype":"cell"})"},
    {"Enumeration", {Small, String}, R"({"zqdata":["red","blue"],"zqsize":[1,2],"zqtype":"pkg.Color"})"},
};

class WrittenTexts : public ::testing::TestWithParam<TextCase> {};

TEST_P(WrittenTexts, AreWrittenBackUnchanged)
{
    SCOPED_TRACE(describe(GetParam().setting));
    EXPECT_EQ(text_of(from_text(GetParam().text), GetParam().setting), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(RoundTrip, WrittenTexts, ::testing::ValuesIn(texts),
    [](::testing::TestParamInfo<TextCase> const& info) { return std::string(info.param.name); });

} // namespace
