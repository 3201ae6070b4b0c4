// A property as a member of a JSON object: its external name, and its value written by the variant.
#pragma once

#include <foundation/zorbaldata/forward_iterator.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>
#include <foundation/zorbaldata/property.hpp>

namespace foundation::zorbaldata::json::detail {

/// Sets the member of property in object; a name met twice keeps the last value.
inline void set_property(JsonObject& object, Property const& property, element_writer write)
{
    object[property.getIdentifier().getExternalPropertyName()] = write(property.castToArray());
}

/// The object of all properties from begin to end. @throws what writing a property throws.
inline JsonObject properties_object(
    ForwardIterator<Property const> begin, ForwardIterator<Property const> const& end, element_writer write)
{
    JsonObject object;
    for (; begin != end; ++begin)
        set_property(object, *begin, write);
    return object;
}

} // namespace foundation::zorbaldata::json::detail
