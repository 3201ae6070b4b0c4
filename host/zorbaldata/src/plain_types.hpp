// Dispatch from an ArrayType to the C++ type of its plain elements, and their comparison.
#pragma once

#include "type_names.hpp"

#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/exceptions.hpp>

#include <cmath>
#include <complex>
#include <cstring>
#include <string>
#include <type_traits>

namespace foundation::zorbaldata::detail {

/// Calls f(std::type_identity<T>{}) with the element type T of a dense plain type.
/// @throws ETypeMismatch for any other type.
template <typename F>
decltype(auto) visitPlainType(ArrayType type, F&& f)
{
    switch (type) {
    case ArrayType::LOGICAL: return f(std::type_identity<bool>{});
    case ArrayType::CHAR: return f(std::type_identity<char16_t>{});
    case ArrayType::DOUBLE: return f(std::type_identity<double>{});
    case ArrayType::SINGLE: return f(std::type_identity<float>{});
    case ArrayType::INT8: return f(std::type_identity<signed char>{});
    case ArrayType::UINT8: return f(std::type_identity<unsigned char>{});
    case ArrayType::INT16: return f(std::type_identity<short>{});
    case ArrayType::UINT16: return f(std::type_identity<unsigned short>{});
    case ArrayType::INT32: return f(std::type_identity<int>{});
    case ArrayType::UINT32: return f(std::type_identity<unsigned int>{});
    case ArrayType::INT64: return f(std::type_identity<long long>{});
    case ArrayType::UINT64: return f(std::type_identity<unsigned long long>{});
    case ArrayType::COMPLEX_DOUBLE: return f(std::type_identity<std::complex<double>>{});
    case ArrayType::COMPLEX_SINGLE: return f(std::type_identity<std::complex<float>>{});
    case ArrayType::COMPLEX_INT8: return f(std::type_identity<std::complex<signed char>>{});
    case ArrayType::COMPLEX_UINT8: return f(std::type_identity<std::complex<unsigned char>>{});
    case ArrayType::COMPLEX_INT16: return f(std::type_identity<std::complex<short>>{});
    case ArrayType::COMPLEX_UINT16: return f(std::type_identity<std::complex<unsigned short>>{});
    case ArrayType::COMPLEX_INT32: return f(std::type_identity<std::complex<int>>{});
    case ArrayType::COMPLEX_UINT32: return f(std::type_identity<std::complex<unsigned int>>{});
    case ArrayType::COMPLEX_INT64: return f(std::type_identity<std::complex<long long>>{});
    case ArrayType::COMPLEX_UINT64: return f(std::type_identity<std::complex<unsigned long long>>{});
    default:
        throw ETypeMismatch("Elements of type " + std::string(typeName(type)) + " have no fixed size.");
    }
}

/// Whether type is a dense type whose elements are one contiguous block.
inline bool isPlainType(ArrayType type) noexcept
{
    int const value = static_cast<int>(type);
    return value >= static_cast<int>(ArrayType::LOGICAL) && value <= static_cast<int>(ArrayType::COMPLEX_UINT64)
        && type != ArrayType::STRING;
}

/// Whether two numbers are equal, taking two NaNs as equal so that an array equals its copy.
template <typename T>
bool sameNumber(T a, T b) noexcept
{
    if constexpr (std::is_floating_point_v<T>)
        return a == b || (std::isnan(a) && std::isnan(b));
    else
        return a == b;
}

/// Whether n elements at a and at b are equal, part by part for complex ones.
template <typename T>
bool sameElements(T const* a, T const* b, unsigned long n) noexcept
{
    if constexpr (isComplex<T>) {
        for (unsigned long i = 0; i < n; ++i)
            if (!sameNumber(a[i].real(), b[i].real()) || !sameNumber(a[i].imag(), b[i].imag()))
                return false;
        return true;
    } else if constexpr (std::is_floating_point_v<T>) {
        for (unsigned long i = 0; i < n; ++i)
            if (!sameNumber(a[i], b[i]))
                return false;
        return true;
    } else {
        return n == 0 || std::memcmp(a, b, n * sizeof(T)) == 0;
    }
}

} // namespace foundation::zorbaldata::detail
