// The writer of dense numeric and logical arrays, real and complex, in the large and the small forms.
#pragma once

#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/numeric_traits.hpp>
#include <foundation/zorbaldata/json/detail/small_form.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <type_traits>

namespace foundation::zorbaldata::json::detail {

/// Writes the large form of a dense array of the dimensions whose elements, of type T, are the range;
/// make writes each element, or the real and then the imaginary part of each complex element.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give.
template <typename Out, typename T, typename MakeValue>
void write_numeric(Out& out, Dimensions const& dimensions, Range<TypedIterator, T const> const& elements,
    MakeValue make)
{
    constexpr bool complex = zorbaldata::detail::isComplex<T>;
    write_large_form(out, dimensions, zqtype_of<T>::name, {.complex = complex}, [&] {
        auto const first = elements.begin();
        auto const last = elements.end();
        out.begin_array();
        for (auto element = first; element != last; ++element) {
            if constexpr (complex) {
                make(out, element->real());
                make(out, element->imag());
            } else {
                make(out, *element);
            }
        }
        out.end_array();
        if (static_cast<unsigned long>(last - first) != element_count(dimensions))
            throw_count_mismatch();
    });
}

/// A double or logical array, which under ToJsonMode::Small has small forms: a 1-by-1 array is its
/// element alone, a double 0-by-0 array is [], any other non-empty array is nested. Every other array,
/// and every array under Large, takes the large form. small writes the elements of small forms, large
/// those of the large form.
/// @throws as write_numeric and nested_form; under Small, fewer than two dimensions fail first.
template <zorbaljson::ToJsonMode Mode, typename Out, typename T, typename SmallValue, typename LargeValue>
void write_with_small_form(Out& out, Dimensions const& dimensions,
    Range<TypedIterator, T const> const& elements, [[maybe_unused]] SmallValue small, LargeValue large)
{
    if constexpr (Mode == zorbaljson::ToJsonMode::Small) {
        require_two_dimensions(dimensions);
        if (is_matrix_of(dimensions, 1, 1))
            return scalar_form(out, elements, small);
        // Only a double has a small form when empty, since [] reads back as a double.
        if constexpr (std::is_same_v<T, double>)
            if (is_matrix_of(dimensions, 0, 0)) {
                out.begin_array();
                out.end_array();
                return;
            }
        if (element_count(dimensions) != 0)
            return nested_form(out, dimensions, elements, small);
    }
    write_numeric(out, dimensions, elements, large);
}

} // namespace foundation::zorbaldata::json::detail
