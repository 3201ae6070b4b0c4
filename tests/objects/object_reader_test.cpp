// Value object and handle arrays read from their forms: one object standing for an array, a list of one
// class, a list whose elements name their own classes, and lists with "zqhandle", which give one handle
// for each object id within a conversion, wherever in the document the id comes again.
#include "object_test_support.hpp"

#include "log_capture.hpp"

#include <initializer_list>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using namespace zq::test::objects;

std::string const cls = "pkg.Cls";
std::string const mixed_class = "zorbal.mixin.Heterogeneous";
std::string const one_element = R"([{"p":1}])";

// The large form of the type and size holding data, followed by the keys in rest.
std::string form(std::string const& type, std::string const& size, std::string const& data,
    std::string const& rest = "")
{
    return R"({"zqtype":")" + type + R"(","zqsize":)" + size + R"(,"zqdata":)" + data + rest + "}";
}

// The "zqhandle" of the virtual machine and the object ids.
std::string ids(std::string const& kvx, std::initializer_list<char const*> ids)
{
    std::string list;
    for (char const* id : ids)
        list += (list.empty() ? "\"" : ",\"") + std::string(id) + "\"";
    return R"({"zqkvxID":")" + kvx + R"(","zqobjectID":[)" + list + "]}";
}

// A list of the class whose "zqhandle" is handle.
std::string handle_list(std::string const& size, std::string const& data, std::string const& handle,
    std::string const& class_name = "pkg.H")
{
    return form(class_name, size, data, R"(,"zqhandle":)" + handle);
}

// A 1-by-1 list of one element {"p":1} whose "zqhandle" is handle.
std::string one_of(std::string const& handle) { return handle_list("[1,1]", one_element, handle); }

// A 1-by-1 handle list of the object id, the virtual machine and one property p.
std::string one_handle(char const* id, std::string const& p, std::string const& kvx = "5")
{
    return handle_list("[1,1]", R"([{"p":)" + p + "}]", ids(kvx, {id}));
}

std::string cell_of(std::string const& first, std::string const& second)
{
    return form("cell", "[1,2]", "[" + first + "," + second + "]");
}

std::string holding_handle(std::string const& handle)
{
    return form("pkg.V", "[1,1]", R"([{"h":)" + handle + "}]");
}

std::string const double_x = R"({"zqtype":"double","zqsize":[1,1],"zqdata":["x"]})";
std::string const het = mixed_class + "() mixed ";
std::string const two_hs = "[#7 pkg.H(p){p=1}], handles 1x1 [#7 pkg.H(p){p=1}]]";

