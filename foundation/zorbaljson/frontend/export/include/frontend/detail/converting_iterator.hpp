// A range of JSON values that converts each one only when it is read, so the builders never see JSON.
#pragma once

#include <foundation/json/value.hpp>

#include <cstddef>
#include <functional>
#include <iterator>
#include <utility>
#include <vector>

namespace foundation::zorbaljson::detail {

/// The conversion of one JSON value to one element.
template <typename T>
using ElementConverter = std::function<T(foundation::json::Value const&)>;

/// A position among JSON values and the conversion of the value there to a T. Reading runs the
/// conversion, at the moment the builder asks for the element; advancing moves the position; two
/// iterators are equal when their positions are. Position is any forward iterator over
/// `foundation::json::Value const` (a pointer into a JSON array by default), or over the entries of a
/// JSON object, whose converter then takes the key with the value.
///
/// The iterator refers to its converter, which must outlive it: readers keep the converter on their
/// stack for the call of the builder, and copying an iterator costs no more than copying its position.
template <typename T, typename Position = foundation::json::Value const*>
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
    explicit ObjectValuePosition(foundation::json::Object::const_iterator entry) : entry_(entry) {}

    foundation::json::Value const& operator*() const { return entry_->second; }

    ObjectValuePosition& operator++()
    {
        ++entry_;
        return *this;
    }

    friend bool operator==(ObjectValuePosition const&, ObjectValuePosition const&) = default;

private:
    foundation::json::Object::const_iterator entry_;
};

/// A position among the entries of a JSON object, key and value, in the order of the keys.
using ObjectEntryPosition = foundation::json::Object::const_iterator;

/// The conversion of one entry of a JSON object, which sees the key beside the value.
template <typename T>
using EntryConverter = std::function<T(foundation::json::Object::value_type const&)>;

/// The begin and end iterators over all of list, converting with convert.
template <typename T>
std::pair<ConvertingIterator<T>, ConvertingIterator<T>> converting_range(
    std::vector<foundation::json::Value> const& list, ElementConverter<T> const& convert)
{
    return { ConvertingIterator<T>(list.data(), convert),
        ConvertingIterator<T>(list.data() + list.size(), convert) };
}

template <typename T>
void converting_range(std::vector<foundation::json::Value> const&, ElementConverter<T> const&&) = delete;

} // namespace foundation::zorbaljson::detail
