// Cell arrays: arrays whose elements are arrays; and the references to elements that are arrays.
#include "cell_array.hpp"

#include "access.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/reference.hpp>

#include <algorithm>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

CellArrayImpl::CellArrayImpl(Dimensions dimensions)
    : ArrayImpl(fz::ArrayType::CELL, dimensions),
      slots_(count(), [this] { return fz::detail::arrayText(type(), this->dimensions()); })
{
}

CellArrayImpl::CellArrayImpl(CellArrayImpl const& other)
    : ArrayImpl(other), slots_(other.slots_, [this] { return fz::detail::arrayText(type(), dimensions()); })
{
}

bool CellArrayImpl::sameContent(ArrayImpl const& other) const
{
    auto const& that = static_cast<CellArrayImpl const&>(other);
    // Past both extents every slot is null on both sides.
    unsigned long const written = std::max(slots_.extent(), that.slots_.extent());
    for (unsigned long i = 0; i < written; ++i)
        if (!sameArray(slots_.at(i), that.slots_.at(i)))
            return false;
    return true;
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

Array Reference<Array const>::value() const
{
    return detail::Access::share(impl_.owner->arrayAt(impl_.index));
}

void Reference<Array>::set(Array value) const
{
    impl_.owner->storeArray(impl_.index, detail::Access::release(value));
}

} // namespace foundation::zorbaldata
