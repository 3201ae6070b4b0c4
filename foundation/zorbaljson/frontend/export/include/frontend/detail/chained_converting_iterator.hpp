// The values of all fields of a struct's "zqdata", taken end to end as one range that converts lazily.
#pragma once

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/json_node.hpp>

#include <foundation/zorbaldata/array.hpp>

namespace foundation::zorbaljson::detail {

/// Walks the JSON arrays under the keys of a JSON object one after the other: the entries of the first
/// key's array, then those of the second key's, and so on, converting each entry when it is read. It
/// moves to the next key's array only when one is used up, and then stands at that array's first
/// entry, which is its end when the array is empty: in_empty_field() tells this, as the range would
/// otherwise read past the array.
///
/// Each key's value is cast to a JSON array when the iterator reaches it (for the first key, when the
/// iterator is made), without the guard of read_data_array. The iterator refers to the object and the
/// converter, which must outlive it.
class ChainedConvertingIterator {
public:
    using Array = foundation::zorbaldata::Array;

    /// Stands at the first entry of field's array, or at the end when field is end.
    /// @throws std::runtime_error "invalid conversion: " when field's value is no JSON array.
    ChainedConvertingIterator(EntryCursor field, EntryCursor end, ElementConverter<Array> const& convert)
        : field_(field)
        , end_(end)
        , convert_(&convert)
    {
        if (field_ != end_)
            enter_field();
    }
    ChainedConvertingIterator(EntryCursor, EntryCursor, ElementConverter<Array> const&&) = delete;

    /// The converted entry at the position, which must not be an end. @throws what the converter throws.
    Array operator*() const { return (*convert_)(*entry_); }

    /// To the next entry, or to the next key's array when this one is used up.
    /// @throws std::runtime_error "invalid conversion: " when that key's value is no JSON array.
    ChainedConvertingIterator& operator++()
    {
        if (++entry_ != values_end_)
            return *this;
        if (++field_ != end_) {
            enter_field();
        } else {
            entry_ = ElementCursor();
            values_end_ = ElementCursor();
            in_field_ = false;
        }
        return *this;
    }

    /// Whether the iterator stands in front of a key whose array is empty.
    bool in_empty_field() const noexcept { return in_field_ && entry_ == values_end_; }

    friend bool operator==(ChainedConvertingIterator const& a, ChainedConvertingIterator const& b) noexcept
    {
        return a.field_ == b.field_ && a.entry_ == b.entry_;
    }

private:
    void enter_field()
    {
        JsonNode const values = (*field_).value;
        values.expect(json_kind::array);
        entry_ = values.begin();
        values_end_ = values.end();
        in_field_ = true;
    }

    EntryCursor field_;
    EntryCursor end_;
    // Default cursors at the end; an empty array's cursors may be equal to them, but then the key tells
    // the two apart.
    ElementCursor entry_;
    ElementCursor values_end_;
    bool in_field_ = false;
    ElementConverter<Array> const* convert_;
};

} // namespace foundation::zorbaljson::detail
