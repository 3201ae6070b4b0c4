// References to the elements of arrays whose elements are not plain numbers: cells, struct elements,
// struct fields, properties, objects, handles, enumerations and strings.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <zorbal/data/detail/reference_impl.hpp>
#include <zorbal/data/optional.hpp>

#include <string>
#include <string_view>

namespace foundation::zorbaldata {

class ClassInfo;
class Enumeration;
class HandleObjectRef;
class StructElement;
class ValueObject;
class ZorbalPropertyIdentifier;

/// A reference to one element. Reference<T const> reads, Reference<T> also writes. A reference is valid
/// as long as the handle it came from is neither destroyed nor copied-and-written; assigning one
/// writable reference to another copies the element, as a built-in reference would.
template <typename T>
class Reference;

namespace detail {

/// What every element reference holds: the element's place.
class FOUNDATION_ZORBALDATA_API ReferenceBase {
public:
    explicit ReferenceBase(zorbal::data::detail::ReferenceImpl place) noexcept : impl_(place) {}

    /// The raw place, for the raw object operations that only read.
    zorbal::data::detail::ReferenceImpl const* get() const noexcept { return &impl_; }

protected:
    // A reference is a place, so its writable form hands out a writable place from const members too.
    mutable zorbal::data::detail::ReferenceImpl impl_;
};

} // namespace detail

/// Reads an element that is an array: a cell, a struct field or a property.
template <>
class FOUNDATION_ZORBALDATA_API Reference<Array const> : public detail::ReferenceBase {
public:
    using ReferenceBase::ReferenceBase;
    /// The array held there; a slot never written holds the empty 0-by-0 double array.
    Array value() const;
    operator Array() const { return value(); }
};

/// Reads and writes an element that is an array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<Array> : public Reference<Array const> {
public:
    using Reference<Array const>::Reference;
    Reference(Reference const&) = default;
    Reference& operator=(Reference const& other)
    {
        set(other.value());
        return *this;
    }
    Reference const& operator=(Array value) const
    {
        set(std::move(value));
        return *this;
    }

    /// The raw place, for the raw object operations that write.
    zorbal::data::detail::ReferenceImpl* get() const noexcept { return &impl_; }
    /// Stores value there; the element shares value's elements.
    void set(Array value) const;
};

/// Reads one element of a struct array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<StructElement const> : public detail::ReferenceBase {
public:
    using ReferenceBase::ReferenceBase;
    /// The element as a value, which keeps its fields as they are now.
    StructElement value() const;
    operator StructElement() const;
    /// The value of the field called field. @throws EIllegalStructFieldName when there is no such field.
    Array operator[](std::string_view field) const;
};

/// Reads and writes one element of a struct array, field by field.
template <>
class FOUNDATION_ZORBALDATA_API Reference<StructElement> : public Reference<StructElement const> {
public:
    using Reference<StructElement const>::Reference;
    zorbal::data::detail::ReferenceImpl* get() const noexcept { return &impl_; }
    /// The field called field of this element, for writing.
    /// @throws EIllegalStructFieldName when there is no such field.
    Reference<Array> operator[](std::string_view field) const;
};

/// The writable reference to a struct element.
using StructRefExt = Reference<StructElement>;

/// Reads one element of a value object array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<ValueObject const> : public detail::ReferenceBase {
public:
    using ReferenceBase::ReferenceBase;
    /// The object, as a value that shares the element's properties until one of them is written.
    ValueObject value() const;
    operator ValueObject() const;
    /// The class of the object.
    ClassInfo getClassInfo() const;
};

/// Reads and writes one element of a value object array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<ValueObject> : public Reference<ValueObject const> {
public:
    using Reference<ValueObject const>::Reference;
    Reference(Reference const&) = default;
    Reference& operator=(Reference const& other);
    Reference const& operator=(ValueObject const& object) const;

    zorbal::data::detail::ReferenceImpl* get() const noexcept { return &impl_; }
    /// Stores object there; the element and object share properties until one of them is written.
    void set(ValueObject const& object) const;
    /// Adds a property to the element. @throws PropertyExistsException when it has one of that name.
    void addProperty(ZorbalPropertyIdentifier const& property, Array value) const;
    /// The property that key names, for writing; see ValueObject::operator[].
    Reference<Array> operator[](std::string_view key) const;
};

/// Reads one element of a handle array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<HandleObjectRef const> : public detail::ReferenceBase {
public:
    using ReferenceBase::ReferenceBase;
    /// The handle; an element never written holds the null handle.
    HandleObjectRef value() const;
    operator HandleObjectRef() const;
};

/// Reads and writes one element of a handle array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<HandleObjectRef> : public Reference<HandleObjectRef const> {
public:
    using Reference<HandleObjectRef const>::Reference;
    Reference(Reference const&) = default;
    Reference& operator=(Reference const& other);
    Reference const& operator=(HandleObjectRef const& handle) const;

    zorbal::data::detail::ReferenceImpl* get() const noexcept { return &impl_; }
    /// Stores handle there; handles are references, so the element names the same object.
    void set(HandleObjectRef const& handle) const;
};

/// Reads one element of an enumeration array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<Enumeration const> : public detail::ReferenceBase {
public:
    using ReferenceBase::ReferenceBase;
    /// The member's name, valid until the array is written or dropped; empty for an element never set.
    std::string_view name() const;
    /// The member as a value.
    Enumeration value() const;
    operator Enumeration() const;
};

/// Reads and writes one element of an enumeration array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<Enumeration> : public Reference<Enumeration const> {
public:
    using Reference<Enumeration const>::Reference;
    Reference(Reference const&) = default;
    Reference& operator=(Reference const& other)
    {
        set(other.name());
        return *this;
    }
    Reference const& operator=(std::string_view member) const
    {
        set(member);
        return *this;
    }

    zorbal::data::detail::ReferenceImpl* get() const noexcept { return &impl_; }
    /// Makes the element the member called member.
    void set(std::string_view member) const;
};

/// Reads one element of a string array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<zorbal::data::optional<std::u16string> const>
    : public detail::ReferenceBase {
public:
    using ReferenceBase::ReferenceBase;
    /// Whether the element holds a string; an element never written is missing.
    bool has_value() const;
    /// The string. @throws EMissingValue when the element is missing.
    operator std::u16string() const;
    /// The string without a copy, empty for a missing element; valid until the array is written or dropped.
    std::u16string_view view() const;
    /// The element as a value.
    zorbal::data::optional<std::u16string> value() const;
};

/// Reads and writes one element of a string array.
template <>
class FOUNDATION_ZORBALDATA_API Reference<zorbal::data::optional<std::u16string>>
    : public Reference<zorbal::data::optional<std::u16string> const> {
public:
    using Reference<zorbal::data::optional<std::u16string> const>::Reference;
    Reference(Reference const&) = default;
    Reference& operator=(Reference const& other)
    {
        set(other.value());
        return *this;
    }
    Reference const& operator=(zorbal::data::optional<std::u16string> const& text) const
    {
        set(text);
        return *this;
    }

    zorbal::data::detail::ReferenceImpl* get() const noexcept { return &impl_; }
    /// Stores text there; an empty optional makes the element missing.
    void set(zorbal::data::optional<std::u16string> text) const;
    /// Makes the element the present string text, without a std::u16string of the caller's.
    /// @throws EArrayTooLarge when the string's memory cannot be had.
    void setText(std::u16string_view text) const;
};

/// The reference through which the writers read string elements.
using ZORBALStringReferenceExt = Reference<zorbal::data::optional<std::u16string> const>;

} // namespace foundation::zorbaldata
