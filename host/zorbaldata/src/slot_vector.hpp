// The element storage of the kinds whose elements are shared objects: one pointer for each element.
#pragma once

#include "size_limits.hpp"

#include <zorbal/data/detail/ref_counted.hpp>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace zorbal::data::detail {

/// A fixed number of slots, each null or holding one reference. Null is each kind's default element,
/// so new slots are zeroed memory that nothing touches until a slot is written. The slots past the
/// last one ever written are known to be null, so copying and destroying stop there.
class SlotVector {
public:
    /// size null slots. @throws foundation::zorbaldata::EArrayTooLarge, about subject(), when they cannot be had.
    template <typename Subject>
    SlotVector(unsigned long size, Subject const& subject)
        : slots_(static_cast<RefCounted**>(foundation::zorbaldata::detail::allocateZeroed(size, sizeof(RefCounted*), subject))),
          size_(size)
    {
    }

    /// The same elements, each slot holding one more reference.
    template <typename Subject>
    SlotVector(SlotVector const& other, Subject const& subject) : SlotVector(other.size_, subject)
    {
        extent_ = other.extent_;
        if (extent_ != 0)
            std::memcpy(slots_, other.slots_, extent_ * sizeof(RefCounted*));
        for (unsigned long i = 0; i < extent_; ++i)
            if (slots_[i])
                slots_[i]->addRef();
    }

    SlotVector(SlotVector const&) = delete;
    SlotVector& operator=(SlotVector const&) = delete;

    ~SlotVector()
    {
        for (unsigned long i = 0; i < extent_; ++i)
            if (slots_[i])
                slots_[i]->release();
        std::free(slots_);
    }

    /// The number of leading slots that may be non-null.
    unsigned long extent() const noexcept { return extent_; }
    /// The object at index, borrowed; null for the default element.
    RefCounted* at(unsigned long index) const noexcept { return slots_[index]; }

    /// Puts adopted (one reference, or null) at index and drops what was there.
    void store(unsigned long index, RefCounted* adopted) noexcept
    {
        RefCounted* const old = slots_[index];
        slots_[index] = adopted;
        extent_ = std::max(extent_, index + 1);
        if (old)
            old->release();
    }

private:
    RefCounted** slots_;
    unsigned long size_;
    unsigned long extent_ = 0;
};

} // namespace zorbal::data::detail
