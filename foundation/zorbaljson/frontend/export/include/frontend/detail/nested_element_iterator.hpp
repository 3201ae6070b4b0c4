// The walk over the leaves of nested JSON arrays in the storage order of the array they describe.
#pragma once

#include <foundation/json/json_cast.hpp>
#include <foundation/json/value.hpp>

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
/// The end stands at the product of the sizes (1 for none). The begin of an empty outermost array is an
/// end too, so the walk over [] is empty, while that over [[]], whose sizes are none, has one step too
/// few for its end: the fill that uses it reports the mismatch.
class NestedElementIterator {
public:
    using iterator_category = std::forward_iterator_tag;
    using value_type = foundation::json::Value;
    using difference_type = std::ptrdiff_t;
    using pointer = foundation::json::Value const*;
    using reference = foundation::json::Value const&;

    /// The begin (at_end false) or end of the walk over root; root and sizes must outlive it.
    NestedElementIterator(
        foundation::json::Array const& root, std::vector<unsigned long> const& sizes, bool at_end)
        : root_(&root)
        , sizes_(&sizes)
        , counters_(sizes.size(), 0)
        , position_(at_end || root.empty() ? end_position(sizes) : 0)
    {
    }

    /// The leaf root[c0][c1]...[ck] at the counters.
    foundation::json::Value const& operator*() const
    {
        foundation::json::Value const* leaf = &(*root_)[counters_[0]];
        for (std::size_t level = 1; level < counters_.size(); ++level)
            leaf = &foundation::json::json_cast<foundation::json::Array>(*leaf)[counters_[level]];
        return *leaf;
    }

    /// Steps counter 0 and carries into the next counter when one reaches its size.
    NestedElementIterator& operator++()
    {
        for (std::size_t level = 0; level < counters_.size(); ++level) {
            if (++counters_[level] < (*sizes_)[level])
                break;
            counters_[level] = 0;
        }
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

    foundation::json::Array const* root_;
    std::vector<unsigned long> const* sizes_;
    std::vector<unsigned long> counters_;
    unsigned long position_;
};

} // namespace foundation::zorbaljson::detail
