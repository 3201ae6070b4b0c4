// The maker of every kind of array, object and handle.
#include "access.hpp"
#include "cell_array.hpp"
#include "class_record.hpp"
#include "enum_array_impl.hpp"
#include "handle_array.hpp"
#include "object_impl.hpp"
#include "plain_array.hpp"
#include "plain_types.hpp"
#include "size_limits.hpp"
#include "sparse_array_impl.hpp"
#include "string_array.hpp"
#include "struct_array_impl.hpp"
#include "type_names.hpp"
#include "value_handle.hpp"
#include "value_object_array.hpp"

#include <foundation/zorbaldata/array_factory.hpp>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace foundation::zorbaldata {

namespace zd = zorbal::data::detail;

namespace {

void freeBuffer(void* memory) noexcept
{
    std::free(memory);
}

zd::ClassRecord& recordOf(ClassInfo const& info)
{
    return *static_cast<zd::ClassRecord*>(detail::Access::record(info));
}

zd::Ref<zd::ClassRecord> heterogeneousClass()
{
    return zd::Ref<zd::ClassRecord>::adopt(
        new zd::ClassRecord(ZorbalClassIdentifier(std::string(zd::heterogeneousClassName)), {}));
}

} // namespace

void ArrayFactory::requireObjects(std::string const& className) const
{
    if (objects_ == Objects::NotSupported)
        throw ObjectNotSupportedException("This array factory makes no objects.", className);
}

Array ArrayFactory::createArray(ArrayType type, std::vector<unsigned long> dimensions) const
{
    return createArrayOf(type, dimensions);
}

Array ArrayFactory::createArray(ArrayType type, std::initializer_list<unsigned long> dimensions) const
{
    return createArrayOf(type, zd::Dimensions(dimensions.begin(), dimensions.size()));
}

Array ArrayFactory::createScalarArray(ArrayType type, void const* value) const
{
    static constexpr unsigned long oneByOne[] = {1, 1};
    auto* const array = zd::PlainArrayImpl::make(type, oneByOne);
    std::memcpy(array->data(), value, array->elementSize());
    return detail::Access::adopt(array);
}

Array ArrayFactory::createArrayOf(ArrayType type, zd::Dimensions dimensions) const
{
    detail::requireKnownType(type);
    if (detail::isPlainType(type))
        return detail::Access::adopt(zd::PlainArrayImpl::make(type, dimensions));
    if (detail::isSparseType(type))
        return detail::Access::adopt(zd::makeSparseArray(type, dimensions, 0, zd::Buffer(nullptr, freeBuffer),
                                                         zd::IndexBuffer(nullptr, freeBuffer),
                                                         zd::IndexBuffer(nullptr, freeBuffer)));
    switch (type) {
    case ArrayType::STRING: return detail::Access::adopt(new zd::StringArrayImpl(dimensions));
    case ArrayType::CELL: return detail::Access::adopt(new zd::CellArrayImpl(dimensions));
    case ArrayType::STRUCT: return createStructArray({dimensions.begin(), dimensions.end()}, {});
    case ArrayType::VALUE_OBJECT: return createValueObjectArray({dimensions.begin(), dimensions.end()});
    case ArrayType::HANDLE_OBJECT_REF: return detail::Access::adopt(new zd::HandleArrayImpl(dimensions));
    case ArrayType::ENUM: return createEnumArray({dimensions.begin(), dimensions.end()}, std::string());
    default: throw EArrayUnknownDataType();
    }
}

CharArray ArrayFactory::createCharArray(std::u16string const& text) const
{
    CharArray array(text.empty() ? createArray(ArrayType::CHAR, {0, 0}) : createArray(ArrayType::CHAR, {1, text.size()}));
    std::copy(text.begin(), text.end(), getWritableElements<char16_t>(array).begin());
    return array;
}

CharArray ArrayFactory::createCharArray(std::vector<unsigned long> dimensions) const
{
    return CharArray(createArray(ArrayType::CHAR, std::move(dimensions)));
}