// A single object's class declares nothing: its properties are added to the one element, each holding
// the values of all the elements it stands for, while zqmetadata goes to the array, uncounted. A list's
// class declares the first element's keys, in byte order. The value of a handle is that of the first
// element with its id, read before any later one.
TEST(ObjectReader, Reads)
{
    static struct {
        std::string json;
        std::string contents;
    } const reads[] = {
        {form(cls, "[2,2]", R"({"q":{"zqtype":"double","zqsize":[1,4],"zqdata":[5,6,7,8]},)"
                            R"("p":[[1,2],[3,4]]})", R"(,"zqmetadata":{"r":"abc","n":[1,2,3]})"),
            "pkg.Cls() 1x1 ext 2x2 [{p=2x2(1 3 2 4);q=1x4(5 6 7 8)}] meta{n=3x1(1 2 3);r='abc'}"},
        {form(cls, "[3,1]", "{}"), "pkg.Cls() 1x1 ext 3x1 [{}]"},
        {form(cls, "[1,1]", R"({"p":7})"), "pkg.Cls() 1x1 ext 1x1 [{p=7}]"},
        {form(cls, "[0,3]", R"({"p":[]})"), "pkg.Cls() 1x1 ext 0x3 [{p=0x0()}]"},
        // A wrong form, a null and a property with a size fault of its own all vanish without a word.
        {form(cls, "[1,1]",
             R"({"a":)" + double_x + R"(,"b":null,"c":{"zqtype":"double","zqsize":[1,2],"zqdata":[1]},)"
                 + R"("d":1})", R"(,"zqmetadata":{"m":null,"r":2})"),
            "pkg.Cls() 1x1 ext 1x1 [{d=1}] meta{r=2}"},
        {form(cls, "[1,2]", R"([{"q":2,"p":1},{"p":3,"q":"x"}])"),
            "pkg.Cls(p,q) 1x2 [{p=1;q=2}, {p=3;q='x'}]"},
        {form(cls, "[2,1]", R"([{"p":1},{"p":2}])"), "pkg.Cls(p) 2x1 [{p=1}, {p=2}]"},
        {form(cls, "[1,1]", one_element, R"(,"zqmetadata":{"r":2})"), "pkg.Cls(p) 1x1 [{p=1}]"},
        // A later element's extra key is dropped, its missing key left empty.
        {form(cls, "[1,2]", R"([{"p":1},{"p":2,"r":3}])"), "pkg.Cls(p) 1x2 [{p=1}, {p=2}]"},
        {form(cls, "[1,2]", R"([{"p":1,"q":2},{"p":3}])"), "pkg.Cls(p,q) 1x2 [{p=1;q=2}, {p=3;q=0x0()}]"},
        {form(cls, "[1,2]", R"([{},{"p":1}])"), "pkg.Cls() 1x2 [{}, {}]"},
        // A name that looks qualified (".p") and the name it would qualify ("p") each keep their own value.
        {form(cls, "[1,1]", R"([{".p":1,"p":2}])"), "pkg.Cls(.p,p) 1x1 [{.p=1;p=2}]"},
        {form(mixed_class, "[1,1]", R"([{".p":1,"p":2,"pkg.A.q":3,"q":4,"zqtype":"pkg.A"}])"),
            het + "1x1 [pkg.A(.p,p,pkg.A.q,q){.p=1;p=2;pkg.A.q=3;q=4}]"},
        {form(cls, "[0,0]", "[]"), "pkg.Cls() 0x0 []"}, {form(cls, "[0,3]", "[]"), "pkg.Cls() 0x3 []"},
        {form("pkg.Out", "[1,1]", R"([{"in":{"zqtype":"pkg.In","zqsize":[1,1],"zqdata":[{"v":5}]}}])"),
            "pkg.Out(in) 1x1 [{in=pkg.In(v) 1x1 [{v=5}]}]"},
        {form(mixed_class, "[1,2]", R"([{"zqtype":"pkg.A","p":1},{"r":2,"zqtype":"pkg.B","q":"x"}])"),
            het + "1x2 [pkg.A(p){p=1}, pkg.B(q,r){q='x';r=2}]"},
        {form(mixed_class, "[2,1]", R"([{"p":1,"zqtype":"pkg.A"},{"p":2,"zqtype":"pkg.A"}])"),
            het + "2x1 [pkg.A(p){p=1}, pkg.A(p){p=2}]"},
        // zqclass is no declared property, yet its value is stored in the object.
        {form(mixed_class, "[1,1]", R"([{"zqclass":"k","p":1,"zqtype":"pkg.A"}])"),
            het + "1x1 [pkg.A(p){p=1;zqclass='k'}]"},
        // No element is filled, and none is counted.
        {form(mixed_class, "[2,1]", "[]"), het + "2x1 [" + mixed_class + "(){}, " + mixed_class + "(){}]"},
        {form(mixed_class, "[0,0]", "[]"), het + "0x0 []"},
        {handle_list("[1,2]", R"([{"p":1},{"p":2}])", ids("5", {"17", "18"})),
            "handles 1x2 [#17 pkg.H(p){p=1}, #18 pkg.H(p){p=2}]"},
        {handle_list("[2,1]", R"([{"p":1},{"p":2}])", ids("5", {"7", "7"})),
            "handles 2x1 [#7 pkg.H(p){p=1}, #7 pkg.H(p){p=1}]"},
        // Ids read as decimal numbers: white space and a sign lead, and reading stops at the first non-digit.
        {handle_list("[1,3]", R"([{"p":1},{"p":2},{"p":3}])", ids("5", {" 12", "-3", "+4x"})),
            "handles 1x3 [#12 pkg.H(p){p=1}, #-3 pkg.H(p){p=2}, #4 pkg.H(p){p=3}]"},
        {one_of(R"({"zqkvxID":"5","zqobjectID":["1"],"x":null})"), "handles 1x1 [#1 pkg.H(p){p=1}]"},
        {handle_list("[0,3]", "[]", ids("5", {})), "handles 0x3 []"},
        {handle_list("[1,2]", R"([{"p":1,"zqtype":"pkg.A"},{"q":2,"zqtype":"pkg.B"}])", ids("5", {"1", "2"}),
             mixed_class), "handles 1x2 [#1 pkg.A(p){p=1}, #2 pkg.B(q){q=2}]"},
        {handle_list("[0,0]", "[]", ids("5", {}), mixed_class), "handles 0x0 []"},
        {handle_list("[1,1]", R"({"p":1})", "5"), "pkg.H() 1x1 ext 1x1 [{p=1}]"},
        {cell_of(one_handle("7", "1"), one_handle("7", "2")), "cell 1x2 [handles 1x1 " + two_hs},
        {cell_of(one_handle("7", "1"), holding_handle(one_handle("7", "2"))),
            "cell 1x2 [handles 1x1 [#7 pkg.H(p){p=1}], pkg.V(h) 1x1 [{h=handles 1x1 [#7 pkg.H(p){p=1}]}]]"},
        {cell_of(one_handle("7", "1", "1"), one_handle("7", "2", "2")), "cell 1x2 [handles 1x1 " + two_hs},
        // The elements are read, nested handles and all, before any of the list's own ids is looked up.
        {one_handle("7", one_handle("7", "2")), "handles 1x1 [#7 pkg.H(p){p=2}]"},
    };
    for (auto const& c : reads)
        EXPECT_EQ(contents(read(c.json)), c.contents) << c.json;
}

