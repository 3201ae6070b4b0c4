// The library's way into the private parts of its public handles.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/property.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <zorbal/data/detail/ref_counted.hpp>

#include <utility>

namespace foundation::zorbaldata::detail {

using zorbal::data::detail::RefCounted;

struct Access {
    static RefCounted* impl(Array const& array) noexcept { return array.impl_; }
    static RefCounted*& slot(Array& array) noexcept { return array.impl_; }
    /// An Array that takes over the reference that impl carries.
    static Array adopt(RefCounted* impl) noexcept
    {
        Array array;
        array.impl_ = impl;
        return array;
    }
    /// An Array that takes a new reference on impl.
    static Array share(RefCounted* impl) noexcept
    {
        if (impl)
            impl->addRef();
        return adopt(impl);
    }
    /// Gives up array's reference to the caller.
    static RefCounted* release(Array& array) noexcept { return std::exchange(array.impl_, nullptr); }

    static Array& value(Property& property) noexcept { return property.value_; }
    static Array const& value(Property const& property) noexcept { return property.value_; }

    static RefCounted* record(ClassInfo const& info) noexcept { return info.record_; }

    /// A StructElement that takes a new reference on owner.
    static StructElement structElement(zorbal::data::detail::SlotOwner* owner, unsigned long index) noexcept
    {
        owner->addRef();
        return StructElement(owner, index);
    }
};

} // namespace foundation::zorbaldata::detail
