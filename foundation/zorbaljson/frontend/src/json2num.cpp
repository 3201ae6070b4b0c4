// The numeric element conversions, instantiated for the ten element types.
#include <frontend/detail/json2num.hpp>

#include <frontend/detail/numeric_elements.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/special_float.hpp>
#include <frontend/detail/types.hpp>

#include <foundation/json/json_cast.hpp>

#include <boost/numeric/conversion/cast.hpp>

#include <string>
#include <type_traits>

namespace foundation::zorbaljson::detail {

namespace {

using foundation::json::Value;

template <typename T>
constexpr char const* type_name = ZorbalTypeTraits<numeric_kind_of<T>>::name;

// Signed types read only the int64 alternative and unsigned ones only uint64, so an integer of the
// other signedness is refused like any other alternative, before its range matters.
template <std::integral T>
T integral_element(Value const& value)
{
    using Source = std::conditional_t<std::is_signed_v<T>, long long, unsigned long long>;
    try {
        return boost::numeric_cast<T>(foundation::json::json_cast<Source>(value));
    } catch (...) {
        throw InvalidIntegralElem(type_name<T>);
    }
}

template <std::floating_point F>
F floating_element(Value const& value)
{
    try {
        if (value.which() == foundation::json::traits<std::string>::which)
            return special_float_from_string<F>(foundation::json::json_cast<std::string>(value));
        return read_floating<F>(value);
    } catch (...) {
        throw InvalidFloatingElem(type_name<F>);
    }
}

} // namespace

template <std::floating_point F>
F read_floating(Value const& value)
{
    try {
        if (value.which() == foundation::json::traits<foundation::json::Object>::which)
            return special_float_from_object<F>(foundation::json::json_cast<foundation::json::Object>(value));
        // A NaN passes the range test of a float, as no comparison holds for it.
        return boost::numeric_cast<F>(foundation::json::json_cast<double>(value));
    } catch (...) {
        throw InvalidFloatingElem(type_name<F>);
    }
}

template <typename T>
T complex_part(Value const& value)
{
    if constexpr (std::is_floating_point_v<T>)
        return read_floating<T>(value);
    else
        return integral_element<T>(value);
}

template <typename T, bool, int>
T json2num(Value const& value)
{
    if constexpr (std::is_floating_point_v<T>)
        return floating_element<T>(value);
    else
        return integral_element<T>(value);
}

template float read_floating<float>(Value const&);
template double read_floating<double>(Value const&);

template signed char complex_part<signed char>(Value const&);
template short complex_part<short>(Value const&);
template int complex_part<int>(Value const&);
template long long complex_part<long long>(Value const&);
template unsigned char complex_part<unsigned char>(Value const&);
template unsigned short complex_part<unsigned short>(Value const&);
template unsigned int complex_part<unsigned int>(Value const&);
template unsigned long long complex_part<unsigned long long>(Value const&);
template float complex_part<float>(Value const&);
template double complex_part<double>(Value const&);

template FOUNDATION_ZORBALDATA_JSON_API signed char json2num<signed char, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API short json2num<short, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API int json2num<int, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API long long json2num<long long, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API unsigned char json2num<unsigned char, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API unsigned short json2num<unsigned short, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API unsigned int json2num<unsigned int, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API unsigned long long json2num<unsigned long long, true, 0>(
    Value const&);
template FOUNDATION_ZORBALDATA_JSON_API float json2num<float, true, 0>(Value const&);
template FOUNDATION_ZORBALDATA_JSON_API double json2num<double, true, 0>(Value const&);

} // namespace foundation::zorbaljson::detail
