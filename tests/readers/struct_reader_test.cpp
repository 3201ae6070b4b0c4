// Struct arrays: the large form filled field by field from one running range, and plain objects as
// 1-by-1 structs of all their keys.
#include "reader_support.hpp"

#include <frontend/detail/parse_error.hpp>

#include <stdexcept>
#include <string>

namespace {

using namespace zq::test;
namespace zj = foundation::zorbaljson;
using zd::ArrayType;
using Names = std::vector<std::string>;

Names field_names(zd::Array const& array)
{
    Names names;
    for (zd::ZorbalFieldIdentifier const& field : zd::StructArray(array).getFieldNames())
        names.push_back(field.getString());
    return names;
}

// The field's value in element index of the struct array.
zd::Array field(zd::Array const& array, std::string const& name, unsigned long index = 0)
{
    return zd::TypedArray<zd::StructElement>(array)[index].value()[name];
}

struct StructCase {
    char const* name;
    char const* json;
    Dims dims;
    Names fields;
    std::vector<double> values; // of each field in turn, over the elements in storage order
};

class StructReader : public ::testing::TestWithParam<StructCase> { };

TEST_P(StructReader, FillsFieldByField)
{
    StructCase const& c = GetParam();
    SCOPED_TRACE(c.json);
    zd::Array const array = read(c.json);
    ASSERT_EQ(array.getType(), ArrayType::STRUCT);
    EXPECT_EQ(array.getDimensions(), c.dims);
    ASSERT_EQ(field_names(array), c.fields);
    std::vector<double> values;
    for (std::string const& name : c.fields)
        for (unsigned long i = 0; i < array.getNumberOfElements(); ++i)
            for (double value : elements_as<double>(field(array, name, i)))
                values.push_back(value);
    EXPECT_EQ(values, c.values);
}

// Fields come in key order; the values of all fields run on as one range, so only their total counts.
static StructCase const structs[] = {
    { "KeyOrderAndStorageOrder", R"({"zqtype":"struct","zqsize":[1,2],"zqdata":{"b":[3,4],"a":[1,2]}})",
        { 1, 2 }, { "a", "b" }, { 1, 2, 3, 4 } },
    { "ValuesRunAcrossFields", R"({"zqtype":"struct","zqsize":[2,1],"zqdata":{"a":[1,2,3],"b":[4]}})",
        { 2, 1 }, { "a", "b" }, { 1, 2, 3, 4 } },
    { "NoFields", R"({"zqtype":"struct","zqsize":[2,1],"zqdata":{}})", { 2, 1 }, {}, {} },
    { "EmptyWithField", R"({"zqtype":"struct","zqsize":[0,1],"zqdata":{"a":[]}})", { 0, 1 }, { "a" }, {} },
    { "EmptyReadsNoLaterField", R"({"zqtype":"struct","zqsize":[0,0],"zqdata":{"a":[],"b":5}})", { 0, 0 },
        { "a", "b" }, {} },
};
INSTANTIATE_TEST_SUITE_P(Structs, StructReader, ::testing::ValuesIn(structs), row_name<StructCase>);

// Each value is a whole document, read with the same backend: here a char array and a plain object.
TEST(StructReader, ValuesAreDocuments)
{
    zd::Array const array
        = read(R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":["xy"],"b":[{"c":true}]}})");
    EXPECT_EQ(elements_as<char16_t>(field(array, "a")), (std::vector<double> { 'x', 'y' }));
    zd::Array const inner = field(array, "b");
    ASSERT_EQ(field_names(inner), (Names { "c" }));
    EXPECT_EQ(elements_as<bool>(field(inner, "c")), (std::vector<double> { 1 }));
}

class StructReaderFailure : public ::testing::TestWithParam<FailureCase> { };

TEST_P(StructReaderFailure, FailsWithTheFirstFault)
{
    GetParam().expect(GetParam().json, GetParam().text);
}

std::string const not_a_list = "invalid conversion: JSON number to JSON array";
std::string const anonymous_name = R"(Invalid field name "" specified.)";

// An empty list met with elements left to fill fails at once, instead of reading past it.
static FailureCase const failures[] = {
    { "DataNotAnObject", R"({"zqtype":"struct","zqsize":[1,1],"zqdata":[]})",
        fails_with<zj::InvalidZQDataType>, R"(""struct arrays must be a JSON object)" },
    { "FirstFieldCastBeforeTheArray", R"({"zqtype":"struct","zqsize":[0,0],"zqdata":{"a":5}})",
        fails_with<std::runtime_error>, not_a_list },
    { "LaterFieldCastWhenReached", R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":[1],"b":5}})",
        fails_with<std::runtime_error>, not_a_list },
    { "EmptyFirstField", R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":[],"b":[1,2]}})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "EmptyLastField", R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":[1],"b":[]}})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "TooFewInTotal", R"({"zqtype":"struct","zqsize":[2,1],"zqdata":{"a":[1,2],"b":[3]}})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "TooManyInTotal", R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a":[1],"b":[2,3]}})",
        fails_with<zj::MismatchedZQSize>, mismatched_size },
    { "ValueBeforeCount", R"({"zqtype":"struct","zqsize":[1,2],"zqdata":{"a":[null]}})",
        fails_with<zj::NullNotSupported>, "JSON null not supported" },
    { "IllegalName", R"({"zqtype":"struct","zqsize":[1,1],"zqdata":{"a b":[1]}})",
        fails_with<zj::InvalidFieldName>, anonymous_name },
    { "IllegalNameWithoutElements", R"({"zqtype":"struct","zqsize":[0,0],"zqdata":{"_a":[]}})",
        fails_with<zj::InvalidFieldName>, anonymous_name },
};
INSTANTIATE_TEST_SUITE_P(Failures, StructReaderFailure, ::testing::ValuesIn(failures), row_name<FailureCase>);

