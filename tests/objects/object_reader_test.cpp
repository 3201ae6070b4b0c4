// Value object and handle arrays read from their forms: one object standing for an array, a list of one
// class, a list whose elements name their own classes, and lists with "zqhandle", which give one handle
// for each object id within a conversion, wherever in the document the id comes again.
#include "object_test_support.hpp"

#include "log_capture.hpp"

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace zq::test::objects;

std::string const cls = "pkg.Cls";
std::string const mixed_class = "zorbal.mixin.Heterogeneous";

// The large form of the type and size holding data, followed by the keys in rest.
std::string form(std::string const& type, std::string const& size, std::string const& data, std::string const& rest = "")
{
    return R"({"zqtype":")" + type + R"(","zqsize":)" + size + R"(,"zqdata":)" + data + rest + "}";
}

// A list of the class whose "zqhandle" is handle.
std::string handle_list(std::string const& size, std::string const& data, std::string const& handle,
    std::string const& class_name = "pkg.H")
{
    return form(class_name, size, data, R"(,"zqhandle":)" + handle);
}

// A 1-by-1 handle list of the object id, the virtual machine and one property p.
std::string one_handle(std::string const& id, std::string const& p, std::string const& kvx = "5")
{
    return handle_list("[1,1]", R"([{"p":)" + p + "}]", R"({"zqkvxID":")" + kvx + R"(","zqobjectID":[")" + id + R"("]})");
}

std::string cell_of(std::string const& first, std::string const& second)
{
    return form("cell", "[1,2]", "[" + first + "," + second + "]");
}

std::string holding_handle(std::string const& handle) { return form("pkg.V", "[1,1]", R"([{"h":)" + handle + "}]"); }

struct ReadCase {
    char const* name;
    std::string json;
    char const* contents;
};

class ObjectReader : public ::testing::TestWithParam<ReadCase> { };

TEST_P(ObjectReader, Reads)
{
    SCOPED_TRACE(GetParam().json);
    EXPECT_EQ(contents(read(GetParam().json)), GetParam().contents);
}

