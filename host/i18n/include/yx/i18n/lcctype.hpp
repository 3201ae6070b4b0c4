// Character classes of ASCII that do not depend on the locale.
#pragma once

namespace yx::i18n::lcctype {

/// True for '0'..'9' only; other scripts' digits never count.
constexpr bool isdigit_ascii(char32_t c) noexcept
{
    return c >= U'0' && c <= U'9';
}

/// True for space, '\t', '\n', '\v', '\f' and '\r' only; non-ASCII spaces never count.
constexpr bool isspace_ascii(char32_t c) noexcept
{
    return c == U' ' || (c >= U'\t' && c <= U'\r');
}

} // namespace yx::i18n::lcctype
