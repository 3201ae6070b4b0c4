// What the writers read from the dimensions of an array.
#pragma once

#include <foundation/zorbaldata/json/detail/writer_errors.hpp>

#include <functional>
#include <numeric>
#include <vector>

namespace foundation::zorbaldata::json::detail {

/// The dimensions of an array, as the array library gives them.
using Dimensions = std::vector<unsigned long>;

/// The product of the dimensions, 1 for none. Unchecked: the array library refuses to make an array
/// whose count overflows.
inline unsigned long element_count(Dimensions const& dimensions) noexcept
{
    return std::accumulate(dimensions.begin(), dimensions.end(), 1UL, std::multiplies<>());
}

/// Whether the dimensions are exactly two, rows by cols.
inline bool is_matrix_of(Dimensions const& dimensions, unsigned long rows, unsigned long cols) noexcept
{
    return dimensions.size() == 2 && dimensions[0] == rows && dimensions[1] == cols;
}

/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two.
inline void require_two_dimensions(Dimensions const& dimensions)
{
    if (dimensions.size() < 2)
        throw_too_few_dimensions();
}

} // namespace foundation::zorbaldata::json::detail
