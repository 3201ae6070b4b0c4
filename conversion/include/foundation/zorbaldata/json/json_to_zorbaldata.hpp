// From a JSON value tree to an array.
#pragma once

#include <foundation/json/value.hpp>
#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/json/export.hpp>

namespace foundation::zorbaldata::json {

/// The array that value describes, made with factory: a number is a 1-by-1 double, a boolean a 1-by-1
/// logical, a string a char row; nested JSON arrays and the "zqtype"/"zqsize"/"zqdata" objects carry
/// every other kind. Catches nothing: every failure reaches the caller as it was thrown.
/// @throws InvalidInputJSONValue when value is Undefined or Null, before the factory is used.
/// @throws foundation::zorbaljson::ParseError (a subclass naming the fault) for JSON that does not
/// describe an array. @throws yx::i18n::CvtInvalidCharacter for a string that is not UTF-8.
/// @throws the array library's exceptions, such as an array too large to make.
FOUNDATION_ZORBALDATA_JSON_API Array json_to_zorbaldata(foundation::json::Value const& value, ArrayFactory& factory);

} // namespace foundation::zorbaldata::json
