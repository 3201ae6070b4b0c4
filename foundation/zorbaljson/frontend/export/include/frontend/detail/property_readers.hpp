// Typed reads of the notation's keys: the value must be one JSON kind, or the key is named in the failure.
#pragma once

#include <frontend/detail/parse_error.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/json/value.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// The Alternative (the JSON array, string or object) that value, found at key, holds.
/// @throws InvalidPropertyType(key, traits<Alternative>::name) when it holds another.
template <typename Alternative>
Alternative const& read_property(foundation::json::Value const& value, std::string const& key)
{
    if (value.which() != foundation::json::traits<Alternative>::which)
        throw InvalidPropertyType(key, foundation::json::traits<Alternative>::name);
    return foundation::json::json_cast<Alternative>(value);
}

/// The flag at key of object ("zqcomplex", "zqsparse"): false when the key is absent.
/// @throws InvalidPropertyType(key, "JSON boolean") when its value is no boolean, such as 1.
bool read_flag(foundation::json::Object const& object, std::string const& key);

} // namespace foundation::zorbaljson::detail
