// The view of one JSON value through which the notation's readers see a document, whatever holds it.
#pragma once

#include <foundation/json/detail/tape.hpp>
#include <foundation/json/json_cast.hpp>
#include <foundation/json/traits.hpp>
#include <foundation/json/value.hpp>

#include <cstddef>
#include <cstdint>
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

using foundation::json::detail::Tape;

/// A position among the elements of a JSON array, in their order.
class ElementCursor {
public:
    ElementCursor() = default;
    explicit ElementCursor(foundation::json::Value const* element) noexcept : element_(element) {}
    /// At the slot index of a tape.
    ElementCursor(Tape const& tape, std::uint32_t index) noexcept : tape_(&tape), index_(index) {}
    /// At element ordinal of the packed array at index of a tape.
    ElementCursor(Tape const& tape, std::uint32_t index, std::uint32_t ordinal) noexcept
        : tape_(&tape)
        , index_(index)
        , ordinal_(ordinal)
        , packed_(true)
    {
    }

    JsonNode operator*() const noexcept;

    ElementCursor& operator++() noexcept
    {
        if (packed_)
            ++ordinal_;
        else if (tape_)
            index_ = tape_->next(index_);
        else
            ++element_;
        return *this;
    }

    friend bool operator==(ElementCursor const& a, ElementCursor const& b) noexcept
    {
        return a.element_ == b.element_ && a.index_ == b.index_ && a.ordinal_ == b.ordinal_;
    }

private:
    foundation::json::Value const* element_ = nullptr;
    Tape const* tape_ = nullptr;
    std::uint32_t index_ = 0;
    std::uint32_t ordinal_ = 0;
    bool packed_ = false;
};

/// A position among the entries of a JSON object, in the byte order of their keys; a key occurs once.
class EntryCursor {
public:
    EntryCursor() = default;
    explicit EntryCursor(foundation::json::Object::const_iterator entry) noexcept : entry_(entry) {}
    EntryCursor(Tape const& tape, foundation::json::detail::TapeMember const* member) noexcept
        : tape_(&tape)
        , member_(member)
    {
    }

    /// The key and the value at the position.
    JsonEntry operator*() const noexcept;

    EntryCursor& operator++() noexcept
    {
        if (tape_)
            ++member_;
        else
            ++entry_;
        return *this;
    }

    friend bool operator==(EntryCursor const& a, EntryCursor const& b) noexcept
    {
        return a.entry_ == b.entry_ && a.member_ == b.member_;
    }

private:
    foundation::json::Object::const_iterator entry_;
    Tape const* tape_ = nullptr;
    foundation::json::detail::TapeMember const* member_ = nullptr;
};

/// One JSON value, read only: a value of a caller's tree, or of the tape that the text reader made. It
/// refers into the document, which must outlive it, and is cheap to copy. Both kinds of document
/// answer alike, so every reader of the notation is written once for both. The checked reads fail as
/// json_cast does: with the std::runtime_error "invalid conversion: <held name> to <wanted name>", and
/// no conversion between alternatives.
class JsonNode {
public:
    explicit JsonNode(foundation::json::Value const& value) noexcept : value_(&value) {}
    /// The value at slot index of a tape.
    JsonNode(Tape const& tape, std::uint32_t index) noexcept : tape_(&tape), index_(index) {}
    /// Element ordinal of the packed array at slot index of a tape.
    JsonNode(Tape const& tape, std::uint32_t index, std::uint32_t ordinal) noexcept
        : tape_(&tape)
        , index_(index)
        , ordinal_(ordinal)
        , packed_(true)
    {
    }

    /// The alternative held, numbered as in json_kind.
    int kind() const noexcept
    {
        if (value_)
            return value_->which();
        return packed_ ? tape_->packed_kind(index_) : tape_->slot(index_).kind;
    }
    bool is(int kind) const noexcept { return this->kind() == kind; }

    /// @throws std::runtime_error "invalid conversion: " when the node holds another alternative.
    void expect(int kind) const
    {
        if (!is(kind)) [[unlikely]]
            foundation::json::detail::throw_invalid_conversion(this->kind(), kind);
    }

