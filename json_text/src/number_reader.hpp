// Reading JSON numbers from bytes: the grammar of untyped numbers, and saturated integers.
#pragma once

#include "byte_classes.hpp"
#include "digit_runs.hpp"

#include <foundation/json/parse_result.hpp>

#include <limits>
#include <type_traits>

namespace foundation::json::detail {

/// Moves p over one number token, stopping at the first byte that continues it no further.
inline ParseResult scan_number_bytes(char const*& position, char const* end) noexcept
{
    LocalPosition local{position};
    char const*& p = local.p;
    if (p == end)
        return UnexpectedEnd;
    if (*p == '-' && ++p == end)
        return UnexpectedEnd;
    if (*p == '0') {
        if (++p == end)
            return ParseOk;
    } else {
        if (!is_digit(*p))
            return ExpectedDigit;
        p = skip_digits(p, end);
    }
    // The fraction is looked for before the digits that may follow a leading zero, so "01.5" ends at
    // the decimal point.
    if (p != end && *p == '.') {
        if (++p == end)
            return UnexpectedEnd;
        if (!is_digit(*p))
            return ExpectedFractionDigit;
        ++p;
    }
    p = skip_digits(p, end);
    if (p != end && (*p == 'e' || *p == 'E')) {
        if (++p == end)
            return UnexpectedEnd;
        if ((*p == '+' || *p == '-') && ++p == end)
            return UnexpectedEnd;
        if (!is_digit(*p))
            return ExpectedExponentDigit;
        p = skip_digits(p, end);
    }
    return ParseOk;
}

/// `-? (0 | [1-9] digit*)` at p into out, clamped to the range of Integer (long long or unsigned
/// long long); no overflow is reported, however many digits there are.
template <typename Integer>
ParseResult read_integer(Integer& out, char const*& position, char const* end) noexcept
{
    LocalPosition local{position};
    char const*& p = local.p;
    static_assert(std::is_same_v<Integer, long long> || std::is_same_v<Integer, unsigned long long>);
    if (p == end)
        return UnexpectedEnd;
    bool const negative = *p == '-';
    if (negative && ++p == end)
        return UnexpectedEnd;
    constexpr unsigned long long ceiling = std::numeric_limits<unsigned long long>::max();
    unsigned long long magnitude = 0;
    if (*p == '0') {
        ++p;
    } else {
        if (!is_digit(*p))
            return BadInteger;
        char const* const digits_end = skip_digits(p, end);
        // Up to 19 digits cannot overflow; beyond them each step saturates.
        if (digits_end - p <= 19) {
            for (; digits_end - p >= 8; p += 8)
                magnitude = magnitude * 100'000'000 + eight_digits_value(p);
        }
        for (; p != digits_end; ++p) {
            auto const digit = static_cast<unsigned long long>(*p - '0');
            magnitude = magnitude > (ceiling - digit) / 10 ? ceiling : magnitude * 10 + digit;
        }
    }
    if constexpr (std::is_same_v<Integer, unsigned long long>) {
        out = negative ? 0 : magnitude;
    } else {
        constexpr auto largest = static_cast<unsigned long long>(std::numeric_limits<long long>::max());
        if (negative)
            out = magnitude > largest ? std::numeric_limits<long long>::min() : -static_cast<long long>(magnitude);
        else
            out = magnitude > largest ? std::numeric_limits<long long>::max() : static_cast<long long>(magnitude);
    }
    return ParseOk;
}

} // namespace foundation::json::detail
