// The classes of single bytes that the JSON grammar tells apart.
#pragma once

#include <yx/i18n/lcctype.hpp>

#include <cstddef>
#include <cstring>
#include <string_view>

namespace foundation::json::detail {

// Bytes above 127 are cast through unsigned char so that they never pass for ASCII.
inline bool is_space(char c) noexcept
{
    return yx::i18n::lcctype::isspace_ascii(static_cast<unsigned char>(c));
}

inline bool is_digit(char c) noexcept
{
    return yx::i18n::lcctype::isdigit_ascii(static_cast<unsigned char>(c));
}

/// The value of a hexadecimal digit of either case, or -1.
inline int hex_value(char c) noexcept
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

/// A working copy of a position, written back when it goes. A position reached through a reference
/// would be stored at every step, as the bytes read, being chars, might alias it; a local stays in a
/// register.
struct LocalPosition {
    char const*& position;
    char const* p = position;
    ~LocalPosition() { position = p; }
};

/// True when [p, end) begins with word.
inline bool starts_with(char const* p, char const* end, std::string_view word) noexcept
{
    return static_cast<std::size_t>(end - p) >= word.size() && std::memcmp(p, word.data(), word.size()) == 0;
}

} // namespace foundation::json::detail
