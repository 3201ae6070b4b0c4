// The element conversions of numeric arrays: json2num's rule over any JSON node, the shared floating
// reader and the parts of complex numbers.
#pragma once

#include <frontend/detail/json_node.hpp>

#include <concepts>

namespace foundation::zorbaljson::detail {

/// The element of type T that node stands for, by the rule json2num states for a Value.
/// @throws InvalidIntegralElem or InvalidFloatingElem as json2num does.
template <typename T>
T numeric_element(JsonNode node);

/// A float or double from the double alternative (a float within the largest float's range, NaN
/// included) or from a special-float object. Unlike json2num it refuses the plain strings "NaN", "Inf"
/// and "-Inf". Complex data and sparse indices read their numbers with it.
/// @throws InvalidFloatingElem of "single" or "double" for anything else.
template <std::floating_point F>
F read_floating(JsonNode node);

/// The real or imaginary part of a complex element: an integer part as json2num reads it, a float or
/// double part by read_floating. @throws InvalidIntegralElem or InvalidFloatingElem as those do.
template <typename T>
T complex_part(JsonNode node);

} // namespace foundation::zorbaljson::detail
