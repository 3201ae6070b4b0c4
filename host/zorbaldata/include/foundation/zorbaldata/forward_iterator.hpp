// The iterator over the fields of a struct and the properties of an object.
#pragma once

#include <zorbal/data/detail/forward_iterator_impl.hpp>

#include <cstddef>
#include <iterator>
#include <utility>

namespace foundation::zorbaldata {

template <typename T>
class ForwardIterator;

/// Walks a sequence of T that the array library owns, such as struct field names or object properties.
/// The sequence stays as it was while the iterator lives, even if the array or object is written.
template <typename T>
class ForwardIterator<T const> {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using pointer = T const*;
    using reference = T const&;

    ForwardIterator() noexcept : impl_(nullptr, nullptr) {}
    /// Takes over adopted, as the raw object operations return it, and deletes it.
    explicit ForwardIterator(zorbal::data::detail::ForwardIteratorImpl* adopted) noexcept
        : impl_(std::move(*adopted))
    {
        delete adopted;
    }
    /// Stands where impl stands.
    explicit ForwardIterator(zorbal::data::detail::ForwardIteratorImpl impl) noexcept : impl_(std::move(impl)) {}

    T const& operator*() const noexcept { return *current(); }
    T const* operator->() const noexcept { return current(); }

    ForwardIterator& operator++() noexcept
    {
        impl_.setPosition(current() + 1);
        return *this;
    }
    ForwardIterator operator++(int) noexcept
    {
        ForwardIterator before = *this;
        ++*this;
        return before;
    }

    friend bool operator==(ForwardIterator const& a, ForwardIterator const& b) noexcept
    {
        return a.impl_.position() == b.impl_.position();
    }

private:
    T const* current() const noexcept { return static_cast<T const*>(impl_.position()); }

    zorbal::data::detail::ForwardIteratorImpl impl_;
};

} // namespace foundation::zorbaldata
