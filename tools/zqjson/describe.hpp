// How zqjson shows an array: its size and its class, and one level of what it holds.
#pragma once

#include <foundation/zorbaldata/array.hpp>

#include <string>

namespace zqjson {

/// The entries of a cell that describe lists before it says how many more there are.
inline constexpr unsigned long described_cell_entries = 5;

/// "1x2 int32", "0x0 double", "1x3 enumeration Color", "1x2 value object pkg.Cls": the dimensions, the
/// type, and the class name of the kinds that have one for the whole array.
std::string summary(foundation::zorbaldata::Array const& array);

/// The summary, then one line for each thing inside, indented by two spaces and without a line end
/// after the last: "name: 1x3 char" for each field of a 1-by-1 struct and each property of a 1-by-1
/// value object, "1: 1x1 double" (counted from 1) for each of the first described_cell_entries
/// entries of a cell, and "... N more" for the entries past those.
std::string describe(foundation::zorbaldata::Array const& array);

} // namespace zqjson
