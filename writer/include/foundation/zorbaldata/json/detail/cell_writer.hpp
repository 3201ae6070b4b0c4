// The writer of cell arrays: each element written by the variant, in the large form.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>


namespace foundation::zorbaldata::json::detail {

/// The large form of a cell array of the dimensions whose elements are the range, under both values of
/// ToJsonMode; write gives the JSON of each element.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give. @throws what write throws, unchanged.
JsonValue write_cell(Dimensions const& dimensions, Range<TypedIterator, Array const> const& elements,
    element_writer write);

} // namespace foundation::zorbaldata::json::detail
