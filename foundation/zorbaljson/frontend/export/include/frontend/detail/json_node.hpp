// The view of one JSON value through which the notation's readers see a document, whatever holds it.
#pragma once

#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/json/value.hpp>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace foundation::zorbaljson::detail {

/// The alternatives a JSON node can hold, numbered as foundation::json::Value::which() numbers them, so
/// that messages name them with foundation::json::traits.
namespace json_kind {
inline constexpr int undefined = foundation::json::traits<foundation::json::Undefined>::which;
inline constexpr int null = foundation::json::traits<foundation::json::Null>::which;
inline constexpr int boolean = foundation::json::traits<bool>::which;
inline constexpr int number = foundation::json::traits<double>::which;
inline constexpr int string = foundation::json::traits<std::string>::which;
inline constexpr int array = foundation::json::traits<foundation::json::Array>::which;
inline constexpr int object = foundation::json::traits<foundation::json::Object>::which;
inline constexpr int single = foundation::json::traits<float>::which;
inline constexpr int int64 = foundation::json::traits<long long>::which;
inline constexpr int uint64 = foundation::json::traits<unsigned long long>::which;
} // namespace json_kind

/// How messages name the alternative numbered kind, such as "JSON array".
char const* json_kind_name(int kind) noexcept;

class JsonNode;
struct JsonEntry;

/// A position among the elements of a JSON array, in their order.
class ElementCursor {
public:
    ElementCursor() = default;
    explicit ElementCursor(foundation::json::Value const* element) noexcept : element_(element) {}

    JsonNode operator*() const noexcept;

    ElementCursor& operator++() noexcept
    {
        ++element_;
        return *this;
    }

    friend bool operator==(ElementCursor, ElementCursor) = default;

private:
    foundation::json::Value const* element_ = nullptr;
};

/// A position among the entries of a JSON object, in the byte order of their keys; a key occurs once.
class EntryCursor {
public:
    EntryCursor() = default;
    explicit EntryCursor(foundation::json::Object::const_iterator entry) noexcept : entry_(entry) {}

    /// The key and the value at the position.
    JsonEntry operator*() const noexcept;

    EntryCursor& operator++() noexcept
    {
        ++entry_;
        return *this;
    }

    friend bool operator==(EntryCursor const&, EntryCursor const&) = default;

private:
    foundation::json::Object::const_iterator entry_;
};

/// One JSON value, read only. It refers into the document, which must outlive it, and costs no more than
/// a pointer to copy. The checked reads fail as json_cast does: with the std::runtime_error
/// "invalid conversion: <held name> to <wanted name>", and no conversion between alternatives.
class JsonNode {
public:
    explicit JsonNode(foundation::json::Value const& value) noexcept : value_(&value) {}

    /// The alternative held, numbered as in json_kind.
    int kind() const noexcept { return value_->which(); }
    bool is(int kind) const noexcept { return this->kind() == kind; }

    /// @throws std::runtime_error "invalid conversion: " when the node holds another alternative.
    void expect(int kind) const
    {
        if (!is(kind)) [[unlikely]]
            foundation::json::detail::throw_invalid_conversion(this->kind(), kind);
    }

    /// The scalar held. @throws std::runtime_error "invalid conversion: " for another alternative.
    bool as_bool() const { return foundation::json::json_cast<bool>(*value_); }
    double as_double() const { return foundation::json::json_cast<double>(*value_); }
    long long as_int64() const { return foundation::json::json_cast<long long>(*value_); }
    unsigned long long as_uint64() const { return foundation::json::json_cast<unsigned long long>(*value_); }
    /// The UTF-8 bytes of a string, which live as long as the document.
    std::string_view as_string() const { return foundation::json::json_cast<std::string>(*value_); }

    /// The number of elements of an array or of entries of an object. The node must hold one of them.
    std::size_t size() const noexcept;

    /// The elements of an array. The node must hold an array.
    ElementCursor begin() const noexcept { return ElementCursor(array().data()); }
    ElementCursor end() const noexcept { return ElementCursor(array().data() + array().size()); }

    /// The entries of an object. The node must hold an object.
    EntryCursor entries_begin() const noexcept { return EntryCursor(object().begin()); }
    EntryCursor entries_end() const noexcept { return EntryCursor(object().end()); }

    /// The value at key, matched exactly, or none. The node must hold an object.
    std::optional<JsonNode> find(std::string_view key) const;

private:
    foundation::json::Array const& array() const noexcept
    {
        return foundation::json::detail::ValueAccess::get<foundation::json::Array>(*value_);
    }
    foundation::json::Object const& object() const noexcept
    {
        return foundation::json::detail::ValueAccess::get<foundation::json::Object>(*value_);
    }

    foundation::json::Value const* value_;
};

inline JsonNode ElementCursor::operator*() const noexcept { return JsonNode(*element_); }

/// One entry of a JSON object.
struct JsonEntry {
    std::string_view key;
    JsonNode value;
};

inline JsonEntry EntryCursor::operator*() const noexcept { return { entry_->first, JsonNode(entry_->second) }; }

/// The element at index of array, which has more elements than that; reached by walking, for the few
/// lists of the notation that have their entries at fixed places.
inline JsonNode element_at(JsonNode array, std::size_t index) noexcept
{
    ElementCursor element = array.begin();
    for (; index != 0; --index)
        ++element;
    return *element;
}

} // namespace foundation::zorbaljson::detail
