// The Array handle, and the way from a handle to its elements for the typed views.
#include "access.hpp"
#include "array_impl.hpp"
#include "array_storage.hpp"
#include "cell_array.hpp"
#include "enum_array_impl.hpp"
#include "handle_array.hpp"
#include "plain_array.hpp"
#include "plain_types.hpp"
#include "string_array.hpp"
#include "struct_array_impl.hpp"
#include "type_names.hpp"
#include "value_object_array.hpp"

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/typed_array.hpp>

#include <string>

namespace foundation::zorbaldata {

using zorbal::data::detail::ArrayImpl;

namespace {

ArrayImpl const* implOf(Array const& array) noexcept
{
    return static_cast<ArrayImpl const*>(detail::Access::impl(array));
}

} // namespace

ArrayType Array::getType() const noexcept
{
    return impl_ ? implOf(*this)->type() : ArrayType::DOUBLE;
}

std::vector<unsigned long> Array::getDimensions() const
{
    if (!impl_)
        return {0, 0};
    auto const dimensions = implOf(*this)->dimensions();
    return {dimensions.begin(), dimensions.end()};
}

unsigned long Array::getNumberOfElements() const noexcept
{
    return impl_ ? implOf(*this)->count() : 0;
}

bool operator==(Array const& a, Array const& b)
{
    return zorbal::data::detail::sameArray(detail::Access::impl(a), detail::Access::impl(b));
}

namespace detail {

namespace {

/// The storage of array for writing, copied first when shared; null for the default empty double.
ArrayImpl* unsharedStorage(Array& array)
{
    using namespace zorbal::data::detail;
    RefCounted*& slot = Access::slot(array);
    if (!slot)
        return nullptr;
    ArrayType const type = static_cast<ArrayImpl const*>(slot)->type();
    if (isPlainType(type))
        return &unshared<PlainArrayImpl>(slot);
    switch (type) {
    case ArrayType::CELL: return &unshared<CellArrayImpl>(slot);
    case ArrayType::STRING: return &unshared<StringArrayImpl>(slot);
    case ArrayType::STRUCT: return &unshared<StructArrayImpl>(slot);
    case ArrayType::VALUE_OBJECT: return &unshared<ValueObjectArrayImpl>(slot);
    case ArrayType::HANDLE_OBJECT_REF: return &unshared<HandleArrayImpl>(slot);
    case ArrayType::ENUM: return &unshared<EnumArrayImpl>(slot);
    default: throw ETypeMismatch("Elements of type " + std::string(typeName(type)) + " cannot be written.");
    }
}

void requirePlain(ArrayType type, bool plain)
{
    if (isPlainType(type) != plain)
        throw ETypeMismatch("Elements of type " + std::string(typeName(type)) + " are "
                            + (plain ? "not " : "") + "one contiguous block.");
}

} // namespace

void requireType(Array const& array, ArrayType type)
{
    ArrayType const actual = array.getType();
    if (actual != type)
        throw ETypeMismatch("Cannot view an array of " + std::string(typeName(actual)) + " elements as an array of "
                            + std::string(typeName(type)) + " elements.");
}

PlainElements writablePlainElements(Array& array, ArrayType type)
{
    requirePlain(type, true);
    requireType(array, type);
    auto* impl = static_cast<zorbal::data::detail::PlainArrayImpl*>(unsharedStorage(array));
    return impl ? PlainElements{impl->data(), impl->count()} : PlainElements{nullptr, 0};
}

PlainElements readOnlyPlainElements(Array const& array, ArrayType type)
{
    requirePlain(type, true);
    requireType(array, type);
    auto const* impl = static_cast<zorbal::data::detail::PlainArrayImpl const*>(implOf(array));
    // The caller's view makes the elements const again.
    return impl ? PlainElements{const_cast<void*>(impl->data()), impl->count()} : PlainElements{nullptr, 0};
}

OwnedElements writableElements(Array& array, ArrayType type)
{
    requirePlain(type, false);
    requireType(array, type);
    ArrayImpl* impl = unsharedStorage(array);
    return {impl, impl->count()};
}

OwnedElements readOnlyElements(Array const& array, ArrayType type)
{
    requirePlain(type, false);
    requireType(array, type);
    auto* impl = const_cast<ArrayImpl*>(implOf(array));
    return {impl, impl->count()};
}

void checkIndex(unsigned long index, unsigned long size)
{
    if (index >= size)
        throw EIndexOutOfRange("Index " + std::to_string(index) + " is outside an array of " + std::to_string(size)
                               + " elements.");
}

} // namespace detail
} // namespace foundation::zorbaldata