zd::Array cell_element(zd::Array const& cell, unsigned long i) { return zd::TypedArray<zd::Array>(cell)[i]; }

TEST(HandleIdentity, OneHandleForEachIdInAConversion)
{
    zd::Array const twice = read(handle_list("[1,2]", R"([{"p":1},{"p":2}])", ids("5", {"7", "7"})));
    EXPECT_EQ(handle_at(twice, 0), handle_at(twice, 1));

    zd::Array const cells = read(cell_of(one_handle("7", "1", "1"), one_handle("7", "2", "2")));
    zd::HandleObjectRef const first = handle_at(cell_element(cells, 0), 0);
    EXPECT_EQ(handle_at(cell_element(cells, 1), 0), first);
    EXPECT_EQ(first->get_kvx_id().text, kvx_text(1));

    zd::Array const nested = read(cell_of(one_handle("7", "1"), holding_handle(one_handle("7", "2"))));
    zd::ValueObject const element = zd::ValueObjectArray(cell_element(nested, 1))[0];
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
    return {[](std::string const& json, std::string const& text) {
                EXPECT_THROW_WHAT(read(json), E, text) << json;
            },
        std::move(text)};
}

// An element whose property holds a handle list with a kvx id that is no number: std::invalid_argument.
std::string const logic_error_inside
    = form("pkg.Out", "[1,1]", R"([{"h":)" + handle_list("[1,1]", one_element, ids("abc", {"1"})) + "}]");
std::string const struct_of_number = R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":5}})";
Failure const not_a_list = fails<zj::InvalidZQDataType>(R"(""object arrays must be a JSON array)");
Failure const bad_element = fails<zj::InvalidZQDataType>(R"(""pkg.Cls arrays must be a object)");
Failure const size_mismatch = fails<zj::MismatchedZQSize>(mismatched_size);
Failure const handle_not_object
    = fails<zj::InvalidZQDataType>(R"("zqhandle"handle arrays must be a JSON object)");
Failure const kvx_not_text = fails<zj::InvalidZQDataType>(R"("zqkvxID"handle arrays must be a JSON string)");
Failure const ids_not_list
    = fails<zj::InvalidZQDataType>(R"("zqobjectID"handle arrays must be a JSON array)");
Failure const length_mismatch = fails<zj::MismatchInRefAndDataLength>(
    R"(There is a mismatch in the size of "zqdata" and "zqobjectID".)");
Failure const no_kvx = fails<zj::InvaildKVXID>("Handle array does not have a valid KVX ID.");
Failure const no_class = fails<std::runtime_error>("Missing zqtype property in an object array of class ");
Failure cast(std::string const& from_to)
{
    return fails<std::runtime_error>("invalid conversion: JSON " + from_to);
}

