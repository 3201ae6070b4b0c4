// Arrays of numbers, logicals, chars and complex numbers: one contiguous block of elements.
#include "plain_array.hpp"

#include "plain_types.hpp"
#include "size_limits.hpp"
#include "type_names.hpp"

#include <cstdlib>
#include <cstring>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

PlainArrayImpl::PlainArrayImpl(fz::ArrayType type, Dimensions dimensions)
    : ArrayImpl(type, dimensions),
      elementSize_(fz::detail::visitPlainType(type, []<typename T>(std::type_identity<T>) { return sizeof(T); })),
      data_(storage(true))
{
}

PlainArrayImpl::PlainArrayImpl(fz::ArrayType type, Dimensions dimensions,
                               std::unique_ptr<void, void (*)(void*)> data)
    : ArrayImpl(type, dimensions),
      elementSize_(fz::detail::visitPlainType(type, []<typename T>(std::type_identity<T>) { return sizeof(T); })),
      data_(nullptr)
{
    if (!data && count() != 0)
        throw fz::EInvalidArgument("An array of " + fz::detail::arrayText(this->type(), this->dimensions())
                                   + " needs a buffer of its elements.");
    free_ = data.get_deleter();
    data_ = data.release();
}

PlainArrayImpl::PlainArrayImpl(PlainArrayImpl const& other)
    : ArrayImpl(other), elementSize_(other.elementSize_), data_(storage(false))
{
    if (data_)
        std::memcpy(data_, other.data_, count() * elementSize_);
}

PlainArrayImpl::~PlainArrayImpl()
{
    if (data_ && data_ != inline_)
        free_(data_);
}

void* PlainArrayImpl::storage(bool zeroed)
{
    if (count() != 0 && count() <= inline_bytes / elementSize_) {
        std::memset(inline_, 0, inline_bytes);
        return inline_;
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
