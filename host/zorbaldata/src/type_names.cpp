// The names of array types in the library's messages.
#include "type_names.hpp"

#include <foundation/zorbaldata/exceptions.hpp>

namespace foundation::zorbaldata::detail {

std::string_view typeName(ArrayType type) noexcept
{
    switch (type) {
    case ArrayType::LOGICAL: return "logical";
    case ArrayType::CHAR: return "char";
    case ArrayType::STRING: return "string";
    case ArrayType::DOUBLE: return "double";
    case ArrayType::SINGLE: return "single";
    case ArrayType::INT8: return "int8";
    case ArrayType::UINT8: return "uint8";
    case ArrayType::INT16: return "int16";
    case ArrayType::UINT16: return "uint16";
    case ArrayType::INT32: return "int32";
    case ArrayType::UINT32: return "uint32";
    case ArrayType::INT64: return "int64";
    case ArrayType::UINT64: return "uint64";
    case ArrayType::COMPLEX_DOUBLE: return "complex double";
    case ArrayType::COMPLEX_SINGLE: return "complex single";
    case ArrayType::COMPLEX_INT8: return "complex int8";
    case ArrayType::COMPLEX_UINT8: return "complex uint8";
    case ArrayType::COMPLEX_INT16: return "complex int16";
    case ArrayType::COMPLEX_UINT16: return "complex uint16";
    case ArrayType::COMPLEX_INT32: return "complex int32";
    case ArrayType::COMPLEX_UINT32: return "complex uint32";
    case ArrayType::COMPLEX_INT64: return "complex int64";
    case ArrayType::COMPLEX_UINT64: return "complex uint64";
    case ArrayType::CELL: return "cell";
    case ArrayType::STRUCT: return "struct";
    case ArrayType::VALUE_OBJECT: return "value object";
    case ArrayType::HANDLE_OBJECT_REF: return "handle object";
    case ArrayType::ENUM: return "enumeration";
    case ArrayType::SPARSE_LOGICAL: return "sparse logical";
    case ArrayType::SPARSE_DOUBLE: return "sparse double";
    case ArrayType::SPARSE_COMPLEX_DOUBLE: return "sparse complex double";
    case ArrayType::SPARSE_SINGLE: return "sparse single";
    case ArrayType::SPARSE_COMPLEX_SINGLE: return "sparse complex single";
    }
    return "unknown";
}

bool isKnownType(ArrayType type) noexcept
{
    return typeName(type) != "unknown";
}

bool isSparseType(ArrayType type) noexcept
{
    return typeName(type).starts_with("sparse");
}

void requireKnownType(ArrayType type)
{
    if (!isKnownType(type))
        throw EArrayUnknownDataType();
}

std::string dimensionsText(std::span<unsigned long const> dimensions)
{
    if (dimensions.empty())
        return "0-dimensional";
    std::string text;
    for (unsigned long d : dimensions) {
        if (!text.empty())
            text += 'x';
        text += std::to_string(d);
    }
    return text;
}

std::string arrayText(ArrayType type, std::span<unsigned long const> dimensions)
{
    return "an array of " + dimensionsText(dimensions) + " " + std::string(typeName(type)) + " elements";
}

} // namespace foundation::zorbaldata::detail

namespace foundation::zorbaldata {

std::string_view getTypeName(ArrayType type) noexcept
{
    return detail::typeName(type);
}

} // namespace foundation::zorbaldata
