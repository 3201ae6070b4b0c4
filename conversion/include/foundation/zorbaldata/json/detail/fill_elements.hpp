// The fill loop of the arrays whose elements are reached through references: cells, strings,
// enumerations and objects.
#pragma once

#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

/// Fills the elements of array, whose elements are T, in storage order from the range data to end:
/// store(reference, iterator) for each element, with the iterator standing at the element's value, which
/// store reads as often as it needs. Surplus values are never read.
/// @throws foundation::zorbaljson::MismatchedZQSize, once the loop has ended, when the range and the
/// elements did not end together. @throws what store throws, unchanged.
template <typename T, typename Iterator, typename Store>
void fill_elements_at(Array& array, Iterator data, Iterator const& end, Store const& store)
{
    auto const elements = getWritableElements<T>(array);
    auto element = elements.begin();
    for (; !element.isEqual(elements.end()) && data != end; element.increment(), ++data)
        store(element.getRef(), data);
    if (!element.isEqual(elements.end()) || data != end)
        throw foundation::zorbaljson::MismatchedZQSize();
}

/// As fill_elements_at, with store(reference, value) given each value once. A value is read only when an
/// element awaits it, so the first bad value in storage order fails before the count is judged.
/// @throws as fill_elements_at, and what reading a value throws.
template <typename T, typename Iterator, typename Store>
void fill_elements(Array& array, Iterator data, Iterator const& end, Store const& store)
{
    fill_elements_at<T>(array, std::move(data), end,
        [&store](auto const& element, Iterator const& value) { store(element, *value); });
}

} // namespace foundation::zorbaldata::json::detail
