// Reading and writing one element through the reference that an iterator's getRef() gives.
#pragma once

#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/reference.hpp>

#include <string>
#include <utility>

namespace foundation::zorbaldata::detail {

/// The element that ref names, as a T: an Array for cells, fields and properties, a StructElement for
/// the elements of a struct array.
template <typename T, typename Ref>
T getValue(Ref const& ref)
{
    return ref.value();
}

/// Stores value into the element that ref names: an Array into a cell, field or property, a member
/// name (std::string) into an enumeration element, an optional UTF-16 string into a string element.
template <typename T, typename Ref>
void setElement(Ref const& ref, T value)
{
    ref.set(std::move(value));
}

/// The member name of the enumeration element that ref names.
inline std::string castToString(Reference<Enumeration const> const& ref)
{
    return std::string(ref.name());
}

} // namespace foundation::zorbaldata::detail
