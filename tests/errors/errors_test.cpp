// Failures of the notation that only these tests meet, with the exact class and text and their
// arguments kept verbatim. The readers' failure tables pin the class and text of every other failure
// of the notation, and the conversion tests the exported layer's own failure.
#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/json/convert_error.hpp>

#include "expect_throw.hpp"

using namespace foundation::zorbaljson;

static_assert(!std::is_base_of_v<ParseError, foundation::zorbaldata::json::ConvertError>);

TEST(ParseError, TextsNoReaderTestMeets)
{
    EXPECT_THROW_WHAT(throw InvalidZQType("My.Class"), InvalidZQType, R"(Unsupported "zqtype": My.Class)");
    EXPECT_THROW_WHAT(throw InvalidFieldName("1abc"), InvalidFieldName,
        R"(Invalid field name "1abc" specified.)");
}
