// The storage behind an Array handle: what every kind of array has in common.
#include "array_impl.hpp"

#include "size_limits.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/exceptions.hpp>

#include <string>
#include <utility>

namespace zorbal::data::detail {

using foundation::zorbaldata::ArrayType;

RefCounted::~RefCounted() = default;
SlotOwner::~SlotOwner() = default;

ArrayImpl::ArrayImpl(ArrayType type, std::vector<unsigned long> dimensions)
    : type_(type), dimensions_(std::move(dimensions)),
      count_(foundation::zorbaldata::detail::elementCount(type, dimensions_))
{
}

ArrayImpl::ArrayImpl(ArrayImpl const& other)
    : SlotOwner(), type_(other.type_), dimensions_(other.dimensions_), count_(other.count_)
{
}

ArrayImpl::~ArrayImpl() = default;

namespace {

[[noreturn]] void refuseArrayElements(ArrayType type)
{
    throw foundation::zorbaldata::ETypeMismatch("Elements of type " + std::string(foundation::zorbaldata::detail::typeName(type))
                                                + " are not arrays.");
}

} // namespace

RefCounted* ArrayImpl::arrayAt(unsigned long) const
{
    refuseArrayElements(type_);
}

void ArrayImpl::storeArray(unsigned long, RefCounted* adopted)
{
    if (adopted)
        adopted->release();
    refuseArrayElements(type_);
}

namespace {

ArrayType typeOf(RefCounted const* impl)
{
    return impl ? static_cast<ArrayImpl const*>(impl)->type() : ArrayType::DOUBLE;
}

bool sameDimensions(RefCounted const* a, RefCounted const* b)
{
    static std::vector<unsigned long> const empty{0, 0};
    auto const& da = a ? static_cast<ArrayImpl const*>(a)->dimensions() : empty;
    auto const& db = b ? static_cast<ArrayImpl const*>(b)->dimensions() : empty;
    return da == db;
}

} // namespace

bool sameArray(RefCounted const* a, RefCounted const* b)
{
    if (a == b)
        return true;
    if (typeOf(a) != typeOf(b) || !sameDimensions(a, b))
        return false;
    // A null side is the empty 0-by-0 double, so the other is one too.
    if (!a || !b)
        return true;
    return static_cast<ArrayImpl const*>(a)->sameContent(*static_cast<ArrayImpl const*>(b));
}

} // namespace zorbal::data::detail
