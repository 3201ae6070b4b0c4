// The walk over the leaves of nested JSON arrays in the storage order of the array they describe.
#pragma once

#include <frontend/detail/json_node.hpp>

#include <cstddef>
#include <functional>
#include <iterator>
#include <numeric>
#include <vector>

namespace foundation::zorbaljson::detail {

/// Walks nested JSON arrays of the given sizes (outermost first) leaf by leaf, the outermost index
/// fastest: the column-major order of the array whose first dimension is the outermost JSON array.
/// The arrays must have the sizes, as the shape check of small notation ensures.
///
/// The innermost arrays are visited in turn, each giving its next element, so the walk needs no
/// indexing into a JSON array: it keeps one cursor for each innermost array (one for a flat array,
/// as many as rows for a matrix).
///
/// The end stands at the product of the sizes (1 for none). The begin of an empty outermost array is an
/// end too, so the walk over [] is empty, while that over [[]], whose sizes are none, has one step too
/// few for its end: the fill that uses it reports the mismatch.
class NestedElementIterator {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = JsonNode;
    using difference_type = std::ptrdiff_t;

    /// The begin (at_end false) or end of the walk over root, a JSON array, which must outlive it.
    NestedElementIterator(JsonNode root, std::vector<unsigned long> const& sizes, bool at_end)
        : root_(root.begin())
        , position_(at_end || root.size() == 0 ? end_position(sizes) : 0)
    {
        if (position_ == 0 && !sizes.empty()) {
            rows_.resize(std::accumulate(sizes.begin(), sizes.end() - 1, 1UL, std::multiplies<>()));
            collect_rows(root, sizes, 0, 0, 1);
        }
    }

    /// The leaf at the position.
    JsonNode operator*() const noexcept { return *rows_[row_]; }

    /// To the next innermost array, and from the last back to the first, each a step further in.
    NestedElementIterator& operator++() noexcept
    {
        ++rows_[row_];
        if (++row_ == rows_.size())
            row_ = 0;
        ++position_;
        return *this;
    }

    friend bool operator==(NestedElementIterator const& a, NestedElementIterator const& b) noexcept
    {
        return a.position_ == b.position_ && a.root_ == b.root_;
    }

private:
    static unsigned long end_position(std::vector<unsigned long> const& sizes)
    {
        return std::accumulate(sizes.begin(), sizes.end(), 1UL, std::multiplies<>());
    }

    // The innermost arrays by the column-major index of their outer subscripts.
    void collect_rows(JsonNode array, std::vector<unsigned long> const& sizes, std::size_t level,
        std::size_t row, std::size_t stride)
    {
        if (level + 1 == sizes.size()) {
            rows_[row] = array.begin();
            return;
        }
        std::size_t index = 0;
        for (ElementCursor element = array.begin(); element != array.end(); ++element, ++index)
            collect_rows(*element, sizes, level + 1, row + index * stride, stride * sizes[level]);
    }

    ElementCursor root_;
    std::vector<ElementCursor> rows_;
    std::size_t row_ = 0;
    unsigned long position_;
};

} // namespace foundation::zorbaljson::detail
