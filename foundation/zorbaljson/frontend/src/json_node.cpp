// The node view over a foundation::json::Value tree.
#include <frontend/detail/json_node.hpp>

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
    return is(json_kind::array) ? array().size() : object().size();
}

std::optional<JsonNode> JsonNode::find(std::string_view key) const
{
    auto const found = object().find(std::string(key));
    if (found == object().end())
        return std::nullopt;
    return JsonNode(found->second);
}

} // namespace foundation::zorbaljson::detail
