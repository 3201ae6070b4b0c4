// The maker of every kind of array, object and handle.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/char_array.hpp>
#include <foundation/zorbaldata/class_info.hpp>
#include <foundation/zorbaldata/enum_array.hpp>
#include <foundation/zorbaldata/exceptions.hpp>
#include <foundation/zorbaldata/export.hpp>
#include <foundation/zorbaldata/handle_object.hpp>
#include <foundation/zorbaldata/identifiers.hpp>
#include <foundation/zorbaldata/struct_array.hpp>
#include <foundation/zorbaldata/typed_array.hpp>
#include <foundation/zorbaldata/value_object.hpp>
#include <foundation/zorbaldata/value_object_array.hpp>

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace foundation::zorbaldata {

/// Makes arrays, objects and handles. Every new array holds the default value of its element type in
/// every element: zero, false, the empty 0-by-0 double array, a missing string, the null handle, the
/// member with the empty name, an object of the array's class. Creating an array only reserves zeroed
/// memory, so a large array costs nothing until its elements are written. Dimensions are kept exactly
/// as given; the element count is their product (1 for none), and a zero among them makes an empty array.
/// A factory keeps no state beyond its options, and its operations may run on several threads at once.
class FOUNDATION_ZORBALDATA_API ArrayFactory {
public:
    /// Whether a factory makes value objects and handle objects.
    enum class Objects { Supported, NotSupported };

    ArrayFactory() noexcept = default;
    /// A factory that makes objects or, with Objects::NotSupported, refuses to.
    explicit ArrayFactory(Objects objects) noexcept : objects_(objects) {}

    /// An array of any type: dense types as described above; STRUCT with no fields, VALUE_OBJECT
    /// without a class, ENUM of the class with the empty name, sparse types with no stored element.
    /// @throws EArrayUnknownDataType for a value that is no ArrayType. @throws EArrayTooLarge when the
    /// element count or byte size overflows, or the memory cannot be had. @throws EInvalidArgument for a
    /// sparse array of other than two dimensions. @throws ObjectNotSupportedException for VALUE_OBJECT
    /// when the factory makes no objects.
    Array createArray(ArrayType type, std::vector<unsigned long> dimensions) const;
    /// The same, for dimensions written where the call is: the array keeps up to two of them in its own
    /// block, so a scalar or a row of these costs one allocation, or none beyond its elements.
    Array createArray(ArrayType type, std::initializer_list<unsigned long> dimensions) const;

    /// A dense array of T. @throws as createArray.
    template <detail::Element T>
    TypedArray<T> createArray(std::vector<unsigned long> dimensions) const
    {
        return TypedArray<T>(createArray(detail::ElementType<T>::value, std::move(dimensions)));
    }

    /// A dense array of T holding elements in storage order (column-major).
    /// @throws EInvalidArgument when their number is not the element count. @throws as createArray.
    template <detail::Plain T>
    TypedArray<T> createArray(std::vector<unsigned long> dimensions, std::initializer_list<T> elements) const
    {
        TypedArray<T> array = createArray<T>(std::move(dimensions));
        if (elements.size() != array.getNumberOfElements())
            throw EInvalidArgument("The array has " + std::to_string(array.getNumberOfElements()) + " elements; "
                                   + std::to_string(elements.size()) + " were given.");
        std::copy(elements.begin(), elements.end(), getWritableElements<T>(array).begin());
        return array;
    }

    /// A 1-by-1 array holding value.
    template <detail::Plain T>
    TypedArray<T> createScalar(T value) const
    {
        return TypedArray<T>(createScalarArray(detail::ElementType<T>::value, &value));
    }

    /// A char array holding the code units of text as one row: 1-by-N, and 0-by-0 for the empty text.
    CharArray createCharArray(std::u16string const& text) const;
    /// A char array of the dimensions, every code unit 0. @throws as createArray.
    CharArray createCharArray(std::vector<unsigned long> dimensions) const;

    /// A struct array whose elements have the fields, in this order.
    /// @throws EIllegalStructFieldName for a name that is given twice or is not legal: a legal name
    /// begins with an ASCII letter, holds only ASCII letters, digits and underscores, and has at most
    /// 2049 of them. @throws EArrayTooLarge as createArray, counting each field of each element.
    StructArray createStructArray(std::vector<unsigned long> dimensions, std::vector<std::string> fieldNames) const;

    /// An enumeration array of the class. @throws as createArray.
    EnumArray createEnumArray(std::vector<unsigned long> dimensions, std::string className) const;

    /// Reserves uninitialised memory for count elements of the type (numbers, logicals and chars) and
    /// hands out its address and the function that frees it; no memory for a count of 0.
    /// @throws EArrayUnknownDataType for a value that is no ArrayType. @throws ETypeMismatch for a type
    /// without fixed-size elements. @throws EArrayTooLarge when the memory cannot be had.
    void createBuffer(void** data, void (**deleter)(void*), int type, unsigned long count) const;
    void createBuffer(void** data, void (**deleter)(void*), ArrayType type, unsigned long count) const
    {
        createBuffer(data, deleter, static_cast<int>(type), count);
    }

    /// A dense array of numbers, logicals or chars of the type and dimensions that takes over a buffer
    /// holding its elements in storage order, as many as the dimensions' product (from createBuffer, or
    /// any memory with its deleter): an array made where its elements already are, without a copy.
    /// @throws ETypeMismatch for a type whose elements are not of fixed size. @throws EInvalidArgument
    /// for a missing buffer with elements to hold. @throws as createArray; the buffer is freed then.
    Array createArrayFromBuffer(ArrayType type, std::vector<unsigned long> dimensions,
                                std::unique_ptr<void, void (*)(void*)> data) const;

    /// A sparse matrix that takes over three buffers of nonZeros entries (from createBuffer, or any
    /// memory with its deleter): values of the type's element type, and the row and column of each,
    /// counted from 0, in any order. Entries at one coordinate are combined (numbers add, logicals stay
    /// true) and entries that are then zero are dropped, so the array holds its non-zero elements once
    /// each, in column-major order.
    /// @throws ETypeMismatch when type is no sparse type. @throws EInvalidArgument for other than two
    /// dimensions, or a missing buffer. @throws EIndexOutOfRange for a coordinate outside the dimensions.
    /// @throws EArrayTooLarge when the element count overflows.
    Array createSparseArray(std::vector<unsigned long> dimensions, unsigned long nonZeros, ArrayType type,
                            std::unique_ptr<void, void (*)(void*)> data,
                            std::unique_ptr<unsigned long[], void (*)(void*)> rows,
                            std::unique_ptr<unsigned long[], void (*)(void*)> cols) const;

    /// A class that declares no properties.
    ClassInfo createClassInfo(ZorbalClassIdentifier const& identifier) const;
    /// A class that declares the properties, in this order.
    /// @throws PropertyExistsException for a name given twice.
    ClassInfo createClassInfo(ZorbalClassIdentifier const& identifier,
                              std::vector<ZorbalPropertyIdentifier> const& properties) const;

    /// An object of the class with its declared properties.
    /// @throws ObjectNotSupportedException when the factory makes no objects.
    ValueObject createValueObject(ClassInfo const& classInfo) const;
    /// A value object array without a class, which is heterogeneous.
    /// @throws ObjectNotSupportedException when the factory makes no objects. @throws as createArray.
    ValueObjectArray createValueObjectArray(std::vector<unsigned long> dimensions) const;
    /// A value object array of the class.
    /// @throws ObjectNotSupportedException when the factory makes no objects. @throws as createArray.
    ValueObjectArray createValueObjectArray(std::vector<unsigned long> dimensions, ClassInfo const& classInfo) const;

    /// A handle on object objectId of the virtual machine kvxId, which has no value until set_value
    /// gives it one. @throws ObjectNotSupportedException when the factory makes no objects.
    HandleObjectRef createHandleObjectRef(KVXID kvxId, long long objectId) const;

private:
    void requireObjects(std::string const& className) const;
    Array createArrayOf(ArrayType type, std::span<unsigned long const> dimensions) const;
    /// The 1-by-1 array of a plain type holding the element at value.
    Array createScalarArray(ArrayType type, void const* value) const;

    Objects objects_ = Objects::Supported;
};

} // namespace foundation::zorbaldata
