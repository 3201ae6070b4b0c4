// The writer of enumeration arrays: the member names under the class name, under both values of ToJsonMode.
#pragma once

#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <string>

namespace foundation::zorbaldata::json::detail {

/// The large form of an enumeration array of the dimensions and the class, whose elements are the range:
/// zqtype is the class name, and zqdata holds one member name for each element.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give.
JsonValue write_enum(Dimensions const& dimensions, std::string class_name,
    Range<TypedIterator, Enumeration const> const& elements);

} // namespace foundation::zorbaldata::json::detail
