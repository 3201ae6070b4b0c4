// Struct arrays: arrays of records whose fields hold arrays.
#pragma once

#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/forward_iterator.hpp>
#include <foundation/zorbaldata/range.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <zorbal/data/detail/slot_owner.hpp>

#include <string>
#include <string_view>
#include <utility>

namespace foundation::zorbaldata {

/// The name of a struct field.
class FOUNDATION_ZORBALDATA_API ZorbalFieldIdentifier {
public:
    explicit ZorbalFieldIdentifier(std::string name) : name_(std::move(name)) {}
    std::string const& getString() const noexcept { return name_; }
    friend bool operator==(ZorbalFieldIdentifier const&, ZorbalFieldIdentifier const&) = default;

private:
    std::string name_;
};

/// One element of a struct array, read as a value: it keeps the field values it had when it was read,
/// whatever is written to the array afterwards.
class FOUNDATION_ZORBALDATA_API StructElement {
public:
    StructElement(StructElement const& other) noexcept : owner_(other.owner_), index_(other.index_)
    {
        owner_->addRef();
    }
    StructElement& operator=(StructElement other) noexcept
    {
        std::swap(owner_, other.owner_);
        std::swap(index_, other.index_);
        return *this;
    }
    ~StructElement() { owner_->release(); }

    /// The value of the field called field. @throws EIllegalStructFieldName when there is no such field.
    Array operator[](std::string_view field) const;

private:
    friend struct detail::Access;
    // Takes over one reference on owner.
    StructElement(zorbal::data::detail::SlotOwner* owner, unsigned long index) noexcept
        : owner_(owner), index_(index)
    {
    }

    zorbal::data::detail::SlotOwner* owner_;
    unsigned long index_;
};

/// A handle on a struct array: every element has the same fields, kept in the order they were given.
class FOUNDATION_ZORBALDATA_API StructArray : public TypedArray<StructElement> {
public:
    using TypedArray<StructElement>::TypedArray;

    /// The field names in the array's order.
    Range<ForwardIterator, ZorbalFieldIdentifier const> getFieldNames() const;
    unsigned long getNumberOfFields() const;
};

} // namespace foundation::zorbaldata
