// The storage behind an Array handle: what every kind of array has in common.
#include "array_impl.hpp"

#include "size_limits.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/exceptions.hpp>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace zorbal::data::detail {

using foundation::zorbaldata::ArrayType;

SlotOwner::~SlotOwner() = default;

ArrayImpl::ArrayImpl(ArrayType type, Dimensions dimensions)
    : type_(type), dimensions_(dimensions),
      count_(foundation::zorbaldata::detail::elementCount(type, dimensions))
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
    static constexpr unsigned long empty[] = {0, 0};
    Dimensions const da = a ? static_cast<ArrayImpl const*>(a)->dimensions() : Dimensions(empty);
    Dimensions const db = b ? static_cast<ArrayImpl const*>(b)->dimensions() : Dimensions(empty);
    return std::ranges::equal(da, db);
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
    // Arrays met inside a comparison (cell elements, fields, properties) wait in the list of the
    // comparison that runs, which compares them after the array holding them rather than inside it, so
    // that arrays nested a million deep compare without deep recursion.
    using Pair = std::pair<ArrayImpl const*, ArrayImpl const*>;
    thread_local std::vector<Pair>* waiting = nullptr;
    auto const first = Pair(static_cast<ArrayImpl const*>(a), static_cast<ArrayImpl const*>(b));
    if (waiting) {
        waiting->push_back(first);
        return true;
    }
    std::vector<Pair> list;
    waiting = &list;
    struct Finish {
        ~Finish() { waiting = nullptr; }
    } const finish;
    bool same = first.first->sameContent(*first.second);
    while (same && !list.empty()) {
        Pair const next = list.back();
        list.pop_back();
        same = next.first->sameContent(*next.second);
    }
    return same;
}

} // namespace zorbal::data::detail
