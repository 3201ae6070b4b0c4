// The steps of the reader that need no recursion, on positions into a string.
#include "byte_classes.hpp"
#include "byte_range.hpp"
#include "number_reader.hpp"
#include "string_reader.hpp"
#include "whitespace.hpp"

#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/detail/string_to_double.hpp>

#include <algorithm>
#include <array>
#include <string_view>

namespace foundation::json {

using detail::on_bytes;

ParseResult parse_string(std::string& out, TextPosition& position, TextPosition const& end, unsigned)
{
    std::string acc;
    ParseResult const result = on_bytes(position, end, [&](char const*& p, char const* last) {
        return detail::read_string<true>(acc, p, last);
    });
    if (result == ParseOk)
        out.swap(acc);
    return result;
}

ParseResult parse_string_char(std::string& acc, TextPosition& position, TextPosition const& end)
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        if (p == last)
            return UnexpectedEnd;
        if (*p == '"')
            return StringEnd;
        if (*p == '\\')
            return detail::read_escape<true>(acc, p, last);
        acc.push_back(*p++);
        return ParseOk;
    });
}

ParseResult parse_hex4(char16_t& unit, TextPosition& position, TextPosition const& end) noexcept
{
    return on_bytes(position, end, [&](char const*& p, char const* last) { return detail::read_hex4(unit, p, last); });
}

ParseResult parse_number(double& out, TextPosition& position, TextPosition const& end, unsigned) noexcept
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        char const* const first = p;
        ParseResult const result = detail::scan_number_bytes(p, last);
        if (result == ParseOk)
            out = detail::string_to_double(first, p);
        return result;
    });
}

ParseResult scan_number(TextPosition& position, TextPosition const& end) noexcept
{
    return on_bytes(position, end, [](char const*& p, char const* last) { return detail::scan_number_bytes(p, last); });
}

ParseResult parse_bool(Value& out, TextPosition& position, TextPosition const& end, unsigned) noexcept
{
    return on_bytes(position, end, [&](char const*& p, char const* last) {
        for (bool const truth : {true, false}) {
            std::string_view const word = truth ? "true" : "false";
            if (detail::starts_with(p, last, word)) {
                p += word.size();
                out = Value(truth);
                return ParseOk;
            }
        }
        // A text that stops within a word might have been a boolean, had it gone on.
        std::string_view const rest(p, static_cast<std::size_t>(last - p));
        bool const cut_short = std::string_view("true").starts_with(rest) || std::string_view("false").starts_with(rest);
        return cut_short ? UnexpectedEnd : BadBool;
    });
}

ParseResult parse_int(long long& out, TextPosition& position, TextPosition const& end) noexcept
{
    return on_bytes(position, end, [&](char const*& p, char const* last) { return detail::read_integer(out, p, last); });
}

ParseResult parse_uint(unsigned long long& out, TextPosition& position, TextPosition const& end) noexcept
{
    return on_bytes(position, end, [&](char const*& p, char const* last) { return detail::read_integer(out, p, last); });
}

void skip_whitespace(TextPosition& position, TextPosition const& end, unsigned flags) noexcept
{
    on_bytes(position, end, [flags](char const*& p, char const* last) { detail::skip_white_space(p, last, flags); });
}

bool is_signed_type(std::string_view type) noexcept
{
    static constexpr std::array<std::string_view, 4> names{"int8", "int16", "int32", "int64"};
    return std::find(names.begin(), names.end(), type) != names.end();
}

bool is_unsigned_type(std::string_view type) noexcept
{
    static constexpr std::array<std::string_view, 4> names{"uint8", "uint16", "uint32", "uint64"};
    return std::find(names.begin(), names.end(), type) != names.end();
}

bool is_integer_type(std::string_view type) noexcept
{
    return is_signed_type(type) || is_unsigned_type(type);
}

} // namespace foundation::json
