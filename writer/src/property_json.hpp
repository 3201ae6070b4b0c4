// A property as a member of a JSON object: its external name, and its value written by the variant.
#pragma once

#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>
#include <foundation/zorbaldata/property.hpp>

namespace foundation::zorbaldata::json::detail {

/// Sets the member of property in object; a name met twice keeps the last value.
inline void set_property(JsonObject& object, Property const& property, element_writer write)
{
    object[property.getIdentifier().getExternalPropertyName()] = write(property.castToArray());
}

/// Sets the members of all properties from begin to end in object. @throws what writing a property throws.
template <typename Iterator>
void add_properties(JsonObject& object, Iterator begin, Iterator const& end, element_writer write)
{
    for (; begin != end; ++begin)
        set_property(object, *begin, write);
}

} // namespace foundation::zorbaldata::json::detail
