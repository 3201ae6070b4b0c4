// How much text an array is likely to take.
#include <foundation/zorbaldata/json/detail/text_estimate.hpp>

#include <foundation/zorbaldata/array_type.hpp>

#include <algorithm>

namespace foundation::zorbaldata::json::detail {

namespace {

// The most bytes one element and its comma take, for the types whose text has a bound; 0 for the rest.
std::size_t element_bound(ArrayType type) noexcept
{
    using enum ArrayType;
    switch (type) {
    case LOGICAL: return 6;
    case DOUBLE: return 25;
    case SINGLE: return 25;
    case INT8: case UINT8: return 5;
    case INT16: case UINT16: return 7;
    case INT32: case UINT32: return 12;
    case INT64: case UINT64: return 21;
    case COMPLEX_DOUBLE: case COMPLEX_SINGLE: return 50;
    case COMPLEX_INT8: case COMPLEX_UINT8: return 10;
    case COMPLEX_INT16: case COMPLEX_UINT16: return 14;
    case COMPLEX_INT32: case COMPLEX_UINT32: return 24;
    case COMPLEX_INT64: case COMPLEX_UINT64: return 42;
    // A code unit takes one to three bytes, but mostly one.
    case CHAR: return 1;
    default: return 0;
    }
}

// What the other kinds take per element: a short string, a small form, an object of a few members.
constexpr std::size_t guess_per_element = 32;
// The frame of a large form around the elements.
constexpr std::size_t frame = 64;
constexpr std::size_t most = std::size_t{1} << 28;

} // namespace

std::size_t estimated_text_size(Array const& array) noexcept
{
    ArrayType const type = array.getType();
    using enum ArrayType;
    // A sparse array counts all its elements, of which few are stored.
    if (type == SPARSE_LOGICAL || type == SPARSE_DOUBLE || type == SPARSE_SINGLE || type == SPARSE_COMPLEX_DOUBLE
        || type == SPARSE_COMPLEX_SINGLE)
        return frame;
    std::size_t const bound = element_bound(type);
    std::size_t const per_element = bound != 0 ? bound : guess_per_element;
    std::size_t const count = array.getNumberOfElements();
    if (count > (most - frame) / per_element)
        return most;
    return frame + count * per_element;
}

} // namespace foundation::zorbaldata::json::detail
