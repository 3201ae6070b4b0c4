// The writer of dense numeric and logical arrays, real and complex, in the large and the small forms.
#pragma once

#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/numeric_traits.hpp>
#include <foundation/zorbaldata/json/detail/small_form.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>
#include <frontend/detail/notation_keys.hpp>

#include <type_traits>
#include <utility>

namespace foundation::zorbaldata::json::detail {

/// The large form of a dense array of the dimensions whose elements, of type T, are the range; make
/// turns each element, or the real and then the imaginary part of each complex element, into JSON.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give.
template <typename T, typename MakeValue>
JsonValue write_numeric(Dimensions const& dimensions, Range<TypedIterator, T const> const& elements,
    MakeValue make)
{
    constexpr bool complex = zorbaldata::detail::isComplex<T>;
    large_form form(dimensions, zqtype_of<T>::name);
    if constexpr (complex)
        form.set_flag(zorbaljson::detail::zqcomplex_key);
    JsonArray data;
    data.reserve(complex ? 2 * form.count() : form.count());
    auto const first = elements.begin();
    auto const last = elements.end();
    for (auto element = first; element != last; ++element) {
        if constexpr (complex) {
            data.push_back(make(element->real()));
            data.push_back(make(element->imag()));
        } else {
            data.push_back(make(*element));
        }
    }
    if (static_cast<unsigned long>(last - first) != form.count())
        throw_count_mismatch();
    return std::move(form).finish(JsonValue(std::move(data)));
}

/// A double or logical array, which under ToJsonMode::Small has small forms: a 1-by-1 array is its
/// element alone, a double 0-by-0 array is [], any other non-empty array is nested. Every other array,
/// and every array under Large, takes the large form. small makes the elements of small forms, large
/// those of the large form.
/// @throws as write_numeric and nested_form; under Small, fewer than two dimensions fail first.
template <zorbaljson::ToJsonMode Mode, typename T, typename SmallValue, typename LargeValue>
JsonValue write_with_small_form(Dimensions const& dimensions,
    Range<TypedIterator, T const> const& elements, [[maybe_unused]] SmallValue small, LargeValue large)
{
    if constexpr (Mode == zorbaljson::ToJsonMode::Small) {
        require_two_dimensions(dimensions);
        if (is_matrix_of(dimensions, 1, 1))
            return scalar_form(elements, small);
        // Only a double has a small form when empty, since [] reads back as a double.
        if constexpr (std::is_same_v<T, double>)
            if (is_matrix_of(dimensions, 0, 0))
                return JsonValue(JsonArray());
        if (element_count(dimensions) != 0)
            return nested_form(dimensions, elements, small);
    }
    return write_numeric(dimensions, elements, large);
}

} // namespace foundation::zorbaldata::json::detail
