// The containers whose elements references can name: arrays, and objects with their properties.
#pragma once

#include <foundation/zorbaldata/export.hpp>
#include <zorbal/data/detail/ref_counted.hpp>

namespace zorbal::data::detail {

/// A container of elements. Those whose elements are arrays (cells, struct fields, properties) give
/// access to them by index; the other kinds refuse with foundation::zorbaldata::ETypeMismatch.
class FOUNDATION_ZORBALDATA_API SlotOwner : public RefCounted {
public:
    /// The array at index, borrowed; null stands for the empty 0-by-0 double array.
    /// @throws foundation::zorbaldata::ETypeMismatch when the elements are not arrays.
    virtual RefCounted* arrayAt(unsigned long index) const = 0;

    /// Puts adopted (one reference, or null) at index and drops what was there.
    /// @throws foundation::zorbaldata::ETypeMismatch when the elements are not arrays.
    virtual void storeArray(unsigned long index, RefCounted* adopted) = 0;

protected:
    SlotOwner() noexcept = default;
    ~SlotOwner() override;
};

} // namespace zorbal::data::detail
