// How much text an array is likely to take.
#include <foundation/zorbaldata/json/detail/text_estimate.hpp>

#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/json/detail/field_walk.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <zorbal/data/optional.hpp>

#include <algorithm>
#include <string>

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

// What the kinds without a walk take per element: a small form, an object of a few members.
constexpr std::size_t guess_per_element = 32;
// The frame of a large form around the elements.
constexpr std::size_t frame = 64;
constexpr std::size_t most = std::size_t{1} << 28;
// Below this depth arrays are guessed rather than walked, so that the estimate stays cheap and flat.
constexpr int walked_depth = 8;

std::size_t add(std::size_t a, std::size_t b) noexcept
{
    return std::min(a + b, most);
}

std::size_t estimate(Array const& array, int depth) noexcept;

// Strings, cells and structs are walked: their text is mostly what they hold.
std::size_t walked(Array const& array, int depth)
{
    using enum ArrayType;
    std::size_t total = frame;
    switch (array.getType()) {
    case STRING:
        for (auto const text : getReadOnlyElements<zorbal::data::optional<std::u16string>>(
                 TypedArray<zorbal::data::optional<std::u16string>>(array)))
            total = add(total, text.has_value() ? text.view().size() + 3 : 20);
        return total;
    case CELL:
        for (Array const element : getReadOnlyElements<Array>(TypedArray<Array>(array)))
            total = add(total, estimate(element, depth + 1) + 1);
        return total;
    default:
        // The walk stands at an element only when there is one.
        if (array.getNumberOfElements() == 0)
            return add(total, 16 * StructArray(array).getNumberOfFields());
        for (field_walk walk{StructArray(array)}; !walk.at_end() && total < most; walk.advance())
            total = add(total, estimate(walk.value(), depth + 1) + 1);
        return add(total, 16 * StructArray(array).getNumberOfFields());
    }
}

std::size_t estimate(Array const& array, int depth) noexcept
{
    ArrayType const type = array.getType();
    using enum ArrayType;
    // A sparse array counts all its elements, of which few are stored.
    if (type == SPARSE_LOGICAL || type == SPARSE_DOUBLE || type == SPARSE_SINGLE
        || type == SPARSE_COMPLEX_DOUBLE || type == SPARSE_COMPLEX_SINGLE)
        return frame;
    if ((type == STRING || type == CELL || type == STRUCT) && depth < walked_depth) {
        try {
            // Escapes and characters beyond ASCII take more than a byte; an eighth more covers the usual
            // share of them, so the text seldom has to move.
            std::size_t const held = walked(array, depth);
            return add(held, held / 8);
        } catch (...) {
            // An array that cannot be walked fails when it is written; the estimate just stops here.
            return frame;
        }
    }
    std::size_t const bound = element_bound(type);
    std::size_t const per_element = bound != 0 ? bound : guess_per_element;
    std::size_t const count = array.getNumberOfElements();
    if (count > (most - frame) / per_element)
        return most;
    return frame + count * per_element;
}

} // namespace

std::size_t estimated_text_size(Array const& array) noexcept
{
    return estimate(array, 0);
}

} // namespace foundation::zorbaldata::json::detail
