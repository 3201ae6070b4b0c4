// One JSON value as one element of a numeric array: the element conversion of the typed "zqdata" lists.
#pragma once

#include <foundation/json/value.hpp>
#include <foundation/zorbaldata/json/export.hpp>

namespace foundation::zorbaljson::detail {

/// The element of type T that value stands for, where T is one of signed char, short, int, long long
/// (int8 to int64), unsigned char, unsigned short, unsigned int, unsigned long long (uint8 to uint64),
/// float (single) or double. The second and third arguments are always true and 0.
///
/// A signed integer comes only from the int64 alternative of a Value and an unsigned one only from the
/// uint64 alternative, within the range of T; a double holding 1.0 is no integer. A float or double comes
/// from the double alternative (a float within the largest float's range, NaN included), from the strings
/// "NaN", "Inf" and "-Inf", and from the objects {"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"}.
/// @throws InvalidIntegralElem "Invalid value for type <name>. Expected an integral number" for an integer
/// type, and InvalidFloatingElem for float and double, whatever the fault; <name> is "int8" ... "uint64",
/// "single" or "double".
template <typename T, bool, int>
FOUNDATION_ZORBALDATA_JSON_API T json2num(foundation::json::Value const& value);

extern template FOUNDATION_ZORBALDATA_JSON_API signed char json2num<signed char, true, 0>(
    foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API short json2num<short, true, 0>(foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API int json2num<int, true, 0>(foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API long long json2num<long long, true, 0>(
    foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API unsigned char json2num<unsigned char, true, 0>(
    foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API unsigned short json2num<unsigned short, true, 0>(
    foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API unsigned int json2num<unsigned int, true, 0>(
    foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API unsigned long long json2num<unsigned long long, true, 0>(
    foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API float json2num<float, true, 0>(foundation::json::Value const&);
extern template FOUNDATION_ZORBALDATA_JSON_API double json2num<double, true, 0>(
    foundation::json::Value const&);

} // namespace foundation::zorbaljson::detail
