// The entry of the large notation: what a JSON object stands for, and the dispatch to its reader.
#pragma once

#include <frontend/detail/json_node.hpp>
#include <foundation/zorbaldata/array.hpp>

namespace foundation::zorbaljson::detail {

/// The array that object stands for, made by backend. An object with "zqdata", "zqsize" and "zqtype"
/// is a large form: "zqtype" names the kind, or else is a class name, whose kind (value object, handle
/// object or enumeration) is told from "zqhandle" and "zqdata". An object whose only header key is
/// "zqdata", holding "NaN", "Inf" or "-Inf", is a 1-by-1 double. Any other object is a 1-by-1 struct
/// of its keys.
/// @throws InvalidPropertyType when "zqsize" is no array, then when "zqtype" is no string, then (for a
/// class name) when "zqdata" is neither array nor object; InvalidZQSize for bad dimensions; then the
/// failures of the kind's reader. For a plain object, InvalidFieldName for a key that is no legal field
/// name, and what converting a value throws, unchanged.
template <typename B>
foundation::zorbaldata::Array read_large_notation(JsonNode object, B& backend);

} // namespace foundation::zorbaljson::detail
