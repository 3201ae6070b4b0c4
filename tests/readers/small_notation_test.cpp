// Small notation: shapes and storage order, the special floats, and which failure comes first.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <limits>
#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;

double const inf = std::numeric_limits<double>::infinity();

class SmallNotation : public ::testing::TestWithParam<ArrayCase> { };

TEST_P(SmallNotation, GivesShapeAndStorageOrder)
{
    expect_array(GetParam());
}

// The outermost JSON array is the first dimension, and the first dimension runs fastest in storage.
static ArrayCase const shapes[] = {
    { "Empty", "[]", elements_as<double>, { 0, 0 }, {} },
    { "OneNumber", "[7]", elements_as<double>, { 1, 1 }, { 7 } },
    { "FlatIsAColumn", "[1,2,3]", elements_as<double>, { 3, 1 }, { 1, 2, 3 } },
    { "OneRow", "[[1,2,3]]", elements_as<double>, { 1, 3 }, { 1, 2, 3 } },
    { "MatrixRowsAreOuter", "[[1,2,3],[4,5,6]]", elements_as<double>, { 2, 3 }, { 1, 4, 2, 5, 3, 6 } },
    { "ThreeDimensions", "[[[1,2],[3,4]],[[5,6],[7,8]]]", elements_as<double>, { 2, 2, 2 },
        { 1, 5, 3, 7, 2, 6, 4, 8 } },
    { "PagesOfOneRow", "[[[1,3]],[[2,4]]]", elements_as<double>, { 2, 1, 2 }, { 1, 2, 3, 4 } },
    { "NothingSqueezed", "[[[1]]]", elements_as<double>, { 1, 1, 1 }, { 1 } },
    { "OneLogical", "[true]", elements_as<bool>, { 1, 1 }, { 1 } },
    { "LogicalMatrix", "[[true,false,false],[false,true,true]]", elements_as<bool>, { 2, 3 },
        { 1, 0, 0, 1, 0, 1 } },
    { "SpecialFloatObjects", R"([{"zqdata":"NaN"},1,{"zqdata":"-Inf","other":0}])", elements_as<double>,
        { 3, 1 }, { signed_nan(), 1, -inf } },
    { "SpecialFloatFirstInMatrix", R"([[{"zqdata":"Inf"},-0.0]])", elements_as<double>, { 1, 2 },
        { inf, -0.0 } },
};
INSTANTIATE_TEST_SUITE_P(Shapes, SmallNotation, ::testing::ValuesIn(shapes), row_name<ArrayCase>);

class SmallNotationFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(SmallNotationFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const bad_element
    = R"(Array in small notation must contain JSON numbers, JSON booleans, or {"zqdata":"NaN"}, {"zqdata":"Inf"}, or {"zqdata":"-Inf"})";
std::string const depths = "Nested arrays in small notation does not have consistent depths";
std::string const sizes = "Nested arrays in small notation does not have consistent sizes";

std::string both(std::string const& first, std::string const& second)
{
    return "Array in small notation has both " + first + " and " + second + " types. Expected one type.";
}

// The first leaf is judged first, then the nesting, then the other elements in storage order.
static FailureCase const failures[] = {
    { "EmptyInner", "[[]]", fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "EmptyBesideFull", "[[],[1]]", fails_with<zj::ArrayInconsistentSizes>, sizes },
    { "EmptyBesideLeaf", "[[],1]", fails_with<zj::ArrayInconsistentDepths>, depths },
    { "ShortRow", "[[1,2],[3]]", fails_with<zj::ArrayInconsistentSizes>, sizes },
    { "LeafForRow", "[[1,2],3]", fails_with<zj::ArrayInconsistentDepths>, depths },
    { "RowForLeaf", "[1,[2]]", fails_with<zj::ArrayInconsistentDepths>, depths },
    { "DeepShortRow", "[[[1,2],[3]]]", fails_with<zj::ArrayInconsistentSizes>, sizes },
    { "DoubleThenLogical", "[1,true]", fails_with<zj::ArrayInconsistentTypes>, both("double", "logical") },
    { "LogicalThenDouble", "[true,1]", fails_with<zj::ArrayInconsistentTypes>, both("logical", "double") },
    { "DoubleThenString", R"([1,"x"])", fails_with<zj::ArrayInconsistentTypes>, both("double", "char") },
    { "DoubleThenNull", "[1,null]", fails_with<zj::ArrayInconsistentTypes>, both("double", "undefined") },
    { "DoubleThenBadSpecial", R"([1,{"zqdata":"x"}])", fails_with<zj::ArrayInconsistentTypes>,
        both("double", "object") },
    { "DoubleThenPlainNaN", R"([1,"NaN"])", fails_with<zj::ArrayInconsistentTypes>, both("double", "char") },
    { "LogicalThenSpecial", R"([true,{"zqdata":"Inf"}])", fails_with<zj::ArrayInconsistentTypes>,
        both("logical", "object") },
    { "StorageOrderNotTextOrder", R"([[1,"x"],[true,2]])", fails_with<zj::ArrayInconsistentTypes>,
        both("double", "logical") },
    { "PlainNaNFirst", R"(["NaN"])", fails_with<zj::InvalidArrayElemType>, bad_element },
    { "NullFirst", "[null]", fails_with<zj::InvalidArrayElemType>, bad_element },
    { "BadSpecialFirst", R"([{"zqdata":"x"}])", fails_with<zj::InvalidArrayElemType>, bad_element },
    { "NumberSpecialFirst", R"([{"zqdata":5}])", fails_with<zj::InvalidArrayElemType>, bad_element },
    { "BadFirstLeafBeforeNesting", R"([["x"],1])", fails_with<zj::InvalidArrayElemType>, bad_element },
    { "NestingBeforeKinds", "[[1,true],[1]]", fails_with<zj::ArrayInconsistentSizes>, sizes },
};
INSTANTIATE_TEST_SUITE_P(
    Failures, SmallNotationFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

// Float and integer alternatives arise only in trees that callers build; they are no elements.
TEST(SmallNotation, RefusesNumberAlternativesOfTypedData)
{
    EXPECT_THROW_WHAT(
        read_tree(fj::Value(fj::Array { fj::Value(1LL) })), zj::InvalidArrayElemType, bad_element);
    EXPECT_THROW_WHAT(read_tree(fj::Value(fj::Array { fj::Value(1.0), fj::Value(2LL) })),
        zj::ArrayInconsistentTypes, both("double", "int64"));
    EXPECT_THROW_WHAT(read_tree(fj::Value(fj::Array { fj::Value(1.0), fj::Value(2ULL) })),
        zj::ArrayInconsistentTypes, both("double", "uint64"));
    EXPECT_THROW_WHAT(read_tree(fj::Value(fj::Array { fj::Value(1.0), fj::Value(2.0f) })),
        zj::ArrayInconsistentTypes, both("double", "single"));
}

} // namespace
