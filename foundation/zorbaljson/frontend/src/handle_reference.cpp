// The identities of a handle array.
#include <frontend/detail/handle_reference.hpp>

#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/read_data.hpp>

#include <foundation/json/value.hpp>

#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

std::string const handle_label = "handle";

// A missing member reads as Undefined, which no cast accepts, so it fails as a member of the wrong kind.
JsonNode member(JsonNode object, std::string const& key)
{
    static foundation::json::Value const undefined;
    return object.find(key).value_or(JsonNode(undefined));
}

} // namespace

HandleReference read_handle_reference(JsonNode object, std::string const& class_name)
{
    auto const handle = object.find(zqhandle_key);
    if (!handle)
        throw InvalidZQDataType(class_name, "handle reference", zqhandle_key);
    JsonNode const members = read_data(*handle, json_kind::object, handle_label, zqhandle_key);
    std::string kvx_id(
        read_data(member(members, zqkvxid_key), json_kind::string, handle_label, zqkvxid_key).as_string());
    JsonNode const object_ids = read_data(member(members, zqobjectid_key), json_kind::array, handle_label, zqobjectid_key);
    return { std::move(kvx_id), object_ids };
}

} // namespace foundation::zorbaljson::detail
