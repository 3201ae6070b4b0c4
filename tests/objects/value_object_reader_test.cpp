// Value object arrays read from their three forms: one object standing for an array, a list of one
// class, and a list whose elements name their own classes.
#include "object_test_support.hpp"

#include "log_capture.hpp"

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace zq::test::objects;

struct ReadCase {
    char const* name;
    char const* json;
    char const* contents;
};

class ValueObjectReader : public ::testing::TestWithParam<ReadCase> { };

TEST_P(ValueObjectReader, Reads)
{
    SCOPED_TRACE(GetParam().json);
    EXPECT_EQ(contents(read(GetParam().json)), GetParam().contents);
}

// A single object's class declares nothing: its properties are added to the one element, each holding
// the values of all the elements it stands for, while zqmetadata goes to the array, uncounted. A list's
// class declares the first element's keys, in byte order.
static ReadCase const reads[] = {
    { "SingleObject",
        R"({"zqtype":"pkg.Cls","zqsize":[2,2],"zqdata":{"q":{"zqtype":"double","zqsize":[1,4],"zqdata":[5,6,7,8]},)"
        R"("p":[[1,2],[3,4]]},"zqmetadata":{"r":"abc","n":[1,2,3]}})",
        "pkg.Cls() 1x1 ext 2x2 [{p=2x2(1 3 2 4);q=1x4(5 6 7 8)}] meta{n=3x1(1 2 3);r='abc'}" },
    { "SingleObjectWithoutProperties", R"({"zqtype":"pkg.Cls","zqsize":[3,1],"zqdata":{}})",
        "pkg.Cls() 1x1 ext 3x1 [{}]" },
    { "SingleObjectOfOneElement", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":7}})",
        "pkg.Cls() 1x1 ext 1x1 [{p=7}]" },
    { "SingleObjectOfNoElements", R"({"zqtype":"pkg.Cls","zqsize":[0,3],"zqdata":{"p":[]}})",
        "pkg.Cls() 1x1 ext 0x3 [{p=0x0()}]" },
    // A wrong form, a null and a property with a size fault of its own all vanish without a word.
    { "UnconvertiblePropertiesLeftOut",
        R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"a":{"zqtype":"double","zqsize":[1,1],"zqdata":["x"]},)"
        R"("b":null,"c":{"zqtype":"double","zqsize":[1,2],"zqdata":[1]},"d":1},"zqmetadata":{"m":null,"r":2}})",
        "pkg.Cls() 1x1 ext 1x1 [{d=1}] meta{r=2}" },
    { "List", R"({"zqtype":"pkg.Cls","zqsize":[1,2],"zqdata":[{"q":2,"p":1},{"p":3,"q":"x"}]})",
        "pkg.Cls(p,q) 1x2 [{p=1;q=2}, {p=3;q='x'}]" },
    { "ListInStorageOrder", R"({"zqtype":"pkg.Cls","zqsize":[2,1],"zqdata":[{"p":1},{"p":2}]})",
        "pkg.Cls(p) 2x1 [{p=1}, {p=2}]" },
    { "ListIgnoresMetadata", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":1}],"zqmetadata":{"r":2}})",
        "pkg.Cls(p) 1x1 [{p=1}]" },
    { "LaterExtraKeyDropped", R"({"zqtype":"pkg.Cls","zqsize":[1,2],"zqdata":[{"p":1},{"p":2,"r":3}]})",
        "pkg.Cls(p) 1x2 [{p=1}, {p=2}]" },
    { "LaterMissingKeyEmpty", R"({"zqtype":"pkg.Cls","zqsize":[1,2],"zqdata":[{"p":1,"q":2},{"p":3}]})",
        "pkg.Cls(p,q) 1x2 [{p=1;q=2}, {p=3;q=0x0()}]" },
    { "EmptyFirstElementDeclaresNothing", R"({"zqtype":"pkg.Cls","zqsize":[1,2],"zqdata":[{},{"p":1}]})",
        "pkg.Cls() 1x2 [{}, {}]" },
    { "MixedDottedNames",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":[{".p":1,"p":2,"pkg.A.q":3,"q":4,"zqtype":"pkg.A"}]})",
        "zorbal.mixin.Heterogeneous() mixed 1x1 [pkg.A(.p,p,pkg.A.q,q){.p=1;p=2;pkg.A.q=3;q=4}]" },
    { "EmptyList", R"({"zqtype":"pkg.Cls","zqsize":[0,0],"zqdata":[]})", "pkg.Cls() 0x0 []" },
    { "EmptyListWithAZero", R"({"zqtype":"pkg.Cls","zqsize":[0,3],"zqdata":[]})", "pkg.Cls() 0x3 []" },
    { "ListAsProperty",
        R"({"zqtype":"pkg.Out","zqsize":[1,1],"zqdata":[{"in":{"zqtype":"pkg.In","zqsize":[1,1],"zqdata":[{"v":5}]}}]})",
        "pkg.Out(in) 1x1 [{in=pkg.In(v) 1x1 [{v=5}]}]" },
    { "Mixed",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,2],)"
        R"("zqdata":[{"zqtype":"pkg.A","p":1},{"r":2,"zqtype":"pkg.B","q":"x"}]})",
        "zorbal.mixin.Heterogeneous() mixed 1x2 [pkg.A(p){p=1}, pkg.B(q,r){q='x';r=2}]" },
    { "MixedOfOneClass",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[2,1],)"
        R"("zqdata":[{"p":1,"zqtype":"pkg.A"},{"p":2,"zqtype":"pkg.A"}]})",
        "zorbal.mixin.Heterogeneous() mixed 2x1 [pkg.A(p){p=1}, pkg.A(p){p=2}]" },
    // zqclass is no declared property, yet its value is stored in the object.
    { "MixedClassKeyNotDeclared",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":[{"zqclass":"k","p":1,"zqtype":"pkg.A"}]})",
        "zorbal.mixin.Heterogeneous() mixed 1x1 [pkg.A(p){p=1;zqclass='k'}]" },
    // No element is filled, and none is counted.
    { "MixedEmptyWithElements", R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[2,1],"zqdata":[]})",
        "zorbal.mixin.Heterogeneous() mixed 2x1 [zorbal.mixin.Heterogeneous(){}, "
        "zorbal.mixin.Heterogeneous(){}]" },
    { "MixedEmpty", R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[0,0],"zqdata":[]})",
        "zorbal.mixin.Heterogeneous() mixed 0x0 []" },
};
INSTANTIATE_TEST_SUITE_P(Forms, ValueObjectReader, ::testing::ValuesIn(reads),
    [](auto const& info) { return std::string(info.param.name); });

