// The failures that the array library reports.
#pragma once

#include <foundation/zorbaldata/export.hpp>

#include <exception>
#include <string>

namespace foundation::zorbaldata {

/// Base of every failure of the array library: a fixed or composed text and a number for its class.
class FOUNDATION_ZORBALDATA_API Exception : public std::exception {
public:
    ~Exception() override;

    /// The text given at construction.
    char const* what() const noexcept override;

    /// The number of the failure's class, which tells failures apart without their text.
    virtual int code() const noexcept = 0;

protected:
    explicit Exception(std::string message);

private:
    std::string message_;
};

/// An array too large to count or to hold, refused before anything was allocated (code 1).
class FOUNDATION_ZORBALDATA_API EArrayTooLarge : public Exception {
public:
    explicit EArrayTooLarge(std::string message);
    ~EArrayTooLarge() override;
    int code() const noexcept override;
};

/// An index or coordinate outside an array (code 2).
class FOUNDATION_ZORBALDATA_API EIndexOutOfRange : public Exception {
public:
    explicit EIndexOutOfRange(std::string message);
    ~EIndexOutOfRange() override;
    int code() const noexcept override;
};

/// An array, element or buffer used as a type that it does not have (code 3).
class FOUNDATION_ZORBALDATA_API ETypeMismatch : public Exception {
public:
    explicit ETypeMismatch(std::string message);
    ~ETypeMismatch() override;
    int code() const noexcept override;
};

/// An argument that the operation cannot take, such as a sparse array of three dimensions (code 4).
class FOUNDATION_ZORBALDATA_API EInvalidArgument : public Exception {
public:
    explicit EInvalidArgument(std::string message);
    ~EInvalidArgument() override;
    int code() const noexcept override;
};

/// A struct field name that is illegal, given twice, or not a field of the struct (code 5).
class FOUNDATION_ZORBALDATA_API EIllegalStructFieldName : public Exception {
public:
    EIllegalStructFieldName(std::string message, std::string fieldName);
    ~EIllegalStructFieldName() override;
    int code() const noexcept override;
    /// The name that was refused.
    std::string const& getFieldName() const noexcept { return fieldName_; }

private:
    std::string fieldName_;
};

/// A property added to an object, a class or an object array that already has one of that name (code 6).
class FOUNDATION_ZORBALDATA_API PropertyExistsException : public Exception {
public:
    explicit PropertyExistsException(std::string propertyName);
    ~PropertyExistsException() override;
    int code() const noexcept override;
    /// The name that exists already.
    std::string const& getPropertyName() const noexcept { return propertyName_; }

private:
    std::string propertyName_;
};

/// A property read from an object that has none of that name (code 7).
class FOUNDATION_ZORBALDATA_API ENoSuchProperty : public Exception {
public:
    explicit ENoSuchProperty(std::string propertyName);
    ~ENoSuchProperty() override;
    int code() const noexcept override;
    /// The name that was looked for.
    std::string const& getPropertyName() const noexcept { return propertyName_; }

private:
    std::string propertyName_;
};

/// A type value that is no ArrayType; what() is always "Unknown DataType field in zorbal::data::Array." (code 8).
class FOUNDATION_ZORBALDATA_API EArrayUnknownDataType : public Exception {
public:
    EArrayUnknownDataType();
    ~EArrayUnknownDataType() override;
    int code() const noexcept override;
};

/// A value read where there is none: a missing string element, a handle that was given no value (code 9).
class FOUNDATION_ZORBALDATA_API EMissingValue : public Exception {
public:
    explicit EMissingValue(std::string message);
    ~EMissingValue() override;
    int code() const noexcept override;
};

/// An object that may not be made or written: a factory without objects, a class that the object type
/// filter refuses, a handle that cannot be written by value (code 28).
class FOUNDATION_ZORBALDATA_API ObjectNotSupportedException : public Exception {
public:
    ObjectNotSupportedException(std::string message, std::string className);
    ~ObjectNotSupportedException() override;
    int code() const noexcept override;
    /// The class of the object, empty when there is none.
    std::string const& getClassName() const noexcept { return className_; }

private:
    std::string className_;
};

} // namespace foundation::zorbaldata
