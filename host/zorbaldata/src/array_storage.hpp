// How the library reaches the storage of an array through its handle, for reading or for writing.
#pragma once

#include "access.hpp"

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

namespace foundation::zorbaldata::detail {

/// The storage of slot, first copied into a storage of its own when other handles share it.
template <typename Impl>
Impl& unshared(RefCounted*& slot)
{
    if (slot->isShared()) {
        Impl* copy;
        // Kinds whose copies are not made by a plain new say how to make them.
        if constexpr (requires { Impl::copyOf(*static_cast<Impl const*>(slot)); })
            copy = Impl::copyOf(*static_cast<Impl const*>(slot));
        else
            copy = new Impl(*static_cast<Impl const*>(slot));
        slot->release();
        slot = copy;
    }
    return *static_cast<Impl*>(slot);
}

/// The storage of array, whose type is checked again: a view's type could have been changed through
/// its Array base. @throws ETypeMismatch when array is not of type.
template <typename Impl>
Impl& storageOf(Array const& array, ArrayType type)
{
    requireType(array, type);
    return *static_cast<Impl*>(Access::impl(array));
}

/// As storageOf, for writing: array first gets its own storage when other handles share it.
template <typename Impl>
Impl& writableStorageOf(Array& array, ArrayType type)
{
    requireType(array, type);
    return unshared<Impl>(Access::slot(array));
}

} // namespace foundation::zorbaldata::detail
