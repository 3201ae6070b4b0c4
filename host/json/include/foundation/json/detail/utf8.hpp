// Building UTF-8 strings from ranges of bytes and from UTF-16 code units.
#pragma once

#include <foundation/json/export.hpp>

#include <string>

namespace foundation::json::detail {

/// The bytes of [first, last) as a new string.
/// @throws std::bad_alloc
FOUNDATION_JSON_API std::string get_utf8_string(std::string::const_iterator first,
                                                std::string::const_iterator last);

/// Writes the UTF-8 form of the code unit at in, or of the pair that begins there, at out, at most four
/// bytes, and returns the unit after it; in is before end. A high surrogate followed by a low one is a
/// pair, one four-byte sequence; any other surrogate takes its own three-byte form (ED A0..BF 80..BF),
/// so that nothing is lost.
inline char16_t const* encode_utf8(char16_t const* in, char16_t const* end, char*& out) noexcept
{
    auto const put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
    char32_t const unit = *in;
    if (unit < 0x80) {
        put(unit);
    } else if (unit < 0x800) {
        put(0xC0 | (unit >> 6));
        put(0x80 | (unit & 0x3F));
    } else if (unit >= 0xD800 && unit < 0xDC00 && end - in > 1 && in[1] >= 0xDC00 && in[1] < 0xE000) {
        char32_t const code_point = 0x10000 + ((unit - 0xD800) << 10) + (in[1] - 0xDC00u);
        put(0xF0 | (code_point >> 18));
        put(0x80 | ((code_point >> 12) & 0x3F));
        put(0x80 | ((code_point >> 6) & 0x3F));
        put(0x80 | (code_point & 0x3F));
        return in + 2;
    } else {
        put(0xE0 | (unit >> 12));
        put(0x80 | ((unit >> 6) & 0x3F));
        put(0x80 | (unit & 0x3F));
    }
    return in + 1;
}

/// The UTF-8 form of `count` UTF-16 code units (none when count is negative). A high surrogate
/// followed by a low one is a pair, any other surrogate its own three-byte form, as encode_utf8 writes them.
/// @throws std::bad_alloc
FOUNDATION_JSON_API std::string u16_to_u8(char16_t const* units, int count);

} // namespace foundation::json::detail