// A single object's class declares nothing: its properties are added to the one element, each holding
// the values of all the elements it stands for, while zqmetadata goes to the array, uncounted. A list's
// class declares the first element's keys, in byte order. The value of a handle is that of the first
// element with its id, read before any later one.
static ReadCase const reads[] = {
    {"SingleObject",
        form(cls, "[2,2]", R"({"q":{"zqtype":"double","zqsize":[1,4],"zqdata":[5,6,7,8]},"p":[[1,2],[3,4]]})",
            R"(,"zqmetadata":{"r":"abc","n":[1,2,3]})"),
        "pkg.Cls() 1x1 ext 2x2 [{p=2x2(1 3 2 4);q=1x4(5 6 7 8)}] meta{n=3x1(1 2 3);r='abc'}"},
    {"SingleObjectWithoutProperties", form(cls, "[3,1]", "{}"), "pkg.Cls() 1x1 ext 3x1 [{}]"},
    {"SingleObjectOfOneElement", form(cls, "[1,1]", R"({"p":7})"), "pkg.Cls() 1x1 ext 1x1 [{p=7}]"},
    {"SingleObjectOfNoElements", form(cls, "[0,3]", R"({"p":[]})"), "pkg.Cls() 1x1 ext 0x3 [{p=0x0()}]"},
    // A wrong form, a null and a property with a size fault of its own all vanish without a word.
    {"UnconvertiblePropertiesLeftOut",
        form(cls, "[1,1]",
            R"({"a":{"zqtype":"double","zqsize":[1,1],"zqdata":["x"]},"b":null,"c":{"zqtype":"double","zqsize":[1,2],"zqdata":[1]},"d":1})",
            R"(,"zqmetadata":{"m":null,"r":2})"),
        "pkg.Cls() 1x1 ext 1x1 [{d=1}] meta{r=2}"},
    {"List", form(cls, "[1,2]", R"([{"q":2,"p":1},{"p":3,"q":"x"}])"), "pkg.Cls(p,q) 1x2 [{p=1;q=2}, {p=3;q='x'}]"},
    {"ListInStorageOrder", form(cls, "[2,1]", R"([{"p":1},{"p":2}])"), "pkg.Cls(p) 2x1 [{p=1}, {p=2}]"},
    {"ListIgnoresMetadata", form(cls, "[1,1]", R"([{"p":1}])", R"(,"zqmetadata":{"r":2})"), "pkg.Cls(p) 1x1 [{p=1}]"},
    {"LaterExtraKeyDropped", form(cls, "[1,2]", R"([{"p":1},{"p":2,"r":3}])"), "pkg.Cls(p) 1x2 [{p=1}, {p=2}]"},
    {"LaterMissingKeyEmpty", form(cls, "[1,2]", R"([{"p":1,"q":2},{"p":3}])"),
        "pkg.Cls(p,q) 1x2 [{p=1;q=2}, {p=3;q=0x0()}]"},
    {"EmptyFirstElementDeclaresNothing", form(cls, "[1,2]", R"([{},{"p":1}])"), "pkg.Cls() 1x2 [{}, {}]"},
    // A name that looks qualified (".p") and the name it would qualify ("p") each keep their own value.
    {"DottedNameKeepsItsOwnValue", form(cls, "[1,1]", R"([{".p":1,"p":2}])"), "pkg.Cls(.p,p) 1x1 [{.p=1;p=2}]"},
    {"MixedDottedNames", form(mixed_class, "[1,1]", R"([{".p":1,"p":2,"pkg.A.q":3,"q":4,"zqtype":"pkg.A"}])"),
        "zorbal.mixin.Heterogeneous() mixed 1x1 [pkg.A(.p,p,pkg.A.q,q){.p=1;p=2;pkg.A.q=3;q=4}]"},
    {"EmptyList", form(cls, "[0,0]", "[]"), "pkg.Cls() 0x0 []"},
    {"EmptyListWithAZero", form(cls, "[0,3]", "[]"), "pkg.Cls() 0x3 []"},
    {"ListAsProperty", form("pkg.Out", "[1,1]", R"([{"in":{"zqtype":"pkg.In","zqsize":[1,1],"zqdata":[{"v":5}]}}])"),
        "pkg.Out(in) 1x1 [{in=pkg.In(v) 1x1 [{v=5}]}]"},
    {"Mixed", form(mixed_class, "[1,2]", R"([{"zqtype":"pkg.A","p":1},{"r":2,"zqtype":"pkg.B","q":"x"}])"),
        "zorbal.mixin.Heterogeneous() mixed 1x2 [pkg.A(p){p=1}, pkg.B(q,r){q='x';r=2}]"},
    {"MixedOfOneClass", form(mixed_class, "[2,1]", R"([{"p":1,"zqtype":"pkg.A"},{"p":2,"zqtype":"pkg.A"}])"),
        "zorbal.mixin.Heterogeneous() mixed 2x1 [pkg.A(p){p=1}, pkg.A(p){p=2}]"},
    // zqclass is no declared property, yet its value is stored in the object.
    {"MixedClassKeyNotDeclared", form(mixed_class, "[1,1]", R"([{"zqclass":"k","p":1,"zqtype":"pkg.A"}])"),
        "zorbal.mixin.Heterogeneous() mixed 1x1 [pkg.A(p){p=1;zqclass='k'}]"},
    // No element is filled, and none is counted.
    {"MixedEmptyWithElements", form(mixed_class, "[2,1]", "[]"),
        "zorbal.mixin.Heterogeneous() mixed 2x1 [zorbal.mixin.Heterogeneous(){}, zorbal.mixin.Heterogeneous(){}]"},
    {"MixedEmpty", form(mixed_class, "[0,0]", "[]"), "zorbal.mixin.Heterogeneous() mixed 0x0 []"},
    {"Handles", handle_list("[1,2]", R"([{"p":1},{"p":2}])", R"({"zqkvxID":"5","zqobjectID":["17","18"]})"),
        "handles 1x2 [#17 pkg.H(p){p=1}, #18 pkg.H(p){p=2}]"},
    {"SameIdTwice", handle_list("[2,1]", R"([{"p":1},{"p":2}])", R"({"zqkvxID":"5","zqobjectID":["7","7"]})"),
        "handles 2x1 [#7 pkg.H(p){p=1}, #7 pkg.H(p){p=1}]"},
    // Ids read as decimal numbers: white space and a sign lead, and reading stops at the first non-digit.
    {"IdsAsNumbers",
        handle_list("[1,3]", R"([{"p":1},{"p":2},{"p":3}])", R"({"zqkvxID":"5","zqobjectID":[" 12","-3","+4x"]})"),
        "handles 1x3 [#12 pkg.H(p){p=1}, #-3 pkg.H(p){p=2}, #4 pkg.H(p){p=3}]"},
    {"OtherHandleKeysUnread", handle_list("[1,1]", R"([{"p":1}])", R"({"zqkvxID":"5","zqobjectID":["1"],"x":null})"),
        "handles 1x1 [#1 pkg.H(p){p=1}]"},
    {"HandlesEmptyWithAZero", handle_list("[0,3]", "[]", R"({"zqkvxID":"5","zqobjectID":[]})"), "handles 0x3 []"},
    {"HandlesMixed",
        handle_list("[1,2]", R"([{"p":1,"zqtype":"pkg.A"},{"q":2,"zqtype":"pkg.B"}])",
            R"({"zqkvxID":"5","zqobjectID":["1","2"]})", mixed_class),
        "handles 1x2 [#1 pkg.A(p){p=1}, #2 pkg.B(q){q=2}]"},
    {"HandlesMixedEmpty", handle_list("[0,0]", "[]", R"({"zqkvxID":"5","zqobjectID":[]})", mixed_class),
        "handles 0x0 []"},
    {"SingleObjectIgnoresHandle", handle_list("[1,1]", R"({"p":1})", "5"), "pkg.H() 1x1 ext 1x1 [{p=1}]"},
    {"SameIdInCells", cell_of(one_handle("7", "1"), one_handle("7", "2")),
        "cell 1x2 [handles 1x1 [#7 pkg.H(p){p=1}], handles 1x1 [#7 pkg.H(p){p=1}]]"},
    {"SameIdAsProperty", cell_of(one_handle("7", "1"), holding_handle(one_handle("7", "2"))),
        "cell 1x2 [handles 1x1 [#7 pkg.H(p){p=1}], pkg.V(h) 1x1 [{h=handles 1x1 [#7 pkg.H(p){p=1}]}]]"},
    {"SameIdUnderAnotherKvx", cell_of(one_handle("7", "1", "1"), one_handle("7", "2", "2")),
        "cell 1x2 [handles 1x1 [#7 pkg.H(p){p=1}], handles 1x1 [#7 pkg.H(p){p=1}]]"},
    // The elements are read, nested handles and all, before any of the list's own ids is looked up.
    {"IdMetInsideItsOwnElement", one_handle("7", one_handle("7", "2")), "handles 1x1 [#7 pkg.H(p){p=2}]"},
};
INSTANTIATE_TEST_SUITE_P(Forms, ObjectReader, ::testing::ValuesIn(reads),
    [](auto const& info) { return std::string(info.param.name); });

