// The spellings of NaN and the infinities that JSON numbers cannot carry: "NaN", "Inf" and "-Inf".
#pragma once

#include <frontend/detail/json_node.hpp>

#include <concepts>
#include <string_view>

namespace foundation::zorbaljson::detail {

/// Whether text is exactly "NaN", "Inf" or "-Inf".
bool is_special_float_string(std::string_view text) noexcept;

/// The value that text spells, matched exactly and case-sensitively: "NaN" is the quiet NaN with the
/// sign bit set (0xFFF8000000000000 as double, 0xFFC00000 as float), "Inf" and "-Inf" the infinities.
/// @throws std::runtime_error "String \"<text>\" is not a valid value for a numeric array" for any other
/// text.
template <std::floating_point F = double>
F special_float_from_string(std::string_view text);

/// The value of a special-float object such as {"zqdata":"NaN"}: its "zqdata" string read by
/// special_float_from_string. Other keys are ignored. object must hold a JSON object.
/// @throws std::runtime_error "zqdata field not found" when the object has no "zqdata";
/// "Expected a data inside special float objects to be a string" when it is no string; or the error of
/// special_float_from_string.
template <std::floating_point F = double>
F special_float_from_object(JsonNode object);

} // namespace foundation::zorbaljson::detail
