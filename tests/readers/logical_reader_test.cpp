// Logical arrays: booleans only, the sparse flag alone, and the count after the elements.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;

class LogicalReader : public ::testing::TestWithParam<ArrayCase> { };

TEST_P(LogicalReader, ReadsSizeAndElements)
{
    expect_array(GetParam());
}

static ArrayCase const arrays[] = {
    { "Row", R"({"zqtype":"logical","zqsize":[1,2],"zqdata":[true,false]})", elements_as<bool>, { 1, 2 },
        { 1, 0 } },
    { "StorageOrder", R"({"zqtype":"logical","zqsize":[2,2],"zqdata":[true,false,false,true]})",
        elements_as<bool>, { 2, 2 }, { 1, 0, 0, 1 } },
    { "Empty", R"({"zqtype":"logical","zqsize":[0,0],"zqdata":[]})", elements_as<bool>, { 0, 0 }, {} },
    { "ComplexNotRead", R"({"zqtype":"logical","zqsize":[1,1],"zqcomplex":"no","zqdata":[true]})",
        elements_as<bool>, { 1, 1 }, { 1 } },
};
INSTANTIATE_TEST_SUITE_P(Arrays, LogicalReader, ::testing::ValuesIn(arrays), row_name<ArrayCase>);

class LogicalReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(LogicalReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const bad_logical = "Invalid value for type logical. Expected true or false";

static FailureCase const failures[] = {
    { "NumberIsNoBoolean", R"({"zqtype":"logical","zqsize":[1,2],"zqdata":[true,1]})",
        fails_with<zj::InvalidLogicalElem>, bad_logical },
    { "TooFew", R"({"zqtype":"logical","zqsize":[1,2],"zqdata":[true]})", fails_with<zj::MismatchedZQSize>,
        mismatched_size },
    { "SurplusNeverConverted", R"({"zqtype":"logical","zqsize":[1,1],"zqdata":[true,"x"]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "ScalarData", R"({"zqtype":"logical","zqsize":[1,1],"zqdata":true})", fails_with<zj::InvalidZQDataType>,
        R"(""logical arrays must be a JSON array)" },
    { "SparseNotABoolean", R"({"zqtype":"logical","zqsize":[1,1],"zqsparse":"no","zqdata":[true]})",
        fails_with<zj::InvalidPropertyType>, R"("zqsparse" must be a JSON boolean)" },
};
INSTANTIATE_TEST_SUITE_P(
    Failures, LogicalReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

} // namespace
