// The writer of value object arrays, in the shape that the array's layout asks for.
#include <foundation/zorbaldata/json/detail/object_writer.hpp>

#include "property_json.hpp"

#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <foundation/zorbaldata/json/detail/large_form.hpp>
#include <foundation/zorbaldata/json/detail/writer_errors.hpp>
#include <foundation/zorbaldata/object_operations.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>

#include <stdexcept>
#include <string>
#include <utility>

namespace foundation::zorbaldata::json::detail {

namespace {

using zorbaljson::detail::heterogeneous_class_name;

std::string class_name_of(zorbal::data::detail::RefCounted* class_record)
{
    return ClassInfo(class_record).getClassIdentifier().getFullyQualifiedClassName();
}

ForwardIterator<Property const> properties_begin(Reference<ValueObject const> const& element)
{
    return ForwardIterator<Property const>(object_reference_begin_x(element.get()));
}

ForwardIterator<Property const> properties_end(Reference<ValueObject const> const& element)
{
    return ForwardIterator<Property const>(object_reference_end_x(element.get()));
}

// Every failure of a property, nested ones included, becomes the one text; what went wrong is lost.
template <typename Iterator>
JsonObject properties_or_fail(Iterator begin, Iterator const& end, element_writer write, char const* failure)
{
    try {
        JsonObject object;
        add_properties(object, std::move(begin), end, write);
        return object;
    } catch (ArrayNestingTooDeep const&) {
        throw;
    } catch (...) {
        throw std::runtime_error(failure);
    }
}

// One object standing for an array of its external dimensions; the array properties go to zqmetadata.
JsonValue write_external(ValueObjectArray const& array, std::string class_name, element_writer write)
{
    large_form form(array.getExternalDimensions(), std::move(class_name));
    auto const object = getReadOnlyElements<ValueObject>(array).begin().getRef();
    JsonObject data = properties_or_fail(
        properties_begin(object), properties_end(object), write, "Value not specified for the property");
    if (array.beginArrayProp() != array.endArrayProp())
        form.set(zorbaljson::detail::zqmetadata_key,
            JsonValue(properties_or_fail(array.beginArrayProp(), array.endArrayProp(), write,
                "Value not specified for the array property")));
    return std::move(form).finish(JsonValue(std::move(data)));
}

// The list shapes: one JSON object for each element, made by element_object; mismatch reports a walk
// that disagrees with the dimensions.
template <typename ElementObject>
JsonValue write_list(ValueObjectArray const& array, std::string type_name, ElementObject const& element_object,
    void (*mismatch)())
{
    large_form form(array.getDimensions(), std::move(type_name));
    JsonArray data;
    data.reserve(form.count());
    auto const elements = getReadOnlyElements<ValueObject>(array);
    for (auto element = elements.begin(); !element.isEqual(elements.end()); element.increment())
        data.emplace_back(element_object(element.getRef()));
    if (data.size() != form.count())
        mismatch();
    return std::move(form).finish(JsonValue(std::move(data)));
}

// Each element carries its own class, which a property of that name replaces; nothing is caught.
JsonValue write_heterogeneous(ValueObjectArray const& array, element_writer write)
{
    return write_list(
        array, heterogeneous_class_name,
        [write](Reference<ValueObject const> const& element) {
            JsonObject object;
            object[zorbaljson::detail::zqtype_key]
                = JsonValue(class_name_of(object_reference_get_class_info_x(element.get())));
            add_properties(object, properties_begin(element), properties_end(element), write);
            return object;
        },
        [] { throw zorbaljson::MismatchedZQSize(); });
}

// A property that cannot be written is left out of its element's object.
JsonValue write_homogeneous(ValueObjectArray const& array, std::string class_name, element_writer write)
{
    return write_list(
        array, std::move(class_name),
        [write](Reference<ValueObject const> const& element) {
            JsonObject object;
            for (auto property = properties_begin(element), end = properties_end(element); property != end;
                 ++property) {
                try {
                    set_property(object, *property, write);
                } catch (ArrayNestingTooDeep const&) {
                    // Too deep an array is refused as a whole, not cut off where it stands.
                    throw;
                } catch (...) {
                }
            }
            return object;
        },
        throw_count_mismatch);
}

} // namespace

JsonValue write_value_objects(ValueObjectArray const& array, ObjectFilter const filter, element_writer write)
{
    std::string class_name = class_name_of(object_array_get_class_info_x(array));
    zorbaldata::detail::validateObjectTypeFilter(filter, class_name);
    if (array.isExternalDimensionsSet() && array.getNumberOfElements() == 1)
        return write_external(array, std::move(class_name), write);
    if (object_array_is_heterogeneous_x(array))
        return write_heterogeneous(array, write);
    return write_homogeneous(array, std::move(class_name), write);
}

} // namespace foundation::zorbaldata::json::detail