// A single object's failure other than the three kept ones is lost: the list road then refuses the
// object. For handles, zqhandle, then the lengths, then the kvx id's presence are tested before any
// element is read; the numbers in the texts are read only after the elements.
TEST(ObjectReader, Fails)
{
    static struct {
        std::string json;
        Failure failure;
    } const failures[] = {
        {form(cls, "[1,1]", "5"), fails<zj::InvalidPropertyType>(R"("zqdata" must be a JSON array)")},
        {form(cls, "[1,1]", R"({"p":1})", R"(,"zqmetadata":[1])"), not_a_list},
        {form(cls, "[2,2]", R"({"p":[1,2,3]})"), size_mismatch},
        {form(cls, "[1,1]", R"({"p":[1,2]})"), size_mismatch},
        {form(cls, "[1,1]", R"({"p":1})", R"(,"zqmetadata":{"p":2})"),
            fails<zj::PropertyExistsException>("Duplicate property names specified.")},
        {form(cls, "[2,1]", "[]"), size_mismatch}, {form(cls, "[1,2]", one_element), size_mismatch},
        {form(cls, "[1,1]", R"([{"p":1},{"p":2}])"), size_mismatch},
        {form(cls, "[1,2]", R"([{"p":1},2])"), bad_element},
        {form(cls, "[1,1]", R"([{"p":)" + struct_of_number + "}]"), bad_element},
        {logic_error_inside, fails<zj::InvalidZQDataType>(R"(""pkg.Out arrays must be a object)")},
        {form(cls, "[1,2]", R"([{"p":null}])"), fails<zj::NullNotSupported>("JSON null not supported")},
        {form(mixed_class, "[1,1]", one_element), no_class},
        {form(mixed_class, "[1,1]", R"([{"zqtype":5}])"), cast("number to JSON string")},
        {form(mixed_class, "[1,1]", "[3]"), cast("number to JSON object")},
        // Nothing wraps the failure of a property in a mixed list.
        {form(mixed_class, "[1,1]", R"([{"p":)" + struct_of_number + R"(,"zqtype":"pkg.A"}])"),
            cast("number to JSON array")},
        {form(mixed_class, "[1,1]", R"({"p":1})"), not_a_list},
        {form(mixed_class, "[1,2]", R"([{"zqtype":"pkg.A"}])"), size_mismatch},
        {one_of("5"), handle_not_object}, {one_of(R"(["5"])"), handle_not_object},
        {handle_list("[1,1]", "[2]", "5"), handle_not_object},
        {one_of(R"({"zqobjectID":["1"]})"), kvx_not_text},
        {one_of(R"({"zqkvxID":5,"zqobjectID":["1"]})"), kvx_not_text}, {one_of("{}"), kvx_not_text},
        {one_of(R"({"zqkvxID":"5"})"), ids_not_list},
        {one_of(R"({"zqkvxID":"5","zqobjectID":"1"})"), ids_not_list},
        {one_of(ids("5", {"1", "2"})), length_mismatch}, {one_of(ids("5", {})), length_mismatch},
        {one_of(ids("", {})), length_mismatch}, {one_of(ids("", {"1"})), no_kvx},
        {handle_list("[0,0]", "[]", ids("", {})), no_kvx},
        {handle_list("[1,1]", "[2]", ids("", {"1"})), no_kvx},
        {one_of(ids("abc", {"1"})), fails<std::invalid_argument>("stoul")},
        {one_of(ids("99999999999999999999999", {"1"})), fails<std::out_of_range>("stoul")},
        {handle_list("[1,1]", "[2]", ids("abc", {"1"})),
            fails<zj::InvalidZQDataType>(R"(""pkg.H arrays must be a object)")},
        {one_of(ids("5", {"x"})), fails<std::invalid_argument>("stoll")},
        {one_of(ids("5", {"99999999999999999999"})), fails<std::out_of_range>("stoll")},
        {one_of(R"({"zqkvxID":"5","zqobjectID":[17]})"), cast("number to JSON string")},
        {handle_list("[1,1]", R"([{"p":1},{"p":2}])", ids("5", {"1", "2"})), size_mismatch},
        {handle_list("[1,1]", R"([{"zqtype":"pkg.A"}])", "5", mixed_class), handle_not_object},
        {handle_list("[1,1]", R"([{"zqtype":"pkg.A"}])", ids("", {"1"}), mixed_class), no_kvx},
        {handle_list("[1,1]", one_element, ids("5", {"1"}), mixed_class), no_class},
        // Unlike a mixed value object list, an empty one must match its size.
        {handle_list("[2,1]", "[]", ids("5", {}), mixed_class), size_mismatch},
    };
    for (auto const& c : failures)
        c.failure.expect(c.json, c.failure.text);
}

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
    refused_with<zj::ObjectNotSupportedException>(
        form(cls, "[1,1]", R"({"p":1})"), "Object creation not supported.", "pkg.Cls");
    refused_with<zd::ObjectNotSupportedException>(form(cls, "[1,1]", one_element), no_objects, "pkg.Cls");
    refused_with<zd::ObjectNotSupportedException>(form(cls, "[0,0]", "[]"), no_objects, "pkg.Cls");
    refused_with<zd::ObjectNotSupportedException>(
        form(mixed_class, "[1,1]", R"([{"zqtype":"pkg.A"}])"), no_objects, "");
    refused_with<zd::ObjectNotSupportedException>(one_handle("1", "1"), no_objects, "pkg.H");

    zq::test::LogCapture const log;
    std::string const inner = form("pkg.In", "[1,1]", R"([{"v":1}])");
    EXPECT_THROW_WHAT(read(form("pkg.Out", "[1,1]", R"([{"in":)" + inner + "}]"), Objects::NotSupported),
        zj::InvalidZQDataType, R"(""pkg.Out arrays must be a object)");
    ASSERT_FALSE(log.lines().empty());
    EXPECT_EQ(log.lines().back(),
        R"(Caught unknown error in JSON parser during object conversion while handling property "in")");
}

