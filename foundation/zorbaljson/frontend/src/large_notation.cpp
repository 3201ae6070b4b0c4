// The large notation header: large form, special float or plain object, and the kind of a large form.
#include <frontend/detail/large_notation.hpp>

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/json_value_to_zorbal_visitor.hpp>
#include <frontend/detail/large_format_visitor.hpp>
#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/property_readers.hpp>
#include <frontend/detail/special_float.hpp>
#include <frontend/detail/types.hpp>

#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/zorbaldata/json/detail/to_zorbaldata_visitor.hpp>

#include <string>
#include <vector>

namespace foundation::zorbaljson::detail {

namespace {

using foundation::json::json_cast;
using foundation::json::traits;
using foundation::json::Value;
using JsonArray = foundation::json::Array;
using JsonObject = foundation::json::Object;

// A plain object is a 1-by-1 struct of all its keys, header keys included, in the order of the map; each
// value is a document of its own. The object's own level of nesting is already counted.
template <typename B>
foundation::zorbaldata::Array read_plain_object(JsonObject const& object, B& backend)
{
    std::vector<std::string> names;
    names.reserve(object.size());
    for (auto const& entry : object)
        names.push_back(entry.first);
    ElementConverter<foundation::zorbaldata::Array> const convert = nested_document_converter(backend);
    ConvertingIterator<foundation::zorbaldata::Array, ObjectValuePosition> const begin(
        ObjectValuePosition(object.begin()), convert);
    ConvertingIterator<foundation::zorbaldata::Array, ObjectValuePosition> const end(
        ObjectValuePosition(object.end()), convert);
    return backend.create_struct(begin, end, { 1, 1 }, names);
}

// A name that is no type name is a class name: a handle object with "zqhandle", else a value object,
// unless "zqdata" is a list whose first entry is a string, which makes an enumeration.
ZorbalType class_kind(Value const& data, bool has_handle)
{
    ZorbalType const object_kind = has_handle ? ZorbalHandleObject : ZorbalValueObject;
    if (data.which() == traits<JsonObject>::which)
        return object_kind;
    JsonArray const& list = read_property<JsonArray>(data, zqdata_key);
    if (!list.empty() && list.front().which() == traits<std::string>::which)
        return ZorbalEnum;
    return object_kind;
}

ZorbalType resolve_kind(std::string const& name, Value const& data, bool has_handle)
{
    try {
        return zorbal_type_for_name(name);
    } catch (...) {
        return class_kind(data, has_handle);
    }
}

} // namespace

template <typename B>
foundation::zorbaldata::Array read_large_notation(JsonObject const& object, B& backend)
{
    auto const type = object.find(zqtype_key);
    auto const data = object.find(zqdata_key);
    auto const size = object.find(zqsize_key);
    bool const has_handle = object.contains(zqhandle_key);
    bool const has_type = type != object.end();
    bool const has_size = size != object.end();

    if (data == object.end() || has_type != has_size)
        return read_plain_object(object, backend);
    if (!has_type) {
        Value const& text = data->second;
        if (text.which() == traits<std::string>::which
            && is_special_float_string(json_cast<std::string>(text)))
            return backend.create_double_array(
                { 1, 1 }, { special_float_from_string(json_cast<std::string>(text)) });
        return read_plain_object(object, backend);
    }

    // The size is found to be a list before the type to be a string; the kind is resolved before the
    // dimensions are read.
    JsonArray const& size_list = read_property<JsonArray>(size->second, zqsize_key);
    std::string const& name = read_property<std::string>(type->second, zqtype_key);
    ZorbalType const kind = resolve_kind(name, data->second, has_handle);
    zorbal_json_large_format_visitor<B> const visitor(object, data->second, size_list, backend);
    return dispatch_on_ZorbalType(kind, visitor);
}

template foundation::zorbaldata::Array read_large_notation(
    JsonObject const&, foundation::zorbaldata::json::detail::to_zorbaldata_visitor&);

} // namespace foundation::zorbaljson::detail
