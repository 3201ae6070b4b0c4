// The tag and the reader-facing name of each of the ten alternatives a Value can hold.
#pragma once

#include <foundation/json/value.hpp>

#include <map>
#include <string>
#include <vector>

namespace foundation::json {

/// Facts about one alternative of Value: `which`, its tag, and `name`, how messages call it.
/// Only the ten alternatives have them.
template <typename T>
struct traits;

template <>
struct traits<Undefined> {
    static constexpr int which = 0;
    static constexpr char const* name = "undefined value";
};

template <>
struct traits<Null> {
    static constexpr int which = 1;
    static constexpr char const* name = "JSON null";
};

template <>
struct traits<bool> {
    static constexpr int which = 2;
    static constexpr char const* name = "JSON boolean";
};

template <>
struct traits<double> {
    static constexpr int which = 3;
    static constexpr char const* name = "JSON number";
};

template <>
struct traits<std::string> {
    static constexpr int which = 4;
    static constexpr char const* name = "JSON string";
};

template <>
struct traits<std::vector<Value>> {
    static constexpr int which = 5;
    static constexpr char const* name = "JSON array";
};

template <>
struct traits<std::map<std::string, Value>> {
    static constexpr int which = 6;
    static constexpr char const* name = "JSON object";
};

template <>
struct traits<float> {
    static constexpr int which = 7;
    static constexpr char const* name = "JSON number (single)";
};

template <>
struct traits<long long> {
    static constexpr int which = 8;
    static constexpr char const* name = "JSON number (int64)";
};

template <>
struct traits<unsigned long long> {
    static constexpr int which = 9;
    static constexpr char const* name = "JSON number (uint64)";
};

} // namespace foundation::json
