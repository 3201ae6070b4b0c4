// The large notation header: large form, special float or plain object; the size and type keys; the
// kind of a class name; and the guard of the dispatch.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/types.hpp>

#include <foundation/zorbaldata/exceptions.hpp>

#include <boost/exception/get_error_info.hpp>

#include <limits>
#include <stdexcept>
#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;

double const inf = std::numeric_limits<double>::infinity();

class LargeHeader : public ::testing::TestWithParam<ArrayCase> { };

TEST_P(LargeHeader, ReadsTheForm)
{
    expect_array(GetParam());
}

static ArrayCase const forms[] = {
    { "NaNObject", R"({"zqdata":"NaN"})", elements_as<double>, { 1, 1 }, { signed_nan() } },
    { "InfObject", R"({"zqdata":"Inf"})", elements_as<double>, { 1, 1 }, { inf } },
    { "MinusInfWithOtherKeys", R"({"note":1,"zqdata":"-Inf"})", elements_as<double>, { 1, 1 }, { -inf } },
    { "NegativeZeroSize", R"({"zqtype":"double","zqsize":[-0.0,3],"zqdata":[]})", elements_as<double>,
        { 0, 3 }, {} },
    { "ThreeDimensions", R"({"zqtype":"double","zqsize":[1,2,1],"zqdata":[1,2]})", elements_as<double>,
        { 1, 2, 1 }, { 1, 2 } },
};
INSTANTIATE_TEST_SUITE_P(Forms, LargeHeader, ::testing::ValuesIn(forms), row_name<ArrayCase>);

class LargeHeaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(LargeHeaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const bad_size = R"("zqsize" must be an array of 2 or more positive integers)";

// A class name picks one of three kinds (enumerations in the enumeration reader's tests); what is no
// large form is a struct, as the struct reader's tests show.
static FailureCase const failures[] = {
    { "TypeNotString", R"({"zqtype":5,"zqsize":[1,1],"zqdata":[1]})", fails_with<zj::InvalidPropertyType>,
        R"("zqtype" must be a JSON string)" },
    { "SizeBeforeType", R"({"zqtype":5,"zqsize":1,"zqdata":[1]})", fails_with<zj::InvalidPropertyType>,
        R"("zqsize" must be a JSON array)" },
    { "OneExtent", R"({"zqtype":"double","zqsize":[1],"zqdata":[1]})", fails_with<zj::InvalidZQSize>,
        bad_size },
    { "FractionalExtent", R"({"zqtype":"double","zqsize":[1.5,2],"zqdata":[1]})",
        fails_with<zj::InvalidZQSize>, bad_size },
    { "NegativeExtent", R"({"zqtype":"double","zqsize":[-1,2],"zqdata":[1]})", fails_with<zj::InvalidZQSize>,
        bad_size },
    { "ExtentOf2To64", R"({"zqtype":"double","zqsize":[18446744073709551616,1],"zqdata":[1]})",
        fails_with<zj::InvalidZQSize>, bad_size },
    { "StringExtent", R"({"zqtype":"double","zqsize":["2",1],"zqdata":[1,2]})", fails_with<zj::InvalidZQSize>,
        bad_size },
    { "ClassWithNumberListIsAValueObjectList", R"({"zqtype":"My.Class","zqsize":[1,1],"zqdata":[1]})",
        fails_with<zj::InvalidZQDataType>, R"(""My.Class arrays must be a object)" },
    { "ClassWithScalarData", R"({"zqtype":"My.Class","zqsize":[1,1],"zqdata":5})",
        fails_with<zj::InvalidPropertyType>, R"("zqdata" must be a JSON array)" },
    { "KindBeforeSize", R"({"zqtype":"My.Class","zqsize":[1],"zqdata":5})",
        fails_with<zj::InvalidPropertyType>, R"("zqdata" must be a JSON array)" },
    { "SizeAfterKind", R"({"zqtype":"My.Class","zqsize":[1],"zqdata":{}})", fails_with<zj::InvalidZQSize>,
        bad_size },
};
INSTANTIATE_TEST_SUITE_P(Failures, LargeHeaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

// A NaN or an infinity in the size cannot come from JSON text.
TEST(LargeHeader, RefusesNonFiniteExtents)
{
    for (double extent : { std::numeric_limits<double>::quiet_NaN(), inf })
        EXPECT_THROW_WHAT(
            read_tree(large_form("double", { extent, 1 }, fj::Array {})), zj::InvalidZQSize, bad_size);
}

// The product of the dimensions is the factory's to refuse, at once and before any element is read.
TEST(LargeHeader, HugeSizeFailsAtTheFactory)
{
    EXPECT_THROW(
        read(R"({"zqtype":"double","zqsize":[4294967296,4294967296],"zqdata":[]})"), zd::EArrayTooLarge);
    EXPECT_THROW(
        read(R"({"zqtype":"uint8","zqsize":[4294967296,4294967296],"zqdata":[256]})"), zd::EArrayTooLarge);
}

// Two gibibytes claimed by a document of sixty bytes: the first missing element ends the reading.
TEST(LargeHeader, LargeClaimWithoutDataFailsAtTheFirstElement)
{
    EXPECT_THROW_WHAT(read(R"({"zqtype":"double","zqsize":[16384,16384],"zqdata":[]})"), zj::MismatchedZQSize,
        mismatched_size);
}

// A visitor that has an overload for every kind, as the dispatch requires.
struct AnyKind {
    template <typename Tag>
    int operator()(Tag) const
    {
        return Tag::value;
    }
    int object_helper(bool) const { return 0; }
};

TEST(LargeHeader, DispatchGuardsTheEnumeration)
{
    auto const invalid = static_cast<zj::detail::ZorbalType>(18);
    EXPECT_THROW_WHAT(zj::detail::dispatch_on_ZorbalType(invalid, AnyKind()),
        boost::wrapexcept<std::runtime_error>, "invalid ZorbalType");
    try {
        zj::detail::dispatch_on_ZorbalType(invalid, AnyKind());
    } catch (boost::wrapexcept<std::runtime_error> const& e) {
        ASSERT_NE(boost::get_error_info<boost::throw_file>(e), nullptr);
        EXPECT_STREQ(*boost::get_error_info<boost::throw_file>(e),
            "foundation/zorbaljson/frontend/export/include/frontend/detail/types");
        ASSERT_NE(boost::get_error_info<boost::throw_function>(e), nullptr);
        EXPECT_STREQ(*boost::get_error_info<boost::throw_function>(e), "dispatch_on_ZorbalType");
    }
}

} // namespace
