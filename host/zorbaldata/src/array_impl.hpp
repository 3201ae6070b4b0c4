// The storage behind an Array handle: what every kind of array has in common.
#pragma once

#include <foundation/zorbaldata/array_type.hpp>
#include "extents.hpp"

#include <zorbal/data/detail/slot_owner.hpp>


namespace zorbal::data::detail {

/// An array: its type, its dimensions and its element count. Each kind adds its elements.
class ArrayImpl : public SlotOwner {
public:
    foundation::zorbaldata::ArrayType type() const noexcept { return type_; }
    Dimensions dimensions() const noexcept { return dimensions_.view(); }
    unsigned long count() const noexcept { return count_; }

    /// Whether other, an array of the same type and dimensions, has the same elements and properties.
    virtual bool sameContent(ArrayImpl const& other) const = 0;

    /// Refuses: only the kinds whose elements are arrays override these.
    RefCounted* arrayAt(unsigned long index) const override;
    void storeArray(unsigned long index, RefCounted* adopted) override;

protected:
    /// @throws foundation::zorbaldata::EArrayTooLarge when the element count does not fit.
    ArrayImpl(foundation::zorbaldata::ArrayType type, Dimensions dimensions);
    ArrayImpl(ArrayImpl const& other);
    ~ArrayImpl() override;

private:
    foundation::zorbaldata::ArrayType type_;
    Extents dimensions_;
    unsigned long count_;
};

/// Whether the arrays behind two handles' implementations (null for the empty double) are equal.
bool sameArray(RefCounted const* a, RefCounted const* b);

} // namespace zorbal::data::detail
