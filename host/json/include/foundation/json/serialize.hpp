// Writing a Value as JSON text, compact or indented.
#pragma once

#include <foundation/json/export.hpp>
#include <foundation/json/value.hpp>

#include <stdexcept>
#include <string>

namespace foundation::json {

/// A Value that has no JSON text: it holds a NaN or an infinity somewhere.
class FOUNDATION_JSON_API SerializeError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
    ~SerializeError() override;
};

/// The compact JSON text of value: no white space at all, object members in key order.
///
/// Numbers: a double that is a whole number below 2^53 in magnitude (a float: below 2^24) is
/// written as plain digits (8.0 as `8`, -0.0 as `-0`), so sizes and counts read as integers;
/// any other is the shortest text that reads back to the same number. Integers in decimal.
/// Strings: `"` and `\` escaped, control bytes as \b \f \n \r \t or \u00xx, a low surrogate code
/// point encoded in three bytes as \udxxx, and so a high one when a low one follows it; every other
/// byte, valid UTF-8 or not, unchanged (so also a lone high surrogate's bytes, which a reader could not
/// take as an escape without a low surrogate after it).
///
/// Undefined, anywhere in the tree, is written as `null`, so that every tree has a text.
/// A NaN or an infinity has no JSON form and is refused rather than silently changed.
/// @throws SerializeError "Cannot serialize a non-finite number: JSON has no NaN or infinity"
/// @throws std::bad_alloc
FOUNDATION_JSON_API std::string serialize(Value const& value);

/// The JSON text of value laid out for people: with indent 0 exactly the compact form;
/// otherwise each array element and object member on a line of its own, indented by `indent`
/// spaces per level, members as `"key": value`, empty containers as `[]` and `{}`.
/// Numbers and strings are written as by the compact form.
/// @throws SerializeError "Cannot serialize a non-finite number: JSON has no NaN or infinity"
/// @throws std::bad_alloc
FOUNDATION_JSON_API std::string serialize(Value const& value, unsigned indent);

} // namespace foundation::json
