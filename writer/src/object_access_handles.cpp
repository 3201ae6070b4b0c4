// What the handle writer reads from handle arrays.
#include <foundation/zorbaldata/json/detail/object_access.hpp>

#include <foundation/zorbaldata/object_operations.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

namespace foundation::zorbaldata::json::detail {

HandleObjectRef handle_at(Reference<HandleObjectRef const> const& element)
{
    HandleObjectImpl* shared = nullptr;
    handle_object_ref_reference_shared_copy_x(element.get(), &shared);
    return HandleObjectRef(shared);
}

ValueObject handle_value(HandleObjectRef const& handle)
{
    TypedArray<ValueObject> const value(handle->get_value());
    zorbal::data::detail::RefCounted* shared = nullptr;
    object_reference_shared_copy_x(value[0].get(), &shared);
    return ValueObject(shared);
}

} // namespace foundation::zorbaldata::json::detail
