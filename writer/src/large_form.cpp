// The frame that every large form shares.
#include <foundation/zorbaldata/json/detail/large_form.hpp>

#include <foundation/zorbaldata/json/detail/dimensions.hpp>
#include <frontend/detail/notation_keys.hpp>

#include <utility>

namespace foundation::zorbaldata::json::detail {

large_form::large_form(Dimensions const& dimensions, std::string type_name)
    : count_(element_count(dimensions))
{
    require_two_dimensions(dimensions);
    JsonArray size;
    size.reserve(dimensions.size());
    for (unsigned long const dimension : dimensions)
        size.emplace_back(static_cast<double>(dimension));
    object_[zorbaljson::detail::zqsize_key] = JsonValue(std::move(size));
    object_[zorbaljson::detail::zqtype_key] = JsonValue(std::move(type_name));
}

void large_form::set_flag(std::string const& key)
{
    set(key, JsonValue(true));
}

void large_form::set(std::string const& key, JsonValue value)
{
    object_[key] = std::move(value);
}

JsonValue large_form::finish(JsonValue data) &&
{
    object_[zorbaljson::detail::zqdata_key] = std::move(data);
    return JsonValue(std::move(object_));
}

} // namespace foundation::zorbaldata::json::detail
