// From JSON text to an array.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>
#include <foundation/zorbaldata/json/export.hpp>

#include <string>

namespace foundation::zorbaldata::json {

/// The array that the JSON text describes, made with factory, as json_to_zorbaldata makes it from the
/// text's value. The text is exactly one value: no white space before or after it, no comments.
/// Catches nothing.
/// @throws foundation::json::ParserException for text that is no JSON value, with its result code,
/// or with code 0 ("Parse incomplete") for a value followed by more text.
/// @throws whatever json_to_zorbaldata throws for the value, such as InvalidInputJSONValue for the
/// text null.
FOUNDATION_ZORBALDATA_JSON_API Array string_to_zorbaldata(std::string const& text, ArrayFactory& factory);

/// The array that the part of text from begin to end describes, read as the whole text is read by the
/// other overload. Positions in a ParserException (offset, line, column, the caret's line) are those of
/// the whole text, so a caller that skips a prefix of its own, such as white space or a byte order
/// mark, reports places as they are in the file.
/// @pre begin and end are iterators into text, begin not after end.
FOUNDATION_ZORBALDATA_JSON_API Array string_to_zorbaldata(std::string const& text, std::string::const_iterator begin,
                                                          std::string::const_iterator end, ArrayFactory& factory);

} // namespace foundation::zorbaldata::json
