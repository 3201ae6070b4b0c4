// Which classes of object the writers may write, and the list of classes that the host allows.
#pragma once

#include <foundation/zorbaldata/export.hpp>

#include <string>

namespace foundation::zorbaldata {

/// Which object classes pass detail::validateObjectTypeFilter.
enum class ObjectFilter : int {
    /// Every class, the empty name included.
    AllowAll = 0,
    /// The classes that the host has allowed with allowObjectClass.
    AllowListed = 1,
    /// No class.
    DenyAll = 2,
};

/// Adds className to the process-wide list of allowed classes. Safe to call from any thread.
FOUNDATION_ZORBALDATA_API void allowObjectClass(std::string const& className);
/// Removes className from the list of allowed classes.
FOUNDATION_ZORBALDATA_API void disallowObjectClass(std::string const& className);
/// Empties the list of allowed classes.
FOUNDATION_ZORBALDATA_API void clearAllowedObjectClasses();
/// Whether className is on the list of allowed classes.
FOUNDATION_ZORBALDATA_API bool isObjectClassAllowed(std::string const& className);

namespace detail {

/// Returns when filter admits className.
/// @throws ObjectNotSupportedException, holding className, when it refuses; a value that is no
/// ObjectFilter refuses every class.
FOUNDATION_ZORBALDATA_API void validateObjectTypeFilter(ObjectFilter filter, std::string const& className);

} // namespace detail
} // namespace foundation::zorbaldata
