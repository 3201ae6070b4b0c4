// The failures of the notation: valid JSON that does not describe an array, one class each.
#pragma once

#include <foundation/zorbaldata/json/export.hpp>

#include <stdexcept>
#include <string>

namespace foundation::zorbaljson {

/// Base of every failure of the notation: the JSON is well formed but does not describe an array.
/// Each subclass composes its text from fixed pieces and keeps its arguments as members.
class FOUNDATION_ZORBALDATA_JSON_API ParseError : public std::runtime_error {
public:
    explicit ParseError(std::string const& message);
    ~ParseError() override;
};

/// The number of elements in "zqdata" differs from the product of "zqsize".
class FOUNDATION_ZORBALDATA_JSON_API MismatchedZQSize : public ParseError {
public:
    MismatchedZQSize();
    ~MismatchedZQSize() override;
};

/// A JSON null where an array is expected.
class FOUNDATION_ZORBALDATA_JSON_API NullNotSupported : public ParseError {
public:
    NullNotSupported();
    ~NullNotSupported() override;
};

/// An element of small notation that is neither a number, a boolean nor a special-float object.
class FOUNDATION_ZORBALDATA_JSON_API InvalidArrayElemType : public ParseError {
public:
    InvalidArrayElemType();
    ~InvalidArrayElemType() override;
};

/// Nested arrays of small notation that end at different depths.
class FOUNDATION_ZORBALDATA_JSON_API ArrayInconsistentDepths : public ParseError {
public:
    ArrayInconsistentDepths();
    ~ArrayInconsistentDepths() override;
};

/// Nested arrays of small notation whose lengths differ on one level.
class FOUNDATION_ZORBALDATA_JSON_API ArrayInconsistentSizes : public ParseError {
public:
    ArrayInconsistentSizes();
    ~ArrayInconsistentSizes() override;
};

/// Small notation that mixes element kinds.
class FOUNDATION_ZORBALDATA_JSON_API ArrayInconsistentTypes : public ParseError {
public:
    ArrayInconsistentTypes(std::string first, std::string second);
    ~ArrayInconsistentTypes() override;

    std::string const& first() const noexcept { return first_; }
    std::string const& second() const noexcept { return second_; }

private:
    std::string first_;
    std::string second_;
};

/// An element of a floating-point array that is neither a number nor a spelling of NaN or infinity.
class FOUNDATION_ZORBALDATA_JSON_API InvalidFloatingElem : public ParseError {
public:
    explicit InvalidFloatingElem(std::string type);
    ~InvalidFloatingElem() override;

    std::string const& type() const noexcept { return type_; }

private:
    std::string type_;
};

/// An element of an integer array that is not an integral number in range.
class FOUNDATION_ZORBALDATA_JSON_API InvalidIntegralElem : public ParseError {
public:
    explicit InvalidIntegralElem(std::string type);
    ~InvalidIntegralElem() override;

    std::string const& type() const noexcept { return type_; }

private:
    std::string type_;
};

/// A "zqtype" that names no type this notation can read.
class FOUNDATION_ZORBALDATA_JSON_API InvalidZQType : public ParseError {
public:
    explicit InvalidZQType(std::string name);
    ~InvalidZQType() override;

    std::string const& name() const noexcept { return name_; }

private:
    std::string name_;
};

/// A key of the notation whose value has the wrong JSON kind.
class FOUNDATION_ZORBALDATA_JSON_API InvalidPropertyType : public ParseError {
public:
    InvalidPropertyType(std::string key, std::string expected);
    ~InvalidPropertyType() override;

    std::string const& key() const noexcept { return key_; }
    std::string const& expected() const noexcept { return expected_; }

private:
    std::string key_;
    std::string expected_;
};

/// A "zqsize" that is not a list of at least two whole non-negative numbers.
class FOUNDATION_ZORBALDATA_JSON_API InvalidZQSize : public ParseError {
public:
    InvalidZQSize();
    ~InvalidZQSize() override;
};

/// A "zqdata" (or other data key) whose value has the wrong JSON kind for the array type.
class FOUNDATION_ZORBALDATA_JSON_API InvalidZQDataType : public ParseError {
public:
    InvalidZQDataType(std::string type, std::string expected, std::string key);
    ~InvalidZQDataType() override;

