// The names of array types in the library's messages.
#pragma once

#include <foundation/zorbaldata/array_type.hpp>

#include <span>
#include <string>
#include <string_view>

namespace foundation::zorbaldata::detail {

/// Whether type is one of the values of ArrayType.
bool isKnownType(ArrayType type) noexcept;
/// Whether type is one of the sparse types.
bool isSparseType(ArrayType type) noexcept;
/// @throws EArrayUnknownDataType when type is no ArrayType.
void requireKnownType(ArrayType type);
/// "double", "complex int8", "cell", "sparse logical"...
std::string_view typeName(ArrayType type) noexcept;
/// "2x3", or "0-dimensional" for no dimensions.
std::string dimensionsText(std::span<unsigned long const> dimensions);
/// "an array of 2x3 double elements".
std::string arrayText(ArrayType type, std::span<unsigned long const> dimensions);

} // namespace foundation::zorbaldata::detail
