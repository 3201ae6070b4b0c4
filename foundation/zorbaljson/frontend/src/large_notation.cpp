// The large notation header: large form, special float or plain object, and the kind of a large form.
#include <frontend/detail/large_notation.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/json_value_to_zorbal_visitor.hpp>
#include <frontend/detail/large_format_visitor.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/property_readers.hpp>
#include <frontend/detail/special_float.hpp>
#include <frontend/detail/types.hpp>

#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <string>
#include <vector>

namespace foundation::zorbaljson::detail {

namespace {

// A plain object is a 1-by-1 struct of all its keys, header keys included, in the order of the map; each
// value is a document of its own. The object's own level of nesting is already counted.
template <typename B>
foundation::zorbaldata::Array read_plain_object(JsonNode object, B& backend)
{
    std::vector<std::string> names;
    names.reserve(object.size());
    for (EntryCursor entry = object.entries_begin(); entry != object.entries_end(); ++entry)
        names.emplace_back((*entry).key);
    ElementConverter<foundation::zorbaldata::Array> const convert = nested_document_converter(backend);
    ConvertingIterator<foundation::zorbaldata::Array, ObjectValuePosition> const begin(
        ObjectValuePosition(object.entries_begin()), convert);
    ConvertingIterator<foundation::zorbaldata::Array, ObjectValuePosition> const end(
        ObjectValuePosition(object.entries_end()), convert);
    return backend.create_struct(begin, end, { 1, 1 }, names);
}

// A name that is no type name is a class name: a handle object with "zqhandle", else a value object,
// unless "zqdata" is a list whose first entry is a string, which makes an enumeration.
ZorbalType class_kind(JsonNode data, bool has_handle)
{
    ZorbalType const object_kind = has_handle ? ZorbalHandleObject : ZorbalValueObject;
    if (data.is(json_kind::object))
        return object_kind;
    JsonNode const list = read_property(data, json_kind::array, zqdata_key);
    if (list.size() != 0 && (*list.begin()).is(json_kind::string))
        return ZorbalEnum;
    return object_kind;
}

ZorbalType resolve_kind(std::string const& name, JsonNode data, bool has_handle)
{
    try {
        return zorbal_type_for_name(name);
    } catch (...) {
        return class_kind(data, has_handle);
    }
}

} // namespace

template <typename B>
foundation::zorbaldata::Array read_large_notation(JsonNode object, B& backend)
{
    auto const type = object.find(zqtype_key);
    auto const data = object.find(zqdata_key);
    auto const size = object.find(zqsize_key);
    bool const has_handle = object.find(zqhandle_key).has_value();
    bool const has_type = type.has_value();
    bool const has_size = size.has_value();

    if (!data || has_type != has_size)
        return read_plain_object(object, backend);
    if (!has_type) {
        if (data->is(json_kind::string) && is_special_float_string(data->as_string()))
            return backend.create_double_array({ 1, 1 }, { special_float_from_string(data->as_string()) });
        return read_plain_object(object, backend);
    }

    // The size is found to be a list before the type to be a string; the kind is resolved before the
    // dimensions are read.
    JsonNode const size_list = read_property(*size, json_kind::array, zqsize_key);
    std::string const name(read_property(*type, json_kind::string, zqtype_key).as_string());
    ZorbalType const kind = resolve_kind(name, *data, has_handle);
    zorbal_json_large_format_visitor<B> const visitor(object, *data, size_list, backend);
    return dispatch_on_ZorbalType(kind, visitor);
}

template foundation::zorbaldata::Array read_large_notation(
    JsonNode, foundation::zorbaldata::json::detail::to_zorbaldata_visitor&);

} // namespace foundation::zorbaljson::detail
