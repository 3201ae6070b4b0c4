// Building UTF-8 strings from ranges of bytes and from UTF-16 code units.
#pragma once

#include <foundation/json/export.hpp>

#include <string>

namespace foundation::json::detail {

/// The bytes of [first, last) as a new string.
/// @throws std::bad_alloc
FOUNDATION_JSON_API std::string get_utf8_string(std::string::const_iterator first,
                                                std::string::const_iterator last);

/// The UTF-8 form of `count` UTF-16 code units (none when count is negative). A high surrogate
/// followed by a low one is a pair, written as one four-byte sequence; any other surrogate is
/// written as its own three-byte form (ED A0..BF 80..BF), so that nothing is lost.
/// @throws std::bad_alloc
FOUNDATION_JSON_API std::string u16_to_u8(char16_t const* units, int count);

} // namespace foundation::json::detail
