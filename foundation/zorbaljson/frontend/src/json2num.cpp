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
T integral_element(JsonNode node)
{
    try {
        if constexpr (std::is_signed_v<T>)
            return boost::numeric_cast<T>(node.as_int64());
        else
            return boost::numeric_cast<T>(node.as_uint64());
    } catch (...) {
        throw InvalidIntegralElem(type_name<T>);
    }
}

template <std::floating_point F>
F floating_element(JsonNode node)
{
    try {
        if (node.is(json_kind::string))
            return special_float_from_string<F>(node.as_string());
        return read_floating<F>(node);
    } catch (...) {
        throw InvalidFloatingElem(type_name<F>);
    }
}

} // namespace

template <std::floating_point F>
F read_floating(JsonNode node)
{
    try {
        if (node.is(json_kind::object))
            return special_float_from_object<F>(node);
        // A NaN passes the range test of a float, as no comparison holds for it.
        return boost::numeric_cast<F>(node.as_double());
    } catch (...) {
        throw InvalidFloatingElem(type_name<F>);
    }
}

template <typename T>
T complex_part(JsonNode node)
{
    if constexpr (std::is_floating_point_v<T>)
        return read_floating<T>(node);
    else
        return integral_element<T>(node);
}

template <typename T>
T numeric_element(JsonNode node)
{
    if constexpr (std::is_floating_point_v<T>)
        return floating_element<T>(node);
    else
        return integral_element<T>(node);
}

template <typename T, bool, int>
T json2num(Value const& value)
{
    return numeric_element<T>(JsonNode(value));
}

template float read_floating<float>(JsonNode);
template double read_floating<double>(JsonNode);

#define ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(T)                                                                \
    template T complex_part<T>(JsonNode);                                                                  \
    template T numeric_element<T>(JsonNode);

ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(signed char)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(short)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(int)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(long long)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(unsigned char)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(unsigned short)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(unsigned int)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(unsigned long long)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(float)
ZQ_INSTANTIATE_ELEMENT_CONVERSIONS(double)
#undef ZQ_INSTANTIATE_ELEMENT_CONVERSIONS

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
