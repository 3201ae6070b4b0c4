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
    using enum zd::ArrayType;
    enum { C = 1, S = 2 }; // complex, sparse
    static struct {
        zd::ArrayType type;
        char const* name;
        char const* data;
        int kind = 0;
        char const* small = nullptr;
    } const cases[] = {
        {LOGICAL, "logical", "[false]", 0, "false"}, {CHAR, "char", R"(["\u0000"])", 0, R"("\u0000")"},
        {STRING, "string", R"([{"zqdata":"missing"}])"}, {DOUBLE, "double", "[0]", 0, "0"},
        {SINGLE, "single", "[0f]"}, {STRUCT, "struct", "{}", 0, "{}"}, {ENUM, "", R"([""])"},
        {INT8, "int8", "[0i]"}, {UINT8, "uint8", "[0u]"}, {INT16, "int16", "[0i]"},
        {UINT16, "uint16", "[0u]"}, {INT32, "int32", "[0i]"}, {UINT32, "uint32", "[0u]"},
        {INT64, "int64", "[0i]"}, {UINT64, "uint64", "[0u]"},
        {COMPLEX_DOUBLE, "double", "[0,0]", C}, {COMPLEX_SINGLE, "single", "[0f,0f]", C},
        {COMPLEX_INT8, "int8", "[0i,0i]", C}, {COMPLEX_UINT8, "uint8", "[0u,0u]", C},
        {COMPLEX_INT16, "int16", "[0i,0i]", C}, {COMPLEX_UINT16, "uint16", "[0u,0u]", C},
        {COMPLEX_INT32, "int32", "[0i,0i]", C}, {COMPLEX_UINT32, "uint32", "[0u,0u]", C},
        {COMPLEX_INT64, "int64", "[0i,0i]", C}, {COMPLEX_UINT64, "uint64", "[0u,0u]", C},
        {CELL, "cell", R"([{"zqdata":[],"zqsize":[0,0],"zqtype":"double"}])", 0,
            R"({"zqdata":[[]],"zqsize":[1,1],"zqtype":"cell"})"},
        {SPARSE_LOGICAL, "logical", "[[],[]]", S}, {SPARSE_DOUBLE, "double", "[[],[],[]]", S},
        {SPARSE_COMPLEX_DOUBLE, "double", "[[],[],[]]", C | S}, {SPARSE_SINGLE, "single", "[[],[],[]]", S},
        {SPARSE_COMPLEX_SINGLE, "single", "[[],[],[]]", C | S},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(std::string(zd::getTypeName(c.type)));
        std::string const expected = std::string(c.kind & C ? R"({"zqcomplex":true,)" : "{")
            + R"("zqdata":)" + c.data + R"(,"zqsize":[1,1],)" + (c.kind & S ? R"("zqsparse":true,)" : "")
            + R"("zqtype":")" + c.name + R"("})";
        EXPECT_EQ(write(factory.createArray(c.type, {1, 1}), Large), expected);
        EXPECT_EQ(write(factory.createArray(c.type, {1, 1}), Small), c.small ? c.small : expected);
    }
}

std::string dbl(std::string const& size, std::string const& data) { return large("double", size, data); }
std::string sparseOf(std::string const& type, std::string const& size, std::string const& data,
    bool complex = false)
{
    return (complex ? R"({"zqcomplex":true,"zqdata":)" : R"({"zqdata":)") + data + R"(,"zqsize":)" + size
        + R"(,"zqsparse":true,"zqtype":")" + type + R"("})";
}
std::string const abcLarge = R"({"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"})";
std::string const oneLarge = R"({"zqdata":[1],"zqsize":[1,1],"zqtype":"double"})";

