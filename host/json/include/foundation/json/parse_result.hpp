// The outcome codes of reading JSON text, and their descriptions for people.
#pragma once

#include <foundation/json/export.hpp>

namespace foundation::json {

/// The outcome of reading JSON text. The numbers are fixed: they are stored and compared as such.
/// BadNumber, BadString, ExpectedComma and BadComment are never produced by the text reader,
/// which reports the more precise codes instead; they remain so that the numbering never moves.
enum ParseResult : int {
    ParseOk = 0,
    BadNull = 1,
    BadBool = 2,
    BadNumber = 3,
    BadString = 4,
    BadUnicodeEscape = 5,
    BadEscape = 6,
    StringEnd = 7,
    ExpectedQuote = 8,
    ExpectedComma = 9,
    BadComment = 10,
    ExpectedDigit = 11,
    ExpectedFractionDigit = 12,
    ExpectedExponentDigit = 13,
    ExpectedArrayStart = 14,
    ExpectedArrayEnd = 15,
    ExpectedObjectStart = 16,
    ExpectedObjectEnd = 17,
    ExpectedColon = 18,
    UnexpectedEnd = 19,
    BadInteger = 20,
    NestingTooDeep = 21,
};

/// A one-line English description of result; "Unknown parse result" for a number that is no code.
FOUNDATION_JSON_API char const* get_parse_result_description(ParseResult result) noexcept;

} // namespace foundation::json
