// The number and string texts of JSON, appended to a std::string: shared by the serialiser of Values and
// by writers that produce text without building Values first, so both give the same bytes.
#pragma once

#include <foundation/json/serialize.hpp>

#include <array>
#include <cfloat>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <string>
#include <string_view>

namespace foundation::json::detail {

inline constexpr char const non_finite_message[]
    = "Cannot serialize a non-finite number: JSON has no NaN or infinity";

// Enough for any shortest double or float and any 64-bit integer.
inline constexpr std::size_t number_buffer_size = 32;

// The format_ routines write into number_buffer_size bytes at first and return the end of what they
// wrote, so that a writer with room in its own buffer writes there directly.

inline char* format_integer(char* first, auto integer)
{
    return std::to_chars(first, first + number_buffer_size, integer).ptr;
}

// Whole numbers get plain digits because the shortest form would write 100000 as 1e+05.
template <typename Float>
inline char* format_floating(char* first, Float number, Float whole_limit)
{
    if (!std::isfinite(number))
        throw SerializeError(non_finite_message);
    if (std::fabs(number) < whole_limit) {
        long long const whole = static_cast<long long>(number);
        if (static_cast<Float>(whole) == number) {
            if (whole == 0 && std::signbit(number)) {
                first[0] = '-';
                first[1] = '0';
                return first + 2;
            }
            return format_integer(first, whole);
        }
    }
    return std::to_chars(first, first + number_buffer_size, number).ptr;
}

inline char* format_double(char* first, double number)
{
    return format_floating(first, number, 0x1p53);
}

inline char* format_float(char* first, float number)
{
    char* end = format_floating(first, number, 0x1p24f);
    // The shortest text of the largest floats can lie above FLT_MAX when read as a double, and
    // a reader would then refuse it as a float; the double form of the same value never does.
    if (std::fabs(number) >= 0x1p127f) {
        double read_back = 0.0;
        std::from_chars(first, end, read_back);
        if (std::fabs(read_back) > FLT_MAX)
            end = std::to_chars(first, first + number_buffer_size, static_cast<double>(number)).ptr;
    }
    return end;
}

inline void write_integer(std::string& out, auto integer)
{
    char buffer[number_buffer_size];
    out.append(buffer, format_integer(buffer, integer));
}

inline void write_double(std::string& out, double number)
{
    char buffer[number_buffer_size];
    out.append(buffer, format_double(buffer, number));
}

inline void write_float(std::string& out, float number)
{
    char buffer[number_buffer_size];
    out.append(buffer, format_float(buffer, number));
}

// Bytes that may need more than a plain copy: the quote, the backslash, control bytes, and
// 0xED, which leads a surrogate encoded in three bytes.
inline constexpr std::array<bool, 256> bytes_to_escape = [] {
    std::array<bool, 256> table{};
    for (int byte = 0; byte < 0x20; ++byte)
        table[byte] = true;
    table['"'] = table['\\'] = table[0xED] = true;
    return table;
}();

inline constexpr char hex_digits[] = "0123456789abcdef";

// Whether the three bytes at i encode a surrogate code point, U+D800 to U+DFFF.
inline bool is_encoded_surrogate(std::string_view text, std::size_t i)
{
    if (i + 2 >= text.size() || static_cast<unsigned char>(text[i]) != 0xED)
        return false;
    auto const second = static_cast<unsigned char>(text[i + 1]);
    auto const third = static_cast<unsigned char>(text[i + 2]);
    return second >= 0xA0 && second <= 0xBF && third >= 0x80 && third <= 0xBF;
}

// Writes the escape \uXXXX of the UTF-16 code unit at first, six bytes.
inline void format_unicode_escape(char* first, unsigned code)
{
    char const escape[] = {'\\', 'u', hex_digits[(code >> 12) & 0xF], hex_digits[(code >> 8) & 0xF],
                           hex_digits[(code >> 4) & 0xF], hex_digits[code & 0xF]};
    std::char_traits<char>::copy(first, escape, sizeof escape);
}

// Writes the escape of a byte below 0x80 that bytes_to_escape marks at first, at most six bytes, and
// returns its length.
inline std::size_t format_escape(char* first, unsigned char byte)
{
    char letter = 0;
    switch (byte) {
    case '"': letter = '"'; break;
    case '\\': letter = '\\'; break;
    case '\b': letter = 'b'; break;
    case '\f': letter = 'f'; break;
    case '\n': letter = 'n'; break;
    case '\r': letter = 'r'; break;
    case '\t': letter = 't'; break;
    default: format_unicode_escape(first, byte); return 6;
    }
    first[0] = '\\';
    first[1] = letter;
    return 2;
}

/// Appends text as a JSON string to out, which has append(char const*, std::size_t) and push_back(char)
/// as std::string has.
template <typename Out>
void write_string(Out& out, std::string_view text)
{
    out.push_back('"');
    std::size_t plain_from = 0;
    char escape[6];
    for (std::size_t i = 0; i < text.size(); ++i) {
        auto const byte = static_cast<unsigned char>(text[i]);
        if (!bytes_to_escape[byte])
            continue;
        if (byte == 0xED) {
            if (!is_encoded_surrogate(text, i))
                continue;
            auto const second = static_cast<unsigned char>(text[i + 1]);
            auto const third = static_cast<unsigned char>(text[i + 2]);
            // A reader pairs a high surrogate's escape with the escape that must follow it, so a high
            // surrogate without a low one after it stays in its three bytes, which read back as it.
            bool const high = second < 0xB0;
            bool const low_follows
                = is_encoded_surrogate(text, i + 3) && static_cast<unsigned char>(text[i + 4]) >= 0xB0;
            if (high && !low_follows)
                continue;
            out.append(text.data() + plain_from, i - plain_from);
            format_unicode_escape(escape, 0xD000 | ((second & 0x3Fu) << 6) | (third & 0x3Fu));
            out.append(escape, sizeof escape);
            i += 2;
            plain_from = i + 1;
            continue;
        }
        out.append(text.data() + plain_from, i - plain_from);
        plain_from = i + 1;
        out.append(escape, format_escape(escape, byte));
    }
    out.append(text.data() + plain_from, text.size() - plain_from);
    out.push_back('"');
}

} // namespace foundation::json::detail
