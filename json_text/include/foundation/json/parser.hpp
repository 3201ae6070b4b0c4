// The entry of the JSON text reader: one JSON value from bytes, with result codes instead of exceptions.
#pragma once

#include <foundation/json/parse_result.hpp>
#include <foundation/json/value.hpp>
#include <foundation/zorbaldata/json/export.hpp>

#include <string>

namespace foundation::json {

/// A place in the text being read.
using TextPosition = std::string::const_iterator;

/// The flag bit that lets white space between tokens hold /* block */ and // line comments.
inline constexpr unsigned allow_comments = 1u;

/// Reads one JSON value from [position, end) into out and leaves position after it; on failure
/// position stands where reading stopped (at the offending byte, or at the backslash of a bad escape,
/// after a minus, decimal point or exponent sign that lacks its digit) and out is unchanged.
/// Nothing is skipped before the value or after it: the caller decides what may surround it. The
/// bytes are taken as they are (no UTF-8 check); literals end by length, so "nullx" reads null and
/// leaves "x". Numbers become doubles, except the elements of "zqdata" in an object whose "zqtype"
/// names an integer type, which become long long ("int8" to "int64") or unsigned long long ("uint8"
/// to "uint64"), saturated, whichever of the two keys comes first. Of two equal keys the first wins.
/// A byte that starts no value gives ExpectedQuote; more than max_nesting_depth open arrays and
/// objects give NestingTooDeep at the bracket that would open one too many.
/// flags: 0, or allow_comments.
/// @throws std::bad_alloc, except while reading "zqdata", where it ends the reading as UnexpectedEnd.
FOUNDATION_ZORBALDATA_JSON_API ParseResult parse_value(Value& out, TextPosition& position,
                                                       TextPosition const& end, unsigned flags);

} // namespace foundation::json
