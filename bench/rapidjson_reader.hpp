// The hand-written reader that the suite sets beside ours: RapidJSON's DOM, then a conversion of it
// into plain containers that checks every type as our reader does.
#pragma once

#include "containers.hpp"
#include "documents.hpp"

#include <string>

namespace zq::bench {

/// The containers of document id, whose text is text: RapidJSON parses it with full precision into a
/// fresh DOM, and each value is checked and copied into the container of its kind.
/// @throws std::runtime_error when RapidJSON rejects the text, when the text is not what document id
/// holds (a wrong type name, a size that disagrees with the data, an element of an unexpected JSON
/// type), or for a document that has no containers (strings, records).
Containers read_with_rapidjson(DocumentId id, std::string const& text);

} // namespace zq::bench
