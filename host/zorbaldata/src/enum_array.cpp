// Enumeration arrays, the EnumArray view and the references to their elements.
#include "enum_array_impl.hpp"

#include "array_storage.hpp"
#include "size_limits.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/reference.hpp>

#include <cstdlib>
#include <cstring>
#include <limits>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

EnumArrayImpl::EnumArrayImpl(Dimensions dimensions, std::string className)
    : ArrayImpl(fz::ArrayType::ENUM, dimensions), className_(std::move(className)), names_{std::string()},
      members_(static_cast<std::uint32_t*>(fz::detail::allocateZeroed(
          count(), sizeof(std::uint32_t), [this] { return fz::detail::arrayText(type(), this->dimensions()); })))
{
}

EnumArrayImpl::EnumArrayImpl(EnumArrayImpl const& other)
    : ArrayImpl(other), className_(other.className_), names_(other.names_), numbers_(other.numbers_),
      members_(static_cast<std::uint32_t*>(fz::detail::allocateUninitialized(
          count(), sizeof(std::uint32_t), [this] { return fz::detail::arrayText(type(), dimensions()); })))
{
    if (members_)
        std::memcpy(members_, other.members_, count() * sizeof(std::uint32_t));
}

EnumArrayImpl::~EnumArrayImpl()
{
    std::free(members_);
}

void EnumArrayImpl::setName(unsigned long index, std::string_view name)
{
    if (name.empty()) {
        members_[index] = 0;
        return;
    }
    std::string key(name);
    auto found = numbers_.find(key);
    if (found == numbers_.end()) {
        if (names_.size() > std::numeric_limits<std::uint32_t>::max())
            fz::detail::refuseSize(fz::detail::arrayText(type(), dimensions()), "it would hold more than 4294967296 member names");
        found = numbers_.emplace(key, static_cast<std::uint32_t>(names_.size())).first;
        names_.push_back(std::move(key));
    }
    members_[index] = found->second;
}

bool EnumArrayImpl::sameContent(ArrayImpl const& other) const
{
    auto const& that = static_cast<EnumArrayImpl const&>(other);
    if (className_ != that.className_)
        return false;
    for (unsigned long i = 0; i < count(); ++i)
        if (name(i) != that.name(i))
            return false;
    return true;
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

using zorbal::data::detail::EnumArrayImpl;

std::string EnumArray::getClassName() const
{
    return detail::storageOf<EnumArrayImpl>(*this, ArrayType::ENUM).className();
}

std::string_view Reference<Enumeration const>::name() const
{
    return static_cast<EnumArrayImpl const*>(impl_.owner)->name(impl_.index);
}

Enumeration Reference<Enumeration const>::value() const
{
    return Enumeration(std::string(name()));
}

Reference<Enumeration const>::operator Enumeration() const
{
    return value();
}

void Reference<Enumeration>::set(std::string_view member) const
{
    static_cast<EnumArrayImpl*>(impl_.owner)->setName(impl_.index, member);
}

} // namespace foundation::zorbaldata
