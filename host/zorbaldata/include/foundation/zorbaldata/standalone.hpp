// The operations that build objects and object arrays piece by piece, as readers do.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/identifiers.hpp>
#include <foundation/zorbaldata/reference.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>

#include <vector>

namespace foundation::zorbaldata::standalone::detail {

/// Adds a property to the object at element. @throws PropertyExistsException when it has one of that name.
FOUNDATION_ZORBALDATA_API void addProperty(Reference<ValueObject> element, ZorbalPropertyIdentifier const& property,
                                           Array const& value);

/// Adds an array property, as ValueObjectArray::addArrayProperty does with rejectDuplicate.
/// @throws PropertyExistsException for a name that is taken.
FOUNDATION_ZORBALDATA_API void addArrayProperty(ValueObjectArray& array, ZorbalPropertyIdentifier const& property,
                                                Array const& value, bool rejectDuplicate);

/// With set, gives array the external dimensions, whatever they are; without, removes them.
FOUNDATION_ZORBALDATA_API void setExternalDimensions(ValueObjectArray& array, std::vector<unsigned long> dimensions,
                                                     bool set);

} // namespace foundation::zorbaldata::standalone::detail
