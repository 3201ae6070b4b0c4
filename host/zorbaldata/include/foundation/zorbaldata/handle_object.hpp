// Handle objects: references to objects that live in a virtual machine of the host.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <zorbal/data/detail/ref_counted.hpp>

#include <array>
#include <string>
#include <utility>

namespace foundation::zorbaldata {

/// The identifier of the virtual machine that owns a handle object: sixteen bytes and their text.
struct KVXID {
    std::array<unsigned char, 16> bytes{};
    std::string text;

    friend bool operator==(KVXID const&, KVXID const&) = default;
};

/// The object behind a handle, shared by every handle on it. Hosts may derive their own kinds; the
/// library's own, made by ArrayFactory::createHandleObjectRef, holds the value given to set_value.
class FOUNDATION_ZORBALDATA_API HandleObjectImpl : public zorbal::data::detail::RefCounted {
public:
    /// A flag of set_value: the handle may be written out by its value.
    static constexpr int SerializableByValue = 1;
    /// A flag of set_value: the value must be a value object array with one element.
    static constexpr int CheckValue = 2;

    KVXID const& get_kvx_id() const noexcept { return kvxId_; }
    long long get_object_id() const noexcept { return objectId_; }

    /// The class of the object: that of element 0 of its value, empty while it has none.
    virtual std::string get_class_name() const = 0;
    /// The value: a value object array whose element 0 holds the object's properties.
    /// @throws EMissingValue when the handle was given no value.
    virtual Array get_value() const = 0;
    /// Gives the handle value, with flags made of SerializableByValue and CheckValue.
    /// @throws ETypeMismatch under CheckValue for a value that is not a 1-element value object array.
    virtual void set_value(Array value, int flags) = 0;
    /// Whether a writer may write the object by its value.
    virtual bool is_serializable_by_value() const = 0;

protected:
    HandleObjectImpl(KVXID kvxId, long long objectId) : kvxId_(std::move(kvxId)), objectId_(objectId) {}
    ~HandleObjectImpl() override;

private:
    KVXID kvxId_;
    long long objectId_;
};

namespace detail {
/// The object of every null handle: it has no class and no value, and refuses set_value with
/// EInvalidArgument.
FOUNDATION_ZORBALDATA_API HandleObjectImpl& nullHandle() noexcept;
} // namespace detail

/// A shared reference to a handle object; copies name the same object. A default-made handle is the
/// null handle, whose object has no class and no value.
class FOUNDATION_ZORBALDATA_API HandleObjectRef {
public:
    HandleObjectRef() noexcept = default;
    /// Takes over one reference on impl (null makes the null handle).
    explicit HandleObjectRef(HandleObjectImpl* impl) noexcept : impl_(impl) {}
    HandleObjectRef(HandleObjectRef const& other) noexcept : impl_(other.impl_)
    {
        if (impl_)
            impl_->addRef();
    }
    HandleObjectRef(HandleObjectRef&& other) noexcept : impl_(std::exchange(other.impl_, nullptr)) {}
    HandleObjectRef& operator=(HandleObjectRef other) noexcept
    {
        std::swap(impl_, other.impl_);
        return *this;
    }
    ~HandleObjectRef()
    {
        if (impl_)
            impl_->release();
    }

    bool isNull() const noexcept { return impl_ == nullptr; }
    /// The object, null for the null handle; this handle keeps its reference.
    HandleObjectImpl* get() const noexcept { return impl_; }
    /// The object, the shared null object for the null handle.
    HandleObjectImpl* operator->() const noexcept { return impl_ ? impl_ : &detail::nullHandle(); }
    HandleObjectImpl& operator*() const noexcept { return *operator->(); }

    /// Whether both name the same object.
    friend bool operator==(HandleObjectRef const&, HandleObjectRef const&) = default;

private:
    HandleObjectImpl* impl_ = nullptr;
};

} // namespace foundation::zorbaldata
