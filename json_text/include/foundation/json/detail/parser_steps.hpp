// The steps that parse_value is made of, each usable on its own: strings, numbers, literals,
// arrays, objects, typed integer data and white space. Internal to the library and its tests.
#pragma once

#include <foundation/json/parse_result.hpp>
#include <foundation/json/parser.hpp>
#include <foundation/json/value.hpp>

#include <string>
#include <string_view>

// Each step reads from position up to end and leaves position where it stopped, also on failure.
// flags is passed down unchanged; only allow_comments means anything.
namespace foundation::json {

/// A string in double quotes, escapes decoded, into out (replaced only on success). Every byte but
/// the quote and the backslash is taken as it is, control characters and bytes above 127 included.
/// @throws std::bad_alloc
ParseResult parse_string(std::string& out, TextPosition& position, TextPosition const& end, unsigned flags);

/// One byte or escape of a string, appended to acc; StringEnd, without moving, at the closing quote.
/// A \u escape of a high surrogate takes the next \u escape with it, whatever that is.
/// @throws std::bad_alloc
ParseResult parse_string_char(std::string& acc, TextPosition& position, TextPosition const& end);

/// Four hexadecimal digits, either case, highest first.
ParseResult parse_hex4(char16_t& unit, TextPosition& position, TextPosition const& end) noexcept;

/// A number as the nearest double; out is written only on success.
ParseResult parse_number(double& out, TextPosition& position, TextPosition const& end, unsigned flags) noexcept;

/// Moves over `-? (0 (. digit+ | digit*) | [1-9] digit* (. digit+)?) ([eE] [+-]? digit+)?`: digits
/// may follow a leading zero, but no fraction then, so "-007" is one number and "01.5" is "01".
ParseResult scan_number(TextPosition& position, TextPosition const& end) noexcept;

/// An object; out is replaced only on success.
/// @throws std::bad_alloc (see parse_value)
ParseResult parse_object(Object& out, TextPosition& position, TextPosition const& end, unsigned flags);

/// An array; out is replaced only on success.
/// @throws std::bad_alloc (see parse_value)
ParseResult parse_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags);

/// true or false: UnexpectedEnd when the text ends within one of them, else BadBool, never moving.
ParseResult parse_bool(Value& out, TextPosition& position, TextPosition const& end, unsigned flags) noexcept;

/// The value of "zqdata" for a "zqtype" of type: a flat array of saturated integers for one of the
/// eight integer types, any JSON value otherwise.
/// @throws std::bad_alloc
ParseResult parse_typed_data(std::string const& type, Value& out, TextPosition& position,
                             TextPosition const& end, unsigned flags);

/// A flat array of integers as long long; fractions, exponents, strings, objects and nested arrays
/// give BadInteger.
/// @throws std::bad_alloc
ParseResult parse_int_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags);

/// The same as unsigned long long; a negative integer reads as 0.
/// @throws std::bad_alloc
ParseResult parse_uint_array(Array& out, TextPosition& position, TextPosition const& end, unsigned flags);

/// `-? (0 | [1-9] digit*)`, clamped to the range of long long.
ParseResult parse_int(long long& out, TextPosition& position, TextPosition const& end) noexcept;

/// The same grammar, clamped to the range of unsigned long long, so a negative integer reads as 0.
ParseResult parse_uint(unsigned long long& out, TextPosition& position, TextPosition const& end) noexcept;

/// White space (space, \t, \n, \v, \f, \r) and, under allow_comments, comments. A text that ends
/// inside a comment leaves position at end.
void skip_whitespace(TextPosition& position, TextPosition const& end, unsigned flags) noexcept;

/// "int8", "int16", "int32" or "int64".
bool is_signed_type(std::string_view type) noexcept;

/// "uint8", "uint16", "uint32" or "uint64".
bool is_unsigned_type(std::string_view type) noexcept;

/// One of the eight names above.
bool is_integer_type(std::string_view type) noexcept;

} // namespace foundation::json
