// Value object arrays, the ValueObjectArray view and the references to their elements.
#include "value_object_array.hpp"

#include "array_storage.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>

#include <algorithm>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

ValueObjectArrayImpl::ValueObjectArrayImpl(Dimensions dimensions, Ref<ClassRecord> cls)
    : ArrayImpl(fz::ArrayType::VALUE_OBJECT, dimensions), class_(std::move(cls)),
      slots_(count(), [this] { return fz::detail::arrayText(type(), this->dimensions()); })
{
}

ValueObjectArrayImpl::ValueObjectArrayImpl(ValueObjectArrayImpl const& other)
    : ArrayImpl(other), class_(other.class_),
      slots_(other.slots_, [this] { return fz::detail::arrayText(type(), dimensions()); }),
      arrayProperties_(other.arrayProperties_), externalDimensions_(other.externalDimensions_)
{
}

ObjectView ValueObjectArrayImpl::view(unsigned long index) const noexcept
{
    ObjectImpl const* object = objectAt(index);
    return object ? viewOf(*object) : defaultView(*class_);
}

ClassRecord& ValueObjectArrayImpl::classAt(unsigned long index) const noexcept
{
    ObjectImpl const* object = objectAt(index);
    return object ? *object->classRef() : *class_;
}

ForwardIteratorImpl ValueObjectArrayImpl::propertyAt(unsigned long index, std::size_t property) const
{
    if (ObjectImpl const* object = objectAt(index))
        return ForwardIteratorImpl(object->properties().data() + property, object);
    return ForwardIteratorImpl(class_->defaults().data() + property, class_.get());
}

ObjectImpl& ValueObjectArrayImpl::writableObject(unsigned long index)
{
    ObjectImpl* object = objectAt(index);
    if (!object || object->isShared()) {
        object = object ? new ObjectImpl(*object) : new ObjectImpl(class_);
        slots_.store(index, object);
    }
    return *object;
}

void ValueObjectArrayImpl::setObject(unsigned long index, ObjectImpl& object) noexcept
{
    object.addRef();
    slots_.store(index, &object);
}

bool ValueObjectArrayImpl::isHeterogeneous() const
{
    if (class_->name() == heterogeneousClassName)
        return true;
    for (unsigned long i = 0; i < slots_.extent(); ++i)
        if (classAt(i).name() != class_->name())
            return true;
    return false;
}

bool ValueObjectArrayImpl::elementHasProperty(unsigned long index, std::string_view name) const
{
    ObjectImpl const* object = objectAt(index);
    return object && object->find(name).has_value();
}

void ValueObjectArrayImpl::addArrayProperty(fz::ZorbalPropertyIdentifier const& property, fz::Array value,
                                            bool rejectDuplicate)
{
    std::string const& name = property.getPropertyName();
    auto const existing = std::find_if(arrayProperties_.begin(), arrayProperties_.end(), [&](fz::Property const& p) {
        return p.getIdentifier().getPropertyName() == name;
    });
    if (rejectDuplicate) {
        // Elements never set hold the class's declared properties.
        bool taken = existing != arrayProperties_.end() || class_->findDeclared(name).has_value();
        for (unsigned long i = 0; !taken && i < slots_.extent(); ++i)
            taken = elementHasProperty(i, name);
        if (taken)
            throw fz::PropertyExistsException(name);
    } else if (existing != arrayProperties_.end()) {
        *existing = fz::Property(property, std::move(value));
        return;
    }
    arrayProperties_.emplace_back(property, std::move(value));
}

