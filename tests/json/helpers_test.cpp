// The JSON library's helpers: parse outcome codes and their descriptions, UTF-16 to UTF-8, and exact
// text-to-double conversion.
#include <foundation/json/detail/string_to_double.hpp>
#include <foundation/json/detail/utf8.hpp>
#include <foundation/json/parse_result.hpp>

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <string>
#include <tuple>

using namespace foundation::json;
using namespace foundation::json::detail;

// The codes in order of their numbers, from 0.
TEST(ParseResult, CodesKeepTheirNumbersAndDescriptions)
{
    std::pair<ParseResult, char const*> const cases[] = {{ParseOk, "Success"},
        {BadNull, "Invalid literal: expected null"}, {BadBool, "Invalid literal: expected true or false"},
        {BadNumber, "Invalid number"}, {BadString, "Invalid string"},
        {BadUnicodeEscape, "Invalid unicode escape: expected four hexadecimal digits, and a \\u escape "
                           "after a high surrogate"},
        {BadEscape, "Invalid escape character after a backslash"}, {StringEnd, "End of string reached"},
        {ExpectedQuote, "Expected a string (opening quote)"}, {ExpectedComma, "Expected a comma"},
        {BadComment, "Invalid comment"}, {ExpectedDigit, "Expected a digit"},
        {ExpectedFractionDigit, "Expected a digit after the decimal point"},
        {ExpectedExponentDigit, "Expected a digit in the exponent"},
        {ExpectedArrayStart, "Expected an array (opening bracket)"},
        {ExpectedArrayEnd, "Expected a comma or a closing bracket after an array element"},
        {ExpectedObjectStart, "Expected an object (opening brace)"},
        {ExpectedObjectEnd, "Expected a comma or a closing brace after an object member"},
        {ExpectedColon, "Expected a colon after an object key"}, {UnexpectedEnd, "Unexpected end of text"},
        {BadInteger, "Expected a plain integer in typed integer data"},
        {NestingTooDeep, "Arrays and objects nested too deeply"}};
    for (int number = 0; number < 22; ++number) {
        EXPECT_EQ(static_cast<int>(cases[number].first), number);
        EXPECT_STREQ(get_parse_result_description(cases[number].first), cases[number].second) << number;
    }
    for (int number : {-1, 22, 1000})
        EXPECT_STREQ(get_parse_result_description(static_cast<ParseResult>(number)), "Unknown parse result");
}

TEST(Utf8, GetUtf8StringCopiesTheRangeExactly)
{
    std::string const text("ab\0\xC3\xA9z", 6);
    EXPECT_EQ(get_utf8_string(text.begin() + 1, text.end() - 1), std::string("b\0\xC3\xA9", 4));
    EXPECT_EQ(get_utf8_string(text.begin(), text.begin()), "");
}

TEST(Utf8, U16ToU8)
{
    std::tuple<std::u16string, int, std::string> const cases[] = {{u"A", 1, "A"},
        {std::u16string(1, u'\0'), 1, std::string(1, '\0')},
        {u"\u007F", 1, "\x7F"}, {u"\u0080", 1, "\xC2\x80"}, {u"\u07FF", 1, "\xDF\xBF"},
        {u"\u0800", 1, "\xE0\xA0\x80"}, {u"\uFFFF", 1, "\xEF\xBF\xBF"},
        {u"\U0001F600", 2, "\xF0\x9F\x98\x80"}, {u"\U0010FFFF", 2, "\xF4\x8F\xBF\xBF"},
        {{char16_t(0xD800)}, 1, "\xED\xA0\x80"}, {{char16_t(0xDFFF)}, 1, "\xED\xBF\xBF"},
        {{char16_t(0xDBFF), u'A'}, 2, "\xED\xAF\xBF" "A"},
        {{char16_t(0xD800), char16_t(0xE000)}, 2, "\xED\xA0\x80\xEE\x80\x80"},
        {{char16_t(0xDC00), char16_t(0xD800)}, 2, "\xED\xB0\x80\xED\xA0\x80"},
        // A pair cut by the count, no units, a negative count.
        {u"\U0001F600", 1, "\xED\xA0\xBD"}, {u"A", 0, ""}, {u"A", -1, ""}};
    for (auto const& [units, count, bytes] : cases)
        EXPECT_EQ(u16_to_u8(units.data(), count), bytes) << count << " of " << units.size() << " units";
}

// Compares bits, so that -0.0 and 0.0 differ.
#define EXPECT_SAME_DOUBLE(actual, expected, token)                                                         \
    EXPECT_EQ(std::bit_cast<std::uint64_t>(actual), std::bit_cast<std::uint64_t>(expected)) << (token)

TEST(StringToDouble, Tokens)
{
    double const max = std::numeric_limits<double>::max();
    double const infinity = std::numeric_limits<double>::infinity();
    std::string const zeros(783, '0');
    std::pair<std::string, double> const cases[] = {{"0", 0.0}, {"-0", -0.0}, {"0.1", 0.1}, {"1E+21", 1e21},
        {"0123", 123.0}, {"-007", -7.0}, {"00.50e-0", 0.5},
        // Halfway cases round to even.
        {"9007199254740993", 9007199254740992.0}, {"9007199254740995", 9007199254740996.0},
        // The ends of the range: subnormals, the largest double, and what lies beyond both.
        {"5e-324", 0x1p-1074}, {"2.4703282292062328e-324", 0x1p-1074}, {"2.4703282292062327e-324", 0.0},
        {"2.2250738585072011e-308", 0x0.fffffffffffffp-1022}, {"1.7976931348623157e308", max},
        {"1.7976931348623158e308", max}, {"1.7976931348623159e308", infinity}, {"1e400", infinity},
        {"-1e400", -infinity}, {"1e-400", 0.0}, {"-1e-400", -0.0}, {"1e99999999999999999999", infinity},
        {"-1e-99999999999999999999", -0.0}, {"0e99999999999999999999", 0.0},
        {"-0.000e99999999999999999999", -0.0},
        // Long digit runs, whose exponent makes up for their length.
        {"1" + std::string(400, '0') + "e-800", 0.0}, {"0." + std::string(400, '0') + "1e800", infinity},
        {"1" + std::string(799, '0'), infinity}, {"9007199254740993." + zeros + "1", 9007199254740994.0},
        {"9007199254740993." + zeros + "0", 9007199254740992.0},
        {"0." + std::string(799, '0') + "1e801", 10.0}};
    for (auto const& [token, value] : cases) {
        EXPECT_SAME_DOUBLE(string_to_double(token.c_str()), value, token);
        EXPECT_SAME_DOUBLE(string_to_double(token.data(), token.data() + token.size()), value, token);
    }
    std::string const text = "1.5e3,-2e999";
    EXPECT_SAME_DOUBLE(string_to_double(text.data(), text.data() + 3), 1.5, "1.5 of 1.5e3");
    EXPECT_SAME_DOUBLE(string_to_double(text.data() + 6, text.data() + 10), -2e9, "-2e9 of -2e999");
}
