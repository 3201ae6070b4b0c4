// The fill loop of the arrays whose elements are reached through references: cells, strings, enumerations.
#pragma once

#include <frontend/detail/parse_error.hpp>

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

namespace foundation::zorbaldata::json::detail {

/// Stores the values from data to end into the elements of array, whose elements are T, in storage
/// order: store(reference, value) for each pair. A value is read only when an element awaits it, so the
/// first bad value in storage order fails before the count is judged, and surplus values are never read.
/// @throws foundation::zorbaljson::MismatchedZQSize, once the loop has ended, when the values and the
/// elements did not end together. @throws what reading a value or store throws, unchanged.
template <typename T, typename Iterator, typename Store>
void fill_elements(Array& array, Iterator data, Iterator const& end, Store const& store)
{
    auto const elements = getWritableElements<T>(array);
    auto element = elements.begin();
    for (; !element.isEqual(elements.end()) && data != end; element.increment(), ++data)
        store(element.getRef(), *data);
    if (!element.isEqual(elements.end()) || data != end)
        throw foundation::zorbaljson::MismatchedZQSize();
}

} // namespace foundation::zorbaldata::json::detail