std::string const parsing = "JSON parser is parsing object of type: ";
std::string const cast_error = "Caught std::runtime_error while casting data: invalid conversion: JSON ";
std::string const list_not_object = cast_error + "array to JSON object";
std::string const caught
    = "Caught std::runtime_error in JSON parser during object conversion: \"invalid conversion: JSON number ";
std::string const parse_error = "Caught ParseError in JSON parser during object conversion: "
                                "\"JSON null not supported\" while handling property \"";
std::string const unknown
    = "Caught unknown error in JSON parser during object conversion while handling property ";

// The lines come whether or not the conversion succeeds; only their order and text are checked here. A
// list always passes through the single object's failed attempt; a mixed list never does.
TEST(ObjectReader, WritesLogLinesInOrder)
{
    static struct {
        std::string json;
        std::vector<std::string> lines;
    } const logs[] = {
        {form(cls, "[1,1]", R"({"p":1})"), {parsing + cls}},
        {form(cls, "[1,1]", R"({"p":)" + double_x + "}"), {parsing + cls}},
        {form(cls, "[1,1]", one_element), {parsing + cls, list_not_object}},
        {form(cls, "[1,1]", R"({"p":1})", R"(,"zqmetadata":[1])"),
            {parsing + cls, list_not_object, cast_error + "object to JSON array"}},
        {form(cls, "[1,1]", "[2]"), {parsing + cls, list_not_object,
                caught + R"~(to JSON object" while handling property "(property not initialized)")~"}},
        {form(cls, "[1,1]", R"([{"p":)" + struct_of_number + "}]"),
            {parsing + cls, list_not_object, caught + R"(to JSON array" while handling property "p")"}},
        {logic_error_inside,
            {parsing + "pkg.Out", list_not_object, parsing + "pkg.H", list_not_object, unknown + R"("h")"}},
        // One line for each enclosing property, innermost first.
        {form("pkg.Out", "[1,1]", R"([{"a":1,"in":)" + form("pkg.In", "[1,1]", R"([{"v":null}])") + "}]"),
            {parsing + "pkg.Out", list_not_object, parsing + "pkg.In", list_not_object, parse_error + "v\"",
                parse_error + "in\""}},
        {form(mixed_class, "[1,1]", R"([{"p":null,"zqtype":"pkg.A"}])"), {parsing + mixed_class}},
    };
    for (auto const& c : logs) {
        zq::test::LogCapture const log;
        (void)zq::test::capture_exception([&] { read(c.json); });
        EXPECT_EQ(log.lines(), c.lines) << c.json;
    }
}

} // namespace