// A name that looks qualified (".p") and the name it would qualify ("p") each keep their own value.
TEST(ValueObjectReaderNames, DottedNameKeepsItsOwnValue)
{
    EXPECT_EQ(contents(read(R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{".p":1,"p":2}]})")),
        "pkg.Cls(.p,p) 1x1 [{.p=1;p=2}]");
}

struct FailureCase {
    char const* name;
    char const* json;
    void (*expect)(std::string const& json, std::string const& text);
    std::string text;
};

template <typename E> void fails_with(std::string const& json, std::string const& text)
{
    SCOPED_TRACE(json);
    EXPECT_THROW_WHAT(read(json), E, text);
}

class ValueObjectReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(ValueObjectReaderFailure, Fails)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const not_a_list = R"(""object arrays must be a JSON array)";
// An element whose property holds a handle list with a kvx id that is no number: std::invalid_argument.
std::string const logic_error_inside
    = R"({"zqtype":"pkg.Out","zqsize":[1,1],"zqdata":[{"h":{"zqtype":"pkg.H","zqsize":[1,1],"zqdata":[{"p":1}],)"
      R"("zqhandle":{"zqkvxID":"abc","zqobjectID":["1"]}}}]})";
std::string const bad_element = R"(""pkg.Cls arrays must be a object)";

