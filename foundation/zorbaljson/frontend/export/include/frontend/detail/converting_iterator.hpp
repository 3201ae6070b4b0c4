// A range of JSON values that converts each one only when it is read, so the builders never see JSON.
#pragma once

#include <frontend/detail/json_node.hpp>

#include <cstddef>
#include <functional>
#include <iterator>
#include <utility>

namespace foundation::zorbaljson::detail {

/// The conversion of one JSON value to one element.
template <typename T>
using ElementConverter = std::function<T(JsonNode)>;

/// A position among JSON values and the conversion of the value there to a T. Reading runs the
/// conversion, at the moment the builder asks for the element; advancing moves the position; two
/// iterators are equal when their positions are. Position is a cursor over the elements of a JSON array
/// by default, or over the entries of a JSON object, whose converter then takes the key with the value.
///
/// The iterator refers to its converter, which must outlive it: readers keep the converter on their
/// stack for the call of the builder, and copying an iterator costs no more than copying its position.
template <typename T, typename Position = ElementCursor>
class ConvertingIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = T;
    using difference_type = std::ptrdiff_t;
    using Converter = std::function<T(decltype(*std::declval<Position const&>()))>;

    ConvertingIterator(Position position, Converter const& convert)
        : position_(std::move(position))
        , convert_(&convert)
    {
    }
    ConvertingIterator(Position, Converter const&&) = delete;

    /// The converted value at the position. @throws what the converter throws.
    T operator*() const { return (*convert_)(*position_); }

    ConvertingIterator& operator++()
    {
        ++position_;
        return *this;
    }

    friend bool operator==(ConvertingIterator const& a, ConvertingIterator const& b)
    {
        return a.position_ == b.position_;
    }

private:
    Position position_;
    Converter const* convert_;
};

/// A position among the values of a JSON object, in the order of its keys, for a ConvertingIterator.
class ObjectValuePosition {
public:
    explicit ObjectValuePosition(EntryCursor entry) : entry_(entry) {}

    JsonNode operator*() const noexcept { return (*entry_).value; }

    ObjectValuePosition& operator++()
    {
        ++entry_;
        return *this;
    }

    friend bool operator==(ObjectValuePosition const&, ObjectValuePosition const&) = default;

private:
    EntryCursor entry_;
};

/// A position among the entries of a JSON object, key and value, in the order of the keys.
using ObjectEntryPosition = EntryCursor;

/// The conversion of one entry of a JSON object, which sees the key beside the value.
template <typename T>
using EntryConverter = std::function<T(JsonEntry)>;

/// The begin and end iterators over all elements of the JSON array list, converting with convert.
template <typename T>
std::pair<ConvertingIterator<T>, ConvertingIterator<T>> converting_range(
    JsonNode list, ElementConverter<T> const& convert)
{
    return { ConvertingIterator<T>(list.begin(), convert), ConvertingIterator<T>(list.end(), convert) };
}

template <typename T>
void converting_range(JsonNode, ElementConverter<T> const&&) = delete;

} // namespace foundation::zorbaljson::detail