zd::Array cell_element(zd::Array const& cell, unsigned long index)
{
    zd::TypedArray<zd::Array> const view(cell);
    return view[index];
}

TEST(HandleIdentity, OneHandleForEachIdInAConversion)
{
    zd::Array const twice
        = read(handle_list("[1,2]", R"([{"p":1},{"p":2}])", R"({"zqkvxID":"5","zqobjectID":["7","7"]})"));
    EXPECT_EQ(handle_at(twice, 0), handle_at(twice, 1));

    zd::Array const cells = read(cell_of(one_handle("7", "1", "1"), one_handle("7", "2", "2")));
    zd::HandleObjectRef const first = handle_at(cell_element(cells, 0), 0);
    EXPECT_EQ(handle_at(cell_element(cells, 1), 0), first);
    EXPECT_EQ(first->get_kvx_id().text, kvx_text(1));

    zd::Array const nested = read(cell_of(one_handle("7", "1"), holding_handle(one_handle("7", "2"))));
    zd::ValueObjectArray const holder(cell_element(nested, 1));
    zd::ValueObject const element = holder[0];
    EXPECT_EQ(handle_at(element["h"], 0), handle_at(cell_element(nested, 0), 0));

    std::string const json = one_handle("7", "1");
    EXPECT_NE(handle_at(read(json), 0), handle_at(read(json), 0)) << "each conversion has its own handles";
    zd::HandleObjectRef const handle = handle_at(read(one_handle("17", "1")), 0);
    EXPECT_EQ(handle->get_class_name(), "pkg.H");
    EXPECT_TRUE(handle->is_serializable_by_value());
}