// A single object's failure other than the three kept ones is lost: the list road then refuses the object.
static FailureCase const failures[] = {
    { "DataNumberRefusedByHeader", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":5})",
        fails_with<zj::InvalidPropertyType>, R"("zqdata" must be a JSON array)" },
    { "MetadataNotAnObject", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":1},"zqmetadata":[1]})",
        fails_with<zj::InvalidZQDataType>, not_a_list },
    { "PropertyShortOfSize", R"({"zqtype":"pkg.Cls","zqsize":[2,2],"zqdata":{"p":[1,2,3]}})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "PropertyBeyondSize", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":[1,2]}})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "NameInDataAndMetadata", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":1},"zqmetadata":{"p":2}})",
        fails_with<zj::PropertyExistsException>, "Duplicate property names specified." },
    { "EmptyListWithElements", R"({"zqtype":"pkg.Cls","zqsize":[2,1],"zqdata":[]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "ListShortOfSize", R"({"zqtype":"pkg.Cls","zqsize":[1,2],"zqdata":[{"p":1}]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "ListBeyondSize", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":1},{"p":2}]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "ElementNotAnObject", R"({"zqtype":"pkg.Cls","zqsize":[1,2],"zqdata":[{"p":1},2]})",
        fails_with<zj::InvalidZQDataType>, bad_element },
    { "ElementPropertyRuntimeError",
        R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":{"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":5}}}]})",
        fails_with<zj::InvalidZQDataType>, bad_element },
    { "ElementPropertyLogicError", logic_error_inside.c_str(), fails_with<zj::InvalidZQDataType>,
        R"(""pkg.Out arrays must be a object)" },
    { "ElementPropertyParseErrorUnchanged", R"({"zqtype":"pkg.Cls","zqsize":[1,2],"zqdata":[{"p":null}]})",
        fails_with<zj::NullNotSupported>, "JSON null not supported" },
    { "MixedElementWithoutClass",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":[{"p":1}]})",
        fails_with<std::runtime_error>, "Missing zqtype property in an object array of class " },
    { "MixedClassNotText",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":[{"zqtype":5}]})",
        fails_with<std::runtime_error>, "invalid conversion: JSON number to JSON string" },
    { "MixedElementNotAnObject", R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":[3]})",
        fails_with<std::runtime_error>, "invalid conversion: JSON number to JSON object" },
    // Nothing wraps the failure of a property in a mixed list.
    { "MixedPropertyRuntimeErrorUnchanged",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],)"
        R"("zqdata":[{"p":{"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":5}},"zqtype":"pkg.A"}]})",
        fails_with<std::runtime_error>, "invalid conversion: JSON number to JSON array" },
    { "MixedWithObjectData", R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":{"p":1}})",
        fails_with<zj::InvalidZQDataType>, not_a_list },
    { "MixedShortOfSize",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,2],"zqdata":[{"zqtype":"pkg.A"}]})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
};
INSTANTIATE_TEST_SUITE_P(Failures, ValueObjectReaderFailure, ::testing::ValuesIn(failures),
    [](auto const& info) { return std::string(info.param.name); });

struct RefusedCase {
    char const* name;
    char const* json;
    void (*expect)(std::string const& json, char const* text, char const* class_name);
    char const* text;
    char const* class_name;
};

// The exception's class and text, and the class name that it carries.
template <typename E> void refused_with(std::string const& json, char const* text, char const* class_name)
{
    SCOPED_TRACE(json);
    auto const convert = [&] { return read(json, Objects::NotSupported); };
    EXPECT_TRUE(zq::test::throws_exactly<E>(convert, text));
    try {
        convert();
    } catch (E const& e) {
        EXPECT_EQ(e.getClassName(), class_name);
    }
}

class FactoryWithoutObjects : public ::testing::TestWithParam<RefusedCase> { };

TEST_P(FactoryWithoutObjects, Refuses)
{
    GetParam().expect(GetParam().json, GetParam().text, GetParam().class_name);
}

char const* const no_objects = "This array factory makes no objects.";

// Only the single object's road translates the factory's refusal.

static RefusedCase const refusals[] = {
    { "SingleObject", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":1}})",
        refused_with<zj::ObjectNotSupportedException>, "Object creation not supported.", "pkg.Cls" },
    { "List", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":1}]})",
        refused_with<zd::ObjectNotSupportedException>, no_objects, "pkg.Cls" },
    { "EmptyList", R"({"zqtype":"pkg.Cls","zqsize":[0,0],"zqdata":[]})",
        refused_with<zd::ObjectNotSupportedException>, no_objects, "pkg.Cls" },
    { "MixedList", R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":[{"zqtype":"pkg.A"}]})",
        refused_with<zd::ObjectNotSupportedException>, no_objects, "" },
    { "HandleList",
        R"({"zqtype":"pkg.H","zqsize":[1,1],"zqdata":[{"p":1}],"zqhandle":{"zqkvxID":"5","zqobjectID":["1"]}})",
        refused_with<zd::ObjectNotSupportedException>, no_objects, "pkg.H" },
};
INSTANTIATE_TEST_SUITE_P(Roads, FactoryWithoutObjects, ::testing::ValuesIn(refusals),
    [](auto const& info) { return std::string(info.param.name); });

