// What the readers of objects hand the backend for each property and element, already converted.
#pragma once

#include <foundation/zorbaldata/array.hpp>

#include <map>
#include <string>
#include <utility>

namespace foundation::zorbaljson::detail {

/// One property of a single object: its name and its value.
using PropertyEntry = std::pair<std::string, foundation::zorbaldata::Array>;

/// The properties of one element of an object list, by name, in the order of the names.
using PropertyMap = std::map<std::string, foundation::zorbaldata::Array>;

/// One element of a heterogeneous list: its class name and its properties.
using HeterogeneousElement = std::pair<std::string, PropertyMap>;

} // namespace foundation::zorbaljson::detail
