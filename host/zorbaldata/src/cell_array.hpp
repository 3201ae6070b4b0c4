// Cell arrays: arrays whose elements are arrays.
#pragma once

#include "array_impl.hpp"
#include "slot_vector.hpp"

namespace zorbal::data::detail {

class CellArrayImpl final : public ArrayImpl {
public:
    /// Every element the empty 0-by-0 double. @throws foundation::zorbaldata::EArrayTooLarge when the
    /// elements cannot be had.
    explicit CellArrayImpl(Dimensions dimensions);
    /// The same elements, shared. @throws foundation::zorbaldata::EArrayTooLarge when they cannot be had.
    CellArrayImpl(CellArrayImpl const& other);

    RefCounted* arrayAt(unsigned long index) const override { return slots_.at(index); }
    void storeArray(unsigned long index, RefCounted* adopted) override { slots_.store(index, adopted); }
    bool sameContent(ArrayImpl const& other) const override;

private:
    SlotVector slots_;
};

} // namespace zorbal::data::detail
