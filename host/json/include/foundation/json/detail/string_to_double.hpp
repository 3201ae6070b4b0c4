// Reading the value of a JSON number token, exactly rounded and independent of the locale.
#pragma once

#include <foundation/json/export.hpp>

namespace foundation::json::detail {

/// The double nearest to the number token [first, last), ties to even. The token must match
/// `-? digit+ (. digit+)? ([eE] [+-]? digit+)?` (leading zeros allowed); that is checked only
/// in debug builds. Beyond the range of double the result is as with strtod: an infinity on
/// overflow, a zero on underflow, each with the sign of the token.
FOUNDATION_JSON_API double string_to_double(char const* first, char const* last) noexcept;

/// The same for a NUL-terminated token.
FOUNDATION_JSON_API double string_to_double(char const* token) noexcept;

} // namespace foundation::json::detail
