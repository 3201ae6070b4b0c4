// The writer of string arrays: one JSON string, or a missing-string object, for each element.
#pragma once

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>
#include <zorbal/data/optional.hpp>

#include <string>

namespace foundation::zorbaldata::json::detail {

/// The large form of a string array of the dimensions whose elements are the range, under both values
/// of ToJsonMode: each element as UTF-8, a missing one as {"zqdata":"missing"}.
/// @throws std::runtime_error "Must have at least two dimensions" for fewer than two dimensions;
/// "Number of elements did not match specified dimensions" when the elements are not as many as the
/// dimensions give. @throws as utf16_to_utf8.
JsonValue write_string(Dimensions const& dimensions,
    Range<TypedIterator, zorbal::data::optional<std::u16string> const> const& elements);

} // namespace foundation::zorbaldata::json::detail
