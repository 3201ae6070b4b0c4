// The parse outcome codes: fixed numbers and their descriptions.
#include <foundation/json/parse_result.hpp>

#include <gtest/gtest.h>

using namespace foundation::json;

namespace {

TEST(ParseResult, CodesKeepTheirNumbersAndDescriptions)
{
    struct Case {
        ParseResult code;
        int number;
        char const* description;
    };
    static const Case cases[] = {
        {ParseOk, 0, "Success"},
        {BadNull, 1, "Invalid literal: expected null"},
        {BadBool, 2, "Invalid literal: expected true or false"},
        {BadNumber, 3, "Invalid number"},
        {BadString, 4, "Invalid string"},
        {BadUnicodeEscape, 5,
         "Invalid unicode escape: expected four hexadecimal digits, and a \\u escape after a high surrogate"},
        {BadEscape, 6, "Invalid escape character after a backslash"},
        {StringEnd, 7, "End of string reached"},
        {ExpectedQuote, 8, "Expected a string (opening quote)"},
        {ExpectedComma, 9, "Expected a comma"},
        {BadComment, 10, "Invalid comment"},
        {ExpectedDigit, 11, "Expected a digit"},
        {ExpectedFractionDigit, 12, "Expected a digit after the decimal point"},
        {ExpectedExponentDigit, 13, "Expected a digit in the exponent"},
        {ExpectedArrayStart, 14, "Expected an array (opening bracket)"},
        {ExpectedArrayEnd, 15, "Expected a comma or a closing bracket after an array element"},
        {ExpectedObjectStart, 16, "Expected an object (opening brace)"},
        {ExpectedObjectEnd, 17, "Expected a comma or a closing brace after an object member"},
        {ExpectedColon, 18, "Expected a colon after an object key"},
        {UnexpectedEnd, 19, "Unexpected end of text"},
        {BadInteger, 20, "Expected a plain integer in typed integer data"},
        {NestingTooDeep, 21, "Arrays and objects nested too deeply"},
    };
    for (Case const& c : cases) {
        EXPECT_EQ(static_cast<int>(c.code), c.number);
        EXPECT_STREQ(get_parse_result_description(c.code), c.description) << c.number;
    }
    for (int number : {-1, 22, 1000})
        EXPECT_STREQ(get_parse_result_description(static_cast<ParseResult>(number)), "Unknown parse result");
}

} // namespace
