// Value object arrays: elements that are objects, and the properties and dimensions of the whole array.
#pragma once

#include "array_impl.hpp"
#include "class_record.hpp"
#include "object_impl.hpp"
#include "ref.hpp"
#include "slot_vector.hpp"

#include <foundation/zorbaldata/property.hpp>
#include <zorbal/data/detail/forward_iterator_impl.hpp>

#include <optional>
#include <vector>

namespace zorbal::data::detail {

/// Elements are objects, null for an element never set, which reads as a new object of the array's class.
class ValueObjectArrayImpl final : public ArrayImpl {
public:
    /// @throws foundation::zorbaldata::EArrayTooLarge when the elements cannot be had.
    ValueObjectArrayImpl(Dimensions dimensions, Ref<ClassRecord> cls);
    /// The same objects, shared. @throws foundation::zorbaldata::EArrayTooLarge when they cannot be had.
    ValueObjectArrayImpl(ValueObjectArrayImpl const& other);

    ClassRecord& classRecord() const noexcept { return *class_; }
    /// The object at index, borrowed; null for an element never set.
    ObjectImpl* objectAt(unsigned long index) const noexcept { return static_cast<ObjectImpl*>(slots_.at(index)); }
    ObjectView view(unsigned long index) const noexcept;
    /// The class of the element at index.
    ClassRecord& classAt(unsigned long index) const noexcept;
    /// A position in the properties of the element at index, which keeps them alive.
    ForwardIteratorImpl propertyAt(unsigned long index, std::size_t property) const;
    /// The object at index, for writing: made from the class when never set, copied when shared.
    ObjectImpl& writableObject(unsigned long index);
    /// Makes the element at index share object.
    void setObject(unsigned long index, ObjectImpl& object) noexcept;
    bool isHeterogeneous() const;

    std::vector<foundation::zorbaldata::Property> const& arrayProperties() const noexcept { return arrayProperties_; }
    /// @throws foundation::zorbaldata::PropertyExistsException for a name that is taken.
    void addArrayProperty(foundation::zorbaldata::ZorbalPropertyIdentifier const& property,
                          foundation::zorbaldata::Array value, bool rejectDuplicate);
    std::optional<std::vector<unsigned long>> const& externalDimensions() const noexcept { return externalDimensions_; }
    void setExternalDimensions(std::optional<std::vector<unsigned long>> dimensions) noexcept
    {
        externalDimensions_ = std::move(dimensions);
    }

    bool sameContent(ArrayImpl const& other) const override;

private:
    bool elementHasProperty(unsigned long index, std::string_view name) const;

    Ref<ClassRecord> class_;
    SlotVector slots_;
    std::vector<foundation::zorbaldata::Property> arrayProperties_;
    std::optional<std::vector<unsigned long>> externalDimensions_;
};

} // namespace zorbal::data::detail
