// The objects that carry one word under zqdata: special floats and missing strings.
#pragma once

#include <foundation/zorbaldata/json/detail/json_types.hpp>

namespace foundation::zorbaldata::json::detail {

/// The JSON object {"zqdata": word}: "NaN", "Inf" or "-Inf" for a special float, "missing" for a
/// missing string.
JsonValue word_object(char const* word);

} // namespace foundation::zorbaldata::json::detail
