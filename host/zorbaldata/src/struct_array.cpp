// Struct arrays, the StructArray view, struct elements and the references to them.
#include "struct_array_impl.hpp"

#include "access.hpp"
#include "array_storage.hpp"
#include "size_limits.hpp"
#include "type_names.hpp"

#include <foundation/zorbaldata/reference.hpp>
#include <foundation/zorbaldata/struct_array.hpp>

namespace zorbal::data::detail {

namespace fz = foundation::zorbaldata;

namespace {

std::string structText(ArrayImpl const& array, unsigned long fields)
{
    return fz::detail::arrayText(array.type(), array.dimensions()) + " with " + std::to_string(fields) + " fields";
}

} // namespace

StructArrayImpl::StructArrayImpl(Dimensions dimensions, std::vector<std::string> fieldNames)
    : ArrayImpl(fz::ArrayType::STRUCT, dimensions),
      fields_(std::make_shared<fz::detail::FieldTable const>(std::move(fieldNames))),
      slots_(fz::detail::checkedProduct(count(), fields_->size(), [this] { return structText(*this, fields_->size()); }),
             [this] { return structText(*this, fields_->size()); })
{
}

StructArrayImpl::StructArrayImpl(StructArrayImpl const& other)
    : ArrayImpl(other), fields_(other.fields_),
      slots_(other.slots_, [this] { return structText(*this, fields_->size()); })
{
}

unsigned long StructArrayImpl::slotOf(std::string_view field, unsigned long index) const
{
    return fields_->indexOf(field) * count() + index;
}

bool StructArrayImpl::sameContent(ArrayImpl const& other) const
{
    auto const& that = static_cast<StructArrayImpl const&>(other);
    if (!fields_->sameNames(*that.fields_))
        return false;
    for (auto const& field : fields_->names()) {
        unsigned long const mine = fields_->indexOf(field.getString()) * count();
        unsigned long const theirs = that.fields_->indexOf(field.getString()) * count();
        for (unsigned long i = 0; i < count(); ++i)
            if (!sameArray(slots_.at(mine + i), that.slots_.at(theirs + i)))
                return false;
    }
    return true;
}

} // namespace zorbal::data::detail

namespace foundation::zorbaldata {

using zorbal::data::detail::StructArrayImpl;

namespace {

StructArrayImpl& owner(zorbal::data::detail::SlotOwner* place)
{
    return *static_cast<StructArrayImpl*>(place);
}

} // namespace

Array StructElement::operator[](std::string_view field) const
{
    auto const& array = owner(owner_);
    return detail::Access::share(array.arrayAt(array.slotOf(field, index_)));
}

Range<ForwardIterator, ZorbalFieldIdentifier const> StructArray::getFieldNames() const
{
    auto const& array = detail::storageOf<StructArrayImpl>(*this, ArrayType::STRUCT);
    auto const& names = array.fields().names();
    using Iterator = ForwardIterator<ZorbalFieldIdentifier const>;
    return {Iterator(zorbal::data::detail::ForwardIteratorImpl(names.data(), &array)),
            Iterator(zorbal::data::detail::ForwardIteratorImpl(names.data() + names.size(), &array))};
}

unsigned long StructArray::getNumberOfFields() const
{
    return detail::storageOf<StructArrayImpl>(*this, ArrayType::STRUCT).fields().size();
}

StructElement Reference<StructElement const>::value() const
{
    return detail::Access::structElement(impl_.owner, impl_.index);
}

Reference<StructElement const>::operator StructElement() const
{
    return value();
}

Array Reference<StructElement const>::operator[](std::string_view field) const
{
    auto const& array = owner(impl_.owner);
    return detail::Access::share(array.arrayAt(array.slotOf(field, impl_.index)));
}

Reference<Array> Reference<StructElement>::operator[](std::string_view field) const
{
    return Reference<Array>(
        zorbal::data::detail::ReferenceImpl{impl_.owner, owner(impl_.owner).slotOf(field, impl_.index)});
}

} // namespace foundation::zorbaldata
