// The dimensions of an array, kept inside the array's own block when there are at most two of them,
// so that making a scalar or a row costs no allocation for its shape.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>

namespace zorbal::data::detail {

/// The dimensions an array is made with: a view of the caller's, copied by Extents.
using Dimensions = std::span<unsigned long const>;

class Extents {
public:
    /// @throws std::bad_alloc for more than two dimensions when they cannot be had.
    explicit Extents(Dimensions dimensions) : rank_(dimensions.size())
    {
        if (rank_ > inline_rank)
            heap_ = new unsigned long[rank_];
        std::copy(dimensions.begin(), dimensions.end(), data());
    }
    Extents(Extents const& other) : Extents(other.view()) {}
    Extents& operator=(Extents const&) = delete;
    ~Extents()
    {
        if (rank_ > inline_rank)
            delete[] heap_;
    }

    Dimensions view() const noexcept { return {data(), rank_}; }

private:
    static constexpr std::size_t inline_rank = 2;

    unsigned long* data() noexcept { return rank_ > inline_rank ? heap_ : inline_; }
    unsigned long const* data() const noexcept { return rank_ > inline_rank ? heap_ : inline_; }

    std::size_t rank_;
    union {
        unsigned long inline_[inline_rank];
        unsigned long* heap_;
    };
};

} // namespace zorbal::data::detail
