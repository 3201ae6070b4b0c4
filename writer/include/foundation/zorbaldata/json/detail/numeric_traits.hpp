// What the notation says of each numeric and logical element type: its zqtype and the type of its parts.
#pragma once

#include <complex>

namespace foundation::zorbaldata::json::detail {

/// The zqtype of arrays whose elements are T, dense or sparse; complex arrays carry the name of their
/// parts.
template <typename T>
struct zqtype_of;

template <> struct zqtype_of<bool> { static constexpr char const* name = "logical"; };
template <> struct zqtype_of<double> { static constexpr char const* name = "double"; };
template <> struct zqtype_of<float> { static constexpr char const* name = "single"; };
template <> struct zqtype_of<signed char> { static constexpr char const* name = "int8"; };
template <> struct zqtype_of<unsigned char> { static constexpr char const* name = "uint8"; };
template <> struct zqtype_of<short> { static constexpr char const* name = "int16"; };
template <> struct zqtype_of<unsigned short> { static constexpr char const* name = "uint16"; };
template <> struct zqtype_of<int> { static constexpr char const* name = "int32"; };
template <> struct zqtype_of<unsigned int> { static constexpr char const* name = "uint32"; };
template <> struct zqtype_of<long long> { static constexpr char const* name = "int64"; };
template <> struct zqtype_of<unsigned long long> { static constexpr char const* name = "uint64"; };
template <typename T> struct zqtype_of<std::complex<T>> : zqtype_of<T> {};

/// The type of the parts of T that become JSON values: T itself, or the part type of a complex T.
template <typename T>
struct element_part {
    using type = T;
};
template <typename T>
struct element_part<std::complex<T>> {
    using type = T;
};
template <typename T>
using element_part_t = typename element_part<T>::type;

} // namespace foundation::zorbaldata::json::detail
