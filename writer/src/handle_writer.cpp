// The writer of handle arrays: each handle by the properties of its value, without its identity.
#include <foundation/zorbaldata/json/detail/object_writer.hpp>

#include "property_json.hpp"

#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/object_operations.hpp>
#include <frontend/detail/parse_error.hpp>

#include <string>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

HandleObjectRef handle_at(Reference<HandleObjectRef const> const& element)
{
    HandleObjectImpl* shared = nullptr;
    handle_object_ref_reference_shared_copy_x(element.get(), &shared);
    return HandleObjectRef(shared);
}

// The properties of element 0 of the handle's value.
JsonObject handle_properties(HandleObjectRef const& handle, element_writer write)
{
    TypedArray<ValueObject> const value(handle->get_value());
    zorbal::data::detail::RefCounted* shared = nullptr;
    object_reference_shared_copy_x(value[0].get(), &shared);
    ValueObject const object(shared);
    JsonObject properties;
    add_properties(properties, object.cbegin(), object.cend(), write);
    return properties;
}

} // namespace

JsonValue write_handles(TypedArray<HandleObjectRef> const& array, ObjectFilter const filter, element_writer write)
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
    large_form form(array.getDimensions(), std::move(class_name));
    JsonArray data;
    data.reserve(form.count());
    for (auto element = elements.begin(); !element.isEqual(elements.end()); element.increment())
        data.emplace_back(handle_properties(handle_at(element.getRef()), write));
    if (data.size() != form.count())
        throw zorbaljson::MismatchedZQSize();
    return std::move(form).finish(JsonValue(std::move(data)));
}

} // namespace foundation::zorbaldata::json::detail
