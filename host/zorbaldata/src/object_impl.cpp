// Objects, and the ValueObject handles on them.
#include "object_impl.hpp"

#include "access.hpp"
#include "array_impl.hpp"

#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/value_object.hpp>

#include <algorithm>
#include <string>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

ObjectImpl::ObjectImpl(Ref<ClassRecord> cls) : class_(std::move(cls)), properties_(class_->defaults()) {}

ObjectImpl::ObjectImpl(ObjectImpl const& other) : SlotOwner(), class_(other.class_), properties_(other.properties_) {}

std::optional<std::size_t> ObjectImpl::findName(std::string_view name) const
{
    if (auto const declared = class_->findDeclared(name))
        return declared;
    for (std::size_t i = class_->defaults().size(); i < properties_.size(); ++i)
        if (properties_[i].getIdentifier().getPropertyName() == name)
            return i;
    return std::nullopt;
}

namespace {

/// key without a leading "<className>." or "."; key itself when it has neither.
std::string_view unqualified(std::string_view key, std::string_view className)
{
    if (key.starts_with('.'))
        return key.substr(1);
    if (key.size() > className.size() && key.starts_with(className) && key[className.size()] == '.')
        return key.substr(className.size() + 1);
    return key;
}

} // namespace

std::optional<std::size_t> ObjectImpl::find(std::string_view key) const
{
    if (auto const whole = findName(key))
        return whole;
    std::string_view const name = unqualified(key, class_->name());
    return name.size() == key.size() ? std::nullopt : findName(name);
}

std::size_t ObjectImpl::findOrAdd(std::string_view key)
{
    if (auto const found = find(key))
        return *found;
    properties_.emplace_back(fz::ZorbalPropertyIdentifier(std::string(unqualified(key, class_->name()))), fz::Array());
    return properties_.size() - 1;
}

void ObjectImpl::add(fz::ZorbalPropertyIdentifier const& property, fz::Array value)
{
    if (findName(property.getPropertyName()))
        throw fz::PropertyExistsException(property.getPropertyName());
    properties_.emplace_back(property, std::move(value));
}

RefCounted* ObjectImpl::arrayAt(unsigned long index) const
{
    return fz::detail::Access::impl(fz::detail::Access::value(properties_[index]));
}

void ObjectImpl::storeArray(unsigned long index, RefCounted* adopted)
{
    fz::detail::Access::value(properties_[index]) = fz::detail::Access::adopt(adopted);
}

namespace {

std::string_view nameOf(fz::Property const* property)
{
    return property->getIdentifier().getPropertyName();
}

std::vector<fz::Property const*> sortedByName(std::vector<fz::Property> const& properties)
{
    std::vector<fz::Property const*> sorted;
    sorted.reserve(properties.size());
    for (auto const& property : properties)
        sorted.push_back(&property);
    std::sort(sorted.begin(), sorted.end(), [](auto* a, auto* b) { return nameOf(a) < nameOf(b); });
    return sorted;
}

} // namespace

bool sameObject(ObjectView a, ObjectView b)
{
    if (a.cls->name() != b.cls->name() || a.properties->size() != b.properties->size())
        return false;
    auto const sortedA = sortedByName(*a.properties);
    auto const sortedB = sortedByName(*b.properties);
    return std::equal(sortedA.begin(), sortedA.end(), sortedB.begin(), [](auto* x, auto* y) {
        return nameOf(x) == nameOf(y)
            && sameArray(fz::detail::Access::impl(fz::detail::Access::value(*x)),
                         fz::detail::Access::impl(fz::detail::Access::value(*y)));
    });
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

using zorbal::data::detail::ObjectImpl;

namespace {

ObjectImpl const& objectOf(zorbal::data::detail::RefCounted const* impl)
{
    return *static_cast<ObjectImpl const*>(impl);
}

/// The object of handle, first copied when other handles share it.
ObjectImpl& writableObject(zorbal::data::detail::RefCounted*& impl)
{
    if (impl->isShared()) {
        auto* copy = new ObjectImpl(objectOf(impl));
        impl->release();
        impl = copy;
    }
    return *static_cast<ObjectImpl*>(impl);
}

zorbal::data::detail::ForwardIteratorImpl propertyAt(ObjectImpl const& object, std::size_t index)
{
    return zorbal::data::detail::ForwardIteratorImpl(object.properties().data() + index, &object);
}

} // namespace

ValueObject::ValueObject(zorbal::data::detail::RefCounted* object) : impl_(object)
{
    if (!dynamic_cast<ObjectImpl*>(impl_)) {
        if (impl_)
            impl_->release();
        throw ETypeMismatch("A ValueObject wraps an object.");
    }
}

ClassInfo ValueObject::getClassInfo() const
{
    return ClassInfo(zorbal::data::detail::Ref(objectOf(impl_).classRef()).release());
}

unsigned long ValueObject::getNumberOfProperties() const noexcept
{
    return objectOf(impl_).properties().size();
}

ForwardIterator<Property const> ValueObject::cbegin() const
{
    return ForwardIterator<Property const>(propertyAt(objectOf(impl_), 0));
}

ForwardIterator<Property const> ValueObject::cend() const
{
    return ForwardIterator<Property const>(propertyAt(objectOf(impl_), objectOf(impl_).properties().size()));
}

bool ValueObject::hasProperty(std::string_view key) const
{
    return objectOf(impl_).find(key).has_value();
}

Array ValueObject::operator[](std::string_view key) const
{
    auto const& object = objectOf(impl_);
    auto const found = object.find(key);
    if (!found)
        throw ENoSuchProperty(std::string(key));
    return object.properties()[*found].castToArray();
}

Reference<Array> ValueObject::operator[](std::string_view key)
{
    ObjectImpl& object = writableObject(impl_);
    return Reference<Array>(zorbal::data::detail::ReferenceImpl{&object, object.findOrAdd(key)});
}

void ValueObject::addProperty(ZorbalPropertyIdentifier const& property, Array value)
{
    writableObject(impl_).add(property, std::move(value));
}

bool operator==(ValueObject const& a, ValueObject const& b)
{
    return a.get() == b.get() || sameObject(viewOf(objectOf(a.get())), viewOf(objectOf(b.get())));
}

} // namespace foundation::zorbaldata