// Inside a list's element, the refusal is one more failure of a property.
TEST(FactoryWithoutObjects, RefusalInsideAListElement)
{
    std::string const json
        = R"({"zqtype":"pkg.Out","zqsize":[1,1],"zqdata":[{"in":{"zqtype":"pkg.In","zqsize":[1,1],"zqdata":[{"v":1}]}}]})";
    zq::test::LogCapture const log;
    EXPECT_THROW_WHAT(
        read(json, Objects::NotSupported), zj::InvalidZQDataType, R"(""pkg.Out arrays must be a object)");
    ASSERT_FALSE(log.lines().empty());
    EXPECT_EQ(log.lines().back(),
        R"(Caught unknown error in JSON parser during object conversion while handling property "in")");
}

struct LogCase {
    char const* name;
    char const* json;
    std::vector<std::string> lines;
};

class ValueObjectReaderLog : public ::testing::TestWithParam<LogCase> { };

// The lines come whether or not the conversion succeeds; only their order and text are checked here.
TEST_P(ValueObjectReaderLog, WritesInOrder)
{
    SCOPED_TRACE(GetParam().json);
    zq::test::LogCapture const log;
    (void)zq::test::capture_exception([&] { read(GetParam().json); });
    EXPECT_EQ(log.lines(), GetParam().lines);
}

std::string const parsing = "JSON parser is parsing object of type: ";
std::string const list_not_object
    = "Caught std::runtime_error while casting data: invalid conversion: JSON array to JSON object";
std::string const object_not_list
    = "Caught std::runtime_error while casting data: invalid conversion: JSON object to JSON array";

// A list always passes through the single object's failed attempt; a mixed list never does.
static LogCase const logs[] = {
    { "SingleObject", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":1}})", { parsing + "pkg.Cls" } },
    { "SkippedPropertySilent",
        R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":{"zqtype":"double","zqsize":[1,1],"zqdata":["x"]}}})",
        { parsing + "pkg.Cls" } },
    { "List", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":1}]})",
        { parsing + "pkg.Cls", list_not_object } },
    { "MetadataNotAnObject", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":{"p":1},"zqmetadata":[1]})",
        { parsing + "pkg.Cls", list_not_object, object_not_list } },
    { "ElementNotAnObject", R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[2]})",
        { parsing + "pkg.Cls", list_not_object,
            R"(Caught std::runtime_error in JSON parser during object conversion: "invalid conversion: JSON number )"
            R"~(to JSON object" while handling property "(property not initialized)")~" } },
    { "PropertyRuntimeError",
        R"({"zqtype":"pkg.Cls","zqsize":[1,1],"zqdata":[{"p":{"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":5}}}]})",
        { parsing + "pkg.Cls", list_not_object,
            R"(Caught std::runtime_error in JSON parser during object conversion: "invalid conversion: JSON number )"
            R"(to JSON array" while handling property "p")" } },
    { "PropertyUnknownError", logic_error_inside.c_str(),
        { parsing + "pkg.Out", list_not_object, parsing + "pkg.H", list_not_object,
            R"(Caught unknown error in JSON parser during object conversion while handling property "h")" } },
    // One line for each enclosing property, innermost first.
    { "NestedParseError",
        R"({"zqtype":"pkg.Out","zqsize":[1,1],"zqdata":[{"a":1,"in":{"zqtype":"pkg.In","zqsize":[1,1],"zqdata":[{"v":null}]}}]})",
        { parsing + "pkg.Out", list_not_object, parsing + "pkg.In", list_not_object,
            R"(Caught ParseError in JSON parser during object conversion: "JSON null not supported" while handling property "v")",
            R"(Caught ParseError in JSON parser during object conversion: "JSON null not supported" while handling property "in")" } },
    { "MixedPropertyFailure",
        R"({"zqtype":"zorbal.mixin.Heterogeneous","zqsize":[1,1],"zqdata":[{"p":null,"zqtype":"pkg.A"}]})",
        { parsing + "zorbal.mixin.Heterogeneous" } },
};
INSTANTIATE_TEST_SUITE_P(Lines, ValueObjectReaderLog, ::testing::ValuesIn(logs),
    [](auto const& info) { return std::string(info.param.name); });

} // namespace
