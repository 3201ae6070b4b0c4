// RapidJSON's DOM of each benchmark document, converted into plain containers by the shared conversion.
#include "rapidjson_reader.hpp"

#include "container_reader.hpp"

#include <rapidjson/document.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string_view>

namespace zq::bench {
namespace {

// The node view of container_reader.hpp over a RapidJSON value.
class RapidJsonNode {
public:
    explicit RapidJsonNode(rapidjson::Value const& value) : value_(&value) {}

    JsonKind kind() const
    {
        switch (value_->GetType()) {
        case rapidjson::kNullType: return JsonKind::null;
        case rapidjson::kFalseType:
        case rapidjson::kTrueType: return JsonKind::boolean;
        case rapidjson::kObjectType: return JsonKind::object;
        case rapidjson::kArrayType: return JsonKind::array;
        case rapidjson::kStringType: return JsonKind::string;
        case rapidjson::kNumberType: break;
        }
        return JsonKind::number;
    }

    double number() const { return value_->GetDouble(); }

    std::optional<std::int64_t> int64() const
    {
        return value_->IsInt64() ? std::optional<std::int64_t>(value_->GetInt64()) : std::nullopt;
    }

    bool boolean() const { return value_->GetBool(); }

    std::string_view string() const { return {value_->GetString(), value_->GetStringLength()}; }

    std::size_t size() const { return value_->IsArray() ? value_->Size() : value_->MemberCount(); }

    RapidJsonNode front() const { return RapidJsonNode(*value_->Begin()); }

    template <class Visit>
    void for_each(Visit visit) const
    {
        for (rapidjson::Value const& element : value_->GetArray())
            visit(RapidJsonNode(element));
    }

    std::optional<RapidJsonNode> member(std::string_view key) const
    {
        rapidjson::Value const name(rapidjson::StringRef(key.data(), key.size()));
        auto const found = value_->FindMember(name);
        if (found == value_->MemberEnd())
            return std::nullopt;
        return RapidJsonNode(found->value);
    }

private:
    rapidjson::Value const* value_;
};

} // namespace

Containers read_with_rapidjson(DocumentId id, std::string const& text)
{
    rapidjson::Document document;
    document.Parse<rapidjson::kParseFullPrecisionFlag>(text.data(), text.size());
    if (document.HasParseError())
        throw std::runtime_error("RapidJSON rejected the document");
    return read_containers(id, RapidJsonNode(document));
}

} // namespace zq::bench
