// The writers of value object and handle arrays: the class name in zqtype, properties as JSON objects,
// under both values of ToJsonMode.
#pragma once

#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/object_access.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/object_filter.hpp>
#include <foundation/zorbaldata/object_operations.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>

#include <stdexcept>
#include <string>
#include <utility>

namespace foundation::zorbaldata::json::detail {

/// Writes the member of property: its external name, and its value by write(value, out). A name met
/// twice in one object keeps the last value, which both outputs see to.
template <typename Out, typename Write>
void write_property(Out& out, Property const& property, Write const& write)
{
    Array value = property.castToArray();
    out.key(property.getIdentifier().getExternalPropertyName());
    write(std::move(value), out);
}

/// Writes the members of the properties from begin to end. @throws what writing a property throws.
template <typename Out, typename Iterator, typename Write>
void write_properties(Out& out, Iterator begin, Iterator const& end, Write const& write)
{
    for (; begin != end; ++begin)
        write_property(out, *begin, write);
}

/// Writes the object of the properties from begin to end; every failure of a property, nested ones
/// included, becomes std::runtime_error failure, but for ArrayNestingTooDeep.
template <typename Out, typename Iterator, typename Write>
void write_properties_or_fail(
    Out& out, Iterator begin, Iterator const& end, Write const& write, char const* failure)
{
    try {
        out.begin_object();
        write_properties(out, std::move(begin), end, write);
        out.end_object();
    } catch (ArrayNestingTooDeep const&) {
        throw;
    } catch (...) {
        throw std::runtime_error(failure);
    }
}

/// Writes the list shapes of a value object array: one JSON object for each element, whose members
/// write_members(element) writes; mismatch reports a walk that disagrees with the dimensions.
template <typename Out, typename WriteMembers>
void write_object_list(Out& out, ValueObjectArray const& array, std::string const& type_name,
    WriteMembers const& write_members, void (*mismatch)())
{
    write_large_form(out, array.getDimensions(), type_name, {}, [&] {
        out.begin_array();
        unsigned long walked = 0;
        auto const elements = getReadOnlyElements<ValueObject>(array);
        for (auto element = elements.begin(); !element.isEqual(elements.end());
             element.increment(), ++walked) {
            out.begin_object();
            write_members(element.getRef());
            out.end_object();
        }
        out.end_array();
        if (walked != element_count(array.getDimensions()))
            mismatch();
    });
}

/// Writes the large form of a value object array, once filter admits its class. Property values are
/// written by write(value, out), under their external names. Three shapes:
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
template <typename Out, typename Write>
void write_value_objects(
    Out& out, ValueObjectArray const& array, ObjectFilter const filter, Write const& write)
{
    std::string const class_name = class_name_of(object_array_get_class_info_x(array));
    zorbaldata::detail::validateObjectTypeFilter(filter, class_name);
    if (array.isExternalDimensionsSet() && array.getNumberOfElements() == 1) {
        auto const object = getReadOnlyElements<ValueObject>(array).begin().getRef();
        write_large_form(
            out, array.getExternalDimensions(), class_name,
            {.metadata = array.beginArrayProp() != array.endArrayProp()},
            [&] {
                write_properties_or_fail(out, properties_begin(object), properties_end(object), write,
                    "Value not specified for the property");
            },
            [&] {
                write_properties_or_fail(out, array.beginArrayProp(), array.endArrayProp(), write,
                    "Value not specified for the array property");
            });
    } else if (object_array_is_heterogeneous_x(array)) {
        // Each element carries its own class, which a property of that name replaces; nothing is caught.
        write_object_list(
            out, array, zorbaljson::detail::heterogeneous_class_name,
            [&](Reference<ValueObject const> const& element) {
                out.key(zorbaljson::detail::zqtype_key);
                out.string(class_name_of(object_reference_get_class_info_x(element.get())));
                write_properties(out, properties_begin(element), properties_end(element), write);
            },
            [] { throw zorbaljson::MismatchedZQSize(); });
    } else {
        // A property that cannot be written is left out of its element's object.
        write_object_list(
            out, array, class_name,
            [&](Reference<ValueObject const> const& element) {
                for (auto property = properties_begin(element), end = properties_end(element);
                     property != end; ++property) {
                    auto const before = out.mark();
                    try {
                        write_property(out, *property, write);
                    } catch (ArrayNestingTooDeep const&) {
                        // Too deep an array is refused as a whole, not cut off where it stands.
                        throw;
                    } catch (...) {
                        out.rollback(before);
                    }
                }
            },
            throw_count_mismatch);
    }
}

/// Writes the large form of a handle array: zqtype is the class of the first element's object (empty
/// for an empty array), zqdata holds for each element an object of the properties of the handle's value,
/// written by write(value, out). The identities of the handles are not written.
/// @throws foundation::zorbaldata::ObjectNotSupportedException "Serializing handle object as reference
/// is not supported for JSON." when the first handle may not be written by value; then what
/// detail::validateObjectTypeFilter throws; then std::runtime_error "Must have at least two dimensions";
/// then, unchanged, what reading a handle's value or writing a property throws;
/// foundation::zorbaljson::MismatchedZQSize when the elements walked are not as many as the dimensions
/// give.
template <typename Out, typename Write>
void write_handles(
    Out& out, TypedArray<HandleObjectRef> const& array, ObjectFilter const filter, Write const& write)
{
    auto const elements = getReadOnlyElements<HandleObjectRef>(array);
    // The first handle speaks for all: its class names the array, and it decides whether any is written.
    std::string class_name;
    if (array.getNumberOfElements() != 0) {
        HandleObjectRef const first = handle_at(elements.begin().getRef());
        class_name = first->get_class_name();
        if (!first->is_serializable_by_value())
            throw ObjectNotSupportedException(
                "Serializing handle object as reference is not supported for JSON.", class_name);
    }
    zorbaldata::detail::validateObjectTypeFilter(filter, class_name);
    Dimensions const dimensions = array.getDimensions();
    write_large_form(out, dimensions, class_name, {}, [&] {
        out.begin_array();
        unsigned long walked = 0;
        for (auto element = elements.begin(); !element.isEqual(elements.end());
             element.increment(), ++walked) {
            ValueObject const object = handle_value(handle_at(element.getRef()));
            out.begin_object();
            write_properties(out, object.cbegin(), object.cend(), write);
            out.end_object();
        }
        out.end_array();
        if (walked != element_count(dimensions))
            throw zorbaljson::MismatchedZQSize();
    });
}

} // namespace foundation::zorbaldata::json::detail
