// Arrays of numbers, logicals, chars and complex numbers: one contiguous block of elements.
#include "plain_array.hpp"

#include "plain_types.hpp"
#include "size_limits.hpp"
#include "type_names.hpp"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

namespace {

std::size_t elementSizeOf(fz::ArrayType type)
{
    return fz::detail::visitPlainType(type, []<typename T>(std::type_identity<T>) { return sizeof(T); });
}

// The number of elements of dimensions when it is at most most, else 0; no product overflows.
unsigned long fewElements(Dimensions dimensions, unsigned long most) noexcept
{
    unsigned long count = 1;
    for (unsigned long const extent : dimensions) {
        if (extent == 0 || extent > most / count)
            return 0;
        count *= extent;
    }
    return count;
}

} // namespace

std::size_t PlainArrayImpl::tailBytes(unsigned long count, std::size_t elementSize) noexcept
{
    // Counts are compared, not byte sizes, which could overflow.
    return count > sizeof inline_ / elementSize && count <= most_inline_bytes / elementSize ? count * elementSize : 0;
}

template <typename Construct>
PlainArrayImpl* PlainArrayImpl::place(Tail tail, Construct const& construct)
{
    void* const block = ::operator new(sizeof(PlainArrayImpl) + tail.bytes);
    try {
        return construct(block);
    } catch (...) {
        ::operator delete(block);
        throw;
    }
}

PlainArrayImpl* PlainArrayImpl::make(fz::ArrayType type, Dimensions dimensions)
{
    // An unknown type is refused by the constructor; it takes no room here.
    Tail tail{0};
    if (fz::detail::isPlainType(type)) {
        std::size_t const size = elementSizeOf(type);
        tail.bytes = tailBytes(fewElements(dimensions, most_inline_bytes / size), size);
    }
    return place(tail, [&](void* block) { return new (block) PlainArrayImpl(type, dimensions, tail); });
}

PlainArrayImpl* PlainArrayImpl::make(fz::ArrayType type, Dimensions dimensions,
                                     std::unique_ptr<void, void (*)(void*)> data)
{
    return place(Tail{0}, [&](void* block) { return new (block) PlainArrayImpl(type, dimensions, std::move(data)); });
}

PlainArrayImpl* PlainArrayImpl::copyOf(PlainArrayImpl const& other)
{
    Tail const tail{tailBytes(other.count(), other.elementSize_)};
    return place(tail, [&](void* block) { return new (block) PlainArrayImpl(other, tail); });
}

PlainArrayImpl::PlainArrayImpl(fz::ArrayType type, Dimensions dimensions, Tail tail)
    : ArrayImpl(type, dimensions), elementSize_(elementSizeOf(type)), data_(storage(true, tail))
{
}

PlainArrayImpl::PlainArrayImpl(fz::ArrayType type, Dimensions dimensions,
                               std::unique_ptr<void, void (*)(void*)> data)
    : ArrayImpl(type, dimensions), elementSize_(elementSizeOf(type)), data_(nullptr)
{
    if (!data && count() != 0)
        throw fz::EInvalidArgument("An array of " + fz::detail::arrayText(this->type(), this->dimensions())
                                   + " needs a buffer of its elements.");
    free_ = data.get_deleter();
    data_ = data.release();
}

PlainArrayImpl::PlainArrayImpl(PlainArrayImpl const& other, Tail tail)
    : ArrayImpl(other), elementSize_(other.elementSize_), data_(storage(false, tail))
{
    if (data_)
        std::memcpy(data_, other.data_, count() * elementSize_);
}

PlainArrayImpl::~PlainArrayImpl()
{
    if (data_ && data_ != inline_ && data_ != tail())
        free_(data_);
}

void* PlainArrayImpl::storage(bool zeroed, Tail room)
{
    // Counts are compared, not byte sizes, which could overflow.
    void* const inside = count() == 0                       ? nullptr
        : count() <= sizeof inline_ / elementSize_ ? static_cast<void*>(inline_)
        : count() <= room.bytes / elementSize_     ? static_cast<void*>(tail())
                                                   : nullptr;
    if (inside) {
        if (zeroed)
            std::memset(inside, 0, count() * elementSize_);
        return inside;
    }
    auto const subject = [this] { return fz::detail::arrayText(type(), dimensions()); };
    return zeroed ? fz::detail::allocateZeroed(count(), elementSize_, subject)
                  : fz::detail::allocateUninitialized(count(), elementSize_, subject);
}

bool PlainArrayImpl::sameContent(ArrayImpl const& other) const
{
    void const* const otherData = static_cast<PlainArrayImpl const&>(other).data_;
    return fz::detail::visitPlainType(type(), [&]<typename T>(std::type_identity<T>) {
        return fz::detail::sameElements(static_cast<T const*>(data_), static_cast<T const*>(otherData), count());
    });
}

} // namespace zorbal::data::detail