// One array written under one setting, and the tagged text expected of it.
TEST(Writer, Forms)
{
    zd::Array const abc = charRow(u"abc"), oneAndAbc = cell({1, 2}, {scalar(1), abc});
    zd::Array const aIsOneBIsAbc = structs({1, 1}, {{"a", {scalar(1)}}, {"b", {abc}}});
    struct {
        zd::Array array;
        std::string expected;
        ToJsonMode mode = Small;
        NanType nan = String;
    } const forms[] = {
        // Plain numbers in the large form.
        {doubles({2, 3}, {1, 4, 2, 5, 3, 6}), dbl("[2,3]", "[1,4,2,5,3,6]"), Large},
        {doubles({2, 1, 1}, {1, 2}), dbl("[2,1,1]", "[1,2]"), Large},
        {doubles({1, 5}, {nan, 1, inf, -inf, -0.0}), dbl("[1,5]", R"(["NaN",1,"Inf","-Inf",-0])"), Large},
        {doubles({1, 4}, {nan, 1, inf, -inf}),
            dbl("[1,4]", R"([{"zqdata":"NaN"},1,{"zqdata":"Inf"},{"zqdata":"-Inf"}])"), Large, Object},
        {scalar(std::copysign(nan, -1.0)), dbl("[1,1]", R"(["NaN"])"), Large},
        // Single is not widened and has no small form.
        {numbers<float>({1, 6}, {0.1f, -3.0f, fmax, finf, -finf, -0.0f}),
            large("single", "[1,6]", R"([0.1f,-3f,3.4028234663852886e+38f,"Inf","-Inf",-0f])")},
        {numbers<signed char>({1, 2}, {-56, 127}), large("int8", "[1,2]", "[-56i,127i]"), Large},
        {numbers<unsigned char>({1, 1}, {200}), large("uint8", "[1,1]", "[200u]"), Large},
        {numbers<long long>({1, 2}, {std::numeric_limits<long long>::min(), (1LL << 53) + 1}),
            large("int64", "[1,2]", "[-9223372036854775808i,9007199254740993i]"), Large},
        {numbers<unsigned long long>({1, 1}, {18446744073709551615ULL}),
            large("uint64", "[1,1]", "[18446744073709551615u]"), Large},
        {numbers<Complex>({1, 2}, {{1, 2}, {3, nan}}),
            R"({"zqcomplex":true,"zqdata":[1,2,3,"NaN"],"zqsize":[1,2],"zqtype":"double"})", Large},
        {numbers<ComplexSingle>({1, 1}, {{0.1f, -finf}}),
            R"({"zqcomplex":true,"zqdata":[0.1f,"-Inf"],"zqsize":[1,1],"zqtype":"single"})", Large},
        // Small forms: rows of rows, nested by the indices.
        {doubles({2, 3}, {1, 4, 2, 5, 3, 6}), "[[1,2,3],[4,5,6]]"}, {scalar(nan), R"({"zqdata":"NaN"})"},
        {scalar(inf), R"({"zqdata":"Inf"})", Small, Object},
        {doubles({0, 0}, {}), "[]"}, {doubles({0, 3}, {}), dbl("[0,3]", "[]")},
        {doubles({1, 0}, {}), dbl("[1,0]", "[]")}, {doubles({3, 1}, {1, 2, 3}), "[1,2,3]"},
        {doubles({1, 3}, {1, 2, 3}), "[[1,2,3]]"},
        {doubles({2, 2, 2}, {111, 211, 121, 221, 112, 212, 122, 222}),
            "[[[111,112],[121,122]],[[211,212],[221,222]]]"},
        {doubles({3, 1, 1, 2}, {1, 2, 3, 4, 5, 6}), "[[[[1,4]]],[[[2,5]]],[[[3,6]]]]"},
        {doubles({1, 1, 1}, {7}), "[[[7]]]"}, {doubles({1, 2}, {nan, 1}), R"([[{"zqdata":"NaN"},1]])"},
        {doubles({2, 1}, {-inf, 2}), R"([{"zqdata":"-Inf"},2])"},
        {logicals({2, 1}, {true, false}), "[true,false]"},
        {logicals({1, 2}, {true, false}), "[[true,false]]"},
        {logicals({0, 0}, {}), large("logical", "[0,0]", "[]")},
        // Char and string arrays.
        {abc, R"("abc")"}, {charRow(u""), R"("")"},
        {chars({3, 1}, u"abc"), large("char", "[3,1]", R"(["abc"])")},
        {chars({1, 0}, u""), large("char", "[1,0]", R"([""])")},
        {chars({2, 3}, u"adbecf"), large("char", "[2,3]", R"(["adbecf"])")},
        {abc, abcLarge, Large}, {charRow(u""), large("char", "[0,0]", R"([""])"), Large},
        {charRow(u"\u00e9\u20ac\U0001F600"), "\"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\""},
        {charRow(u"a\xd800" u"b"), "\"a\xED\xA0\x80" "b\""},
        {strings({1, 3}, {Text(u""), Text(), Text(u"missing")}),
            large("string", "[1,3]", R"(["",{"zqdata":"missing"},"missing"])"), Large},
        {strings({2, 1}, {}), large("string", "[2,1]", R"([{"zqdata":"missing"},{"zqdata":"missing"}])")},
        {strings({1, 2}, {Text(u"\u00e9"), Text(u"\xdbff")}),
            large("string", "[1,2]", "[\"\xc3\xa9\",\"\xED\xAF\xBF\"]"), Large},
        // Sparse arrays: coordinate lists in the order the arrays hold them, under both modes.
        {sparse<double>({3, 2}, {{2, 1, 8.0}, {0, 1, 7.0}, {1, 0, 3.0}}),
            sparseOf("double", "[3,2]", "[[1u,0u,2u],[0u,1u,1u],[3,7,8]]"), Large},
        {sparse<double>({1, 1}, {{0, 0, 5.0}}), sparseOf("double", "[1,1]", "[[0u],[0u],[5]]")},
        {sparse<bool>({3, 2}, {{0, 0, true}, {2, 1, true}}),
            sparseOf("logical", "[3,2]", "[[0u,2u],[0u,1u]]"), Large},
        {sparse<double>({2, 2}, {{1, 1, nan}}),
            sparseOf("double", "[2,2]", R"([[1u],[1u],[{"zqdata":"NaN"}]])"), Small, Object},
        {sparse<float>({1, 3}, {{0, 2, 0.1f}}), sparseOf("single", "[1,3]", "[[0u],[2u],[0.1f]]"), Large},
        {sparse<Complex>({3, 2}, {{2, 0, {1, 2}}}),
            sparseOf("double", "[3,2]", "[[2u],[0u],[1,2]]", true), Large},
        {sparse<ComplexSingle>({2, 2}, {{1, 1, {0.5f, finf}}}),
            sparseOf("single", "[2,2]", R"([[1u],[1u],[0.5f,"Inf"]])", true), Large},
        // Enumerations: member names under the class name, in the large form.
        {enums({1, 2}, "pkg.Color", {"red", "blue"}), large("pkg.Color", "[1,2]", R"(["red","blue"])"),
            Large},
        {enums({0, 0}, "pkg.Color", {}), large("pkg.Color", "[0,0]", "[]")},
        // Cells and structs: what they hold is written by the same variant, at every depth.
        {cell({0, 0}, {}), large("cell", "[0,0]", "[]")},
        {oneAndAbc, large("cell", "[1,2]", R"([1,"abc"])")},
        {oneAndAbc, large("cell", "[1,2]", "[" + oneLarge + "," + abcLarge + "]"), Large},
        {cell({1, 1}, {cell({1, 1}, {scalar(5)})}),
            large("cell", "[1,1]", R"([{"zqdata":[5],"zqsize":[1,1],"zqtype":"cell"}])")},
        {aIsOneBIsAbc, R"({"a":1,"b":"abc"})"},
        {aIsOneBIsAbc, large("struct", "[1,1]", R"({"a":[)" + oneLarge + R"(],"b":[)" + abcLarge + "]}"),
            Large},
        {structs({2, 1}, {{"a", {scalar(1), scalar(2)}}, {"b", {charRow(u"x"), charRow(u"y")}}}),
            large("struct", "[2,1]", R"({"a":[1,2],"b":["x","y"]})")},
        // The fields are walked one after another.
        {structs({1, 3}, {{"b", {scalar(1), scalar(2), scalar(3)}},
             {"a", {scalar(4), scalar(5), scalar(6)}}}),
            large("struct", "[1,3]", R"({"a":[4,5,6],"b":[1,2,3]})")}, {structs({0, 0}, {}), "{}"},
        {structs({0, 0}, {{"a", {}}, {"b", {}}}), large("struct", "[0,0]", R"({"a":[],"b":[]})")},
        {structs({2, 1}, {}), large("struct", "[2,1]", "{}")},
        {structs({1, 1}, {{"zqtype", {charRow(u"x")}}}), R"({"zqtype":"x"})"},
        {structs({1, 1}, {{"s", {structs({1, 1}, {{"a", {scalar(1)}}})}}}), R"({"s":{"a":1}})"},
    };
    for (auto const& c : forms)
        EXPECT_EQ(write(c.array, c.mode, c.nan), c.expected) << "row " << &c - forms;
}

