// Char and string arrays: their small and large forms, and their text on its way to UTF-8.
#include "expect_throw.hpp"
#include "writer_test_support.hpp"

#include <foundation/zorbaldata/json/detail/string_writer.hpp>

#include <stdexcept>

namespace {

using namespace zq::test::writer;
using enum ToJsonMode;
using enum NanType;

zd::Array abc()
{
    return charRow(u"abc");
}

static WriteCase const charForms[] = {
    {"RowIsString", abc, Small, String, R"("abc")"},
    {"EmptySquareIsEmptyString", [] { return charRow(u""); }, Small, String, R"("")"},
    {"ColumnKeepsLargeForm", [] { return chars({3, 1}, u"abc"); }, Small, String,
        R"({"zqdata":["abc"],"zqsize":[3,1],"zqtype":"char"})"},
    {"OneByZeroKeepsLargeForm", [] { return chars({1, 0}, u""); }, Small, String,
        R"({"zqdata":[""],"zqsize":[1,0],"zqtype":"char"})"},
    {"MatrixInStorageOrder", [] { return chars({2, 3}, u"adbecf"); }, Small, String,
        R"({"zqdata":["adbecf"],"zqsize":[2,3],"zqtype":"char"})"},
    {"RowUnderLarge", abc, Large, String, R"({"zqdata":["abc"],"zqsize":[1,3],"zqtype":"char"})"},
    {"EmptySquareUnderLarge", [] { return charRow(u""); }, Large, String,
        R"({"zqdata":[""],"zqsize":[0,0],"zqtype":"char"})"},
    {"NonAsciiAsUtf8", [] { return charRow(u"\u00e9\u20ac\U0001F600"); }, Small, String,
        "\"\xc3\xa9\xe2\x82\xac\xf0\x9f\x98\x80\""},
    {"LoneSurrogateInThreeBytes", [] { return charRow(u"a\xd800" u"b"); }, Small, String,
        "\"a\xED\xA0\x80" "b\""},
};

zd::Array abcAndMissing()
{
    return strings({1, 2}, {Text(u"abc"), Text()});
}

static WriteCase const stringForms[] = {
    {"MissingIsObject", abcAndMissing, Large, String,
        R"({"zqdata":["abc",{"zqdata":"missing"}],"zqsize":[1,2],"zqtype":"string"})"},
    {"ScalarKeepsLargeForm", [] { return strings({1, 1}, {Text(u"abc")}); }, Small, String,
        R"({"zqdata":["abc"],"zqsize":[1,1],"zqtype":"string"})"},
    {"EmptyElementIsEmptyString", [] { return strings({1, 1}, {Text(u"")}); }, Large, String,
        R"({"zqdata":[""],"zqsize":[1,1],"zqtype":"string"})"},
    {"TextMissingIsPlainString", [] { return strings({1, 1}, {Text(u"missing")}); }, Large, String,
        R"({"zqdata":["missing"],"zqsize":[1,1],"zqtype":"string"})"},
    {"UnsetElementsAreMissing", [] { return strings({2, 1}, {}); }, Large, String,
        R"({"zqdata":[{"zqdata":"missing"},{"zqdata":"missing"}],"zqsize":[2,1],"zqtype":"string"})"},
    {"NonAsciiAndLoneSurrogate", [] { return strings({1, 2}, {Text(u"\u00e9"), Text(u"\xdbff")}); }, Large,
        String, "{\"zqdata\":[\"\xc3\xa9\",\"\xED\xAF\xBF\"],\"zqsize\":[1,2],\"zqtype\":\"string\"}"},
};

TEST(CharWriter, Forms)
{
    expect_writes(charForms);
}

TEST(StringWriter, Forms)
{
    expect_writes(stringForms);
}

TEST(StringWriter, ElementsThatDisagreeWithTheDimensionsAreRefused)
{
    using foundation::zorbaldata::json::detail::write_string;
    zd::Array const two = abcAndMissing();
    EXPECT_THROW_WHAT(built([&](auto& out) {
        write_string(out, Dims { 2, 2 }, zd::getReadOnlyElements<Text>(two));
    }),
        std::runtime_error, "Number of elements did not match specified dimensions");
}

} // namespace