struct PlainCase {
    char const* name;
    char const* json;
    Names fields;
    std::vector<ArrayType> types;
};

class PlainObject : public ::testing::TestWithParam<PlainCase> { };

TEST_P(PlainObject, IsAOneByOneStructOfAllKeys)
{
    PlainCase const& c = GetParam();
    SCOPED_TRACE(c.json);
    zd::Array const array = read(c.json);
    ASSERT_EQ(array.getType(), ArrayType::STRUCT);
    EXPECT_EQ(array.getDimensions(), (Dims { 1, 1 }));
    ASSERT_EQ(field_names(array), c.fields);
    std::vector<ArrayType> types;
    for (std::string const& name : c.fields)
        types.push_back(field(array, name).getType());
    EXPECT_EQ(types, c.types);
}

// Whatever fails the test for a large form or a special float, header keys included as fields.
static PlainCase const plain_objects[] = {
    { "Empty", "{}", {}, {} },
    { "KeyOrder", R"({"b":"x","a":1,"c":[true]})", { "a", "b", "c" },
        { ArrayType::DOUBLE, ArrayType::CHAR, ArrayType::LOGICAL } },
    { "NumberData", R"({"zqdata":5})", { "zqdata" }, { ArrayType::DOUBLE } },
    { "WordThatIsNoSpecialFloat", R"({"zqdata":"nan"})", { "zqdata" }, { ArrayType::CHAR } },
    { "SpecialFloatWithSize", R"({"zqdata":"Inf","zqsize":[1,1]})", { "zqdata", "zqsize" },
        { ArrayType::CHAR, ArrayType::DOUBLE } },
    { "NoSize", R"({"zqtype":"double","zqdata":[1]})", { "zqdata", "zqtype" },
        { ArrayType::DOUBLE, ArrayType::CHAR } },
    { "NoData", R"({"zqtype":"double","zqsize":[1,1]})", { "zqsize", "zqtype" },
        { ArrayType::DOUBLE, ArrayType::CHAR } },
    { "Nested", R"({"s":{"t":1}})", { "s" }, { ArrayType::STRUCT } },
};
INSTANTIATE_TEST_SUITE_P(Objects, PlainObject, ::testing::ValuesIn(plain_objects), row_name<PlainCase>);

TEST(PlainObject, FailsOnANameOrAValue)
{
    EXPECT_THROW_WHAT(read(R"({"1a":1})"), zj::InvalidFieldName, anonymous_name);
    EXPECT_THROW_WHAT(read(R"({"a":1,"b":null})"), zj::NullNotSupported, "JSON null not supported");
}

} // namespace
