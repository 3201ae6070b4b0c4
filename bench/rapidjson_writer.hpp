// The hand-written writer that the suite sets beside ours: the containers written with RapidJSON's
// Writer into the JSON that our writer makes of the same arrays.
#pragma once

#include "containers.hpp"

#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

namespace zq::bench {

using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

/// Writes data as our writer writes its array under ToJsonMode::Large: every array, at every depth, in
/// the large form, so struct fields and cells hold 1-by-1 arrays and char rows.
void write_large(JsonWriter& writer, Containers const& data);

/// Writes matrix as nested arrays, one inner array per row: our writer's ToJsonMode::Small form of a
/// matrix of at least two rows and two columns.
void write_rows(JsonWriter& writer, Matrix<double> const& matrix);

} // namespace zq::bench
