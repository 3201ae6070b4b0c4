// Texts and key functions of the failures of the notation.
#include <frontend/detail/parse_error.hpp>

#include <utility>

namespace foundation::zorbaljson {

ParseError::ParseError(std::string const& message)
    : std::runtime_error(message)
{
}

ParseError::~ParseError() = default;

MismatchedZQSize::MismatchedZQSize()
    : ParseError(R"(Data size does not match "zqsize" specified.)")
{
}

MismatchedZQSize::~MismatchedZQSize() = default;

NullNotSupported::NullNotSupported()
    : ParseError("JSON null not supported")
{
}

NullNotSupported::~NullNotSupported() = default;

InvalidArrayElemType::InvalidArrayElemType()
    : ParseError(
        R"(Array in small notation must contain JSON numbers, JSON booleans, or {"zqdata":"NaN"}, {"zqdata":"Inf"}, or {"zqdata":"-Inf"})")
{
}

InvalidArrayElemType::~InvalidArrayElemType() = default;

ArrayInconsistentDepths::ArrayInconsistentDepths()
    : ParseError("Nested arrays in small notation does not have consistent depths")
{
}

ArrayInconsistentDepths::~ArrayInconsistentDepths() = default;

ArrayInconsistentSizes::ArrayInconsistentSizes()
    : ParseError("Nested arrays in small notation does not have consistent sizes")
{
}

ArrayInconsistentSizes::~ArrayInconsistentSizes() = default;

ArrayInconsistentTypes::ArrayInconsistentTypes(std::string first, std::string second)
    : ParseError(
        "Array in small notation has both " + first + " and " + second + " types. Expected one type.")
    , first_(std::move(first))
    , second_(std::move(second))
{
}

ArrayInconsistentTypes::~ArrayInconsistentTypes() = default;

InvalidFloatingElem::InvalidFloatingElem(std::string type)
    : ParseError("Invalid value for type " + type
        + R"(. Expected a number or one of the following:"NaN", "Inf", "-Inf", {"zqdata":"NaN"}, {"zqdata":"Inf"}, {"zqdata":"-Inf"})")
    , type_(std::move(type))
{
}

InvalidFloatingElem::~InvalidFloatingElem() = default;

InvalidIntegralElem::InvalidIntegralElem(std::string type)
    : ParseError("Invalid value for type " + type + ". Expected an integral number")
    , type_(std::move(type))
{
}

InvalidIntegralElem::~InvalidIntegralElem() = default;

InvalidZQType::InvalidZQType(std::string name)
    : ParseError(R"(Unsupported "zqtype": )" + name)
    , name_(std::move(name))
{
}

InvalidZQType::~InvalidZQType() = default;

InvalidPropertyType::InvalidPropertyType(std::string key, std::string expected)
    : ParseError("\"" + key + "\" must be a " + expected)
    , key_(std::move(key))
    , expected_(std::move(expected))
{
}

InvalidPropertyType::~InvalidPropertyType() = default;

InvalidZQSize::InvalidZQSize()
    : ParseError(R"("zqsize" must be an array of 2 or more positive integers)")
{
}

InvalidZQSize::~InvalidZQSize() = default;

InvalidZQDataType::InvalidZQDataType(std::string type, std::string expected, std::string key)
    : ParseError("\"" + key + "\"" + type + " arrays must be a " + expected)
    , type_(std::move(type))
    , expected_(std::move(expected))
    , key_(std::move(key))
{
}

InvalidZQDataType::~InvalidZQDataType() = default;

InvalidZQTypeForSparse::InvalidZQTypeForSparse(std::string name)
    : ParseError(
        R"(Invalid "zqtype" value: )" + name + R"( in sparse array. Expected "double" or "logical" types)")
    , name_(std::move(name))
{
}

InvalidZQTypeForSparse::~InvalidZQTypeForSparse() = default;

IncompleteComplexData::IncompleteComplexData()
    : ParseError("Complex data is incomplete")
{
}

IncompleteComplexData::~IncompleteComplexData() = default;

InvalidSparseArray::InvalidSparseArray()
    : ParseError(
        R"(Sparse array expects a row array, column array, and an optional data array inside "zqdata". Unexpected data found)")
{
}

InvalidSparseArray::~InvalidSparseArray() = default;

CannotCastToArray::CannotCastToArray()
    : ParseError(
        R"(Attempt to cast to JSON Array failed. Expected JSON array of JSON arrays in "zqdata" for a sparse array)")
{
}

CannotCastToArray::~CannotCastToArray() = default;

MismatchInRowColDataArraySize::MismatchInRowColDataArraySize()
    : ParseError(
        R"(Expected JSON array of JSON arrays to be of appropriate size in "zqdata" for a sparse array)")
{
}

MismatchInRowColDataArraySize::~MismatchInRowColDataArraySize() = default;

InvalidZQDataForSparse::InvalidZQDataForSparse(std::string detail)
    : ParseError("Incompatible data for sparse. " + detail)
    , detail_(std::move(detail))
{
}

InvalidZQDataForSparse::~InvalidZQDataForSparse() = default;

InvalidLogicalElem::InvalidLogicalElem()
    : ParseError("Invalid value for type logical. Expected true or false")
{
}

InvalidLogicalElem::~InvalidLogicalElem() = default;

InvalidCharArrayZQData::InvalidCharArrayZQData()
    : ParseError(R"("zqdata" for char array must be in the format ["<data>"])")
{
}

InvalidCharArrayZQData::~InvalidCharArrayZQData() = default;

InvalidFieldName::InvalidFieldName(std::string name)
    : ParseError("Invalid field name \"" + name + "\" specified.")
    , name_(std::move(name))
{
}

InvalidFieldName::~InvalidFieldName() = default;

PropertyExistsException::PropertyExistsException()
    : ParseError("Duplicate property names specified.")
{
}

PropertyExistsException::~PropertyExistsException() = default;

ObjectNotSupportedException::ObjectNotSupportedException(std::string className)
    : ParseError("Object creation not supported.")
    , className_(std::move(className))
{
}

ObjectNotSupportedException::~ObjectNotSupportedException() = default;

MismatchInRefAndDataLength::MismatchInRefAndDataLength()
    : ParseError(R"(There is a mismatch in the size of "zqdata" and "zqobjectID".)")
{
}

MismatchInRefAndDataLength::~MismatchInRefAndDataLength() = default;

InvaildKVXID::InvaildKVXID()
    : ParseError("Handle array does not have a valid KVX ID.")
{
}

InvaildKVXID::~InvaildKVXID() = default;

InvalidStringElemType::InvalidStringElemType()
    : ParseError(R"(String array must contain JSON String, or {"zqdata":"missing"})")
{
}

InvalidStringElemType::~InvalidStringElemType() = default;

NestingTooDeep::NestingTooDeep(unsigned long limit)
    : ParseError("JSON nested deeper than " + std::to_string(limit) + " levels cannot be read")
    , limit_(limit)
{
}

NestingTooDeep::~NestingTooDeep() = default;

} // namespace foundation::zorbaljson
