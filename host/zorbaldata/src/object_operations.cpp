// The raw operations on objects and handles.
#include "array_storage.hpp"
#include "handle_array.hpp"
#include "object_impl.hpp"
#include "value_object_array.hpp"

#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/object_operations.hpp>

namespace foundation::zorbaldata {

using zorbal::data::detail::ForwardIteratorImpl;
using zorbal::data::detail::ObjectImpl;
using zorbal::data::detail::Ref;
using zorbal::data::detail::RefCounted;
using zorbal::data::detail::ReferenceImpl;
using zorbal::data::detail::ValueObjectArrayImpl;

namespace {

// The raw operations take places from anywhere, so they check what the typed references guarantee.
template <typename Impl>
Impl& ownerOf(ReferenceImpl const* element, char const* kind)
{
    auto* owner = element ? dynamic_cast<Impl*>(element->owner) : nullptr;
    if (!owner)
        throw ETypeMismatch(std::string("The reference names no element of ") + kind + ".");
    detail::checkIndex(element->index, owner->count());
    return *owner;
}

ValueObjectArrayImpl& objectArrayOf(ReferenceImpl const* element)
{
    return ownerOf<ValueObjectArrayImpl>(element, "a value object array");
}

zorbal::data::detail::HandleArrayImpl& handleArrayOf(ReferenceImpl const* element)
{
    return ownerOf<zorbal::data::detail::HandleArrayImpl>(element, "a handle array");
}

RefCounted* sharedClass(zorbal::data::detail::ClassRecord& record)
{
    return Ref<zorbal::data::detail::ClassRecord>::share(&record).release();
}

} // namespace

void object_reference_shared_copy_x(ReferenceImpl const* element, RefCounted** object)
{
    auto& array = objectArrayOf(element);
    if (ObjectImpl* existing = array.objectAt(element->index)) {
        existing->addRef();
        *object = existing;
    } else {
        *object = new ObjectImpl(Ref<zorbal::data::detail::ClassRecord>::share(&array.classRecord()));
    }
}

void handle_object_ref_reference_shared_copy_x(ReferenceImpl const* element, HandleObjectImpl** handle)
{
    HandleObjectImpl* const existing = handleArrayOf(element).at(element->index);
    if (existing)
        existing->addRef();
    *handle = existing;
}

void object_destroy_impl_x(RefCounted* object) noexcept
{
    if (object)
        object->release();
}

void object_set_value_x(ReferenceImpl* element, RefCounted* object)
{
    auto& array = objectArrayOf(element);
    auto* value = dynamic_cast<ObjectImpl*>(object);
    if (!value)
        throw ETypeMismatch("Only an object can be stored in a value object array.");
    array.setObject(element->index, *value);
}

void handle_ref_set_value_x(ReferenceImpl* element, HandleObjectImpl* handle)
{
    handleArrayOf(element).store(element->index, handle);
}

ForwardIteratorImpl* object_reference_begin_x(ReferenceImpl const* element)
{
    return new ForwardIteratorImpl(objectArrayOf(element).propertyAt(element->index, 0));
}

ForwardIteratorImpl* object_reference_end_x(ReferenceImpl const* element)
{
    auto const& array = objectArrayOf(element);
    return new ForwardIteratorImpl(array.propertyAt(element->index, array.view(element->index).properties->size()));
}

RefCounted* object_reference_get_class_info_x(ReferenceImpl const* element)
{
    return sharedClass(objectArrayOf(element).classAt(element->index));
}

RefCounted* object_array_get_class_info_x(Array const& array)
{
    return sharedClass(detail::storageOf<ValueObjectArrayImpl>(array, ArrayType::VALUE_OBJECT).classRecord());
}

bool object_array_is_heterogeneous_x(Array const& array)
{
    return detail::storageOf<ValueObjectArrayImpl>(array, ArrayType::VALUE_OBJECT).isHeterogeneous();
}

} // namespace foundation::zorbaldata
