// What the reading and writing benchmarks share: each document read once, by us and by RapidJSON.
#pragma once

#include "containers.hpp"
#include "documents.hpp"

#include <foundation/zorbaldata/array.hpp>

namespace zq::bench {

/// Our array of document id, read with string_to_zorbaldata at first use and kept for the rest of the
/// run. @throws what string_to_zorbaldata throws; a later call tries again.
foundation::zorbaldata::Array const& our_array(DocumentId id);

/// read_with_rapidjson of document id, made at first use and kept for the rest of the run.
/// @throws what read_with_rapidjson throws; a later call tries again.
Containers const& rapidjson_containers(DocumentId id);

} // namespace zq::bench
