// Handle arrays read from lists with "zqhandle": one handle for each object id within a conversion,
// wherever in the document the id comes again.
#include "object_test_support.hpp"

#include <stdexcept>
#include <string>

namespace {

using namespace zq::test::objects;

// A large form of class pkg.H with the zqdata and zqhandle texts given.
std::string handle_list(std::string const& size, std::string const& data, std::string const& handle,
    std::string const& class_name = "pkg.H")
{
    return R"({"zqtype":")" + class_name + R"(","zqsize":)" + size + R"(,"zqdata":)" + data
        + R"(,"zqhandle":)" + handle + "}";
}

// A 1-by-1 handle list of the object id, the virtual machine and one property p.
std::string one_handle(std::string const& id, std::string const& p, std::string const& kvx = "5")
{
    return handle_list(
        "[1,1]", R"([{"p":)" + p + "}]", R"({"zqkvxID":")" + kvx + R"(","zqobjectID":[")" + id + R"("]})");
}

std::string cell_of(std::string const& first, std::string const& second)
{
    return R"({"zqtype":"cell","zqsize":[1,2],"zqdata":[)" + first + "," + second + "]}";
}

struct HandleCase {
    char const* name;
    std::string json;
    char const* contents;
};

class HandleReader : public ::testing::TestWithParam<HandleCase> { };

TEST_P(HandleReader, Reads)
{
    SCOPED_TRACE(GetParam().json);
    EXPECT_EQ(contents(read(GetParam().json)), GetParam().contents);
}

// The value of a handle is that of the first element with its id, read before any later one.
static HandleCase const handle_reads[] = {
    { "List", handle_list("[1,2]", R"([{"p":1},{"p":2}])", R"({"zqkvxID":"5","zqobjectID":["17","18"]})"),
        "handles 1x2 [#17 pkg.H(p){p=1}, #18 pkg.H(p){p=2}]" },
    { "SameIdTwice",
        handle_list("[2,1]", R"([{"p":1},{"p":2}])", R"({"zqkvxID":"5","zqobjectID":["7","7"]})"),
        "handles 2x1 [#7 pkg.H(p){p=1}, #7 pkg.H(p){p=1}]" },
    // Ids read as decimal numbers: white space and a sign lead, and reading stops at the first non-digit.
    { "IdsAsNumbers",
        handle_list(
            "[1,3]", R"([{"p":1},{"p":2},{"p":3}])", R"({"zqkvxID":"5","zqobjectID":[" 12","-3","+4x"]})"),
        "handles 1x3 [#12 pkg.H(p){p=1}, #-3 pkg.H(p){p=2}, #4 pkg.H(p){p=3}]" },
    { "OtherHandleKeysUnread",
        handle_list("[1,1]", R"([{"p":1}])", R"({"zqkvxID":"5","zqobjectID":["1"],"x":null})"),
        "handles 1x1 [#1 pkg.H(p){p=1}]" },
    { "Empty", handle_list("[0,0]", "[]", R"({"zqkvxID":"5","zqobjectID":[]})"), "handles 0x0 []" },
    { "EmptyWithAZero", handle_list("[0,3]", "[]", R"({"zqkvxID":"5","zqobjectID":[]})"), "handles 0x3 []" },
    { "Mixed",
        handle_list("[1,2]", R"([{"p":1,"zqtype":"pkg.A"},{"q":2,"zqtype":"pkg.B"}])",
            R"({"zqkvxID":"5","zqobjectID":["1","2"]})", "zorbal.mixin.Heterogeneous"),
        "handles 1x2 [#1 pkg.A(p){p=1}, #2 pkg.B(q){q=2}]" },
    { "MixedEmpty",
        handle_list("[0,0]", "[]", R"({"zqkvxID":"5","zqobjectID":[]})", "zorbal.mixin.Heterogeneous"),
        "handles 0x0 []" },
    { "SingleObjectIgnoresHandle", handle_list("[1,1]", R"({"p":1})", "5"), "pkg.H() 1x1 ext 1x1 [{p=1}]" },
    { "SameIdInCells", cell_of(one_handle("7", "1"), one_handle("7", "2")),
        "cell 1x2 [handles 1x1 [#7 pkg.H(p){p=1}], handles 1x1 [#7 pkg.H(p){p=1}]]" },
    { "SameIdAsProperty",
        cell_of(one_handle("7", "1"),
            R"({"zqtype":"pkg.V","zqsize":[1,1],"zqdata":[{"h":)" + one_handle("7", "2") + "}]}"),
        "cell 1x2 [handles 1x1 [#7 pkg.H(p){p=1}], pkg.V(h) 1x1 [{h=handles 1x1 [#7 pkg.H(p){p=1}]}]]" },
    { "SameIdUnderAnotherKvx", cell_of(one_handle("7", "1", "1"), one_handle("7", "2", "2")),
        "cell 1x2 [handles 1x1 [#7 pkg.H(p){p=1}], handles 1x1 [#7 pkg.H(p){p=1}]]" },
    // The elements are read, nested handles and all, before any of the list's own ids is looked up.
    { "IdMetInsideItsOwnElement", one_handle("7", one_handle("7", "2")), "handles 1x1 [#7 pkg.H(p){p=2}]" },
};
INSTANTIATE_TEST_SUITE_P(Forms, HandleReader, ::testing::ValuesIn(handle_reads),
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

    zd::Array const nested = read(cell_of(one_handle("7", "1"),
        R"({"zqtype":"pkg.V","zqsize":[1,1],"zqdata":[{"h":)" + one_handle("7", "2") + "}]}"));
    zd::ValueObjectArray const holder(cell_element(nested, 1));
    zd::ValueObject const element = holder[0];
    EXPECT_EQ(handle_at(element["h"], 0), handle_at(cell_element(nested, 0), 0));
}

TEST(HandleIdentity, EachConversionHasItsOwnHandles)
{
    std::string const json = one_handle("7", "1");
    EXPECT_NE(handle_at(read(json), 0), handle_at(read(json), 0));
}

TEST(HandleIdentity, ValueMakesTheHandleSerializable)
{
    zd::HandleObjectRef const handle = handle_at(read(one_handle("17", "1")), 0);
    EXPECT_EQ(handle->get_object_id(), 17);
    EXPECT_EQ(handle->get_class_name(), "pkg.H");
    EXPECT_TRUE(handle->is_serializable_by_value());
}

struct KvxCase {
    char const* text;
    unsigned char byte;
};

class KvxId : public ::testing::TestWithParam<KvxCase> { };

// Only the low eight bits of the number reach the id, in its first byte.
TEST_P(KvxId, KeepsTheLowByte)
{
    zd::KVXID expected;
    expected.bytes[0] = GetParam().byte;
    expected.text = kvx_text(GetParam().byte);
    EXPECT_EQ(handle_at(read(one_handle("1", "1", GetParam().text)), 0)->get_kvx_id(), expected);
}

static KvxCase const kvx_ids[] = { { "5", 5 }, { "300", 44 }, { "256", 0 }, { "12x", 12 }, { " 7", 7 } };
INSTANTIATE_TEST_SUITE_P(Numbers, KvxId, ::testing::ValuesIn(kvx_ids));

struct FailureCase {
    char const* name;
    std::string json;
    void (*expect)(std::string const& json, std::string const& text);
    std::string text;
};

template <typename E> void fails_with(std::string const& json, std::string const& text)
{
    SCOPED_TRACE(json);
    EXPECT_THROW_WHAT(read(json), E, text);
}

class HandleReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(HandleReaderFailure, Fails)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const one_element = R"([{"p":1}])";
std::string const not_an_element = "[2]";
std::string const handle_not_object = R"("zqhandle"handle arrays must be a JSON object)";
std::string const kvx_not_text = R"("zqkvxID"handle arrays must be a JSON string)";
std::string const ids_not_list = R"("zqobjectID"handle arrays must be a JSON array)";
std::string const length_mismatch = R"(There is a mismatch in the size of "zqdata" and "zqobjectID".)";
std::string const no_kvx = "Handle array does not have a valid KVX ID.";

std::string mixed_list(std::string const& size, std::string const& data, std::string const& handle)
{
    return handle_list(size, data, handle, "zorbal.mixin.Heterogeneous");
}

// zqhandle, then the lengths, then the kvx id's presence are tested before any element is read; the
// numbers in the texts are read only after the elements.
static FailureCase const failures[] = {
    { "HandleNotAnObject", handle_list("[1,1]", one_element, "5"), fails_with<zj::InvalidZQDataType>,
        handle_not_object },
    { "HandleAList", handle_list("[1,1]", one_element, R"(["5"])"), fails_with<zj::InvalidZQDataType>,
        handle_not_object },
    { "HandleBeforeElements", handle_list("[1,1]", not_an_element, "5"), fails_with<zj::InvalidZQDataType>,
        handle_not_object },
    { "KvxMissing", handle_list("[1,1]", one_element, R"({"zqobjectID":["1"]})"),
        fails_with<zj::InvalidZQDataType>, kvx_not_text },
    { "KvxANumber", handle_list("[1,1]", one_element, R"({"zqkvxID":5,"zqobjectID":["1"]})"),
        fails_with<zj::InvalidZQDataType>, kvx_not_text },
    { "KvxBeforeIds", handle_list("[1,1]", one_element, "{}"), fails_with<zj::InvalidZQDataType>,
        kvx_not_text },
    { "IdsMissing", handle_list("[1,1]", one_element, R"({"zqkvxID":"5"})"),
        fails_with<zj::InvalidZQDataType>, ids_not_list },
    { "IdsNotAList", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":"1"})"),
        fails_with<zj::InvalidZQDataType>, ids_not_list },
    { "MoreIdsThanElements", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["1","2"]})"),
        fails_with<zj::MismatchInRefAndDataLength>, length_mismatch },
    { "FewerIdsThanElements", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":[]})"),
        fails_with<zj::MismatchInRefAndDataLength>, length_mismatch },
    { "LengthsBeforeKvx", handle_list("[1,1]", one_element, R"({"zqkvxID":"","zqobjectID":[]})"),
        fails_with<zj::MismatchInRefAndDataLength>, length_mismatch },
    { "EmptyKvx", handle_list("[1,1]", one_element, R"({"zqkvxID":"","zqobjectID":["1"]})"),
        fails_with<zj::InvaildKVXID>, no_kvx },
    { "EmptyKvxOfEmptyList", handle_list("[0,0]", "[]", R"({"zqkvxID":"","zqobjectID":[]})"),
        fails_with<zj::InvaildKVXID>, no_kvx },
    { "EmptyKvxBeforeElements", handle_list("[1,1]", not_an_element, R"({"zqkvxID":"","zqobjectID":["1"]})"),
        fails_with<zj::InvaildKVXID>, no_kvx },
    { "KvxNotDecimal", handle_list("[1,1]", one_element, R"({"zqkvxID":"abc","zqobjectID":["1"]})"),
        fails_with<std::invalid_argument>, "stoul" },
    { "KvxOutOfRange",
        handle_list("[1,1]", one_element, R"({"zqkvxID":"99999999999999999999999","zqobjectID":["1"]})"),
        fails_with<std::out_of_range>, "stoul" },
    { "ElementsBeforeKvxNumber",
        handle_list("[1,1]", not_an_element, R"({"zqkvxID":"abc","zqobjectID":["1"]})"),
        fails_with<zj::InvalidZQDataType>, R"(""pkg.H arrays must be a object)" },
    { "IdNotDecimal", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["x"]})"),
        fails_with<std::invalid_argument>, "stoll" },
    { "IdOutOfRange",
        handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["99999999999999999999"]})"),
        fails_with<std::out_of_range>, "stoll" },
    { "IdNotText", handle_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":[17]})"),
        fails_with<std::runtime_error>, "invalid conversion: JSON number to JSON string" },
    { "ElementsBeyondSize",
        handle_list("[1,1]", R"([{"p":1},{"p":2}])", R"({"zqkvxID":"5","zqobjectID":["1","2"]})"),
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "MixedHandleNotAnObject", mixed_list("[1,1]", R"([{"zqtype":"pkg.A"}])", "5"),
        fails_with<zj::InvalidZQDataType>, handle_not_object },
    { "MixedEmptyKvx", mixed_list("[1,1]", R"([{"zqtype":"pkg.A"}])", R"({"zqkvxID":"","zqobjectID":["1"]})"),
        fails_with<zj::InvaildKVXID>, no_kvx },
    { "MixedElementWithoutClass", mixed_list("[1,1]", one_element, R"({"zqkvxID":"5","zqobjectID":["1"]})"),
        fails_with<std::runtime_error>, "Missing zqtype property in an object array of class " },
    // Unlike a mixed value object list, an empty one must match its size.
    { "MixedEmptyWithElements", mixed_list("[2,1]", "[]", R"({"zqkvxID":"5","zqobjectID":[]})"),
        fails_with<zj::MismatchedZQSize>, mismatched_size },
};
INSTANTIATE_TEST_SUITE_P(Failures, HandleReaderFailure, ::testing::ValuesIn(failures),
    [](auto const& info) { return std::string(info.param.name); });

} // namespace
