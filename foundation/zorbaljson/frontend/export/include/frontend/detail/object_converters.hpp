// The conversions of the properties and elements of object arrays, which the backend runs as it fills.
#pragma once

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/object_elements.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// An entry of the single-object form's "zqdata" or "zqmetadata": its key, and its value converted as a
/// document of its own with backend, which must outlive the converter.
/// @throws what the nested conversion throws, unchanged.
template <typename B>
EntryConverter<PropertyEntry> property_conversion(B& backend);

/// The properties of an element of a homogeneous list of class class_name: each value converted as a
/// document of its own. A failure is logged, "Caught ParseError in JSON parser during object conversion:
/// \"<what>\" while handling property \"<name>\"" (or "Caught std::runtime_error ..." or "Caught unknown
/// error ... while handling property \"<name>\""), where the name is "(property not initialized)" while
/// no property has been reached, as for an element that is no JSON object.
/// @throws the ParseError unchanged; InvalidZQDataType(class_name, "object", "") for anything else.
template <typename B>
ElementConverter<PropertyMap> element_properties(B& backend, std::string class_name);

/// The class name, from "zqtype", and the other properties of an element of a heterogeneous list, each
/// converted as a document of its own.
/// @throws the "invalid conversion: " std::runtime_error when the element is no JSON object or its
/// "zqtype" no string; std::runtime_error "Missing zqtype property in an object array of class " when it
/// has none; what a property's conversion throws, unchanged.
template <typename B>
ElementConverter<HeterogeneousElement> heterogeneous_element(B& backend);

/// An object id of "zqobjectID", the text of a JSON string.
/// @throws the "invalid conversion: " std::runtime_error for any other value.
ElementConverter<std::string> object_id_converter();

} // namespace foundation::zorbaljson::detail
