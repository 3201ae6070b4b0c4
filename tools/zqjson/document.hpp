// From the bytes of a file to the array its JSON value describes.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>

#include <string>

namespace zqjson {

/// The array that the JSON value in text describes. Unless strict, a UTF-8 byte order mark at the
/// start and the JSON white space (space, tab, line feed, carriage return) around the value are
/// skipped; strict reads text exactly as the library's text entry does. Line and column of a syntax
/// error count from the start of text, as the file is on disk.
/// @throws Failure naming the input (name, as input_name gives it) when text is empty or, unless
/// strict, only white space.
/// @throws foundation::json::ParserException for a syntax error or text after the value.
/// @throws what the conversion throws for the value.
foundation::zorbaldata::Array read_document(std::string const& text, std::string const& name, bool strict,
                                            foundation::zorbaldata::ArrayFactory& factory);

} // namespace zqjson
