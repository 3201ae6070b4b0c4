// The exported layer's own failure: caught as a ConvertError, never as a ParseError.
#include <foundation/zorbaldata/json/convert_error.hpp>

#include "expect_throw.hpp"

#include <frontend/detail/parse_error.hpp>

#include <type_traits>

namespace {

using foundation::zorbaldata::json::ConvertError;
using foundation::zorbaldata::json::InvalidInputJSONValue;

static_assert(std::is_base_of_v<ConvertError, InvalidInputJSONValue>);
static_assert(std::is_base_of_v<std::runtime_error, ConvertError>);
static_assert(!std::is_base_of_v<foundation::zorbaljson::ParseError, ConvertError>);

TEST(ConvertError, InvalidInputHasItsFixedText)
{
    EXPECT_THROW_WHAT(throw InvalidInputJSONValue(), InvalidInputJSONValue,
        "Input value is either foundation::json::Undefined or foundation::json::Null. The value cannot be "
        "converted to ZORBAL Data Array.");
}

} // namespace
