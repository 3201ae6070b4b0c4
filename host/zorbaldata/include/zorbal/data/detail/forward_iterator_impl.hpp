// The position of a forward iterator over a sequence that the array library owns.
#pragma once

#include <zorbal/data/detail/ref_counted.hpp>

#include <utility>

namespace zorbal::data::detail {

/// A position in a contiguous sequence, and a reference on the object that owns the sequence, so the
/// sequence stays as it was for as long as the iterator lives, whatever happens to its handles.
class ForwardIteratorImpl {
public:
    /// Stands at position in a sequence of keeper (which may be null); takes a reference on keeper.
    ForwardIteratorImpl(void const* position, RefCounted const* keeper) noexcept
        : position_(position), keeper_(keeper)
    {
        if (keeper_)
            keeper_->addRef();
    }
    ForwardIteratorImpl(ForwardIteratorImpl const& other) noexcept
        : ForwardIteratorImpl(other.position_, other.keeper_)
    {
    }
    ForwardIteratorImpl(ForwardIteratorImpl&& other) noexcept
        : position_(other.position_), keeper_(std::exchange(other.keeper_, nullptr))
    {
    }
    ForwardIteratorImpl& operator=(ForwardIteratorImpl other) noexcept
    {
        std::swap(position_, other.position_);
        std::swap(keeper_, other.keeper_);
        return *this;
    }
    ~ForwardIteratorImpl()
    {
        if (keeper_)
            keeper_->release();
    }

    /// The current element.
    void const* position() const noexcept { return position_; }
    /// Moves to another element of the same sequence.
    void setPosition(void const* position) noexcept { position_ = position; }

private:
    void const* position_;
    RefCounted const* keeper_;
};

} // namespace zorbal::data::detail
