// Reading JSON strings from bytes, decoding escapes, either into a string or only checking them.
#pragma once

#include "byte_classes.hpp"

#include <foundation/json/detail/utf8.hpp>
#include <foundation/json/parse_result.hpp>

#include <cstring>
#include <string>

namespace foundation::json::detail {

/// Four hexadecimal digits at p into unit; p moves over each digit that is one.
inline ParseResult read_hex4(char16_t& unit, char const*& p, char const* end) noexcept
{
    if (end - p < 4)
        return UnexpectedEnd;
    unsigned value = 0;
    for (int i = 0; i != 4; ++i, ++p) {
        int const digit = hex_value(*p);
        if (digit < 0)
            return BadUnicodeEscape;
        value = value << 4 | static_cast<unsigned>(digit);
    }
    unit = static_cast<char16_t>(value);
    return ParseOk;
}

/// The escape whose backslash is at p; its bytes go to acc when Build. On failure p stays at the
/// backslash, so that the error points at the escape as a whole.
template <bool Build>
ParseResult read_escape(std::string& acc, char const*& p, char const* end)
{
    if (end - p < 2)
        return UnexpectedEnd;
    char byte;
    switch (p[1]) {
    case '"': byte = '"'; break;
    case '/': byte = '/'; break;
    case '\\': byte = '\\'; break;
    case 'b': byte = '\b'; break;
    case 'f': byte = '\f'; break;
    case 'n': byte = '\n'; break;
    case 'r': byte = '\r'; break;
    case 't': byte = '\t'; break;
    case 'u': {
        char const* cursor = p + 2;
        char16_t units[2];
        int count = 1;
        if (ParseResult const result = read_hex4(units[0], cursor, end); result != ParseOk)
            return result;
        // A high surrogate takes the next escape as its partner without checking that it is a low one.
        if ((units[0] & 0xfc00) == 0xd800) {
            if (end - cursor < 6)
                return UnexpectedEnd;
            if (cursor[0] != '\\' || cursor[1] != 'u')
                return BadUnicodeEscape;
            cursor += 2;
            if (ParseResult const result = read_hex4(units[1], cursor, end); result != ParseOk)
                return result;
            count = 2;
        }
        if constexpr (Build)
            acc += u16_to_u8(units, count);
        p = cursor;
        return ParseOk;
    }
    default: return BadEscape;
    }
    if constexpr (Build)
        acc.push_back(byte);
    p += 2;
    return ParseOk;
}

/// A string in double quotes at p, its content appended to acc when Build. Runs of plain bytes are
/// found with memchr and appended whole. The next quote and the next backslash before it are each
/// searched once per stretch, so long strings with many escapes stay linear.
template <bool Build>
ParseResult read_string(std::string& acc, char const*& p, char const* end)
{
    if (p == end)
        return UnexpectedEnd;
    if (*p != '"')
        return ExpectedQuote;
    ++p;
    auto const find = [](char const* from, char const* to, char byte) {
        void const* const found = std::memchr(from, byte, static_cast<std::size_t>(to - from));
        return found ? static_cast<char const*>(found) : to;
    };
    char const* quote = find(p, end, '"');
    for (;;) {
        char const* const backslash = find(p, quote, '\\');
        if constexpr (Build)
            acc.append(p, backslash);
        p = backslash;
        if (p == quote) {
            if (p == end)
                return UnexpectedEnd;
            ++p;
            return ParseOk;
        }
        if (ParseResult const result = read_escape<Build>(acc, p, end); result != ParseOk)
            return result;
        // Only an escaped quote moves past the quote found.
        if (p > quote)
            quote = find(p, end, '"');
    }
}

} // namespace foundation::json::detail
