// The entry of the writer variants, and the twelve variants themselves.
#include <foundation/zorbaldata/json/detail/to_json.hpp>

#include <foundation/zorbaldata/json/detail/array_type_dispatch.hpp>
#include <foundation/zorbaldata/json/detail/to_json_visitor.hpp>

namespace foundation::zorbaldata::json::detail {

template <zorbaljson::ToJsonMode Mode, zorbaljson::NanType Nan, ObjectFilter Filter>
JsonValue to_json(Array array)
{
    return dispatch_on_array_type(array.getType(), array, to_json_visitor<Mode, Nan, Filter>());
}

using enum zorbaljson::ToJsonMode;
using enum zorbaljson::NanType;
using enum ObjectFilter;

template JsonValue to_json<Large, String, AllowAll>(Array);
template JsonValue to_json<Large, String, AllowListed>(Array);
template JsonValue to_json<Large, String, DenyAll>(Array);
template JsonValue to_json<Small, String, AllowAll>(Array);
template JsonValue to_json<Small, String, AllowListed>(Array);
template JsonValue to_json<Small, String, DenyAll>(Array);
template JsonValue to_json<Large, Object, AllowAll>(Array);
template JsonValue to_json<Large, Object, AllowListed>(Array);
template JsonValue to_json<Large, Object, DenyAll>(Array);
template JsonValue to_json<Small, Object, AllowAll>(Array);
template JsonValue to_json<Small, Object, AllowListed>(Array);
template JsonValue to_json<Small, Object, DenyAll>(Array);

} // namespace foundation::zorbaldata::json::detail
