// The failures of the exported conversion functions themselves, as opposed to failures of the notation.
#pragma once

#include <foundation/zorbaldata/json/export.hpp>

#include <stdexcept>

namespace foundation::zorbaldata::json {

/// Base of the failures that the exported conversion layer raises on its own account.
class FOUNDATION_ZORBALDATA_JSON_API ConvertError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~ConvertError() override;
};

/// The value handed to the conversion is Undefined or Null, which have no array form at the top.
class FOUNDATION_ZORBALDATA_JSON_API InvalidInputJSONValue : public ConvertError {
public:
    InvalidInputJSONValue();
    ~InvalidInputJSONValue() override;
};

/// An array holds arrays (cells, structs, objects within each other) more than 1000 levels deep, more
/// than the writers descend; the readers would not take such JSON back either.
class FOUNDATION_ZORBALDATA_JSON_API ArrayNestingTooDeep : public ConvertError {
public:
    ArrayNestingTooDeep();
    ~ArrayNestingTooDeep() override;
};

} // namespace foundation::zorbaldata::json
