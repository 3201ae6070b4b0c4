// The raw operations on objects and handles: they take the raw places of references (Reference::get())
// and the raw objects of handles (get()), and hand out raw results that ValueObject, HandleObjectRef,
// ClassInfo and ForwardIterator take over.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <zorbal/data/detail/forward_iterator_impl.hpp>
#include <zorbal/data/detail/ref_counted.hpp>
#include <zorbal/data/detail/reference_impl.hpp>

namespace foundation::zorbaldata {

/// Sets *object to a new reference on the object at element, for ValueObject to take over.
/// @throws ETypeMismatch when element is no element of a value object array.
FOUNDATION_ZORBALDATA_API void object_reference_shared_copy_x(zorbal::data::detail::ReferenceImpl const* element,
                                                              zorbal::data::detail::RefCounted** object);

/// Sets *handle to a new reference on the handle object at element (null for the null handle), for
/// HandleObjectRef to take over. @throws ETypeMismatch when element is no element of a handle array.
FOUNDATION_ZORBALDATA_API void handle_object_ref_reference_shared_copy_x(
    zorbal::data::detail::ReferenceImpl const* element, HandleObjectImpl** handle);

/// Drops one reference on object; the deleter of the raw object that ValueObject holds.
FOUNDATION_ZORBALDATA_API void object_destroy_impl_x(zorbal::data::detail::RefCounted* object) noexcept;

/// Stores object (the raw object of a ValueObject, which keeps its own reference) at element.
/// @throws ETypeMismatch when element is no element of a value object array or object no object.
FOUNDATION_ZORBALDATA_API void object_set_value_x(zorbal::data::detail::ReferenceImpl* element,
                                                  zorbal::data::detail::RefCounted* object);

/// Stores handle (the raw object of a HandleObjectRef, null for the null handle) at element.
/// @throws ETypeMismatch when element is no element of a handle array.
FOUNDATION_ZORBALDATA_API void handle_ref_set_value_x(zorbal::data::detail::ReferenceImpl* element,
                                                      HandleObjectImpl* handle);

/// A new iterator at the first property of the object at element, for ForwardIterator to take over.
/// @throws ETypeMismatch when element is no element of a value object array.
FOUNDATION_ZORBALDATA_API zorbal::data::detail::ForwardIteratorImpl* object_reference_begin_x(
    zorbal::data::detail::ReferenceImpl const* element);
/// A new iterator past the last property of the object at element.
FOUNDATION_ZORBALDATA_API zorbal::data::detail::ForwardIteratorImpl* object_reference_end_x(
    zorbal::data::detail::ReferenceImpl const* element);

/// A new reference on the class record of the object at element, for ClassInfo to take over.
/// @throws ETypeMismatch when element is no element of a value object array.
FOUNDATION_ZORBALDATA_API zorbal::data::detail::RefCounted* object_reference_get_class_info_x(
    zorbal::data::detail::ReferenceImpl const* element);

/// A new reference on the class record of a value object array, for ClassInfo to take over.
/// @throws ETypeMismatch when array is no value object array.
FOUNDATION_ZORBALDATA_API zorbal::data::detail::RefCounted* object_array_get_class_info_x(Array const& array);

/// Whether the elements of a value object array differ in class, or it was made without a class.
/// @throws ETypeMismatch when array is no value object array.
FOUNDATION_ZORBALDATA_API bool object_array_is_heterogeneous_x(Array const& array);

} // namespace foundation::zorbaldata
