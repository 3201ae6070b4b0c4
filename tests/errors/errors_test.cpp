// Failures of the notation that only these tests meet (exact class and exact text, arguments kept
// verbatim), and the exported layer's own failure, caught as a ConvertError and never as a ParseError.
// The readers' failure tables pin the class and text of every other failure of the notation.
#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/json/convert_error.hpp>

#include "expect_throw.hpp"

#include <string>
#include <type_traits>

namespace {

using namespace foundation::zorbaljson;
using foundation::zorbaldata::json::ConvertError;
using foundation::zorbaldata::json::InvalidInputJSONValue;

static_assert(std::is_base_of_v<ParseError, InvalidZQType> && std::is_base_of_v<ParseError, InvalidZQTypeForSparse>
              && std::is_base_of_v<ParseError, InvalidZQDataForSparse> && std::is_base_of_v<ParseError, InvalidFieldName>);
static_assert(std::is_base_of_v<ConvertError, InvalidInputJSONValue>);
static_assert(std::is_base_of_v<std::runtime_error, ConvertError>);
static_assert(!std::is_base_of_v<ParseError, ConvertError>);

// A class name given as a kind, the details of a sparse conversion, and arguments kept verbatim.
TEST(ParseError, TextsNoReaderTestMeets)
{
    EXPECT_THROW_WHAT(throw InvalidZQType("My.Class"), InvalidZQType, R"(Unsupported "zqtype": My.Class)");
    EXPECT_THROW_WHAT(throw InvalidZQType("a\"b"), InvalidZQType, R"(Unsupported "zqtype": a"b)");
    EXPECT_THROW_WHAT(throw InvalidZQTypeForSparse("int8"), InvalidZQTypeForSparse,
                      R"(Invalid "zqtype" value: int8 in sparse array. Expected "double" or "logical" types)");
    EXPECT_THROW_WHAT(throw InvalidZQDataForSparse("bad numeric conversion: negative overflow"), InvalidZQDataForSparse,
                      "Incompatible data for sparse. bad numeric conversion: negative overflow");
    EXPECT_THROW_WHAT(throw InvalidZQDataForSparse(""), InvalidZQDataForSparse, "Incompatible data for sparse. ");
    EXPECT_THROW_WHAT(throw InvalidFieldName("1abc"), InvalidFieldName, R"(Invalid field name "1abc" specified.)");
}

TEST(ConvertError, InvalidInputHasItsFixedText)
{
    EXPECT_THROW_WHAT(throw InvalidInputJSONValue(), InvalidInputJSONValue,
        "Input value is either foundation::json::Undefined or foundation::json::Null. The value cannot be "
        "converted to ZORBAL Data Array.");
}

} // namespace
