// What the writer tests share: arrays built in one line, the text of a tree with its number tags, and the
// demand that both roads from an array to text agree.
#pragma once

#include <foundation/json/json_cast.hpp>
#include <foundation/json/serialize.hpp>
#include <foundation/json/value.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>
#include <gtest/gtest.h>
#include <writing_difference.hpp>

#include <algorithm>
#include <complex>
#include <cstdlib>
#include <initializer_list>
#include <memory>
#include <new>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace zq::test {

// Success when both roads give the same bytes, or throw the same class with the same text.
inline ::testing::AssertionResult same_on_both_roads(foundation::zorbaldata::Array const& array,
    foundation::zorbaljson::ToJsonMode mode, foundation::zorbaljson::NanType nan,
    foundation::zorbaldata::ObjectFilter filter, unsigned indent = 0)
{
    std::string const difference = writing_difference(array, mode, nan, filter, indent);
    return difference.empty() ? ::testing::AssertionSuccess() : ::testing::AssertionFailure() << difference;
}

} // namespace zq::test

namespace zq::test::writer {

namespace zd = foundation::zorbaldata;
namespace fj = foundation::json;
using foundation::zorbaljson::NanType;
using foundation::zorbaljson::ToJsonMode;
using Dims = std::vector<unsigned long>;
using Text = zorbal::data::optional<std::u16string>;

inline zd::ArrayFactory const factory;

// The compact JSON text of value, with every number that is not a double marked by its tag: 5f for a
// float, 5i for a long long, 5u for an unsigned long long; Undefined reads "undefined". So one
// expected text pins the shape, the key order and the alternative of every number.
inline std::string tagged(fj::Value const& value)
{
    std::string text;
    switch (value.which()) {
    case 0: return "undefined";
    case 5:
        for (fj::Value const& element : fj::json_cast<fj::Array>(value))
            text += (text.empty() ? "" : ",") + tagged(element);
        return "[" + text + "]";
    case 6:
        for (auto const& [key, member] : fj::json_cast<fj::Object>(value))
            text += (text.empty() ? "" : ",") + fj::serialize(fj::Value(key)) + ":" + tagged(member);
        return "{" + text + "}";
    case 7: return fj::serialize(value) + "f";
    case 8: return fj::serialize(value) + "i";
    case 9: return fj::serialize(value) + "u";
    default: return fj::serialize(value);
    }
}

// The tagged text of array written with the mode, the NanType and the filter; the text written without a
// tree must be the serialised tree, byte for byte, compact and indented.
inline std::string write(zd::Array array, ToJsonMode mode, NanType nan = NanType::String,
    zd::ObjectFilter filter = zd::ObjectFilter::AllowAll)
{
    EXPECT_TRUE(same_on_both_roads(array, mode, nan, filter));
    EXPECT_TRUE(same_on_both_roads(array, mode, nan, filter, 2));
    return tagged(foundation::zorbaldata::json::zorbaldata_to_json(std::move(array), mode, nan, filter));
}

// The large form of an array of the type and dimensions holding the data, "zqdata" first as the keys
// are in byte order.
inline std::string large(std::string const& type, std::string const& size, std::string const& data)
{
    return R"({"zqdata":)" + data + R"(,"zqsize":)" + size + R"(,"zqtype":")" + type + R"("})";
}

template <typename T>
zd::Array numbers(Dims dims, std::initializer_list<T> values) { return factory.createArray<T>(dims, values); }
inline zd::Array doubles(Dims dims, std::initializer_list<double> v) { return numbers<double>(dims, v); }
inline zd::Array scalar(double value) { return factory.createScalar(value); }
inline zd::Array logicals(Dims dims, std::initializer_list<bool> v) { return numbers<bool>(dims, v); }
// The char row of the units; 0-by-0 when there are none.
inline zd::Array charRow(std::u16string const& units) { return factory.createCharArray(units); }

// An array of the type and dimensions whose first elements are set to values, in storage order.
template <typename T, typename Values>
zd::Array filled(zd::Array array, Values const& values)
{
    std::copy(values.begin(), values.end(), zd::getWritableElements<T>(array).begin());
    return array;
}

inline zd::Array chars(Dims dims, std::u16string const& units)
{
    return filled<char16_t>(factory.createCharArray(dims), units);
}
inline zd::Array strings(Dims dims, std::initializer_list<Text> texts)
{
    return filled<Text>(factory.createArray(zd::ArrayType::STRING, dims), texts);
}
inline zd::Array cell(Dims dims, std::initializer_list<zd::Array> arrays)
{
    return filled<zd::Array>(factory.createArray(zd::ArrayType::CELL, dims), arrays);
}
inline zd::Array enums(Dims dims, std::string className, std::initializer_list<char const*> members)
{
    return filled<zd::Enumeration>(factory.createEnumArray(std::move(dims), std::move(className)), members);
}

// A scalar inside levels - 1 cells: levels arrays in all.
inline zd::Array nested_cells(int levels)
{
    zd::Array nested = scalar(1);
    for (int level = 1; level < levels; ++level)
        nested = cell({1, 1}, {nested});
    return nested;
}

// A struct array whose fields, in this order, hold the values given for them in storage order.
inline zd::Array structs(Dims dims, std::vector<std::pair<std::string, std::vector<zd::Array>>> const& fields)
{
    std::vector<std::string> names;
    for (auto const& field : fields)
        names.push_back(field.first);
    zd::StructArray array = factory.createStructArray(std::move(dims), names);
    for (auto const& [name, values] : fields) {
        auto element = zd::getWritableElements<zd::StructElement>(array).begin();
        for (zd::Array const& value : values)
            (*element++)[name] = value;
    }
    return array;
}

// A sparse matrix holding T values at (row, column) entries, counted from 0.
template <typename T>
using Entries = std::vector<std::tuple<unsigned long, unsigned long, T>>;

// A buffer that the factory takes over, holding part I of each entry.
template <std::size_t I, typename T, typename E = std::tuple_element_t<I, typename Entries<T>::value_type>>
std::unique_ptr<E[], void (*)(void*)> buffer(Entries<T> const& entries)
{
    E* data = static_cast<E*>(std::malloc(sizeof(E) * (entries.size() + 1)));
    for (std::size_t i = 0; i < entries.size(); ++i)
        new (data + i) E(std::get<I>(entries[i]));
    return {data, std::free};
}

template <typename T>
zd::Array sparse(Dims dims, Entries<T> const& entries)
{
    return factory.createSparseArray(std::move(dims), entries.size(), zd::detail::SparseElementType<T>::value,
        std::unique_ptr<void, void (*)(void*)>(buffer<2>(entries).release(), std::free), buffer<0>(entries),
        buffer<1>(entries));
}

} // namespace zq::test::writer
