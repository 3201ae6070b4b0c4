// The optional value that string elements use to tell a missing string from an empty one.
#pragma once

#include <boost/optional.hpp>

namespace zorbal::data {

/// A value that may be missing; an empty optional is a missing element, not an empty one.
template <typename T>
using optional = boost::optional<T>;

} // namespace zorbal::data