// Only the low eight bits of the number reach the id, in its first byte.
TEST(HandleIdentity, KvxIdKeepsTheLowByte)
{
    static struct {
        char const* text;
        unsigned char byte;
    } const cases[] = {{"5", 5}, {"300", 44}, {"256", 0}, {"12x", 12}, {" 7", 7}};
    for (auto const& c : cases) {
        zd::KVXID expected;
        expected.bytes[0] = c.byte;
        expected.text = kvx_text(c.byte);
        EXPECT_EQ(handle_at(read(one_handle("1", "1", c.text)), 0)->get_kvx_id(), expected) << c.text;
    }
}

// What a text must fail with: the exception's exact class, and its text.
struct Failure {
    void (*expect)(std::string const& json, std::string const& text);
    std::string text;
};

template <typename E>
Failure fails(std::string text)
{
    return {[](std::string const& json, std::string const& text) { EXPECT_THROW_WHAT(read(json), E, text) << json; },
        std::move(text)};
}

struct FailureCase {
    char const* name;
    std::string json;
    Failure failure;
};

class ObjectReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(ObjectReaderFailure, Fails)
{
    GetParam().failure.expect(GetParam().json, GetParam().failure.text);
}

// An element whose property holds a handle list with a kvx id that is no number: std::invalid_argument.
std::string const logic_error_inside = form("pkg.Out", "[1,1]",
    R"([{"h":{"zqtype":"pkg.H","zqsize":[1,1],"zqdata":[{"p":1}],"zqhandle":{"zqkvxID":"abc","zqobjectID":["1"]}}}])");
std::string const struct_of_number = R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":5}})";
std::string const one_element = R"([{"p":1}])";
Failure const not_a_list = fails<zj::InvalidZQDataType>(R"(""object arrays must be a JSON array)");
Failure const bad_element = fails<zj::InvalidZQDataType>(R"(""pkg.Cls arrays must be a object)");
Failure const size_mismatch = fails<zj::MismatchedZQSize>(mismatched_size);
Failure const handle_not_object = fails<zj::InvalidZQDataType>(R"("zqhandle"handle arrays must be a JSON object)");
Failure const kvx_not_text = fails<zj::InvalidZQDataType>(R"("zqkvxID"handle arrays must be a JSON string)");
Failure const ids_not_list = fails<zj::InvalidZQDataType>(R"("zqobjectID"handle arrays must be a JSON array)");
Failure const length_mismatch
    = fails<zj::MismatchInRefAndDataLength>(R"(There is a mismatch in the size of "zqdata" and "zqobjectID".)");
