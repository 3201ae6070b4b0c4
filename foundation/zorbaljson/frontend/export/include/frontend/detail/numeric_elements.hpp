// The element conversions beside json2num: the shared floating reader and the parts of complex numbers.
#pragma once

#include <foundation/json/value.hpp>

#include <concepts>

namespace foundation::zorbaljson::detail {

/// A float or double from the double alternative (a float within the largest float's range, NaN
/// included) or from a special-float object. Unlike json2num it refuses the plain strings "NaN", "Inf"
/// and "-Inf". Complex data and sparse indices read their numbers with it.
/// @throws InvalidFloatingElem of "single" or "double" for anything else.
template <std::floating_point F>
F read_floating(foundation::json::Value const& value);

/// The real or imaginary part of a complex element: an integer part as json2num reads it, a float or
/// double part by read_floating. @throws InvalidIntegralElem or InvalidFloatingElem as those do.
template <typename T>
T complex_part(foundation::json::Value const& value);

} // namespace foundation::zorbaljson::detail
