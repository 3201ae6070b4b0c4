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
    static PlainArrayImpl* make(foundation::zorbaldata::ArrayType type, Dimensions dimensions);
    /// The elements that data holds, taken over with its deleter.
    /// @throws foundation::zorbaldata::EArrayTooLarge as the other; EInvalidArgument for no data with
    /// elements to hold. data is freed on failure.
    static PlainArrayImpl* make(foundation::zorbaldata::ArrayType type, Dimensions dimensions,
                                std::unique_ptr<void, void (*)(void*)> data);
    /// A copy of the elements. @throws foundation::zorbaldata::EArrayTooLarge when it cannot be had.
    static PlainArrayImpl* copyOf(PlainArrayImpl const& other);
    ~PlainArrayImpl() override;

    std::size_t elementSize() const noexcept { return elementSize_; }
    void* data() noexcept { return data_; }
    void const* data() const noexcept { return data_; }

    bool sameContent(ArrayImpl const& other) const override;
    bool releasesOthers() const noexcept override { return false; }

    static void operator delete(void* block) noexcept { ::operator delete(block); }

private:
    // Elements of up to this many bytes follow the array in its own block, so that a small array, such
    // as each value of a struct or a cell that a reader fills, costs one allocation.
    static constexpr std::size_t most_inline_bytes = 1024;
    static constexpr std::size_t least_inline_bytes = 16;

    // The room of the elements after the array in its block; none for elements that fit in inline_.
    struct Tail {
        std::size_t bytes;
    };
    /// An array made by construct in a block with tail's room after it; the block is freed if it throws.
    template <typename Construct>
    static PlainArrayImpl* place(Tail tail, Construct const& construct);

    PlainArrayImpl(foundation::zorbaldata::ArrayType type, Dimensions dimensions, Tail tail);
    PlainArrayImpl(foundation::zorbaldata::ArrayType type, Dimensions dimensions,
                   std::unique_ptr<void, void (*)(void*)> data);
    PlainArrayImpl(PlainArrayImpl const& other, Tail tail);

    /// The room that count elements take after the array: 0 when they fit in inline_ or are too many.
    static std::size_t tailBytes(unsigned long count, std::size_t elementSize) noexcept;
    /// Room for the elements: inline_ or the tail when they fit, else a block of the heap.
    void* storage(bool zeroed, Tail tail);
    unsigned char* tail() noexcept { return reinterpret_cast<unsigned char*>(this + 1); }

    std::size_t elementSize_;
    void* data_;
    // How data_ is freed, when it is not the inline bytes.
    void (*free_)(void*) = std::free;
    alignas(std::max_align_t) unsigned char inline_[least_inline_bytes];
};

} // namespace zorbal::data::detail
