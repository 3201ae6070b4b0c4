// Struct arrays: for each element, one array for each field.
#pragma once

#include "array_impl.hpp"
#include "field_table.hpp"
#include "slot_vector.hpp"

#include <memory>

namespace zorbal::data::detail {

/// The field values lie field by field: field f of element i is slot f * count() + i, so filling or
/// reading one field over all elements walks memory in order.
class StructArrayImpl final : public ArrayImpl {
public:
    /// Every field value the empty 0-by-0 double.
    /// @throws foundation::zorbaldata::EIllegalStructFieldName for a name not legal or given twice.
    /// @throws foundation::zorbaldata::EArrayTooLarge when the field values cannot be counted or had.
    StructArrayImpl(Dimensions dimensions, std::vector<std::string> fieldNames);
    /// The same values, shared. @throws foundation::zorbaldata::EArrayTooLarge when they cannot be had.
    StructArrayImpl(StructArrayImpl const& other);

    foundation::zorbaldata::detail::FieldTable const& fields() const noexcept { return *fields_; }
    /// The slot of the field called field of element index.
    /// @throws foundation::zorbaldata::EIllegalStructFieldName when there is no such field.
    unsigned long slotOf(std::string_view field, unsigned long index) const;

    RefCounted* arrayAt(unsigned long slot) const override { return slots_.at(slot); }
    void storeArray(unsigned long slot, RefCounted* adopted) override { slots_.store(slot, adopted); }
    bool sameContent(ArrayImpl const& other) const override;

private:
    std::shared_ptr<foundation::zorbaldata::detail::FieldTable const> fields_;
    SlotVector slots_;
};

} // namespace zorbal::data::detail
