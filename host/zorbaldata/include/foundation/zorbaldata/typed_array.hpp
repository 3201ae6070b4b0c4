// Typed views of dense arrays, and the ranges of their elements.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <type_traits>
#include <utility>

namespace foundation::zorbaldata {

namespace detail {

/// The contiguous elements of an array of a plain type.
struct PlainElements {
    void* data;
    unsigned long size;
};

/// The container of the elements of an array of a referenced type, and their number.
struct OwnedElements {
    zorbal::data::detail::SlotOwner* owner;
    unsigned long size;
};

/// @throws ETypeMismatch when array is not of type.
FOUNDATION_ZORBALDATA_API void requireType(Array const& array, ArrayType type);
/// The elements of array for writing; first gives array its own copy when they are shared.
/// @throws ETypeMismatch when array is not of type. @throws EArrayTooLarge when the copy cannot be made.
FOUNDATION_ZORBALDATA_API PlainElements writablePlainElements(Array& array, ArrayType type);
/// The elements of array for reading. @throws ETypeMismatch when array is not of type.
FOUNDATION_ZORBALDATA_API PlainElements readOnlyPlainElements(Array const& array, ArrayType type);
/// As writablePlainElements, for the referenced types.
FOUNDATION_ZORBALDATA_API OwnedElements writableElements(Array& array, ArrayType type);
/// As readOnlyPlainElements, for the referenced types.
FOUNDATION_ZORBALDATA_API OwnedElements readOnlyElements(Array const& array, ArrayType type);
/// @throws EIndexOutOfRange for an index at or past size.
FOUNDATION_ZORBALDATA_API void checkIndex(unsigned long index, unsigned long size);

} // namespace detail

/// The elements of array, for writing, in storage order. When other handles share them, array first
/// gets its own copy, so that no other handle sees the writes. The range stays valid until array is
/// copied, assigned or dropped.
/// @throws ETypeMismatch when array does not hold T. @throws EArrayTooLarge when the copy cannot be made.
template <detail::Element T>
Range<TypedIterator, T> getWritableElements(Array& array)
{
    if constexpr (detail::Plain<T>) {
        auto const elements = detail::writablePlainElements(array, detail::ElementType<T>::value);
        T* const first = static_cast<T*>(elements.data);
        return {TypedIterator<T>(first), TypedIterator<T>(first + elements.size)};
    } else {
        auto const elements = detail::writableElements(array, detail::ElementType<T>::value);
        return {TypedIterator<T>(elements.owner, 0), TypedIterator<T>(elements.owner, elements.size)};
    }
}

/// The elements of array, for reading, in storage order. @throws ETypeMismatch when array does not hold T.
template <detail::Element T>
Range<TypedIterator, T const> getReadOnlyElements(Array const& array)
{
    if constexpr (detail::Plain<T>) {
        auto const elements = detail::readOnlyPlainElements(array, detail::ElementType<T>::value);
        T const* const first = static_cast<T const*>(elements.data);
        return {TypedIterator<T const>(first), TypedIterator<T const>(first + elements.size)};
    } else {
        auto const elements = detail::readOnlyElements(array, detail::ElementType<T>::value);
        return {TypedIterator<T const>(elements.owner, 0), TypedIterator<T const>(elements.owner, elements.size)};
    }
}

/// A handle on a dense array whose elements are T, with typed access to them. It shares the array
/// with the handle it was made from; make it by moving that handle in when you mean to write.
/// The non-const begin(), end() and operator[] write: like getWritableElements they first give this
/// handle its own copy when the elements are shared. Read through a const view or cbegin() instead.
template <detail::Element T>
class FOUNDATION_ZORBALDATA_API TypedArray : public Array {
public:
    using value_type = T;
    using iterator = TypedIterator<T>;
    using const_iterator = TypedIterator<T const>;

    /// @throws ETypeMismatch when array does not hold T.
    TypedArray(Array const& array) : Array(array) { detail::requireType(*this, detail::ElementType<T>::value); }
    /// @throws ETypeMismatch when array does not hold T.
    TypedArray(Array&& array) : Array(std::move(array))
    {
        detail::requireType(*this, detail::ElementType<T>::value);
    }

    iterator begin() { return getWritableElements<T>(*this).begin(); }
    iterator end() { return getWritableElements<T>(*this).end(); }
    const_iterator begin() const { return cbegin(); }
    const_iterator end() const { return cend(); }
    const_iterator cbegin() const { return getReadOnlyElements<T>(*this).begin(); }
    const_iterator cend() const { return getReadOnlyElements<T>(*this).end(); }

    /// The element at linear index i, for writing: a T& for plain elements, unchecked like a pointer;
    /// a Reference<T> otherwise. @throws EIndexOutOfRange for a referenced element past the end.
    decltype(auto) operator[](unsigned long i)
    {
        if constexpr (detail::Plain<T>) {
            return static_cast<T*>(detail::writablePlainElements(*this, detail::ElementType<T>::value).data)[i];
        } else {
            auto const elements = detail::writableElements(*this, detail::ElementType<T>::value);
            detail::checkIndex(i, elements.size);
            return Reference<T>(zorbal::data::detail::ReferenceImpl{elements.owner, i});
        }
    }

    /// The element at linear index i, for reading: a T const& for plain elements, unchecked like a
    /// pointer; a Reference<T const> otherwise. @throws EIndexOutOfRange for a referenced element past the end.
    decltype(auto) operator[](unsigned long i) const
    {
        if constexpr (detail::Plain<T>) {
            return static_cast<T const*>(detail::readOnlyPlainElements(*this, detail::ElementType<T>::value).data)[i];
        } else {
            auto const elements = detail::readOnlyElements(*this, detail::ElementType<T>::value);
            detail::checkIndex(i, elements.size);
            return Reference<T const>(zorbal::data::detail::ReferenceImpl{elements.owner, i});
        }
    }
};

} // namespace foundation::zorbaldata
