// Which C++ type each kind of array holds, as the typed views and element ranges use it.
#pragma once

#include <foundation/zorbaldata/array_type.hpp>
#include <zorbal/data/optional.hpp>

#include <complex>
#include <string>
#include <type_traits>

namespace foundation::zorbaldata {

class Array;
class StructElement;
class ValueObject;
class HandleObjectRef;
class Enumeration;

namespace detail {

template <ArrayType Type>
using TypeTag = std::integral_constant<ArrayType, Type>;

/// The ArrayType of the dense arrays whose elements are T; undefined for a type that no array holds.
template <typename T>
struct ElementType;

template <> struct ElementType<bool> : TypeTag<ArrayType::LOGICAL> {};
template <> struct ElementType<char16_t> : TypeTag<ArrayType::CHAR> {};
template <> struct ElementType<double> : TypeTag<ArrayType::DOUBLE> {};
template <> struct ElementType<float> : TypeTag<ArrayType::SINGLE> {};
template <> struct ElementType<signed char> : TypeTag<ArrayType::INT8> {};
template <> struct ElementType<unsigned char> : TypeTag<ArrayType::UINT8> {};
template <> struct ElementType<short> : TypeTag<ArrayType::INT16> {};
template <> struct ElementType<unsigned short> : TypeTag<ArrayType::UINT16> {};
template <> struct ElementType<int> : TypeTag<ArrayType::INT32> {};
template <> struct ElementType<unsigned int> : TypeTag<ArrayType::UINT32> {};
template <> struct ElementType<long long> : TypeTag<ArrayType::INT64> {};
template <> struct ElementType<unsigned long long> : TypeTag<ArrayType::UINT64> {};
template <> struct ElementType<std::complex<double>> : TypeTag<ArrayType::COMPLEX_DOUBLE> {};
template <> struct ElementType<std::complex<float>> : TypeTag<ArrayType::COMPLEX_SINGLE> {};
template <> struct ElementType<std::complex<signed char>> : TypeTag<ArrayType::COMPLEX_INT8> {};
template <> struct ElementType<std::complex<unsigned char>> : TypeTag<ArrayType::COMPLEX_UINT8> {};
template <> struct ElementType<std::complex<short>> : TypeTag<ArrayType::COMPLEX_INT16> {};
template <> struct ElementType<std::complex<unsigned short>> : TypeTag<ArrayType::COMPLEX_UINT16> {};
template <> struct ElementType<std::complex<int>> : TypeTag<ArrayType::COMPLEX_INT32> {};
template <> struct ElementType<std::complex<unsigned int>> : TypeTag<ArrayType::COMPLEX_UINT32> {};
template <> struct ElementType<std::complex<long long>> : TypeTag<ArrayType::COMPLEX_INT64> {};
template <> struct ElementType<std::complex<unsigned long long>> : TypeTag<ArrayType::COMPLEX_UINT64> {};
template <> struct ElementType<zorbal::data::optional<std::u16string>> : TypeTag<ArrayType::STRING> {};
template <> struct ElementType<Array> : TypeTag<ArrayType::CELL> {};
template <> struct ElementType<StructElement> : TypeTag<ArrayType::STRUCT> {};
template <> struct ElementType<ValueObject> : TypeTag<ArrayType::VALUE_OBJECT> {};
template <> struct ElementType<HandleObjectRef> : TypeTag<ArrayType::HANDLE_OBJECT_REF> {};
template <> struct ElementType<Enumeration> : TypeTag<ArrayType::ENUM> {};

/// The ArrayType of the sparse arrays whose non-zero elements are T.
template <typename T>
struct SparseElementType;

template <> struct SparseElementType<bool> : TypeTag<ArrayType::SPARSE_LOGICAL> {};
template <> struct SparseElementType<double> : TypeTag<ArrayType::SPARSE_DOUBLE> {};
template <> struct SparseElementType<float> : TypeTag<ArrayType::SPARSE_SINGLE> {};
template <> struct SparseElementType<std::complex<double>> : TypeTag<ArrayType::SPARSE_COMPLEX_DOUBLE> {};
template <> struct SparseElementType<std::complex<float>> : TypeTag<ArrayType::SPARSE_COMPLEX_SINGLE> {};

/// A type that some dense array holds.
template <typename T>
concept Element = requires { ElementType<T>::value; };

template <typename T>
inline constexpr bool isComplex = false;
template <typename T>
inline constexpr bool isComplex<std::complex<T>> = true;

/// An element type whose arrays are one contiguous block: numbers, logicals, chars and complex numbers.
template <typename T>
concept Plain = Element<T> && (std::is_arithmetic_v<T> || isComplex<T>);

/// An element type whose elements are reached through references: cells, strings, structs, objects,
/// handles and enumerations.
template <typename T>
concept Referenced = Element<T> && !Plain<T>;

/// A type that some sparse array holds.
template <typename T>
concept SparseElement = requires { SparseElementType<T>::value; };

} // namespace detail
} // namespace foundation::zorbaldata
