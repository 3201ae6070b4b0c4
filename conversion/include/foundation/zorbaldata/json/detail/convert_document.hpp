// The conversion of a whole document, whichever form holds it: a caller's tree or the text reader's tape.
#pragma once

#include <frontend/detail/json_node.hpp>

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>

namespace foundation::zorbaldata::json::detail {

/// The array of the document whose root is root, made through factory.
/// @throws InvalidInputJSONValue for a root that is Undefined or null, before the factory is touched;
/// then what the notation's readers throw.
Array convert_document(foundation::zorbaljson::detail::JsonNode root, ArrayFactory& factory);

} // namespace foundation::zorbaldata::json::detail
