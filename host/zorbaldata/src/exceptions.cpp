// The failures that the array library reports; their destructors live here so that each class has one
// type identity shared by every object that throws or catches it.
#include <foundation/zorbaldata/exceptions.hpp>

#include <utility>

namespace foundation::zorbaldata {

Exception::Exception(std::string message) : message_(std::move(message)) {}
Exception::~Exception() = default;

char const* Exception::what() const noexcept
{
    return message_.c_str();
}

EArrayTooLarge::EArrayTooLarge(std::string message) : Exception(std::move(message)) {}
EArrayTooLarge::~EArrayTooLarge() = default;
int EArrayTooLarge::code() const noexcept
{
    return 1;
}

EIndexOutOfRange::EIndexOutOfRange(std::string message) : Exception(std::move(message)) {}
EIndexOutOfRange::~EIndexOutOfRange() = default;
int EIndexOutOfRange::code() const noexcept
{
    return 2;
}

ETypeMismatch::ETypeMismatch(std::string message) : Exception(std::move(message)) {}
ETypeMismatch::~ETypeMismatch() = default;
int ETypeMismatch::code() const noexcept
{
    return 3;
}

EInvalidArgument::EInvalidArgument(std::string message) : Exception(std::move(message)) {}
EInvalidArgument::~EInvalidArgument() = default;
int EInvalidArgument::code() const noexcept
{
    return 4;
}

EIllegalStructFieldName::EIllegalStructFieldName(std::string message, std::string fieldName)
    : Exception(std::move(message)), fieldName_(std::move(fieldName))
{
}
EIllegalStructFieldName::~EIllegalStructFieldName() = default;
int EIllegalStructFieldName::code() const noexcept
{
    return 5;
}

PropertyExistsException::PropertyExistsException(std::string propertyName)
    : Exception("The property \"" + propertyName + "\" exists already."), propertyName_(std::move(propertyName))
{
}
PropertyExistsException::~PropertyExistsException() = default;
int PropertyExistsException::code() const noexcept
{
    return 6;
}

ENoSuchProperty::ENoSuchProperty(std::string propertyName)
    : Exception("The object has no property \"" + propertyName + "\"."), propertyName_(std::move(propertyName))
{
}
ENoSuchProperty::~ENoSuchProperty() = default;
int ENoSuchProperty::code() const noexcept
{
    return 7;
}

EArrayUnknownDataType::EArrayUnknownDataType() : Exception("Unknown DataType field in zorbal::data::Array.") {}
EArrayUnknownDataType::~EArrayUnknownDataType() = default;
int EArrayUnknownDataType::code() const noexcept
{
    return 8;
}

EMissingValue::EMissingValue(std::string message) : Exception(std::move(message)) {}
EMissingValue::~EMissingValue() = default;
int EMissingValue::code() const noexcept
{
    return 9;
}

ObjectNotSupportedException::ObjectNotSupportedException(std::string message, std::string className)
    : Exception(std::move(message)), className_(std::move(className))
{
}
ObjectNotSupportedException::~ObjectNotSupportedException() = default;
int ObjectNotSupportedException::code() const noexcept
{
    return 28;
}

} // namespace foundation::zorbaldata
