// Checked access to the alternative a Value holds, without any conversion between alternatives.
#pragma once

#include <foundation/json/export.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/json/value.hpp>

#include <type_traits>

namespace foundation::json {

namespace detail {

// The one door to a Value's storage, for json_cast; the caller has checked the tag.
struct ValueAccess {
    template <typename T, typename V>
    static auto& get(V& value) noexcept
    {
        auto& scalar = value.scalar_;
        if constexpr (std::is_same_v<T, Undefined>)
            return scalar.undefined;
        else if constexpr (std::is_same_v<T, Null>)
            return scalar.null;
        else if constexpr (std::is_same_v<T, bool>)
            return scalar.boolean;
        else if constexpr (std::is_same_v<T, double>)
            return scalar.number;
        else if constexpr (std::is_same_v<T, std::string>)
            return value.string_;
        else if constexpr (std::is_same_v<T, Array>)
            return *scalar.array;
        else if constexpr (std::is_same_v<T, Object>)
            return *scalar.object;
        else if constexpr (std::is_same_v<T, float>)
            return scalar.single;
        else if constexpr (std::is_same_v<T, long long>)
            return scalar.int64;
        else
            return scalar.uint64;
    }
};

/// Throws the error of json_cast for a Value holding tag `held` asked for tag `wanted`.
/// @throws std::runtime_error always: "invalid conversion: <held name> to <wanted name>"
[[noreturn]] FOUNDATION_JSON_API void throw_invalid_conversion(int held, int wanted);

} // namespace detail

/// The T that value holds; T is one of the ten alternatives and must be exactly the one held
/// (a double is no long long, a float no double, a number no bool).
/// @throws std::runtime_error "invalid conversion: <held name> to <T name>" (names from traits)
template <typename T>
T const& json_cast(Value const& value)
{
    if (value.which() != traits<T>::which) [[unlikely]]
        detail::throw_invalid_conversion(value.which(), traits<T>::which);
    return detail::ValueAccess::get<T>(value);
}

/// The T that value holds, for changing it in place; same rules as the const form.
/// @throws std::runtime_error "invalid conversion: <held name> to <T name>" (names from traits)
template <typename T>
T& json_cast(Value& value)
{
    if (value.which() != traits<T>::which) [[unlikely]]
        detail::throw_invalid_conversion(value.which(), traits<T>::which);
    return detail::ValueAccess::get<T>(value);
}

} // namespace foundation::json
