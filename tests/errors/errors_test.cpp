// Failures of the notation that only these tests meet (exact class and exact text, arguments kept
// verbatim), and the exported layer's own failure, caught as a ConvertError and never as a ParseError.
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

// The failures whose texts no reader test meets: a class name given as a kind, the details of a sparse
// conversion, and arguments kept verbatim. The readers' failure tables pin the class and text of the others.
INSTANTIATE_TEST_SUITE_P(Texts, ParseErrorCatalogue,
    ::testing::Values(row<InvalidZQType>(R"(Unsupported "zqtype": My.Class)", std::string("My.Class")),
        row<InvalidZQType>(R"(Unsupported "zqtype": a"b)", std::string("a\"b")),
        row<InvalidZQTypeForSparse>(
            R"(Invalid "zqtype" value: int8 in sparse array. Expected "double" or "logical" types)",
            std::string("int8")),
        row<InvalidZQDataForSparse>("Incompatible data for sparse. bad numeric conversion: negative overflow",
            std::string("bad numeric conversion: negative overflow")),
        row<InvalidZQDataForSparse>("Incompatible data for sparse. ", std::string()),
        row<InvalidFieldName>(R"(Invalid field name "1abc" specified.)", std::string("1abc"))));

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
