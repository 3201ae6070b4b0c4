// The entry of the writer variants, through which every array and everything it contains is written.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/object_filter.hpp>

namespace foundation::zorbaldata::json::detail {

/// Writes array to out in the variant of the three settings; cell elements, struct fields and properties
/// re-enter the same variant. Instantiated for the twelve combinations of enumerators, with a
/// tree_output or a text_output.
/// @throws ArrayNestingTooDeep for arrays nested more than 1000 deep.
/// @throws foundation::zorbaldata::EArrayUnknownDataType for a type that is no ArrayType.
/// @throws what the writer of the array's kind throws.
template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter, typename Out>
void write_array(Array array, Out& out);

/// The JSON tree of array in the variant of the three settings.
/// @throws as write_array.
template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter>
JsonValue to_json(Array array);

} // namespace foundation::zorbaldata::json::detail