Failure const no_kvx = fails<zj::InvaildKVXID>("Handle array does not have a valid KVX ID.");
Failure const no_class = fails<std::runtime_error>("Missing zqtype property in an object array of class ");
Failure cast(std::string const& from_to) { return fails<std::runtime_error>("invalid conversion: JSON " + from_to); }

// A single object's failure other than the three kept ones is lost: the list road then refuses the
// object. For handles, zqhandle, then the lengths, then the kvx id's presence are tested before any
// element is read; the numbers in the texts are read only after the elements.
static FailureCase const failures[] = {
    {"DataNumberRefusedByHeader", form(cls, "[1,1]", "5"), fails<zj::InvalidPropertyType>(R"("zqdata" must be a JSON array)")},
    {"MetadataNotAnObject", form(cls, "[1,1]", R"({"p":1})", R"(,"zqmetadata":[1])"), not_a_list},
    {"PropertyShortOfSize", form(cls, "[2,2]", R"({"p":[1,2,3]})"), size_mismatch},
    {"PropertyBeyondSize", form(cls, "[1,1]", R"({"p":[1,2]})"), size_mismatch},
    {"NameInDataAndMetadata", form(cls, "[1,1]", R"({"p":1})", R"(,"zqmetadata":{"p":2})"),
        fails<zj::PropertyExistsException>("Duplicate property names specified.")},
    {"EmptyListWithElements", form(cls, "[2,1]", "[]"), size_mismatch},
    {"ListShortOfSize", form(cls, "[1,2]", one_element), size_mismatch},
    {"ListBeyondSize", form(cls, "[1,1]", R"([{"p":1},{"p":2}])"), size_mismatch},
    {"ElementNotAnObject", form(cls, "[1,2]", R"([{"p":1},2])"), bad_element},
    {"ElementPropertyRuntimeError", form(cls, "[1,1]", R"([{"p":)" + struct_of_number + "}]"), bad_element},
    {"ElementPropertyLogicError", logic_error_inside, fails<zj::InvalidZQDataType>(R"(""pkg.Out arrays must be a object)")},
    {"ElementPropertyParseErrorUnchanged", form(cls, "[1,2]", R"([{"p":null}])"),
        fails<zj::NullNotSupported>("JSON null not supported")},
    {"MixedElementWithoutClass", form(mixed_class, "[1,1]", one_element), no_class},
    {"MixedClassNotText", form(mixed_class, "[1,1]", R"([{"zqtype":5}])"), cast("number to JSON string")},
    {"MixedElementNotAnObject", form(mixed_class, "[1,1]", "[3]"), cast("number to JSON object")},
    // Nothing wraps the failure of a property in a mixed list.
    {"MixedPropertyRuntimeErrorUnchanged",
        form(mixed_class, "[1,1]", R"([{"p":)" + struct_of_number + R"(,"zqtype":"pkg.A"}])"), cast("number to JSON array")},
    {"MixedWithObjectData", form(mixed_class, "[1,1]", R"({"p":1})"), not_a_list},
    {"MixedShortOfSize", form(mixed_class, "[1,2]", R"([{"zqtype":"pkg.A"}])"), size_mismatch},
    {"HandleNotAnObject", handle_list("[1,1]", one_element, "5"), handle_not_object},
    {"HandleAList", handle_list("[1,1]", one_element, R"(["5"])"), handle_not_object},
    {"HandleBeforeElements", handle_list("[1,1]", "[2]", "5"), handle_not_object},
    {"KvxMissing", handle_list("[1,1]", one_element, R"({"zqobjectID":["1"]})"), kvx_not_text},
    {"KvxANumber", handle_list("[1,1]", one_element, R"({"zqkvxID":5,"zqobjectID":["1"]})"), kvx_not_text},
    {"KvxBeforeIds", handle_list("[1,1]", one_element, "{}"), kvx_not_text},
    {"IdsMissing", handle_list("[1,1]", one_element, R"({"zqkvxID":"5"})"), ids_not_list},
    {"IdsNotAList", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":"1"})"), ids_not_list},
    {"MoreIdsThanElements", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["1","2"]})"), length_mismatch},
    {"FewerIdsThanElements", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":[]})"), length_mismatch},
    {"LengthsBeforeKvx", handle_list("[1,1]", one_element, R"({"zqkvxID":"","zqobjectID":[]})"), length_mismatch},
    {"EmptyKvx", handle_list("[1,1]", one_element, R"({"zqkvxID":"","zqobjectID":["1"]})"), no_kvx},
    {"EmptyKvxOfEmptyList", handle_list("[0,0]", "[]", R"({"zqkvxID":"","zqobjectID":[]})"), no_kvx},
    {"EmptyKvxBeforeElements", handle_list("[1,1]", "[2]", R"({"zqkvxID":"","zqobjectID":["1"]})"), no_kvx},
    {"KvxNotDecimal", handle_list("[1,1]", one_element, R"({"zqkvxID":"abc","zqobjectID":["1"]})"),
        fails<std::invalid_argument>("stoul")},
    {"KvxOutOfRange", handle_list("[1,1]", one_element, R"({"zqkvxID":"99999999999999999999999","zqobjectID":["1"]})"),
        fails<std::out_of_range>("stoul")},
    {"ElementsBeforeKvxNumber", handle_list("[1,1]", "[2]", R"({"zqkvxID":"abc","zqobjectID":["1"]})"),
        fails<zj::InvalidZQDataType>(R"(""pkg.H arrays must be a object)")},
    {"IdNotDecimal", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["x"]})"),
        fails<std::invalid_argument>("stoll")},
    {"IdOutOfRange", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["99999999999999999999"]})"),
        fails<std::out_of_range>("stoll")},
    {"IdNotText", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":[17]})"), cast("number to JSON string")},
    {"HandleElementsBeyondSize",
        handle_list("[1,1]", R"([{"p":1},{"p":2}])", R"({"zqkvxID":"5","zqobjectID":["1","2"]})"), size_mismatch},
    {"MixedHandleNotAnObject", handle_list("[1,1]", R"([{"zqtype":"pkg.A"}])", "5", mixed_class), handle_not_object},
    {"MixedEmptyKvx", handle_list("[1,1]", R"([{"zqtype":"pkg.A"}])", R"({"zqkvxID":"","zqobjectID":["1"]})", mixed_class),
        no_kvx},
    {"MixedHandleElementWithoutClass",
        handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["1"]})", mixed_class), no_class},
    // Unlike a mixed value object list, an empty one must match its size.
    {"MixedEmptyHandlesWithElements", handle_list("[2,1]", "[]", R"({"zqkvxID":"5","zqobjectID":[]})", mixed_class),
        size_mismatch},
};
INSTANTIATE_TEST_SUITE_P(Failures, ObjectReaderFailure, ::testing::ValuesIn(failures),
    [](auto const& info) { return std::string(info.param.name); });