    std::string const& type() const noexcept { return type_; }
    std::string const& expected() const noexcept { return expected_; }
    std::string const& key() const noexcept { return key_; }

private:
    std::string type_;
    std::string expected_;
    std::string key_;
};

/// A sparse array of a type that cannot be sparse.
class FOUNDATION_ZORBALDATA_JSON_API InvalidZQTypeForSparse : public ParseError {
public:
    explicit InvalidZQTypeForSparse(std::string name);
    ~InvalidZQTypeForSparse() override;

    std::string const& name() const noexcept { return name_; }

private:
    std::string name_;
};

/// Complex data with a real part but no imaginary part.
class FOUNDATION_ZORBALDATA_JSON_API IncompleteComplexData : public ParseError {
public:
    IncompleteComplexData();
    ~IncompleteComplexData() override;
};

/// Sparse "zqdata" that is not two or three lists.
class FOUNDATION_ZORBALDATA_JSON_API InvalidSparseArray : public ParseError {
public:
    InvalidSparseArray();
    ~InvalidSparseArray() override;
};

/// Sparse "zqdata" whose entries are not lists.
class FOUNDATION_ZORBALDATA_JSON_API CannotCastToArray : public ParseError {
public:
    CannotCastToArray();
    ~CannotCastToArray() override;
};

/// Sparse row, column and value lists of different lengths.
class FOUNDATION_ZORBALDATA_JSON_API MismatchInRowColDataArraySize : public ParseError {
public:
    MismatchInRowColDataArraySize();
    ~MismatchInRowColDataArraySize() override;
};

/// An index or value of a sparse array that cannot be read.
class FOUNDATION_ZORBALDATA_JSON_API InvalidZQDataForSparse : public ParseError {
public:
    explicit InvalidZQDataForSparse(std::string detail);
    ~InvalidZQDataForSparse() override;

    std::string const& detail() const noexcept { return detail_; }

private:
    std::string detail_;
};

/// An element of a logical array that is not a JSON boolean.
class FOUNDATION_ZORBALDATA_JSON_API InvalidLogicalElem : public ParseError {
public:
    InvalidLogicalElem();
    ~InvalidLogicalElem() override;
};

/// Char "zqdata" that is not a list of exactly one string.
class FOUNDATION_ZORBALDATA_JSON_API InvalidCharArrayZQData : public ParseError {
public:
    InvalidCharArrayZQData();
    ~InvalidCharArrayZQData() override;
};

/// A struct field name that is not a legal field name.
class FOUNDATION_ZORBALDATA_JSON_API InvalidFieldName : public ParseError {
public:
    explicit InvalidFieldName(std::string name);
    ~InvalidFieldName() override;

    std::string const& name() const noexcept { return name_; }

private:
    std::string name_;
};

/// A property named twice in one object.
class FOUNDATION_ZORBALDATA_JSON_API PropertyExistsException : public ParseError {
public:
    PropertyExistsException();
    ~PropertyExistsException() override;
};

/// The array factory cannot create the object that the notation describes.
class FOUNDATION_ZORBALDATA_JSON_API ObjectNotSupportedException : public ParseError {
public:
    /// className is the class that the factory refused, as its own exception named it.
    explicit ObjectNotSupportedException(std::string className = {});
    ~ObjectNotSupportedException() override;
    std::string const& getClassName() const noexcept { return className_; }

private:
    std::string className_;
};

/// A handle array whose "zqdata" and "zqobjectID" differ in length.
class FOUNDATION_ZORBALDATA_JSON_API MismatchInRefAndDataLength : public ParseError {
public:
    MismatchInRefAndDataLength();
    ~MismatchInRefAndDataLength() override;
};

/// A handle array without a usable "zqkvxID".
class FOUNDATION_ZORBALDATA_JSON_API InvaildKVXID : public ParseError {
public:
    InvaildKVXID();
    ~InvaildKVXID() override;
};

/// An element of a string array that is neither a string nor the missing-string object.
class FOUNDATION_ZORBALDATA_JSON_API InvalidStringElemType : public ParseError {
public:
    InvalidStringElemType();
    ~InvalidStringElemType() override;
};

/// A tree nested deeper than the readers descend: arrays and objects inside each other beyond the limit
/// that the text reader also keeps, so only a tree that a caller built can reach it.
class FOUNDATION_ZORBALDATA_JSON_API NestingTooDeep : public ParseError {
public:
    explicit NestingTooDeep(unsigned long limit);
    ~NestingTooDeep() override;

    unsigned long limit() const noexcept { return limit_; }

private:
    unsigned long limit_;
};

} // namespace foundation::zorbaljson
