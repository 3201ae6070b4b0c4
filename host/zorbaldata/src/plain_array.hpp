// Arrays of numbers, logicals, chars and complex numbers: one contiguous block of elements.
#pragma once

#include "array_impl.hpp"

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace zorbal::data::detail {

class PlainArrayImpl final : public ArrayImpl {
public:
    /// Zeroed elements. @throws foundation::zorbaldata::EArrayTooLarge when they cannot be had.
    PlainArrayImpl(foundation::zorbaldata::ArrayType type, Dimensions dimensions);
    /// The elements that data holds, taken over with its deleter.
    /// @throws foundation::zorbaldata::EArrayTooLarge as the other; EInvalidArgument for no data with
    /// elements to hold. data is freed on failure.
    PlainArrayImpl(foundation::zorbaldata::ArrayType type, Dimensions dimensions,
                   std::unique_ptr<void, void (*)(void*)> data);
    /// A copy of the elements. @throws foundation::zorbaldata::EArrayTooLarge when it cannot be had.
    PlainArrayImpl(PlainArrayImpl const& other);
    ~PlainArrayImpl() override;

    std::size_t elementSize() const noexcept { return elementSize_; }
    void* data() noexcept { return data_; }
    void const* data() const noexcept { return data_; }

    bool sameContent(ArrayImpl const& other) const override;

private:
    // Elements that fit here need no allocation of their own: a scalar, or a complex double, lives
    // in the one block of its array.
    static constexpr std::size_t inline_bytes = 16;

    /// Room for the elements: the inline bytes when they fit, else a block of the heap.
    void* storage(bool zeroed);

    std::size_t elementSize_;
    void* data_;
    // How data_ is freed, when it is not the inline bytes.
    void (*free_)(void*) = std::free;
    alignas(std::max_align_t) unsigned char inline_[inline_bytes];
};

} // namespace zorbal::data::detail
