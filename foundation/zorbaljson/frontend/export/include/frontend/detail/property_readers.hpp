// Typed reads of the notation's keys: the value must be one JSON kind, or the key is named in the failure.
#pragma once

#include <frontend/detail/json_node.hpp>
#include <frontend/detail/parse_error.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// value, found at key, once it is known to hold the alternative kind (a JSON array, string or object).
/// @throws InvalidPropertyType(key, json_kind_name(kind)) when it holds another.
inline JsonNode read_property(JsonNode value, int kind, std::string const& key)
{
    if (!value.is(kind))
        throw InvalidPropertyType(key, json_kind_name(kind));
    return value;
}

/// The flag at key of object ("zqcomplex", "zqsparse"): false when the key is absent.
/// @throws InvalidPropertyType(key, "JSON boolean") when its value is no boolean, such as 1.
bool read_flag(JsonNode object, std::string const& key);

} // namespace foundation::zorbaljson::detail
