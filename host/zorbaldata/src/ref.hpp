// An owning pointer to one reference on a shared implementation object.
#pragma once

#include <utility>

namespace zorbal::data::detail {

/// Holds one reference on a T (a RefCounted) and drops it when destroyed.
template <typename T>
class Ref {
public:
    Ref() noexcept = default;
    /// Takes over the reference that p carries.
    static Ref adopt(T* p) noexcept
    {
        Ref ref;
        ref.p_ = p;
        return ref;
    }
    /// Takes a new reference on p.
    static Ref share(T* p) noexcept
    {
        if (p)
            p->addRef();
        return adopt(p);
    }
    Ref(Ref const& other) noexcept : p_(other.p_)
    {
        if (p_)
            p_->addRef();
    }
    Ref(Ref&& other) noexcept : p_(std::exchange(other.p_, nullptr)) {}
    Ref& operator=(Ref other) noexcept
    {
        std::swap(p_, other.p_);
        return *this;
    }
    ~Ref()
    {
        if (p_)
            p_->release();
    }

    T* get() const noexcept { return p_; }
    T* operator->() const noexcept { return p_; }
    T& operator*() const noexcept { return *p_; }
    /// Gives up the reference to the caller.
    T* release() noexcept { return std::exchange(p_, nullptr); }

private:
    T* p_ = nullptr;
};

} // namespace zorbal::data::detail