// The exception's class and text, and the class name that it carries.
template <typename E>
void refused_with(std::string const& json, char const* text, char const* class_name)
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

// Only the single object's road translates the factory's refusal; inside a list's element, the refusal is
// one more failure of a property.
TEST(FactoryWithoutObjects, Refuses)
{
    char const* const no_objects = "This array factory makes no objects.";
    refused_with<zj::ObjectNotSupportedException>(form(cls, "[1,1]", R"({"p":1})"), "Object creation not supported.", "pkg.Cls");
    refused_with<zd::ObjectNotSupportedException>(form(cls, "[1,1]", one_element), no_objects, "pkg.Cls");
    refused_with<zd::ObjectNotSupportedException>(form(cls, "[0,0]", "[]"), no_objects, "pkg.Cls");
    refused_with<zd::ObjectNotSupportedException>(form(mixed_class, "[1,1]", R"([{"zqtype":"pkg.A"}])"), no_objects, "");
    refused_with<zd::ObjectNotSupportedException>(one_handle("1", "1"), no_objects, "pkg.H");

    zq::test::LogCapture const log;
    EXPECT_THROW_WHAT(read(form("pkg.Out", "[1,1]", R"([{"in":)" + form("pkg.In", "[1,1]", R"([{"v":1}])") + "}]"),
                          Objects::NotSupported),
        zj::InvalidZQDataType, R"(""pkg.Out arrays must be a object)");
    ASSERT_FALSE(log.lines().empty());
    EXPECT_EQ(log.lines().back(), R"(Caught unknown error in JSON parser during object conversion while handling property "in")");
}

