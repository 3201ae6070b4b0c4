// The choice of writer: a typed view of the array for each ArrayType.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/char_array.hpp>
#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/sparse_array.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>
#include <zorbal/data/optional.hpp>

#include <complex>
#include <string>

namespace foundation::zorbaldata::json::detail {

/// Calls visitor with the view of array that type, the array's type, calls for, and returns what it
/// returns: TypedArray<T> for numeric and logical arrays, real and complex, and for strings, cells and
/// handle objects; CharArray, StructArray, ValueObjectArray and EnumArray; SparseArray<T> for the
/// sparse kinds.
/// @throws foundation::zorbaldata::EArrayUnknownDataType for a type that is no ArrayType (0, 26, 33 to 35,
/// above 37). @throws what the visitor throws.
template <typename Visitor>
decltype(auto) dispatch_on_array_type(ArrayType type, Array const& array, Visitor const& visitor)
{
    using enum ArrayType;
    switch (type) {
    case LOGICAL: return visitor(TypedArray<bool>(array));
    case CHAR: return visitor(CharArray(array));
    case STRING: return visitor(TypedArray<zorbal::data::optional<std::u16string>>(array));
    case DOUBLE: return visitor(TypedArray<double>(array));
    case SINGLE: return visitor(TypedArray<float>(array));
    case INT8: return visitor(TypedArray<signed char>(array));
    case UINT8: return visitor(TypedArray<unsigned char>(array));
    case INT16: return visitor(TypedArray<short>(array));
    case UINT16: return visitor(TypedArray<unsigned short>(array));
    case INT32: return visitor(TypedArray<int>(array));
    case UINT32: return visitor(TypedArray<unsigned int>(array));
    case INT64: return visitor(TypedArray<long long>(array));
    case UINT64: return visitor(TypedArray<unsigned long long>(array));
    case COMPLEX_DOUBLE: return visitor(TypedArray<std::complex<double>>(array));
    case COMPLEX_SINGLE: return visitor(TypedArray<std::complex<float>>(array));
    case COMPLEX_INT8: return visitor(TypedArray<std::complex<signed char>>(array));
    case COMPLEX_UINT8: return visitor(TypedArray<std::complex<unsigned char>>(array));
    case COMPLEX_INT16: return visitor(TypedArray<std::complex<short>>(array));
    case COMPLEX_UINT16: return visitor(TypedArray<std::complex<unsigned short>>(array));
    case COMPLEX_INT32: return visitor(TypedArray<std::complex<int>>(array));
    case COMPLEX_UINT32: return visitor(TypedArray<std::complex<unsigned int>>(array));
    case COMPLEX_INT64: return visitor(TypedArray<std::complex<long long>>(array));
    case COMPLEX_UINT64: return visitor(TypedArray<std::complex<unsigned long long>>(array));
    case CELL: return visitor(TypedArray<Array>(array));
    case STRUCT: return visitor(StructArray(array));
    case VALUE_OBJECT: return visitor(ValueObjectArray(array));
    case HANDLE_OBJECT_REF: return visitor(TypedArray<HandleObjectRef>(array));
    case ENUM: return visitor(EnumArray(array));
    case SPARSE_LOGICAL: return visitor(SparseArray<bool>(array));
    case SPARSE_DOUBLE: return visitor(SparseArray<double>(array));
    case SPARSE_COMPLEX_DOUBLE: return visitor(SparseArray<std::complex<double>>(array));
    case SPARSE_SINGLE: return visitor(SparseArray<float>(array));
    case SPARSE_COMPLEX_SINGLE: return visitor(SparseArray<std::complex<float>>(array));
    }
    throw EArrayUnknownDataType();
}

} // namespace foundation::zorbaldata::json::detail
