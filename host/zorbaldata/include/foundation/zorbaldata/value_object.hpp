// Value objects: instances of a class, holding one array for each property.
#pragma once

#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/forward_iterator.hpp>
#include <foundation/zorbaldata/property.hpp>
#include <foundation/zorbaldata/reference.hpp>
#include <zorbal/data/detail/ref_counted.hpp>

#include <string_view>
#include <utility>

namespace foundation::zorbaldata {

/// An object with value semantics: copies share the properties until one of them is written, and
/// then that one gets its own. An object starts with the properties its class declares, each holding
/// the empty 0-by-0 double array, in the class's order; more can be added.
///
/// A property is found by a key that is either its name ("p"), or its name qualified by the object's
/// class ("pkg.Cls.p") or by nothing (".p"), which is what getClassName() + "." + getPropertyName()
/// of an identifier gives. A property whose name is the whole key wins over the qualified reading.
class FOUNDATION_ZORBALDATA_API ValueObject {
public:
    /// Takes over one reference on object, as the raw object operations return it.
    /// @throws ETypeMismatch when object is not an object.
    explicit ValueObject(zorbal::data::detail::RefCounted* object);
    ValueObject(ValueObject const& other) noexcept : impl_(other.impl_) { impl_->addRef(); }
    ValueObject& operator=(ValueObject other) noexcept
    {
        std::swap(impl_, other.impl_);
        return *this;
    }
    ~ValueObject() { impl_->release(); }

    ClassInfo getClassInfo() const;
    unsigned long getNumberOfProperties() const noexcept;

    /// The properties in order: the declared ones first, then those added.
    ForwardIterator<Property const> cbegin() const;
    ForwardIterator<Property const> cend() const;
    ForwardIterator<Property const> begin() const { return cbegin(); }
    ForwardIterator<Property const> end() const { return cend(); }

    bool hasProperty(std::string_view key) const;
    /// The value of the property that key names. @throws ENoSuchProperty when there is none.
    Array operator[](std::string_view key) const;
    /// The property that key names, for writing; a key that names none adds a property of that name
    /// (without the qualification), as std::map::operator[] does.
    Reference<Array> operator[](std::string_view key);

    /// Adds a property. @throws PropertyExistsException when the object has one of that name.
    void addProperty(ZorbalPropertyIdentifier const& property, Array value);

    /// The raw object, for the raw object operations; this handle keeps its reference.
    zorbal::data::detail::RefCounted* get() const noexcept { return impl_; }

private:
    friend struct detail::Access;
    zorbal::data::detail::RefCounted* impl_;
};

/// Whether a and b have the same class name and equal properties, whatever their order.
FOUNDATION_ZORBALDATA_API bool operator==(ValueObject const& a, ValueObject const& b);

} // namespace foundation::zorbaldata
