// JSON strings hold UTF-8 and arrays hold UTF-16: the one conversion on the way out.
#pragma once

#include <string>
#include <string_view>

namespace foundation::zorbaldata::json::detail {

/// The UTF-8 text of the UTF-16 code units. Text that the strict conversion refuses is converted again
/// with lone surrogates allowed, each written in its three-byte form.
/// @throws what the second conversion throws, as it is; std::runtime_error "Invalid characters in char
/// array. Could not convert into UTF-8." for any other failure of the first.
std::string utf16_to_utf8(std::u16string_view units);

} // namespace foundation::zorbaldata::json::detail
