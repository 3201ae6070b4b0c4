// The first step of reading: a JSON value taken apart by its alternative.
#pragma once

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/large_notation.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/small_notation.hpp>

#include <foundation/json/value.hpp>
#include <foundation/zorbaldata/array.hpp>

namespace foundation::zorbaljson::detail {

/// Makes the array of one JSON value through the backend B: scalars here, nested arrays and objects
/// by the notation's readers. Every nested value of a document passes through it again with the same
/// backend, which counts how deep in JSON arrays and objects the reading stands. Bare float and integer
/// alternatives, which only the data of a typed array should hold, give the empty array where an array
/// is expected, like Undefined.
template <typename B>
class json_value_to_zorbal_visitor {
public:
    using Array = foundation::zorbaldata::Array;

    explicit json_value_to_zorbal_visitor(B& backend) noexcept : backend_(&backend) {}

    /// The array of value, by its alternative: Undefined, and the float and integer alternatives, give
    /// the 0-by-0 double array; a boolean or number a 1-by-1 array; a string a char array; a JSON array
    /// small notation, as read_small_notation says; a JSON object a large form, a special float or a
    /// plain object, as read_large_notation says.
    /// @throws NullNotSupported for null. @throws yx::i18n::CvtInvalidCharacter for a string whose bytes
    /// are not UTF-8. @throws NestingTooDeep when the document nests deeper than max_nesting_depth.
    Array operator()(JsonNode value) const
    {
        switch (value.kind()) {
        case json_kind::null: throw NullNotSupported();
        case json_kind::boolean: return backend_->create_scalar(value.as_bool());
        case json_kind::number: return backend_->create_scalar(value.as_double());
        case json_kind::string: return backend_->create_char_array(value.as_string());
        case json_kind::array: {
            auto const level = backend_->nesting().enter();
            return read_small_notation(value, *backend_);
        }
        case json_kind::object: {
            auto const level = backend_->nesting().enter();
            return read_large_notation(value, *backend_);
        }
        default: return empty();
        }
    }

    Array operator()(foundation::json::Value const& value) const { return (*this)(JsonNode(value)); }

    B& backend() const noexcept { return *backend_; }

private:
    Array empty() const { return backend_->create_double_array({0, 0}, {}); }

    B* backend_;
};

/// The conversion of a value inside a document (a cell entry, a struct field) as a document of its own,
/// with the same backend, so that one factory, handle table and nesting counter serve the whole
/// document. The backend must outlive the converter.
template <typename B>
ElementConverter<foundation::zorbaldata::Array> nested_document_converter(B& backend)
{
    return [backend = &backend](JsonNode value) {
        return json_value_to_zorbal_visitor<B>(*backend)(value);
    };
}

} // namespace foundation::zorbaljson::detail
