// The JSON types under the names that the writers use, which keep them apart from the array model's Array.
#pragma once

#include <foundation/json/value.hpp>

namespace foundation::zorbaldata::json::detail {

using JsonValue = foundation::json::Value;
using JsonArray = foundation::json::Array;
using JsonObject = foundation::json::Object;

} // namespace foundation::zorbaldata::json::detail
