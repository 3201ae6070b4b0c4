// Arrays of numbers, logicals, chars and complex numbers: one contiguous block of elements.
#include "plain_array.hpp"

#include "plain_types.hpp"
#include "size_limits.hpp"
#include "type_names.hpp"

#include <cstdlib>
#include <cstring>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

PlainArrayImpl::PlainArrayImpl(fz::ArrayType type, std::vector<unsigned long> dimensions)
    : ArrayImpl(type, std::move(dimensions)),
      elementSize_(fz::detail::visitPlainType(type, []<typename T>(std::type_identity<T>) { return sizeof(T); })),
      data_(fz::detail::allocateZeroed(count(), elementSize_, [this] { return fz::detail::arrayText(this->type(), this->dimensions()); }))
{
}

PlainArrayImpl::PlainArrayImpl(PlainArrayImpl const& other)
    : ArrayImpl(other), elementSize_(other.elementSize_),
      data_(fz::detail::allocateUninitialized(count(), elementSize_, [this] { return fz::detail::arrayText(type(), dimensions()); }))
{
    if (data_)
        std::memcpy(data_, other.data_, count() * elementSize_);
}

PlainArrayImpl::~PlainArrayImpl()
{
    std::free(data_);
}

bool PlainArrayImpl::sameContent(ArrayImpl const& other) const
{
    void const* const otherData = static_cast<PlainArrayImpl const&>(other).data_;
    return fz::detail::visitPlainType(type(), [&]<typename T>(std::type_identity<T>) {
        return fz::detail::sameElements(static_cast<T const*>(data_), static_cast<T const*>(otherData), count());
    });
}

} // namespace zorbal::data::detail
