// The descriptions of the outcome codes of reading JSON text.
#include <foundation/json/parse_result.hpp>

namespace foundation::json {

// No default case, so that the compiler reports a code left without a description.
char const* get_parse_result_description(ParseResult result) noexcept
{
    switch (result) {
    case ParseOk: return "Success";
    case BadNull: return "Invalid literal: expected null";
    case BadBool: return "Invalid literal: expected true or false";
    case BadNumber: return "Invalid number";
    case BadString: return "Invalid string";
    case BadUnicodeEscape:
        return "Invalid unicode escape: expected four hexadecimal digits, and a \\u escape after a high surrogate";
    case BadEscape: return "Invalid escape character after a backslash";
    case StringEnd: return "End of string reached";
    case ExpectedQuote: return "Expected a string (opening quote)";
    case ExpectedComma: return "Expected a comma";
    case BadComment: return "Invalid comment";
    case ExpectedDigit: return "Expected a digit";
    case ExpectedFractionDigit: return "Expected a digit after the decimal point";
    case ExpectedExponentDigit: return "Expected a digit in the exponent";
    case ExpectedArrayStart: return "Expected an array (opening bracket)";
    case ExpectedArrayEnd: return "Expected a comma or a closing bracket after an array element";
    case ExpectedObjectStart: return "Expected an object (opening brace)";
    case ExpectedObjectEnd: return "Expected a comma or a closing brace after an object member";
    case ExpectedColon: return "Expected a colon after an object key";
    case UnexpectedEnd: return "Unexpected end of text";
    case BadInteger: return "Expected a plain integer in typed integer data";
    case NestingTooDeep: return "Arrays and objects nested too deeply";
    }
    return "Unknown parse result";
}

} // namespace foundation::json
