// The shared handle on an array.
#pragma once

#include <foundation/zorbaldata/array_type.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <zorbal/data/detail/ref_counted.hpp>

#include <utility>
#include <vector>

namespace foundation::zorbaldata {

namespace detail {
struct Access;
} // namespace detail

/// A handle on a typed N-dimensional array. Copies share the elements and the last handle frees them;
/// writing through a handle whose elements are shared first gives it its own copy. A default-made or
/// moved-from handle is an empty 0-by-0 double array.
class FOUNDATION_ZORBALDATA_API Array {
public:
    Array() noexcept = default;
    Array(Array const& other) noexcept : impl_(other.impl_)
    {
        if (impl_)
            impl_->addRef();
    }
    Array(Array&& other) noexcept : impl_(std::exchange(other.impl_, nullptr)) {}
    Array& operator=(Array const& other) noexcept
    {
        Array(other).swap(*this);
        return *this;
    }
    Array& operator=(Array&& other) noexcept
    {
        Array(std::move(other)).swap(*this);
        return *this;
    }
    ~Array()
    {
        if (impl_)
            impl_->release();
    }
    void swap(Array& other) noexcept { std::swap(impl_, other.impl_); }

    /// The type of the elements.
    ArrayType getType() const noexcept;
    /// The dimensions, as they were given when the array was made.
    std::vector<unsigned long> getDimensions() const;
    /// The product of the dimensions.
    unsigned long getNumberOfElements() const noexcept;

private:
    friend struct detail::Access;
    zorbal::data::detail::RefCounted* impl_ = nullptr;
};

/// Whether a and b have the same type, dimensions and elements, compared deeply. Two handles on one
/// array are equal at once; floating elements are equal when they compare equal or are both NaN.
FOUNDATION_ZORBALDATA_API bool operator==(Array const& a, Array const& b);

} // namespace foundation::zorbaldata