    /// The scalar held. @throws std::runtime_error "invalid conversion: " for another alternative.
    bool as_bool() const
    {
        expect(json_kind::boolean);
        return value_ ? foundation::json::detail::ValueAccess::get<bool>(*value_) : tape_->slot(index_).payload != 0;
    }
    double as_double() const
    {
        expect(json_kind::number);
        if (value_)
            return foundation::json::detail::ValueAccess::get<double>(*value_);
        return packed_ ? tape_->packed_number(index_, ordinal_) : tape_->number(index_);
    }
    long long as_int64() const
    {
        expect(json_kind::int64);
        return value_ ? foundation::json::detail::ValueAccess::get<long long>(*value_)
                      : static_cast<long long>(word());
    }
    unsigned long long as_uint64() const
    {
        expect(json_kind::uint64);
        return value_ ? foundation::json::detail::ValueAccess::get<unsigned long long>(*value_) : word();
    }
    /// The UTF-8 bytes of a string, which live as long as the document.
    std::string_view as_string() const
    {
        expect(json_kind::string);
        return value_ ? std::string_view(foundation::json::detail::ValueAccess::get<std::string>(*value_))
                      : tape_->string(index_);
    }

    /// The number of elements of an array or of entries of an object. The node must hold one of them.
    std::size_t size() const noexcept;

    /// The elements of an array. The node must hold an array.
    ElementCursor begin() const noexcept
    {
        if (value_)
            return ElementCursor(array().data());
        if (tape_->slot(index_).packed)
            return ElementCursor(*tape_, index_, 0);
        return ElementCursor(*tape_, index_ + 1);
    }
    ElementCursor end() const noexcept
    {
        if (value_)
            return ElementCursor(array().data() + array().size());
        if (tape_->slot(index_).packed)
            return ElementCursor(*tape_, index_, tape_->slot(index_).count);
        return ElementCursor(*tape_, tape_->next(index_));
    }

    /// The entries of an object. The node must hold an object.
    EntryCursor entries_begin() const noexcept
    {
        return value_ ? EntryCursor(object().begin()) : EntryCursor(*tape_, tape_->members(index_));
    }
    EntryCursor entries_end() const noexcept
    {
        return value_ ? EntryCursor(object().end())
                      : EntryCursor(*tape_, tape_->members(index_) + tape_->slot(index_).count);
    }

    /// The value at key, matched exactly, or none. The node must hold an object.
    std::optional<JsonNode> find(std::string_view key) const;

    /// How a JSON array on a tape holds its numbers (foundation::json::detail::PackedForm), unpacked
    /// for any other node.
    std::uint8_t packed_form() const noexcept { return value_ || packed_ ? 0 : tape_->slot(index_).packed; }

    /// The numbers of a packed array, handed over as one block that std::free frees, when the tape can
    /// give them away (Tape::take_root_data); the node must not be read again then. Null otherwise.
    void* take_numbers() const noexcept { return value_ || packed_ ? nullptr : tape_->take_root_data(index_); }

private:
    foundation::json::Array const& array() const noexcept
    {
        return foundation::json::detail::ValueAccess::get<foundation::json::Array>(*value_);
    }
    foundation::json::Object const& object() const noexcept
    {
        return foundation::json::detail::ValueAccess::get<foundation::json::Object>(*value_);
    }

    // The word of a scalar on the tape, in its slot or in its packed array.
    std::uint64_t word() const noexcept
    {
        return packed_ ? tape_->word(index_, ordinal_) : tape_->slot(index_).payload;
    }

    // One of the two is set; a packed element is ordinal of the array at index.
    foundation::json::Value const* value_ = nullptr;
    Tape const* tape_ = nullptr;
    std::uint32_t index_ = 0;
    std::uint32_t ordinal_ = 0;
    bool packed_ = false;
};

inline JsonNode ElementCursor::operator*() const noexcept
{
    if (packed_)
        return JsonNode(*tape_, index_, ordinal_);
    return tape_ ? JsonNode(*tape_, index_) : JsonNode(*element_);
}

/// One entry of a JSON object.
struct JsonEntry {
    std::string_view key;
    JsonNode value;
};

inline JsonEntry EntryCursor::operator*() const noexcept
{
    if (tape_)
        return { tape_->key(*member_), JsonNode(*tape_, member_->value) };
    return { entry_->first, JsonNode(entry_->second) };
}

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
