// Handle arrays and the references to their elements.
#include "handle_array.hpp"

#include "type_names.hpp"

#include <foundation/zorbaldata/reference.hpp>

#include <algorithm>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

HandleArrayImpl::HandleArrayImpl(Dimensions dimensions)
    : ArrayImpl(fz::ArrayType::HANDLE_OBJECT_REF, dimensions),
      slots_(count(), [this] { return fz::detail::arrayText(type(), this->dimensions()); })
{
}

HandleArrayImpl::HandleArrayImpl(HandleArrayImpl const& other)
    : ArrayImpl(other), slots_(other.slots_, [this] { return fz::detail::arrayText(type(), dimensions()); })
{
}

void HandleArrayImpl::store(unsigned long index, fz::HandleObjectImpl* handle) noexcept
{
    if (handle)
        handle->addRef();
    slots_.store(index, handle);
}

bool HandleArrayImpl::sameContent(ArrayImpl const& other) const
{
    auto const& that = static_cast<HandleArrayImpl const&>(other);
    unsigned long const written = std::max(slots_.extent(), that.slots_.extent());
    for (unsigned long i = 0; i < written; ++i)
        if (at(i) != that.at(i))
            return false;
    return true;
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

using zorbal::data::detail::HandleArrayImpl;

HandleObjectRef Reference<HandleObjectRef const>::value() const
{
    HandleObjectImpl* handle = static_cast<HandleArrayImpl const*>(impl_.owner)->at(impl_.index);
    if (handle)
        handle->addRef();
    return HandleObjectRef(handle);
}

Reference<HandleObjectRef const>::operator HandleObjectRef() const
{
    return value();
}

Reference<HandleObjectRef>& Reference<HandleObjectRef>::operator=(Reference const& other)
{
    set(other.value());
    return *this;
}

Reference<HandleObjectRef> const& Reference<HandleObjectRef>::operator=(HandleObjectRef const& handle) const
{
    set(handle);
    return *this;
}

void Reference<HandleObjectRef>::set(HandleObjectRef const& handle) const
{
    static_cast<HandleArrayImpl*>(impl_.owner)->store(impl_.index, handle.get());
}

} // namespace foundation::zorbaldata
