// The three spellings of the values that JSON numbers cannot carry, for double and float elements.
#include <frontend/detail/special_float.hpp>

#include <frontend/detail/notation_keys.hpp>

#include <foundation/json/json_cast.hpp>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace foundation::zorbaljson::detail {

bool is_special_float_string(std::string const& text) noexcept
{
    return text == "NaN" || text == "Inf" || text == "-Inf";
}

template <std::floating_point F>
F special_float_from_string(std::string const& text)
{
    // The NaN of the notation carries the sign bit, as the arrays that wrote it did.
    if (text == "NaN")
        return std::copysign(std::numeric_limits<F>::quiet_NaN(), F(-1));
    if (text == "Inf")
        return std::numeric_limits<F>::infinity();
    if (text == "-Inf")
        return -std::numeric_limits<F>::infinity();
    throw std::runtime_error("String \"" + text + "\" is not a valid value for a numeric array");
}

template <std::floating_point F>
F special_float_from_object(foundation::json::Object const& object)
{
    auto const data = object.find(zqdata_key);
    if (data == object.end())
        throw std::runtime_error(zqdata_key + " field not found");
    if (data->second.which() != foundation::json::traits<std::string>::which)
        throw std::runtime_error("Expected a data inside special float objects to be a string");
    return special_float_from_string<F>(foundation::json::json_cast<std::string>(data->second));
}

template double special_float_from_string<double>(std::string const&);
template float special_float_from_string<float>(std::string const&);
template double special_float_from_object<double>(foundation::json::Object const&);
template float special_float_from_object<float>(foundation::json::Object const&);

} // namespace foundation::zorbaljson::detail
