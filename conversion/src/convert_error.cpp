// Texts and key functions of the conversion layer's own failures.
#include <foundation/zorbaldata/json/convert_error.hpp>

namespace foundation::zorbaldata::json {

ConvertError::~ConvertError() = default;

InvalidInputJSONValue::InvalidInputJSONValue()
    : ConvertError("Input value is either foundation::json::Undefined or foundation::json::Null. "
                   "The value cannot be converted to ZORBAL Data Array.")
{
}

InvalidInputJSONValue::~InvalidInputJSONValue() = default;

ArrayNestingTooDeep::ArrayNestingTooDeep()
    : ConvertError("Arrays nested deeper than 1000 levels cannot be written")
{
}

ArrayNestingTooDeep::~ArrayNestingTooDeep() = default;

} // namespace foundation::zorbaldata::json
