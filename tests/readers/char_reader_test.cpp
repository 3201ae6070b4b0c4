// Char arrays: one string of UTF-16 code units shaped by the size alone.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <yx/i18n/cvt_exception.hpp>

#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;

class CharReader : public ::testing::TestWithParam<ArrayCase> { };

TEST_P(CharReader, ReadsSizeAndCodeUnits)
{
    expect_array(GetParam());
}

static ArrayCase const arrays[] = {
    { "Row", R"({"zqtype":"char","zqsize":[1,3],"zqdata":["abc"]})", elements_as<char16_t>, { 1, 3 },
        { 'a', 'b', 'c' } },
    { "RowsInStorageOrder", R"({"zqtype":"char","zqsize":[2,3],"zqdata":["adbecf"]})", elements_as<char16_t>,
        { 2, 3 }, { 'a', 'd', 'b', 'e', 'c', 'f' } },
    { "Empty", R"({"zqtype":"char","zqsize":[0,0],"zqdata":[""]})", elements_as<char16_t>, { 0, 0 }, {} },
    { "BeyondTheBasicPlane", "{\"zqtype\":\"char\",\"zqsize\":[1,2],\"zqdata\":[\"\xF0\x9F\x98\x80\"]}",
        elements_as<char16_t>, { 1, 2 }, { 0xD83D, 0xDE00 } },
    { "FlagsNotRead", R"({"zqtype":"char","zqsize":[1,1],"zqcomplex":"x","zqsparse":true,"zqdata":["a"]})",
        elements_as<char16_t>, { 1, 1 }, { 'a' } },
};
INSTANTIATE_TEST_SUITE_P(Arrays, CharReader, ::testing::ValuesIn(arrays), row_name<ArrayCase>);

class CharReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(CharReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const not_one_string = R"("zqdata" for char array must be in the format ["<data>"])";

static FailureCase const failures[] = {
    { "NoString", R"({"zqtype":"char","zqsize":[0,0],"zqdata":[]})", fails_with<zj::InvalidCharArrayZQData>,
        not_one_string },
    { "NumberForString", R"({"zqtype":"char","zqsize":[1,1],"zqdata":[5]})",
        fails_with<zj::InvalidCharArrayZQData>, not_one_string },
    { "StringForList", R"({"zqtype":"char","zqsize":[1,3],"zqdata":"abc"})",
        fails_with<zj::InvalidZQDataType>, R"(""char arrays must be a JSON array)" },
    { "TooManyCodeUnits", R"({"zqtype":"char","zqsize":[1,2],"zqdata":["abc"]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "SurrogatePairCountsTwo", "{\"zqtype\":\"char\",\"zqsize\":[1,1],\"zqdata\":[\"\xF0\x9F\x98\x80\"]}",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
};
INSTANTIATE_TEST_SUITE_P(Failures, CharReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

// Bytes that are no UTF-8 fail in the converter, before the count of code units is known.
TEST(CharReader, InvalidUtf8FailsBeforeTheCount)
{
    EXPECT_THROW(read_tree(large_form("char", { 1, 9 }, fj::Array { fj::Value("ab\xFF") })),
        yx::i18n::CvtInvalidCharacter);
}

} // namespace