// Each unit that takes more than a copy, at every place of a short text, and pairs and lone surrogates
// on both sides of the 1024-unit blocks the text output encodes at a time: the same text as the tree.
TEST(Writer, TextUnitsTakingMoreThanACopy)
{
    std::u16string const specials[] = {u"\"", u"\\", u"\x01", u"\x1f", u"\x7f", u"\u00e9", u"\u07ff",
        u"\u0800", u"\u20ac", u"\U0001F600", u"\xd800", u"\xdc00", u"\xdc00\xd800", u"\xdbff\xdbff"};
    std::vector<std::u16string> texts;
    for (auto const& special : specials)
        for (std::size_t at = 0; at <= 9; ++at)
            texts.push_back(std::u16string(9, u'a').insert(at, special));
    for (std::size_t before : {1021, 1022, 1023, 1024})
        for (auto const* tail : {u"\U0001F600b", u"\xd800" u"b", u"\xdc00", u"\"\u00e9"})
            texts.push_back(std::u16string(before, u'a') + tail);
    using zq::test::same_on_both_roads;
    auto const all = zd::ObjectFilter::AllowAll;
    for (auto const& text : texts) {
        EXPECT_TRUE(same_on_both_roads(charRow(text), Small, String, all));
        EXPECT_TRUE(same_on_both_roads(strings({1, 1}, {Text(text)}), Large, Object, all, 2));
    }
}

} // namespace
