// The node view over a foundation::json::Value tree.
#include <frontend/detail/json_node.hpp>

#include <algorithm>

namespace foundation::zorbaljson::detail {

char const* json_kind_name(int kind) noexcept
{
    namespace json = foundation::json;
    constexpr char const* names[] = {
        json::traits<json::Undefined>::name, json::traits<json::Null>::name, json::traits<bool>::name,
        json::traits<double>::name, json::traits<std::string>::name, json::traits<json::Array>::name,
        json::traits<json::Object>::name, json::traits<float>::name, json::traits<long long>::name,
        json::traits<unsigned long long>::name,
    };
    return names[kind];
}

std::size_t JsonNode::size() const noexcept
{
    if (!value_)
        return tape_->slot(index_).count;
    return is(json_kind::array) ? array().size() : object().size();
}

std::optional<JsonNode> JsonNode::find(std::string_view key) const
{
    if (!value_) {
        // The members are sorted by key, as a map's are.
        auto const* const first = tape_->members(index_);
        auto const* const last = first + tape_->slot(index_).count;
        auto const* const found = std::lower_bound(first, last, key,
            [this](foundation::json::detail::TapeMember const& member, std::string_view wanted) {
                return tape_->key(member) < wanted;
            });
        if (found == last || tape_->key(*found) != key)
            return std::nullopt;
        return JsonNode(*tape_, found->value);
    }
    auto const found = object().find(std::string(key));
    if (found == object().end())
        return std::nullopt;
    return JsonNode(found->second);
}

} // namespace foundation::zorbaljson::detail
