// The walk of the struct writer over a struct array: fields in the outer loop, elements in the inner.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/forward_iterator.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <foundation/zorbaldata/typed_iterator.hpp>

#include <string>

namespace foundation::zorbaldata::json::detail {

/// A position in a struct array: a field and an element. It visits (field 1, element 1), (field 1,
/// element 2), ..., (field 2, element 1) and so on, in the order of getFieldNames() and of storage.
class field_walk {
public:
    /// Stands at the first element of the first field; at the end at once when there is no field.
    explicit field_walk(StructArray array);

    /// Whether the walk has passed the last field.
    bool at_end() const noexcept { return field_ == field_end_; }

    /// Moves to the next element, or to the first element of the next field.
    void advance() noexcept;

    /// The value of the current field in the current element; the walk must stand at an element.
    Array value() const;

private:
    StructArray array_;
    ForwardIterator<ZorbalFieldIdentifier const> field_;
    ForwardIterator<ZorbalFieldIdentifier const> field_end_;
    TypedIterator<StructElement const> element_begin_;
    TypedIterator<StructElement const> element_;
    TypedIterator<StructElement const> element_end_;
};

} // namespace foundation::zorbaldata::json::detail
