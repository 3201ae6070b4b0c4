// The small forms of double and logical arrays: the bare element, and the nested JSON arrays.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <cstddef>

namespace foundation::zorbaldata::json::detail {

/// The nesting of the small form of an array of the dimensions: the dimensions themselves, except that
/// N-by-1 nests as [N].
/// @throws boost::numeric::positive_overflow for a dimension that reaches 2^64 as a double.
Dimensions nesting_shape(Dimensions const& dimensions);

/// Writes the level of the nesting shape at depth, whose first element lies at offset in storage order;
/// stride is the storage distance between neighbours at this depth. Storage order runs fastest over the
/// first entry of the shape, so each JSON array walks its elements at the stride of its depth.
template <typename Out, typename Element, typename MakeValue>
void write_nested_level(Out& out, Dimensions const& shape, std::size_t depth, unsigned long offset,
    unsigned long stride, Element const& first, MakeValue const& make)
{
    out.begin_array();
    unsigned long const length = shape[depth];
    if (depth + 1 == shape.size())
        for (unsigned long i = 0; i < length; ++i)
            make(out, first[offset + i * stride]);
    else
        for (unsigned long i = 0; i < length; ++i)
            write_nested_level(out, shape, depth + 1, offset + i * stride, stride * length, first, make);
    out.end_array();
}

/// Writes the nested small form of a non-empty array: the outermost JSON array runs over the first entry
/// of the nesting shape, and the element at indices i1, i2, ... stands at [i1][i2]... Each element goes
/// through make.
/// @throws std::runtime_error "Number of elements did not match specified dimensions" when the elements
/// are not as many as the dimensions give. @throws as nesting_shape.
template <typename Out, typename T, typename MakeValue>
void nested_form(Out& out, Dimensions const& dimensions, Range<TypedIterator, T const> const& elements,
    MakeValue make)
{
    Dimensions const shape = nesting_shape(dimensions);
    auto const first = elements.begin();
    // The elements are read by index, so a range that disagrees with the dimensions must stop here.
    if (static_cast<unsigned long>(elements.end() - first) != element_count(shape))
        throw_count_mismatch();
    write_nested_level(out, shape, 0, 0, 1, first, make);
}

/// Writes the small form of a 1-by-1 array: its element alone, through make.
/// @throws std::runtime_error "Number of elements did not match specified dimensions" unless there is
/// exactly one element.
template <typename Out, typename T, typename MakeValue>
void scalar_form(Out& out, Range<TypedIterator, T const> const& elements, MakeValue make)
{
    auto const first = elements.begin();
    if (elements.end() - first != 1)
        throw_count_mismatch();
    make(out, *first);
}

} // namespace foundation::zorbaldata::json::detail