struct LogCase {
    char const* name;
    std::string json;
    std::vector<std::string> lines;
};

class ObjectReaderLog : public ::testing::TestWithParam<LogCase> { };

// The lines come whether or not the conversion succeeds; only their order and text are checked here.
TEST_P(ObjectReaderLog, WritesInOrder)
{
    SCOPED_TRACE(GetParam().json);
    zq::test::LogCapture const log;
    (void)zq::test::capture_exception([&] { read(GetParam().json); });
    EXPECT_EQ(log.lines(), GetParam().lines);
}

std::string const parsing = "JSON parser is parsing object of type: ";
std::string const list_not_object = "Caught std::runtime_error while casting data: invalid conversion: JSON array to JSON object";
std::string const object_not_list = "Caught std::runtime_error while casting data: invalid conversion: JSON object to JSON array";
std::string const caught = "Caught std::runtime_error in JSON parser during object conversion: \"invalid conversion: JSON number ";
std::string const parse_error = R"(Caught ParseError in JSON parser during object conversion: "JSON null not supported" while handling property ")";

// A list always passes through the single object's failed attempt; a mixed list never does.
static LogCase const logs[] = {
    {"SingleObject", form(cls, "[1,1]", R"({"p":1})"), {parsing + cls}},
    {"SkippedPropertySilent", form(cls, "[1,1]", R"({"p":{"zqtype":"double","zqsize":[1,1],"zqdata":["x"]}})"),
        {parsing + cls}},
    {"List", form(cls, "[1,1]", one_element), {parsing + cls, list_not_object}},
    {"MetadataNotAnObject", form(cls, "[1,1]", R"({"p":1})", R"(,"zqmetadata":[1])"),
        {parsing + cls, list_not_object, object_not_list}},
    {"ElementNotAnObject", form(cls, "[1,1]", "[2]"),
        {parsing + cls, list_not_object, caught + R"~(to JSON object" while handling property "(property not initialized)")~"}},
    {"PropertyRuntimeError", form(cls, "[1,1]", R"([{"p":)" + struct_of_number + "}]"),
        {parsing + cls, list_not_object, caught + R"(to JSON array" while handling property "p")"}},
    {"PropertyUnknownError", logic_error_inside,
        {parsing + "pkg.Out", list_not_object, parsing + "pkg.H", list_not_object,
            R"(Caught unknown error in JSON parser during object conversion while handling property "h")"}},
    // One line for each enclosing property, innermost first.
    {"NestedParseError", form("pkg.Out", "[1,1]", R"([{"a":1,"in":)" + form("pkg.In", "[1,1]", R"([{"v":null}])") + "}]"),
        {parsing + "pkg.Out", list_not_object, parsing + "pkg.In", list_not_object, parse_error + "v\"",
            parse_error + "in\""}},
    {"MixedPropertyFailure", form(mixed_class, "[1,1]", R"([{"p":null,"zqtype":"pkg.A"}])"), {parsing + mixed_class}},
};
INSTANTIATE_TEST_SUITE_P(Lines, ObjectReaderLog, ::testing::ValuesIn(logs),
    [](auto const& info) { return std::string(info.param.name); });

} // namespace
