// Small notation: nested JSON arrays of numbers, booleans or special-float objects as a double or
// logical array of the same shape.
#pragma once

#include <frontend/detail/json_node.hpp>
#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaljson/detail/zorbal_type.hpp>

#include <string>
#include <vector>

namespace foundation::zorbaljson::detail {

/// What the structure of the JSON says: the kind, ZorbalDouble or ZorbalLogical, and the sizes met on
/// the way down the first elements, outermost first.
struct SmallArrayShape {
    ZorbalType kind = ZorbalDouble;
    std::vector<unsigned long> sizes;
    /// The walk met an empty array: the sizes serve the shape check, but the array has no dimensions
    /// from them.
    bool ended_on_empty = false;
};

/// Follows the first element of each level down to the first leaf, recording the sizes, and decides
/// the kind from that leaf alone: a boolean is logical; a number, a valid special-float object or an
/// empty array is double.
/// @throws InvalidArrayElemType for any other first leaf (a string, null, another object, or a float or
/// integer alternative).
void first_element_walk(JsonNode array, SmallArrayShape& shape);

/// Checks that array and everything below it nests as the sizes from size to sizes_end say, element by
/// element in order, each element's subtree before the next element.
/// @throws ArrayInconsistentDepths for an array where a leaf belongs or a leaf where an array belongs.
/// @throws ArrayInconsistentSizes for an array whose length differs from the size of its level.
void check_nested_shape(JsonNode array, std::vector<unsigned long>::const_iterator size,
    std::vector<unsigned long>::const_iterator sizes_end);

/// The word that names the kind of value in the failures of small notation: "logical", "double",
/// "char", "object", "single", "int64", "uint64", or "undefined" for undefined, null and arrays.
std::string small_element_name(JsonNode value);

/// The array that array describes in small notation, made by backend. The first leaf decides the kind;
/// then the nesting is checked; then the array is made and filled in storage order, so a bad first
/// leaf is reported before bad nesting, and bad nesting before the first mixed element in storage order.
/// @throws InvalidArrayElemType, ArrayInconsistentDepths, ArrayInconsistentSizes, in this order.
/// @throws ArrayInconsistentTypes(kind, small_element_name) for the first element in storage order that
/// does not fit the kind. @throws MismatchedZQSize for nesting with an empty array below the top ([[]]).
/// @throws std::runtime_error when the nesting is deeper than max_nesting_depth.
template <typename B>
foundation::zorbaldata::Array read_small_notation(JsonNode array, B& backend);

} // namespace foundation::zorbaljson::detail
