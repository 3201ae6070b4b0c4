// Enumeration arrays: the class name, member names in storage order, and the entries after the first.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <stdexcept>
#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;

std::vector<std::string> member_names(zd::Array const& array)
{
    std::vector<std::string> names;
    for (auto const element : zd::getReadOnlyElements<zd::Enumeration>(array))
        names.push_back(zd::detail::castToString(element));
    return names;
}

// "zqhandle" does not make an enumeration a handle array: a first entry that is a string decides.
TEST(EnumReader, ReadsClassAndMembersInStorageOrder)
{
    for (char const* further : { "", R"(,"zqhandle":{})" }) {
        std::string const json
            = std::string(R"({"zqtype":"pkg.Color","zqsize":[2,2],"zqdata":["red","green","blue","red"])")
            + further + "}";
        SCOPED_TRACE(json);
        zd::Array const array = read(json);
        ASSERT_EQ(array.getType(), zd::ArrayType::ENUM);
        EXPECT_EQ(zd::EnumArray(array).getClassName(), "pkg.Color");
        EXPECT_EQ(array.getDimensions(), (Dims { 2, 2 }));
        EXPECT_EQ(member_names(array), (std::vector<std::string> { "red", "green", "blue", "red" }));
    }
}

class EnumReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(EnumReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

// Only the first entry chose the kind; a later one that is no string fails in its cast, before the count.
static FailureCase const failures[] = {
    { "LaterEntryNoString", R"({"zqtype":"pkg.Color","zqsize":[1,3],"zqdata":["red",1]})",
        fails_with<std::runtime_error>, "invalid conversion: JSON number to JSON string" },
    { "TooFew", R"({"zqtype":"pkg.Color","zqsize":[1,3],"zqdata":["red","blue"]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "SurplusNeverRead", R"({"zqtype":"pkg.Color","zqsize":[1,1],"zqdata":["red",1]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
};
INSTANTIATE_TEST_SUITE_P(Failures, EnumReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

} // namespace
