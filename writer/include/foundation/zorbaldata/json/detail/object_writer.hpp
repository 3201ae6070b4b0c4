// The writers of value object and handle arrays: the class name in zqtype, properties as JSON objects,
// under both values of ToJsonMode.
#pragma once

#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/json/detail/json_types.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>
#include <foundation/zorbaldata/object_filter.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>

namespace foundation::zorbaldata::json::detail {

/// The large form of a value object array, once filter admits its class. Property values are written
/// by write, under their external names. Three shapes:
/// - one element with external dimensions: zqsize gives those, zqdata is the object's properties as an
///   object, zqmetadata the array properties (left out when there are none);
/// - heterogeneous: zqtype is "zorbal.mixin.Heterogeneous", zqdata a list of objects, each holding its
///   class name under zqtype beside its properties, which are set after it;
/// - otherwise zqtype is the class name and zqdata a list of objects of properties; a property that
///   cannot be written is left out of its object, unless it is nested too deep.
/// @throws what detail::validateObjectTypeFilter throws; then std::runtime_error "Must have at least two
/// dimensions". @throws std::runtime_error "Value not specified for the property" (or "... for the
/// array property") for any failure of a property in the first shape; a property's failure, unchanged,
/// in the heterogeneous shape. @throws std::runtime_error "Number of elements did not match specified
/// dimensions" (homogeneous) or foundation::zorbaljson::MismatchedZQSize (heterogeneous) when the
/// elements walked are not as many as the dimensions give. @throws ArrayNestingTooDeep from any property,
/// in every shape.
JsonValue write_value_objects(ValueObjectArray const& array, ObjectFilter filter, element_writer write);

/// The large form of a handle array: zqtype is the class of the first element's object (empty for an
/// empty array), zqdata holds for each element an object of the properties of the handle's value,
/// written by write. The identities of the handles are not written.
/// @throws foundation::zorbaldata::ObjectNotSupportedException "Serializing handle object as reference
/// is not supported for JSON." when the first handle may not be written by value; then what
/// detail::validateObjectTypeFilter throws; then std::runtime_error "Must have at least two dimensions";
/// then, unchanged, what reading a handle's value or writing a property throws;
/// foundation::zorbaljson::MismatchedZQSize when the elements walked are not as many as the dimensions
/// give.
JsonValue write_handles(TypedArray<HandleObjectRef> const& array, ObjectFilter filter, element_writer write);

} // namespace foundation::zorbaldata::json::detail
