// The small notation's shapes, storage order and failures, and the large notation's header: large form,
// special float or plain object; the size and type keys; the kind of a class name; the dispatch's guard;
// the depth of nesting.
#include "reader_support.hpp"

#include <frontend/detail/types.hpp>

#include <foundation/zorbaldata/exceptions.hpp>

#include <boost/exception/get_error_info.hpp>
#include <foundation/json/serialize.hpp>

#include <stdexcept>

namespace {

using namespace zq::test;

// The outermost JSON array is the first dimension, and the first dimension runs fastest in storage.
static ArrayCase const arrays[] = {
    {"Empty", "[]", as<double>, {0, 0}, {}}, {"OneNumber", "[7]", as<double>, {1, 1}, {7}},
    {"FlatIsAColumn", "[1,2,3]", as<double>, {3, 1}, {1, 2, 3}},
    {"OneRow", "[[1,2,3]]", as<double>, {1, 3}, {1, 2, 3}},
    {"MatrixRowsAreOuter", "[[1,2,3],[4,5,6]]", as<double>, {2, 3}, {1, 4, 2, 5, 3, 6}},
    {"ThreeDimensions", "[[[1,2],[3,4]],[[5,6],[7,8]]]", as<double>, {2, 2, 2}, {1, 5, 3, 7, 2, 6, 4, 8}},
    {"PagesOfOneRow", "[[[1,3]],[[2,4]]]", as<double>, {2, 1, 2}, {1, 2, 3, 4}},
    {"NothingSqueezed", "[[[1]]]", as<double>, {1, 1, 1}, {1}},
    {"OneLogical", "[true]", as<bool>, {1, 1}, {1}},
    {"LogicalMatrix", "[[true,false,false],[false,true,true]]", as<bool>, {2, 3}, {1, 0, 0, 1, 0, 1}},
    {"SpecialFloatObjects", R"([{"zqdata":"NaN"},1,{"zqdata":"-Inf","other":0}])", as<double>, {3, 1},
        {signed_nan(), 1, -inf}},
    {"SpecialFloatFirstInMatrix", R"([[{"zqdata":"Inf"},-0.0]])", as<double>, {1, 2}, {inf, -0.0}},
    {"NaNObject", R"({"zqdata":"NaN"})", as<double>, {1, 1}, {signed_nan()}},
    {"InfObject", R"({"zqdata":"Inf"})", as<double>, {1, 1}, {inf}},
    {"MinusInfWithOtherKeys", R"({"note":1,"zqdata":"-Inf"})", as<double>, {1, 1}, {-inf}},
    {"NegativeZeroSize", lf("double", "[-0.0,3]", "[]"), as<double>, {0, 3}, {}},
    {"ThreeDimensionalSize", lf("double", "[1,2,1]", "[1,2]"), as<double>, {1, 2, 1}, {1, 2}},
};
INSTANTIATE_TEST_SUITE_P(Notation, ReadsArray, ::testing::ValuesIn(arrays), row_name<ArrayCase>);

std::string const bad_element = "Array in small notation must contain JSON numbers, JSON booleans, or "
                                R"({"zqdata":"NaN"}, {"zqdata":"Inf"}, or {"zqdata":"-Inf"})";
std::string const depths = "Nested arrays in small notation does not have consistent depths";
std::string const sizes = "Nested arrays in small notation does not have consistent sizes";
std::string const bad_size = R"("zqsize" must be an array of 2 or more positive integers)";
std::string const data_not_list = R"("zqdata" must be a JSON array)";

std::string both(std::string const& first, std::string const& second)
{
    return "Array in small notation has both " + first + " and " + second + " types. Expected one type.";
}

// The first leaf is judged first, then the nesting, then the other elements in storage order. A class
// name picks one of three kinds (enumerations in the numeric reader's tests); what is no large form is
// a struct, as the struct reader's tests show.
static FailureCase const failures[] = {
    size_mismatch("EmptyInner", "[[]]"),
    {"EmptyBesideFull", "[[],[1]]", fails_with<ArrayInconsistentSizes>, sizes},
    {"EmptyBesideLeaf", "[[],1]", fails_with<ArrayInconsistentDepths>, depths},
    {"ShortRow", "[[1,2],[3]]", fails_with<ArrayInconsistentSizes>, sizes},
    {"LeafForRow", "[[1,2],3]", fails_with<ArrayInconsistentDepths>, depths},
    {"RowForLeaf", "[1,[2]]", fails_with<ArrayInconsistentDepths>, depths},
    {"DeepShortRow", "[[[1,2],[3]]]", fails_with<ArrayInconsistentSizes>, sizes},
    {"DoubleThenLogical", "[1,true]", fails_with<ArrayInconsistentTypes>, both("double", "logical")},
    {"LogicalThenDouble", "[true,1]", fails_with<ArrayInconsistentTypes>, both("logical", "double")},
    {"DoubleThenString", R"([1,"x"])", fails_with<ArrayInconsistentTypes>, both("double", "char")},
    {"DoubleThenNull", "[1,null]", fails_with<ArrayInconsistentTypes>, both("double", "undefined")},
    {"DoubleThenBadSpecial", R"([1,{"zqdata":"x"}])", fails_with<ArrayInconsistentTypes>,
        both("double", "object")},
    {"DoubleThenPlainNaN", R"([1,"NaN"])", fails_with<ArrayInconsistentTypes>, both("double", "char")},
    {"LogicalThenSpecial", R"([true,{"zqdata":"Inf"}])", fails_with<ArrayInconsistentTypes>,
        both("logical", "object")},
    {"StorageOrderNotTextOrder", R"([[1,"x"],[true,2]])", fails_with<ArrayInconsistentTypes>,
        both("double", "logical")},
    {"PlainNaNFirst", R"(["NaN"])", fails_with<InvalidArrayElemType>, bad_element},
    {"NullFirst", "[null]", fails_with<InvalidArrayElemType>, bad_element},
    {"BadSpecialFirst", R"([{"zqdata":"x"}])", fails_with<InvalidArrayElemType>, bad_element},
    {"NumberSpecialFirst", R"([{"zqdata":5}])", fails_with<InvalidArrayElemType>, bad_element},
    {"BadFirstLeafBeforeNesting", R"([["x"],1])", fails_with<InvalidArrayElemType>, bad_element},
    {"NestingBeforeKinds", "[[1,true],[1]]", fails_with<ArrayInconsistentSizes>, sizes},
    {"TypeNotString", R"({"zqtype":5,"zqsize":[1,1],"zqdata":[1]})", fails_with<InvalidPropertyType>,
        R"("zqtype" must be a JSON string)"},
    {"SizeBeforeType", R"({"zqtype":5,"zqsize":1,"zqdata":[1]})", fails_with<InvalidPropertyType>,
        R"("zqsize" must be a JSON array)"},
    {"OneExtent", lf("double", "[1]", "[1]"), fails_with<InvalidZQSize>, bad_size},
    {"FractionalExtent", lf("double", "[1.5,2]", "[1]"), fails_with<InvalidZQSize>, bad_size},
    {"NegativeExtent", lf("double", "[-1,2]", "[1]"), fails_with<InvalidZQSize>, bad_size},
    {"ExtentOf2To64", lf("double", "[18446744073709551616,1]", "[1]"), fails_with<InvalidZQSize>, bad_size},
    {"StringExtent", lf("double", R"(["2",1])", "[1,2]"), fails_with<InvalidZQSize>, bad_size},
    {"ClassWithNumberListIsAValueObjectList", lf("My.Class", "[1,1]", "[1]"), fails_with<InvalidZQDataType>,
        R"(""My.Class arrays must be a object)"},
    {"ClassWithScalarData", lf("My.Class", "[1,1]", "5"), fails_with<InvalidPropertyType>, data_not_list},
    {"KindBeforeSize", lf("My.Class", "[1]", "5"), fails_with<InvalidPropertyType>, data_not_list},
    {"SizeAfterKind", lf("My.Class", "[1]", "{}"), fails_with<InvalidZQSize>, bad_size},
    // Two gibibytes claimed by a document of sixty bytes: the first missing element ends the reading.
    size_mismatch("LargeClaimWithoutData", lf("double", "[16384,16384]", "[]")),
};
INSTANTIATE_TEST_SUITE_P(Notation, FailsFirst, ::testing::ValuesIn(failures), row_name<FailureCase>);

// Float and integer alternatives, a NaN or an infinity in the size arise only in trees that callers
// build; the alternatives are no elements.
TEST(Notation, FaultsThatOnlyTreesCarry)
{
    using V = fj::Value;
    EXPECT_THROW_WHAT(read_tree(V(fj::Array {V(1LL)})), zj::InvalidArrayElemType, bad_element);
    std::pair<V, char const*> const seconds[] = {{V(2LL), "int64"}, {V(2ULL), "uint64"}, {V(2.0f), "single"}};
    for (auto const& [second, name] : seconds) {
        V const tree(fj::Array {V(1.0), second});
        EXPECT_THROW_WHAT(read_tree(tree), ArrayInconsistentTypes, both("double", name));
    }
    for (double x : {std::numeric_limits<double>::quiet_NaN(), inf})
        EXPECT_THROW_WHAT(read_tree(large_form("double", {x, 1}, fj::Array {})), InvalidZQSize, bad_size);
}

// The product of the dimensions is the factory's to refuse, at once and before any element is read.
TEST(Notation, HugeSizeFailsAtTheFactory)
{
    EXPECT_THROW(read(lf("double", "[4294967296,4294967296]", "[]")), zd::EArrayTooLarge);
    EXPECT_THROW(read(lf("uint8", "[4294967296,4294967296]", "[256]")), zd::EArrayTooLarge);
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

TEST(Notation, DispatchGuardsTheEnumeration)
{
    auto const invalid = static_cast<zj::detail::ZorbalType>(18);
    using Thrown = boost::wrapexcept<std::runtime_error>;
    EXPECT_THROW_WHAT(zj::detail::dispatch_on_ZorbalType(invalid, AnyKind()), Thrown, "invalid ZorbalType");
    try {
        zj::detail::dispatch_on_ZorbalType(invalid, AnyKind());
    } catch (Thrown const& e) {
        char const* const* const file = boost::get_error_info<boost::throw_file>(e);
        char const* const* const function = boost::get_error_info<boost::throw_function>(e);
        std::string const types = "foundation/zorbaljson/frontend/export/include/frontend/detail/types";
        EXPECT_EQ(std::string(file ? *file : ""), types);
        EXPECT_EQ(std::string(function ? *function : ""), "dispatch_on_ZorbalType");
    }
}

char const* const mixed_class = "zorbal.mixin.Heterogeneous";

// How deep a tree the readers take: every document of the text reader, and no deeper tree of a caller.
std::string const too_deep = "JSON nested deeper than 1000 levels cannot be read";

// The one-element list of value; moved, as a braced list would copy the whole tree below it.
fj::Value list_of(fj::Value value)
{
    fj::Array list;
    list.push_back(std::move(value));
    return fj::Value(std::move(list));
}

// The object of a property p holding value, and of a class name when type is given.
fj::Value object_of(fj::Value value, char const* type = nullptr)
{
    fj::Object object;
    if (type)
        object.emplace("zqtype", fj::Value(type));
    object.emplace("p", std::move(value));
    return fj::Value(std::move(object));
}

// A 1-by-1 large form of type whose data are the one-element list of value, or value itself.
fj::Value form(char const* type, fj::Value value, bool listed = true)
{
    return large_form(type, {1, 1}, listed ? list_of(std::move(value)) : std::move(value));
}

// value inside levels JSON arrays.
fj::Value nested(std::size_t levels, fj::Value value = fj::Value(1.0))
{
    for (std::size_t i = 0; i < levels; ++i)
        value = list_of(std::move(value));
    return value;
}

// Each form around arrays nested as deep as the limit lets it, and one array more. A large form's object
// is one level, and its list one more, as is a single object's object; a struct's object of fields and a
// field's list are two, as are an object list and an element's object. Objects skip a property they
// cannot read and try a list when an object fails, but depth is no such failure: it is refused, not cut
// off. The text a tree at the limit makes is read by both roads.
TEST(NestingDepth, EveryFormReadsToTheLimitAndRefusesOneLevelMore)
{
    static const struct { fj::Value (*wrap)(fj::Value); std::size_t levels; } forms[] = {
        {[](fj::Value v) { return v; }, 1000}, {[](fj::Value v) { return object_of(std::move(v)); }, 999},
        {[](fj::Value v) { return form("cell", std::move(v)); }, 998},
        {[](fj::Value v) { return form("struct", object_of(list_of(std::move(v))), false); }, 997},
        {[](fj::Value v) { return form("pkg.Cls", object_of(std::move(v)), false); }, 998},
        {[](fj::Value v) { return form("pkg.Cls", object_of(std::move(v))); }, 997},
        {[](fj::Value v) { return form(mixed_class, object_of(std::move(v), "pkg.A")); }, 997},
    };
    for (auto const& f : forms) {
        SCOPED_TRACE(&f - forms);
        EXPECT_NO_THROW(read(fj::serialize(f.wrap(nested(f.levels)))));
        EXPECT_THROW_WHAT(read_tree(f.wrap(nested(f.levels + 1))), NestingTooDeep, too_deep);
    }
    // Far deeper than any stack could recurse, refused at the limit too.
    EXPECT_THROW_WHAT(read_tree(nested(200000)), NestingTooDeep, too_deep);
    // Each entry leaves the levels it entered, so siblings do not add up.
    fj::Array entries;
    for (int i = 0; i < 3; ++i)
        entries.push_back(nested(998));
    EXPECT_EQ(read_tree(large_form("cell", {1, 3}, std::move(entries))).getDimensions(), (Dims {1, 3}));
}

} // namespace
