// What the object writers read from value object and handle arrays.
#pragma once

#include <foundation/zorbaldata/forward_iterator.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/property.hpp>
#include <foundation/zorbaldata/reference.hpp>
#include <foundation/zorbaldata/value_object.hpp>

#include <string>

namespace foundation::zorbaldata::json::detail {

/// The fully qualified name of the class of the record.
std::string class_name_of(zorbal::data::detail::RefCounted* class_record);

/// The first and the end of the properties of the element of a value object array.
ForwardIterator<Property const> properties_begin(Reference<ValueObject const> const& element);
ForwardIterator<Property const> properties_end(Reference<ValueObject const> const& element);

/// A shared copy of the handle of the element of a handle array.
HandleObjectRef handle_at(Reference<HandleObjectRef const> const& element);

/// Element 0 of the handle's value, whose properties stand for the handle.
/// @throws what reading the value throws.
ValueObject handle_value(HandleObjectRef const& handle);

} // namespace foundation::zorbaldata::json::detail
