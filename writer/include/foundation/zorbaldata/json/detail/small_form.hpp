// The small forms of double and logical arrays: the bare element, and the nested JSON arrays.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <utility>
#include <vector>

namespace foundation::zorbaldata::json::detail {

/// The nesting of the small form of an array of the dimensions: the dimensions themselves, except that
/// N-by-1 nests as [N].
/// @throws boost::numeric::positive_overflow for a dimension that reaches 2^64 as a double.
Dimensions nesting_shape(Dimensions const& dimensions);

/// Gathers count values, which lie in storage order over some shape whose last entry is line_length,
/// into one JSON array per line along that last entry; the lines come in storage order over the other
/// entries. value_at(k) gives the k-th value in storage order.
template <typename ValueAt>
JsonArray gather_lines(unsigned long count, unsigned long line_length, ValueAt value_at)
{
    std::vector<JsonArray> lines(count / line_length);
    for (JsonArray& line : lines)
        line.reserve(line_length);
    // Storage order runs over all lines before it moves along them, so every pass adds one value to
    // each line: the values are read in order, and each line is written in order.
    unsigned long k = 0;
    for (unsigned long position = 0; position < line_length; ++position)
        for (JsonArray& line : lines)
            line.push_back(value_at(k++));
    JsonArray level;
    level.reserve(lines.size());
    for (JsonArray& line : lines)
        level.emplace_back(std::move(line));
    return level;
}

/// The nested small form of a non-empty array: the outermost JSON array runs over the first entry of the
/// nesting shape, and the element at indices i1, i2, ... stands at [i1][i2]... Each element goes through
/// make.
/// @throws std::runtime_error "Number of elements did not match specified dimensions" when the elements
/// are not as many as the dimensions give. @throws as nesting_shape.
template <typename T, typename MakeValue>
JsonValue nested_form(Dimensions const& dimensions, Range<TypedIterator, T const> const& elements,
    MakeValue make)
{
    Dimensions shape = nesting_shape(dimensions);
    unsigned long const count = element_count(shape);
    auto const first = elements.begin();
    // The elements are read by index, so a range that disagrees with the dimensions must stop here.
    if (static_cast<unsigned long>(elements.end() - first) != count)
        throw_count_mismatch();
    // The innermost level is built from the elements; each level above it gathers the lines of the
    // level below along one entry less of the shape, until one line holds the outermost level.
    JsonArray level = gather_lines(count, shape.back(), [&](unsigned long k) { return make(first[k]); });
    for (shape.pop_back(); !shape.empty(); shape.pop_back()) {
        JsonArray above
            = gather_lines(level.size(), shape.back(), [&](unsigned long k) { return std::move(level[k]); });
        level = std::move(above);
    }
    return std::move(level.front());
}

/// The small form of a 1-by-1 array: its element alone, through make.
/// @throws std::runtime_error "Number of elements did not match specified dimensions" unless there is
/// exactly one element.
template <typename T, typename MakeValue>
JsonValue scalar_form(Range<TypedIterator, T const> const& elements, MakeValue make)
{
    auto const first = elements.begin();
    if (elements.end() - first != 1)
        throw_count_mismatch();
    return make(*first);
}

} // namespace foundation::zorbaldata::json::detail
