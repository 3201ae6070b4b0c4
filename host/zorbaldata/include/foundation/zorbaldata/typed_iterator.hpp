// The iterators over the elements of dense arrays.
#pragma once

#include <foundation/zorbaldata/element_types.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/reference.hpp>

#include <compare>
#include <cstddef>
#include <iterator>
#include <type_traits>

namespace zorbal::data::detail {
class SlotOwner;
} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

/// Walks the elements of a dense array in storage order (column-major). TypedIterator<T const> reads,
/// TypedIterator<T> also writes; both offer increment(), isEqual() and getRef() besides the operators.
template <typename T>
class TypedIterator;

/// Over numbers, logicals, chars and complex numbers the iterator is a pointer into the array's one
/// contiguous block of elements, and a contiguous iterator for the standard algorithms.
template <typename T>
    requires detail::Plain<std::remove_const_t<T>>
class FOUNDATION_ZORBALDATA_API TypedIterator<T> {
public:
    using iterator_concept = std::contiguous_iterator_tag;
    using iterator_category = std::random_access_iterator_tag;
    using value_type = std::remove_const_t<T>;
    using element_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T*;
    using reference = T&;

    TypedIterator() noexcept = default;
    explicit TypedIterator(T* element) noexcept : element_(element) {}
    operator TypedIterator<T const>() const noexcept
        requires(!std::is_const_v<T>)
    {
        return TypedIterator<T const>(element_);
    }

    T& operator*() const noexcept { return *element_; }
    T* operator->() const noexcept { return element_; }
    T& operator[](difference_type n) const noexcept { return element_[n]; }

    TypedIterator& operator++() noexcept
    {
        ++element_;
        return *this;
    }
    TypedIterator operator++(int) noexcept { return TypedIterator(element_++); }
    TypedIterator& operator--() noexcept
    {
        --element_;
        return *this;
    }
    TypedIterator operator--(int) noexcept { return TypedIterator(element_--); }
    TypedIterator& operator+=(difference_type n) noexcept
    {
        element_ += n;
        return *this;
    }
    TypedIterator& operator-=(difference_type n) noexcept
    {
        element_ -= n;
        return *this;
    }
    friend TypedIterator operator+(TypedIterator it, difference_type n) noexcept { return it += n; }
    friend TypedIterator operator+(difference_type n, TypedIterator it) noexcept { return it += n; }
    friend TypedIterator operator-(TypedIterator it, difference_type n) noexcept { return it -= n; }
    friend difference_type operator-(TypedIterator a, TypedIterator b) noexcept { return a.element_ - b.element_; }
    friend bool operator==(TypedIterator, TypedIterator) = default;
    friend std::strong_ordering operator<=>(TypedIterator, TypedIterator) = default;

    void increment() noexcept { ++element_; }
    bool isEqual(TypedIterator const& other) const noexcept { return element_ == other.element_; }
    /// The element itself.
    T& getRef() const noexcept { return *element_; }

private:
    T* element_ = nullptr;
};

/// Over cells, strings, structs, objects, handles and enumerations the iterator is an index into the
/// array, and yields references (Reference<T>) that read and write the element in place.
template <typename T>
    requires detail::Referenced<std::remove_const_t<T>>
class FOUNDATION_ZORBALDATA_API TypedIterator<T> {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = std::remove_const_t<T>;
    using difference_type = std::ptrdiff_t;
    using pointer = void;
    using reference = Reference<T>;

    TypedIterator() noexcept = default;
    /// Stands at element index of owner.
    TypedIterator(zorbal::data::detail::SlotOwner* owner, unsigned long index) noexcept
        : owner_(owner), index_(index)
    {
    }
    operator TypedIterator<T const>() const noexcept
        requires(!std::is_const_v<T>)
    {
        return TypedIterator<T const>(owner_, index_);
    }

    Reference<T> operator*() const noexcept { return getRef(); }

    TypedIterator& operator++() noexcept
    {
        ++index_;
        return *this;
    }
    TypedIterator operator++(int) noexcept { return TypedIterator(owner_, index_++); }
    TypedIterator& operator+=(difference_type n) noexcept
    {
        index_ += static_cast<unsigned long>(n);
        return *this;
    }
    friend TypedIterator operator+(TypedIterator it, difference_type n) noexcept { return it += n; }
    friend difference_type operator-(TypedIterator const& a, TypedIterator const& b) noexcept
    {
        return static_cast<difference_type>(a.index_ - b.index_);
    }
    friend bool operator==(TypedIterator const&, TypedIterator const&) = default;

    void increment() noexcept { ++index_; }
    bool isEqual(TypedIterator const& other) const noexcept { return *this == other; }
    /// A reference to the current element.
    Reference<T> getRef() const noexcept { return Reference<T>(zorbal::data::detail::ReferenceImpl{owner_, index_}); }

private:
    zorbal::data::detail::SlotOwner* owner_ = nullptr;
    unsigned long index_ = 0;
};

} // namespace foundation::zorbaldata
