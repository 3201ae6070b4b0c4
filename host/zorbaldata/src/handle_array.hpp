// Handle arrays: elements that name handle objects.
#pragma once

#include "array_impl.hpp"
#include "slot_vector.hpp"

#include <foundation/zorbaldata/handle_object.hpp>

namespace zorbal::data::detail {

/// A null slot is the null handle.
class HandleArrayImpl final : public ArrayImpl {
public:
    /// @throws foundation::zorbaldata::EArrayTooLarge when the elements cannot be had.
    explicit HandleArrayImpl(Dimensions dimensions);
    /// @throws foundation::zorbaldata::EArrayTooLarge when the copy cannot be had.
    HandleArrayImpl(HandleArrayImpl const& other);

    /// The handle object at index, borrowed; null for the null handle.
    foundation::zorbaldata::HandleObjectImpl* at(unsigned long index) const noexcept
    {
        return static_cast<foundation::zorbaldata::HandleObjectImpl*>(slots_.at(index));
    }
    /// Makes the element at index name handle (null for the null handle).
    void store(unsigned long index, foundation::zorbaldata::HandleObjectImpl* handle) noexcept;

    /// Handles are equal when they name the same object.
    bool sameContent(ArrayImpl const& other) const override;

private:
    SlotVector slots_;
};

} // namespace zorbal::data::detail
