// The identities of a handle array.
#include <frontend/detail/handle_reference.hpp>

#include <frontend/detail/notation_keys.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/read_data.hpp>

#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

std::string const handle_label = "handle";

// A missing member reads as Undefined, which no cast accepts, so it fails as a member of the wrong kind.
foundation::json::Value const& member(foundation::json::Object const& object, std::string const& key)
{
    static foundation::json::Value const undefined;
    auto const found = object.find(key);
    return found == object.end() ? undefined : found->second;
}

} // namespace

HandleReference read_handle_reference(foundation::json::Object const& object, std::string const& class_name)
{
    auto const handle = object.find(zqhandle_key);
    if (handle == object.end())
        throw InvalidZQDataType(class_name, "handle reference", zqhandle_key);
    auto const& members = read_data<foundation::json::Object>(handle->second, handle_label, zqhandle_key);
    std::string kvx_id = read_data<std::string>(member(members, zqkvxid_key), handle_label, zqkvxid_key);
    auto const& object_ids
        = read_data<foundation::json::Array>(member(members, zqobjectid_key), handle_label, zqobjectid_key);
    return { std::move(kvx_id), &object_ids };
}

} // namespace foundation::zorbaljson::detail
