// The intrusive reference count that every shared implementation object of the array library carries.
#pragma once

#include <foundation/zorbaldata/export.hpp>

#include <atomic>

namespace zorbal::data::detail {

/// Base of every shared implementation object: arrays, objects, class records, handles, strings.
/// A new object holds one reference, which belongs to whoever made it.
class FOUNDATION_ZORBALDATA_API RefCounted {
public:
    RefCounted(RefCounted const&) = delete;
    RefCounted& operator=(RefCounted const&) = delete;

    /// Takes one more reference.
    void addRef() const noexcept { count_.fetch_add(1, std::memory_order_relaxed); }

    /// Drops one reference; the last one destroys the object. Objects that a destruction releases in
    /// turn (the elements of a cell, the value of a handle...) are destroyed one after the other, not
    /// inside each other, so that freeing arrays nested a million deep needs no more stack than one.
    void release() const noexcept
    {
        if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            destroy(this);
    }

    /// Whether another reference exists, so that a write must copy first.
    bool isShared() const noexcept { return count_.load(std::memory_order_acquire) > 1; }

protected:
    RefCounted() noexcept = default;
    virtual ~RefCounted();

    /// Makes the count so large that no release brings it to zero: for objects whose memory belongs to
    /// a block that is freed as a whole, by an owner that outlives every reference to them.
    void makeImmortal() noexcept { count_.store(immortal, std::memory_order_relaxed); }

    /// Whether the destructor releases other objects. Those that release none are destroyed at once even
    /// inside another destruction, as they cannot nest; the others wait their turn.
    virtual bool releasesOthers() const noexcept { return true; }

private:
    static constexpr long immortal = 1L << 62;

    static void destroy(RefCounted const* object) noexcept;

    mutable std::atomic<long> count_{1};
};

} // namespace zorbal::data::detail
