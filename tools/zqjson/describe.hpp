// How zqjson shows an array: its size and its class.
#pragma once

#include <foundation/zorbaldata/array.hpp>

#include <string>

namespace zqjson {

/// "1x2 int32", "0x0 double", "1x3 enumeration Color", "1x2 value object pkg.Cls": the dimensions, the
/// type, and the class name of the kinds that have one for the whole array.
std::string describe(foundation::zorbaldata::Array const& array);

} // namespace zqjson
