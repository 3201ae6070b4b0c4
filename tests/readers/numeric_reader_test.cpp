// Real and complex numeric arrays: the ten element types, the flags, and which failure comes first.
#include "reader_support.hpp"

#include "log_capture.hpp"

#include <frontend/detail/parse_error.hpp>

#include <complex>
#include <limits>
#include <string>
#include <vector>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;

double const inf = std::numeric_limits<double>::infinity();

class NumericReader : public ::testing::TestWithParam<ArrayCase> { };

TEST_P(NumericReader, ReadsTypeSizeAndElements)
{
    expect_array(GetParam());
}

// zqdata lists elements in storage order, the first dimension fastest, complex ones as pairs.
static ArrayCase const arrays[] = {
    { "Double", R"({"zqtype":"double","zqsize":[2,2],"zqdata":[1,2,3,4.5]})", elements_as<double>, { 2, 2 },
        { 1, 2, 3, 4.5 } },
    { "DoubleSpellings",
        R"({"zqtype":"double","zqsize":[1,4],"zqdata":["NaN",{"zqdata":"Inf"},"-Inf",-0.0]})",
        elements_as<double>, { 1, 4 }, { signed_nan(), inf, -inf, -0.0 } },
    { "Single", R"({"zqtype":"single","zqsize":[1,3],"zqdata":[0.5,"NaN",{"zqdata":"-Inf"}]})",
        elements_as<float>, { 1, 3 }, { 0.5, signed_nan(), -inf } },
    { "Int8", R"({"zqtype":"int8","zqsize":[1,2],"zqdata":[-128,127]})", elements_as<signed char>, { 1, 2 },
        { -128, 127 } },
    { "UInt8", R"({"zqtype":"uint8","zqsize":[1,2],"zqdata":[0,255]})", elements_as<unsigned char>, { 1, 2 },
        { 0, 255 } },
    { "Int16", R"({"zqtype":"int16","zqsize":[2,1],"zqdata":[-32768,32767]})", elements_as<short>, { 2, 1 },
        { -32768, 32767 } },
    { "Int32", R"({"zqtype":"int32","zqsize":[1,2],"zqdata":[-2147483648,2147483647]})", elements_as<int>,
        { 1, 2 }, { -2147483648.0, 2147483647 } },
    { "UInt32", R"({"zqtype":"uint32","zqsize":[1,1],"zqdata":[4294967295]})", elements_as<unsigned int>,
        { 1, 1 }, { 4294967295.0 } },
    { "Int64", R"({"zqtype":"int64","zqsize":[1,2],"zqdata":[-5,6]})", elements_as<long long>, { 1, 2 },
        { -5, 6 } },
    { "UInt64", R"({"zqtype":"uint64","zqsize":[1,1],"zqdata":[7]})", elements_as<unsigned long long>,
        { 1, 1 }, { 7 } },
    { "Empty", R"({"zqtype":"double","zqsize":[0,3],"zqdata":[]})", elements_as<double>, { 0, 3 }, {} },
    { "ComplexFalseIsReal", R"({"zqtype":"int32","zqsize":[1,1],"zqcomplex":false,"zqdata":[3]})",
        elements_as<int>, { 1, 1 }, { 3 } },
    { "ComplexDouble", R"({"zqtype":"double","zqsize":[1,2],"zqcomplex":true,"zqdata":[1,2,3,4]})",
        elements_as<std::complex<double>>, { 1, 2 }, { 1, 2, 3, 4 } },
    { "ComplexSingleObjects",
        R"({"zqtype":"single","zqsize":[1,1],"zqcomplex":true,"zqdata":[{"zqdata":"NaN"},{"zqdata":"Inf"}]})",
        elements_as<std::complex<float>>, { 1, 1 }, { signed_nan(), inf } },
    { "ComplexInt16", R"({"zqtype":"int16","zqsize":[2,1],"zqcomplex":true,"zqdata":[1,-2,-32768,32767]})",
        elements_as<std::complex<short>>, { 2, 1 }, { 1, -2, -32768, 32767 } },
    { "ComplexUInt64", R"({"zqtype":"uint64","zqsize":[1,1],"zqcomplex":true,"zqdata":[0,9]})",
        elements_as<std::complex<unsigned long long>>, { 1, 1 }, { 0, 9 } },
};
INSTANTIATE_TEST_SUITE_P(Arrays, NumericReader, ::testing::ValuesIn(arrays), row_name<ArrayCase>);

class NumericReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(NumericReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const not_double_list = R"(""double arrays must be a JSON array)";
std::string const bad_double
    = R"(Invalid value for type double. Expected a number or one of the following:"NaN", "Inf", "-Inf", {"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"})";
std::string const incomplete = "Complex data is incomplete";

std::string sparse_refused(char const* word)
{
    return std::string(R"(Invalid "zqtype" value: )") + word
        + R"( in sparse array. Expected "double" or "logical" types)";
}

// The list first, then the flags, then the elements in storage order, and the count last.
static FailureCase const failures[] = {
    { "ScalarData", R"({"zqtype":"double","zqsize":[1,1],"zqdata":5})", fails_with<zj::InvalidZQDataType>,
        not_double_list },
    { "TooFew", R"({"zqtype":"double","zqsize":[2,2],"zqdata":[1,2,3]})", fails_with<zj::MismatchedZQSize>,
        mismatched_size },
    { "TooMany", R"({"zqtype":"double","zqsize":[2,2],"zqdata":[1,2,3,4,5]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "BadElementBeforeCount", R"({"zqtype":"double","zqsize":[2,2],"zqdata":[1,2,3,"x"]})",
        fails_with<zj::InvalidFloatingElem>, bad_double },
    { "SurplusNeverConverted", R"({"zqtype":"double","zqsize":[2,2],"zqdata":[1,2,3,4,"x"]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "FirstBadElementNamed", R"({"zqtype":"int16","zqsize":[1,3],"zqdata":[1,40000,2]})",
        fails_with<zj::InvalidIntegralElem>, "Invalid value for type int16. Expected an integral number" },
    { "ComplexOddOne", R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":true,"zqdata":[1]})",
        fails_with<zj::IncompleteComplexData>, incomplete },
    { "ComplexNone", R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":true,"zqdata":[]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "ComplexOddShort", R"({"zqtype":"double","zqsize":[2,1],"zqcomplex":true,"zqdata":[1,2,3]})",
        fails_with<zj::IncompleteComplexData>, incomplete },
    { "ComplexRefusesPlainNaN", R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":true,"zqdata":["NaN",0]})",
        fails_with<zj::InvalidFloatingElem>, bad_double },
    { "ComplexSingleRange", R"({"zqtype":"single","zqsize":[1,1],"zqcomplex":true,"zqdata":[0,1e39]})",
        fails_with<zj::InvalidFloatingElem>,
        R"(Invalid value for type single. Expected a number or one of the following:"NaN", "Inf", "-Inf", {"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"})" },
    { "ComplexIntegerRange", R"({"zqtype":"int8","zqsize":[1,1],"zqcomplex":true,"zqdata":[1,128]})",
        fails_with<zj::InvalidIntegralElem>, "Invalid value for type int8. Expected an integral number" },
    { "ComplexNotABoolean", R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":1,"zqdata":[1]})",
        fails_with<zj::InvalidPropertyType>, R"("zqcomplex" must be a JSON boolean)" },
    { "SparseNotABoolean", R"({"zqtype":"double","zqsize":[1,1],"zqsparse":"yes","zqdata":[1]})",
        fails_with<zj::InvalidPropertyType>, R"("zqsparse" must be a JSON boolean)" },
    { "BothFlagsRead", R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":false,"zqsparse":1,"zqdata":[1]})",
        fails_with<zj::InvalidPropertyType>, R"("zqsparse" must be a JSON boolean)" },
    { "ListBeforeFlags", R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":1,"zqdata":5})",
        fails_with<zj::InvalidZQDataType>, not_double_list },
    { "FlagsBeforeElements", R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":1,"zqdata":["x"]})",
        fails_with<zj::InvalidPropertyType>, R"("zqcomplex" must be a JSON boolean)" },
    { "SparseInt8", R"({"zqtype":"int8","zqsize":[1,1],"zqsparse":true,"zqdata":[1]})",
        fails_with<zj::InvalidZQTypeForSparse>, sparse_refused("a") },
    { "SparseUInt64", R"({"zqtype":"uint64","zqsize":[1,1],"zqsparse":true,"zqdata":[1]})",
        fails_with<zj::InvalidZQTypeForSparse>, sparse_refused("y") },
};
INSTANTIATE_TEST_SUITE_P(
    Failures, NumericReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

// The parser reads integer data as int64 or uint64, so every digit of the widest types arrives.
TEST(NumericReader, KeepsEveryDigitOfSixtyFourBitIntegers)
{
    zd::TypedArray<long long> const signed_array(
        read(R"({"zqtype":"int64","zqsize":[1,2],"zqdata":[-9223372036854775808,9223372036854775807]})"));
    EXPECT_EQ(signed_array[0], std::numeric_limits<long long>::min());
    EXPECT_EQ(signed_array[1], std::numeric_limits<long long>::max());
    zd::TypedArray<unsigned long long> const unsigned_array(
        read(R"({"zqtype":"uint64","zqsize":[1,1],"zqdata":[18446744073709551615]})"));
    EXPECT_EQ(unsigned_array[0], std::numeric_limits<unsigned long long>::max());
}

// The text reader refuses integer data that are no plain integers, so only trees carry these faults.
TEST(NumericReader, IntegerDataThatOnlyTreesCarry)
{
    fj::Object const sparse { { "zqsparse", fj::Value(true) } };
    EXPECT_THROW_WHAT(read_tree(large_form("int8", { 1, 1 }, fj::Value(5.0), sparse)), zj::InvalidZQDataType,
        R"(""int8 arrays must be a JSON array)");
    EXPECT_THROW_WHAT(read_tree(large_form("uint16", { 1, 1 }, fj::Array { fj::Value("x") }, sparse)),
        zj::InvalidZQTypeForSparse, sparse_refused("t"));
    EXPECT_THROW_WHAT(read_tree(large_form("uint8", { 1, 1 }, fj::Array { fj::Value(1LL) })),
        zj::InvalidIntegralElem, "Invalid value for type uint8. Expected an integral number");
    EXPECT_THROW_WHAT(read_tree(large_form("int32", { 1, 1 }, fj::Array { fj::Value(1.0) })),
        zj::InvalidIntegralElem, "Invalid value for type int32. Expected an integral number");
}

// The cast of the list is the one failure that is logged, once, with the cast's own message.
TEST(NumericReader, LogsTheCastOfTheListOnly)
{
    LogCapture log;
    EXPECT_THROW(read(R"({"zqtype":"double","zqsize":[1,1],"zqdata":5})"), zj::InvalidZQDataType);
    EXPECT_EQ(log.lines(),
        std::vector<std::string> {
            "Caught std::runtime_error while casting data: invalid conversion: JSON number "
            "to JSON array" });
    EXPECT_THROW(
        read(R"({"zqtype":"double","zqsize":[1,1],"zqcomplex":1,"zqdata":["x"]})"), zj::InvalidPropertyType);
    EXPECT_THROW(read(R"({"zqtype":"double","zqsize":[2,1],"zqdata":["x"]})"), zj::InvalidFloatingElem);
    EXPECT_EQ(log.lines().size(), 1u);
}

} // namespace