bool ValueObjectArrayImpl::sameContent(ArrayImpl const& other) const
{
    auto const& that = static_cast<ValueObjectArrayImpl const&>(other);
    if (class_->name() != that.class_->name() || externalDimensions_ != that.externalDimensions_
        || !sameObject({class_.get(), &arrayProperties_}, {that.class_.get(), &that.arrayProperties_}))
        return false;
    unsigned long const written = std::max(slots_.extent(), that.slots_.extent());
    for (unsigned long i = 0; i < written; ++i)
        if (!sameObject(view(i), that.view(i)))
            return false;
    return written == count() || sameObject(defaultView(*class_), defaultView(*that.class_));
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

using zorbal::data::detail::ValueObjectArrayImpl;

namespace {

ValueObjectArrayImpl& storage(Array const& array)
{
    return detail::storageOf<ValueObjectArrayImpl>(array, ArrayType::VALUE_OBJECT);
}

ValueObjectArrayImpl& writableStorage(Array& array)
{
    return detail::writableStorageOf<ValueObjectArrayImpl>(array, ArrayType::VALUE_OBJECT);
}

ForwardIterator<Property const> arrayPropertyAt(Array const& array, bool end)
{
    auto const& impl = storage(array);
    auto const* first = impl.arrayProperties().data();
    return ForwardIterator<Property const>(
        zorbal::data::detail::ForwardIteratorImpl(end ? first + impl.arrayProperties().size() : first, &impl));
}

ValueObjectArrayImpl& owner(zorbal::data::detail::ReferenceImpl const& place)
{
    return *static_cast<ValueObjectArrayImpl*>(place.owner);
}

} // namespace

ClassInfo ValueObjectArray::getClassInfo() const
{
    return ClassInfo(zorbal::data::detail::Ref<zorbal::data::detail::ClassRecord>::share(&storage(*this).classRecord()).release());
}

bool ValueObjectArray::isHeterogeneous() const
{
    return storage(*this).isHeterogeneous();
}

ForwardIterator<Property const> ValueObjectArray::beginArrayProp() const
{
    return arrayPropertyAt(*this, false);
}

ForwardIterator<Property const> ValueObjectArray::endArrayProp() const
{
    return arrayPropertyAt(*this, true);
}

void ValueObjectArray::addArrayProperty(ZorbalPropertyIdentifier const& property, Array value, bool rejectDuplicate)
{
    writableStorage(*this).addArrayProperty(property, std::move(value), rejectDuplicate);
}

bool ValueObjectArray::isExternalDimensionsSet() const
{
    return storage(*this).externalDimensions().has_value();
}

std::vector<unsigned long> ValueObjectArray::getExternalDimensions() const
{
    return storage(*this).externalDimensions().value_or(std::vector<unsigned long>());
}

void ValueObjectArray::setExternalDimensions(std::vector<unsigned long> dimensions)
{
    writableStorage(*this).setExternalDimensions(std::move(dimensions));
}

void ValueObjectArray::clearExternalDimensions()
{
    writableStorage(*this).setExternalDimensions(std::nullopt);
}

ValueObject Reference<ValueObject const>::value() const
{
    auto& array = owner(impl_);
    // An element never set has no object yet; it reads as a new one of the array's class.
    if (auto* object = array.objectAt(impl_.index)) {
        object->addRef();
        return ValueObject(object);
    }
    return ValueObject(new zorbal::data::detail::ObjectImpl(
        zorbal::data::detail::Ref<zorbal::data::detail::ClassRecord>::share(&array.classRecord())));
}

Reference<ValueObject const>::operator ValueObject() const
{
    return value();
}

ClassInfo Reference<ValueObject const>::getClassInfo() const
{
    return ClassInfo(zorbal::data::detail::Ref<zorbal::data::detail::ClassRecord>::share(&owner(impl_).classAt(impl_.index)).release());
}

Reference<ValueObject>& Reference<ValueObject>::operator=(Reference const& other)
{
    set(other.value());
    return *this;
}

Reference<ValueObject> const& Reference<ValueObject>::operator=(ValueObject const& object) const
{
    set(object);
    return *this;
}

void Reference<ValueObject>::set(ValueObject const& object) const
{
    owner(impl_).setObject(impl_.index, *static_cast<zorbal::data::detail::ObjectImpl*>(object.get()));
}

void Reference<ValueObject>::addProperty(ZorbalPropertyIdentifier const& property, Array value) const
{
    owner(impl_).writableObject(impl_.index).add(property, std::move(value));
}

Reference<Array> Reference<ValueObject>::operator[](std::string_view key) const
{
    auto& object = owner(impl_).writableObject(impl_.index);
    return Reference<Array>(zorbal::data::detail::ReferenceImpl{&object, object.findOrAdd(key)});
}

} // namespace foundation::zorbaldata
