// String arrays: present and missing elements in storage order, and the failures of a bad entry.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <yx/i18n/cvt_exception.hpp>

#include <stdexcept>
#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;
using Element = zorbal::data::optional<std::u16string>;

// A present element quoted, a missing one as (missing), so that the two read apart in a failure.
std::u16string shown(Element const& element)
{
    return element ? u'"' + *element + u'"' : u"(missing)";
}

struct StringCase {
    char const* name;
    char const* json;
    Dims dims;
    std::vector<std::u16string> expected;
};

class StringReader : public ::testing::TestWithParam<StringCase> { };

TEST_P(StringReader, ReadsPresentAndMissingElements)
{
    SCOPED_TRACE(GetParam().json);
    zd::Array const array = read(GetParam().json);
    ASSERT_EQ(array.getType(), zd::ArrayType::STRING);
    EXPECT_EQ(array.getDimensions(), GetParam().dims);
    std::vector<std::u16string> elements;
    for (auto const element : zd::getReadOnlyElements<Element>(array))
        elements.push_back(shown(element.value()));
    EXPECT_EQ(elements, GetParam().expected);
}

// A missing element is no string at all, unlike the empty string and the plain word "missing".
static StringCase const arrays[] = {
    { "StorageOrder",
        R"({"zqtype":"string","zqsize":[2,2],"zqdata":["a",{"zqdata":"missing"},"","missing"]})", { 2, 2 },
        { u"\"a\"", u"(missing)", u"\"\"", u"\"missing\"" } },
    { "MissingIgnoresOtherKeys",
        R"({"zqtype":"string","zqsize":[1,1],"zqdata":[{"x":1,"zqdata":"missing"}]})", { 1, 1 },
        { u"(missing)" } },
    { "Utf8ToUtf16", "{\"zqtype\":\"string\",\"zqsize\":[1,1],\"zqdata\":[\"\xC3\xA9\xF0\x9F\x98\x80\"]}",
        { 1, 1 }, { u"\"\u00E9\U0001F600\"" } },
    { "Empty", R"({"zqtype":"string","zqsize":[0,3],"zqdata":[]})", { 0, 3 }, {} },
};
INSTANTIATE_TEST_SUITE_P(Arrays, StringReader, ::testing::ValuesIn(arrays), row_name<StringCase>);

class StringReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(StringReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

// A bad entry is reported before a wrong count; surplus entries are never read.
static FailureCase const failures[] = {
    { "NumberFailsAsObject", R"({"zqtype":"string","zqsize":[1,2],"zqdata":["a",5]})",
        fails_with<std::runtime_error>, "invalid conversion: JSON number to JSON object" },
    { "ObjectWithoutData", R"({"zqtype":"string","zqsize":[1,1],"zqdata":[{"x":"missing"}]})",
        fails_with<std::runtime_error>, "zqdata field not found" },
    { "DataNotAString", R"({"zqtype":"string","zqsize":[1,1],"zqdata":[{"zqdata":1}]})",
        fails_with<std::runtime_error>, "Expected a data inside special float objects to be a string" },
    { "WordIsExact", R"({"zqtype":"string","zqsize":[1,3],"zqdata":[{"zqdata":"Missing"}]})",
        fails_with<zj::InvalidStringElemType>,
        R"(String array must contain JSON String, or {"zqdata":"missing"})" },
    { "TooFew", R"({"zqtype":"string","zqsize":[1,1],"zqdata":[]})", fails_with<zj::MismatchedZQSize>,
        mismatched_size },
    { "SurplusNeverRead", R"({"zqtype":"string","zqsize":[1,1],"zqdata":["a",5]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "ScalarData", R"({"zqtype":"string","zqsize":[1,1],"zqdata":"a"})", fails_with<zj::InvalidZQDataType>,
        R"(""string arrays must be a JSON array)" },
};
INSTANTIATE_TEST_SUITE_P(Failures, StringReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

TEST(StringReader, InvalidUtf8FailsInTheConverter)
{
    EXPECT_THROW(read_tree(large_form("string", { 1, 1 }, fj::Array { fj::Value("a\xFF") })),
        yx::i18n::CvtInvalidCharacter);
}

} // namespace
