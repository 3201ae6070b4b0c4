// The exported entries from an array to JSON: the choice of variant by exact values of the settings.
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

#include <foundation/json/serialize.hpp>
#include <foundation/zorbaldata/json/detail/to_json.hpp>

#include <utility>

namespace foundation::zorbaldata::json {

namespace {

using zorbaljson::NanType;
using zorbaljson::ToJsonMode;

struct variant {
    ToJsonMode mode;
    NanType nan_type;
    ObjectFilter filter;
    detail::element_writer write;
};

using enum ToJsonMode;
using enum NanType;
using enum ObjectFilter;

// Only these combinations select a writer; the settings are compared as the values the caller passed.
constexpr variant variants[] = {
    {Large, String, AllowAll, &detail::to_json<Large, String, AllowAll>},
    {Large, String, AllowListed, &detail::to_json<Large, String, AllowListed>},
    {Large, String, DenyAll, &detail::to_json<Large, String, DenyAll>},
    {Small, String, AllowAll, &detail::to_json<Small, String, AllowAll>},
    {Small, String, AllowListed, &detail::to_json<Small, String, AllowListed>},
    {Small, String, DenyAll, &detail::to_json<Small, String, DenyAll>},
    {Large, Object, AllowAll, &detail::to_json<Large, Object, AllowAll>},
    {Large, Object, AllowListed, &detail::to_json<Large, Object, AllowListed>},
    {Large, Object, DenyAll, &detail::to_json<Large, Object, DenyAll>},
    {Small, Object, AllowAll, &detail::to_json<Small, Object, AllowAll>},
    {Small, Object, AllowListed, &detail::to_json<Small, Object, AllowListed>},
    {Small, Object, DenyAll, &detail::to_json<Small, Object, DenyAll>},
};

} // namespace

foundation::json::Value zorbaldata_to_json(Array array, ToJsonMode mode, NanType nanType, ObjectFilter filter)
{
    for (variant const& candidate : variants)
        if (candidate.mode == mode && candidate.nan_type == nanType && candidate.filter == filter)
            return candidate.write(std::move(array));
    return foundation::json::Value();
}

std::string zorbaldata_to_string(Array array, ToJsonMode mode, NanType nanType, ObjectFilter filter)
{
    return foundation::json::serialize(zorbaldata_to_json(std::move(array), mode, nanType, filter));
}

} // namespace foundation::zorbaldata::json
