// The array builders of the conversion backend, instantiated for every element type and range they serve.
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <frontend/detail/nested_element_iterator.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/utf8_to_utf16.hpp>

#include <foundation/zorbaldata/element_access.hpp>
#include <foundation/zorbaldata/json/detail/fill_elements.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

#include <algorithm>
#include <complex>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

using foundation::zorbaldata::detail::ElementType;
using foundation::zorbaljson::IncompleteComplexData;
using foundation::zorbaljson::MismatchedZQSize;

} // namespace

Array to_zorbaldata_visitor::create_double_array(
    std::vector<unsigned long> dimensions, std::vector<double> const& data) const
{
    // The array is made before the data are counted, so a size the factory refuses is reported first.
    Array array = factory_.createArray(ArrayType::DOUBLE, std::move(dimensions));
    if (data.size() != array.getNumberOfElements())
        throw MismatchedZQSize();
    std::copy(data.begin(), data.end(), getWritableElements<double>(array).begin());
    return array;
}

template <typename T>
Array to_zorbaldata_visitor::create_scalar(T const value) const
{
    return factory_.createScalar(value);
}

template Array to_zorbaldata_visitor::create_scalar(double) const;
template Array to_zorbaldata_visitor::create_scalar(bool) const;

Array to_zorbaldata_visitor::create_char_array(std::string_view utf8) const
{
    // Most strings are ASCII, whose bytes are their code units: they go into the array without a
    // UTF-16 copy of their own.
    bool const ascii = std::all_of(utf8.begin(), utf8.end(), [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
    if (!ascii || utf8.empty())
        return factory_.createCharArray(foundation::zorbaljson::detail::utf8_to_utf16(utf8));
    Array array = factory_.createArray(ArrayType::CHAR, {1, utf8.size()});
    std::copy(utf8.begin(), utf8.end(), getWritableElements<char16_t>(array).begin());
    return array;
}

template <typename T, typename Position>
Array to_zorbaldata_visitor::create_real_array(std::vector<unsigned long> dimensions,
    ConvertingIterator<T, Position> data, ConvertingIterator<T, Position> const end) const
{
    // The array is the only handle on its elements, so writing them copies nothing.
    Array array = factory_.createArray(ElementType<T>::value, std::move(dimensions));
    for (T& element : getWritableElements<T>(array)) {
        if (data == end)
            throw MismatchedZQSize();
        element = *data;
        ++data;
    }
    // Surplus data are found only here, so they are never converted.
    if (data != end)
        throw MismatchedZQSize();
    return array;
}

template <typename T>
Array to_zorbaldata_visitor::adopt_real_array(
    std::vector<unsigned long> dimensions, std::unique_ptr<void, void (*)(void*)> data) const
{
    return factory_.createArrayFromBuffer(ElementType<T>::value, std::move(dimensions), std::move(data));
}

template Array to_zorbaldata_visitor::adopt_real_array<double>(
    std::vector<unsigned long>, std::unique_ptr<void, void (*)(void*)>) const;
template Array to_zorbaldata_visitor::adopt_real_array<long long>(
    std::vector<unsigned long>, std::unique_ptr<void, void (*)(void*)>) const;
template Array to_zorbaldata_visitor::adopt_real_array<unsigned long long>(
    std::vector<unsigned long>, std::unique_ptr<void, void (*)(void*)>) const;

template <typename T>
Array to_zorbaldata_visitor::create_complex_array(
    std::vector<unsigned long> dimensions, ConvertingIterator<T> data, ConvertingIterator<T> const end) const
{
    Array array = factory_.createArray(ElementType<std::complex<T>>::value, std::move(dimensions));
    for (std::complex<T>& element : getWritableElements<std::complex<T>>(array)) {
        // Both ends are looked for before either part of the element is read.
        if (data == end)
            throw MismatchedZQSize();
        auto imaginary = data;
        ++imaginary;
        if (imaginary == end)
            throw IncompleteComplexData();
        T const real_part = *data;
        T const imaginary_part = *imaginary;
        element = std::complex<T>(real_part, imaginary_part);
        data = ++imaginary;
    }
    if (data != end)
        throw MismatchedZQSize();
    return array;
}

Array to_zorbaldata_visitor::create_char_array(
    std::vector<unsigned long> dimensions, std::string_view utf8) const
{
    Array array = factory_.createCharArray(std::move(dimensions));
    std::u16string const text = foundation::zorbaljson::detail::utf8_to_utf16(utf8);
    if (text.size() != array.getNumberOfElements())
        throw MismatchedZQSize();
    std::copy(text.begin(), text.end(), getWritableElements<char16_t>(array).begin());
    return array;
}

Array to_zorbaldata_visitor::create_cell(ConvertingIterator<Array> data, ConvertingIterator<Array> const end,
    std::vector<unsigned long> const& dimensions) const
{
    Array array = factory_.createArray(ArrayType::CELL, dimensions);
    fill_elements<Array>(array, data, end, [](Reference<Array> const& element, Array value) {
        foundation::zorbaldata::detail::setElement<Array>(element, std::move(value));
    });
    return array;
}

#define ZQ_INSTANTIATE_NUMERIC_BUILDERS(T)                                                                   \
    template Array to_zorbaldata_visitor::create_real_array(                                                 \
        std::vector<unsigned long>, ConvertingIterator<T>, ConvertingIterator<T>) const;                    \
    template Array to_zorbaldata_visitor::create_complex_array(                                              \
        std::vector<unsigned long>, ConvertingIterator<T>, ConvertingIterator<T>) const;

ZQ_INSTANTIATE_NUMERIC_BUILDERS(signed char)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(short)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(int)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(long long)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(unsigned char)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(unsigned short)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(unsigned int)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(unsigned long long)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(float)
ZQ_INSTANTIATE_NUMERIC_BUILDERS(double)
#undef ZQ_INSTANTIATE_NUMERIC_BUILDERS

template Array to_zorbaldata_visitor::create_real_array(
    std::vector<unsigned long>, ConvertingIterator<bool>, ConvertingIterator<bool>) const;

// Small notation walks nested arrays for its double and logical elements.
using foundation::zorbaljson::detail::NestedElementIterator;
template <typename T>
using NestedIterator = to_zorbaldata_visitor::ConvertingIterator<T, NestedElementIterator>;
template Array to_zorbaldata_visitor::create_real_array(
    std::vector<unsigned long>, NestedIterator<double>, NestedIterator<double>) const;
template Array to_zorbaldata_visitor::create_real_array(
    std::vector<unsigned long>, NestedIterator<bool>, NestedIterator<bool>) const;

} // namespace foundation::zorbaldata::json::detail