StructArray ArrayFactory::createStructArray(std::vector<unsigned long> dimensions, std::vector<std::string> fieldNames) const
{
    return StructArray(detail::Access::adopt(new zd::StructArrayImpl(std::move(dimensions), std::move(fieldNames))));
}

EnumArray ArrayFactory::createEnumArray(std::vector<unsigned long> dimensions, std::string className) const
{
    return EnumArray(detail::Access::adopt(new zd::EnumArrayImpl(std::move(dimensions), std::move(className))));
}

void ArrayFactory::createBuffer(void** data, void (**deleter)(void*), int type, unsigned long count) const
{
    auto const arrayType = static_cast<ArrayType>(type);
    detail::requireKnownType(arrayType);
    std::size_t const size =
        detail::visitPlainType(arrayType, []<typename T>(std::type_identity<T>) { return sizeof(T); });
    *data = detail::allocateUninitialized(count, size, [&] {
        return "a buffer of " + std::to_string(count) + " " + std::string(detail::typeName(arrayType)) + " elements";
    });
    *deleter = freeBuffer;
}

Array ArrayFactory::createArrayFromBuffer(ArrayType type, std::vector<unsigned long> dimensions,
                                         std::unique_ptr<void, void (*)(void*)> data) const
{
    detail::requireKnownType(type);
    if (!detail::isPlainType(type))
        throw ETypeMismatch("Elements of type " + std::string(detail::typeName(type)) + " are not one contiguous block.");
    return detail::Access::adopt(zd::PlainArrayImpl::make(type, std::move(dimensions), std::move(data)));
}

Array ArrayFactory::createSparseArray(std::vector<unsigned long> dimensions, unsigned long nonZeros, ArrayType type,
                                      std::unique_ptr<void, void (*)(void*)> data,
                                      std::unique_ptr<unsigned long[], void (*)(void*)> rows,
                                      std::unique_ptr<unsigned long[], void (*)(void*)> cols) const
{
    return detail::Access::adopt(
        zd::makeSparseArray(type, std::move(dimensions), nonZeros, std::move(data), std::move(rows), std::move(cols)));
}

ClassInfo ArrayFactory::createClassInfo(ZorbalClassIdentifier const& identifier) const
{
    return createClassInfo(identifier, {});
}

ClassInfo ArrayFactory::createClassInfo(ZorbalClassIdentifier const& identifier,
                                        std::vector<ZorbalPropertyIdentifier> const& properties) const
{
    return ClassInfo(new zd::ClassRecord(identifier, properties));
}

ValueObject ArrayFactory::createValueObject(ClassInfo const& classInfo) const
{
    zd::ClassRecord& record = recordOf(classInfo);
    requireObjects(record.name());
    return ValueObject(new zd::ObjectImpl(zd::Ref<zd::ClassRecord>::share(&record)));
}

ValueObjectArray ArrayFactory::createValueObjectArray(std::vector<unsigned long> dimensions) const
{
    requireObjects(std::string());
    return ValueObjectArray(detail::Access::adopt(new zd::ValueObjectArrayImpl(std::move(dimensions), heterogeneousClass())));
}

ValueObjectArray ArrayFactory::createValueObjectArray(std::vector<unsigned long> dimensions, ClassInfo const& classInfo) const
{
    zd::ClassRecord& record = recordOf(classInfo);
    requireObjects(record.name());
    return ValueObjectArray(detail::Access::adopt(
        new zd::ValueObjectArrayImpl(std::move(dimensions), zd::Ref<zd::ClassRecord>::share(&record))));
}

HandleObjectRef ArrayFactory::createHandleObjectRef(KVXID kvxId, long long objectId) const
{
    requireObjects(std::string());
    return HandleObjectRef(new detail::ValueHandle(std::move(kvxId), objectId));
}

} // namespace foundation::zorbaldata
