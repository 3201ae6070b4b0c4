// Runs of decimal digits, eight bytes at a time: the hot loop of reading numeric data.
#pragma once

#include "byte_classes.hpp"

#include <bit>
#include <cstdint>
#include <cstring>

namespace foundation::json::detail {

/// Eight bytes from p as one word, the first byte in the lowest bits.
inline std::uint64_t load_eight(char const* p) noexcept
{
    std::uint64_t word;
    std::memcpy(&word, p, 8);
    if constexpr (std::endian::native == std::endian::big)
        word = __builtin_bswap64(word);
    return word;
}

/// The end of the run of digits that starts at p.
inline char const* skip_digits(char const* p, char const* end) noexcept
{
    constexpr std::uint64_t ones = 0x0101010101010101;
    while (end - p >= 8) {
        // After taking '0' away, a byte is a digit when it is below 10: adding 118 sets its top bit
        // otherwise. A byte that was already 128 or more is caught by the or; a carry out of it only
        // marks later bytes, and only the first mark counts.
        std::uint64_t const offset = load_eight(p) - 0x30 * ones;
        std::uint64_t const non_digits = (offset | (offset + 0x76 * ones)) & (0x80 * ones);
        if (non_digits)
            return p + std::countr_zero(non_digits) / 8;
        p += 8;
    }
    while (p != end && is_digit(*p))
        ++p;
    return p;
}

/// The value of the eight digits at p.
inline std::uint64_t eight_digits_value(char const* p) noexcept
{
    // Pairs, then quadruples, then the whole, each step combining neighbours in one multiplication.
    std::uint64_t word = load_eight(p) - 0x3030303030303030;
    word = word * 10 + (word >> 8);
    word = (((word & 0x000000FF000000FF) * 0x000F424000000064)
            + (((word >> 16) & 0x000000FF000000FF) * 0x0000271000000001)) >> 32;
    return word & 0xFFFFFFFF;
}

} // namespace foundation::json::detail
