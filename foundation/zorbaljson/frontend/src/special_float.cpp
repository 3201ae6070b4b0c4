// The three spellings of the values that JSON numbers cannot carry, for double and float elements.
#include <frontend/detail/special_float.hpp>

#include <frontend/detail/notation_keys.hpp>

#include <string>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace foundation::zorbaljson::detail {

bool is_special_float_string(std::string_view text) noexcept
{
    return text == "NaN" || text == "Inf" || text == "-Inf";
}

template <std::floating_point F>
F special_float_from_string(std::string_view text)
{
    // The NaN of the notation carries the sign bit, as the arrays that wrote it did.
    if (text == "NaN")
        return std::copysign(std::numeric_limits<F>::quiet_NaN(), F(-1));
    if (text == "Inf")
        return std::numeric_limits<F>::infinity();
    if (text == "-Inf")
        return -std::numeric_limits<F>::infinity();
    throw std::runtime_error("String \"" + std::string(text) + "\" is not a valid value for a numeric array");
}

template <std::floating_point F>
F special_float_from_object(JsonNode object)
{
    auto const data = object.find(zqdata_key);
    if (!data)
        throw std::runtime_error(zqdata_key + " field not found");
    if (!data->is(json_kind::string))
        throw std::runtime_error("Expected a data inside special float objects to be a string");
    return special_float_from_string<F>(data->as_string());
}

template double special_float_from_string<double>(std::string_view);
template float special_float_from_string<float>(std::string_view);
template double special_float_from_object<double>(JsonNode);
template float special_float_from_object<float>(JsonNode);

} // namespace foundation::zorbaljson::detail
