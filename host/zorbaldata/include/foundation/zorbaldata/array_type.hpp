// The kinds of array, with the numeric values that hosts exchange and store.
#pragma once

#include <foundation/zorbaldata/export.hpp>

#include <string_view>

namespace foundation::zorbaldata {

/// The type of an array. The values are fixed and never change; 26 and 33 to 35 are no type.
enum class ArrayType : int {
    LOGICAL = 1,
    CHAR = 2,
    STRING = 3,
    DOUBLE = 4,
    SINGLE = 5,
    INT8 = 6,
    UINT8 = 7,
    INT16 = 8,
    UINT16 = 9,
    INT32 = 10,
    UINT32 = 11,
    INT64 = 12,
    UINT64 = 13,
    COMPLEX_DOUBLE = 14,
    COMPLEX_SINGLE = 15,
    COMPLEX_INT8 = 16,
    COMPLEX_UINT8 = 17,
    COMPLEX_INT16 = 18,
    COMPLEX_UINT16 = 19,
    COMPLEX_INT32 = 20,
    COMPLEX_UINT32 = 21,
    COMPLEX_INT64 = 22,
    COMPLEX_UINT64 = 23,
    CELL = 24,
    STRUCT = 25,
    VALUE_OBJECT = 27,
    HANDLE_OBJECT_REF = 28,
    ENUM = 29,
    SPARSE_LOGICAL = 30,
    SPARSE_DOUBLE = 31,
    SPARSE_COMPLEX_DOUBLE = 32,
    SPARSE_SINGLE = 36,
    SPARSE_COMPLEX_SINGLE = 37,
};

/// How messages and tools name a type: "double", "complex int8", "sparse logical", "cell", "value
/// object", "handle object", "enumeration"...; "unknown" for a value that is no ArrayType.
FOUNDATION_ZORBALDATA_API std::string_view getTypeName(ArrayType type) noexcept;

} // namespace foundation::zorbaldata
