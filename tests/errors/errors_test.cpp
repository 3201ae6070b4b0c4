// The catalogue of the notation's failures (exact class and exact text, arguments kept verbatim), and
// the exported layer's own failure, caught as a ConvertError and never as a ParseError.
#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/json/convert_error.hpp>

#include "expect_throw.hpp"

#include <functional>
#include <ostream>
#include <string>
#include <typeindex>
#include <type_traits>
#include <typeinfo>

namespace {

using namespace foundation::zorbaljson;
using foundation::zorbaldata::json::ConvertError;
using foundation::zorbaldata::json::InvalidInputJSONValue;

struct Case {
    std::type_index type;
    std::function<void()> raise;
    std::string text;
};

// A failing row shows as its expected text.
void PrintTo(Case const& c, std::ostream* os) { *os << c.text; }

template <typename E, typename... A> Case row(std::string text, A... args)
{
    return { typeid(E), [=] { throw E(args...); }, std::move(text) };
}

class ParseErrorCatalogue : public ::testing::TestWithParam<Case> { };

TEST_P(ParseErrorCatalogue, CaughtAsParseErrorWithExactClassAndText)
{
    Case const& c = GetParam();
    try {
        c.raise();
        FAIL() << "nothing thrown";
    } catch (ParseError const& e) {
        EXPECT_EQ(std::type_index(typeid(e)), c.type) << typeid(e).name();
        EXPECT_EQ(e.what(), c.text);
    }
}

// The texts are what callers match on, so each row spells its text out in full.
INSTANTIATE_TEST_SUITE_P(AllClasses, ParseErrorCatalogue,
    ::testing::Values(row<MismatchedZQSize>(R"(Data size does not match "zqsize" specified.)"),
        row<NullNotSupported>("JSON null not supported"),
        row<InvalidArrayElemType>("Array in small notation must contain JSON numbers, JSON booleans, or "
                                  R"({"zqdata":"NaN"}, {"zqdata":"Inf"}, or {"zqdata":"-Inf"})"),
        row<ArrayInconsistentDepths>("Nested arrays in small notation does not have consistent depths"),
        row<ArrayInconsistentSizes>("Nested arrays in small notation does not have consistent sizes"),
        row<ArrayInconsistentTypes>(
            "Array in small notation has both JSON number and JSON boolean types. Expected one type.",
            std::string("JSON number"), std::string("JSON boolean")),
        row<InvalidFloatingElem>(
            R"(Invalid value for type double. Expected a number or one of the following:"NaN", "Inf", "-Inf", )"
            R"({"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"})",
            std::string("double")),
        row<InvalidIntegralElem>(
            "Invalid value for type uint8. Expected an integral number", std::string("uint8")),
        row<InvalidZQType>(R"(Unsupported "zqtype": My.Class)", std::string("My.Class")),
        row<InvalidPropertyType>(
            R"("zqsize" must be a JSON array)", std::string("zqsize"), std::string("JSON array")),
        row<InvalidZQSize>(R"("zqsize" must be an array of 2 or more positive integers)"),
        row<InvalidZQDataType>(R"(""int8 arrays must be a JSON array)", std::string("int8"),
            std::string("JSON array"), std::string()),
        row<InvalidZQDataType>(R"("zqkvxID"handle arrays must be a JSON array)", std::string("handle"),
            std::string("JSON array"), std::string("zqkvxID")),
        row<InvalidZQTypeForSparse>(
            R"(Invalid "zqtype" value: int8 in sparse array. Expected "double" or "logical" types)",
            std::string("int8")),
        row<IncompleteComplexData>("Complex data is incomplete"),
        row<InvalidSparseArray>("Sparse array expects a row array, column array, and an optional data array "
                                R"(inside "zqdata". Unexpected data found)"),
        row<CannotCastToArray>("Attempt to cast to JSON Array failed. Expected JSON array of JSON arrays in "
                               R"("zqdata" for a sparse array)"),
        row<MismatchInRowColDataArraySize>(
            R"(Expected JSON array of JSON arrays to be of appropriate size in "zqdata" for a sparse array)"),
        row<InvalidZQDataForSparse>("Incompatible data for sparse. bad numeric conversion: negative overflow",
            std::string("bad numeric conversion: negative overflow")),
        row<InvalidLogicalElem>("Invalid value for type logical. Expected true or false"),
        row<InvalidCharArrayZQData>(R"("zqdata" for char array must be in the format ["<data>"])"),
        row<InvalidFieldName>(R"(Invalid field name "1abc" specified.)", std::string("1abc")),
        row<InvalidFieldName>(R"(Invalid field name "" specified.)", std::string()),
        row<InvalidZQType>(R"(Unsupported "zqtype": a"b)", std::string("a\"b")),
        row<InvalidZQDataForSparse>("Incompatible data for sparse. ", std::string()),
        row<PropertyExistsException>("Duplicate property names specified."),
        row<ObjectNotSupportedException>("Object creation not supported."),
        row<MismatchInRefAndDataLength>(R"(There is a mismatch in the size of "zqdata" and "zqobjectID".)"),
        row<InvaildKVXID>("Handle array does not have a valid KVX ID."),
        row<InvalidStringElemType>(R"(String array must contain JSON String, or {"zqdata":"missing"})"),
        row<NestingTooDeep>("JSON nested deeper than 1000 levels cannot be read", 1000UL)));

static_assert(std::is_base_of_v<ConvertError, InvalidInputJSONValue>);
static_assert(std::is_base_of_v<std::runtime_error, ConvertError>);
static_assert(!std::is_base_of_v<ParseError, ConvertError>);

TEST(ConvertError, InvalidInputHasItsFixedText)
{
    EXPECT_THROW_WHAT(throw InvalidInputJSONValue(), InvalidInputJSONValue,
        "Input value is either foundation::json::Undefined or foundation::json::Null. The value cannot be "
        "converted to ZORBAL Data Array.");
}

} // namespace
