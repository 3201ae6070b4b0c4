// How one element, or one part of a complex element, of a numeric or logical array is written.
#pragma once

#include <foundation/zorbaldata/json/detail/numeric_traits.hpp>
#include <foundation/zorbaldata/json/detail/word_object.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>

#include <concepts>
#include <limits>
#include <type_traits>

namespace foundation::zorbaldata::json::detail {

/// The word of a non-finite x, "NaN", "Inf" or "-Inf", or null for a finite x. The tests are made in
/// x's own type, so a float is not widened first; the sign and payload of a NaN are not looked at.
template <std::floating_point T>
constexpr char const* non_finite_word(T x) noexcept
{
    if (x != x)
        return "NaN";
    if (x > std::numeric_limits<T>::max())
        return "Inf";
    if (x < -std::numeric_limits<T>::max())
        return "-Inf";
    return nullptr;
}

/// Logical and integer elements, which depend on no setting: a boolean, or the 64-bit integer of the
/// element's signedness, so that every bit survives.
struct exact_value {
    template <typename Out>
    void operator()(Out& out, bool b) const
    {
        out.value(b);
    }

    template <typename Out, std::integral T>
        requires(!std::same_as<T, bool>)
    void operator()(Out& out, T x) const
    {
        if constexpr (std::is_signed_v<T>)
            out.value(static_cast<long long>(x));
        else
            out.value(static_cast<unsigned long long>(x));
    }
};

/// Double and single elements: the number in its own width (a single stays a float), or the word of a
/// non-finite number as a plain string or a special-float object, as Nan says.
template <zorbaljson::NanType Nan>
struct floating_value {
    template <typename Out, std::floating_point T>
    void operator()(Out& out, T x) const
    {
        if (char const* const word = non_finite_word(x)) [[unlikely]] {
            if constexpr (Nan == zorbaljson::NanType::Object)
                write_word_object(out, word);
            else
                out.string(word);
            return;
        }
        out.value(x);
    }
};

/// The writer of the parts of elements of type T under Nan.
template <typename T, zorbaljson::NanType Nan>
using value_maker
    = std::conditional_t<std::floating_point<element_part_t<T>>, floating_value<Nan>, exact_value>;

} // namespace foundation::zorbaldata::json::detail
