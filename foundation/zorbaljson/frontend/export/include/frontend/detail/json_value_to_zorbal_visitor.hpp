// The first step of reading: a JSON value taken apart by its alternative.
#pragma once

#include <frontend/detail/converting_iterator.hpp>
#include <frontend/detail/large_notation.hpp>
#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/small_notation.hpp>
#include <frontend/detail/utf8_to_utf16.hpp>

#include <foundation/json/value.hpp>
#include <foundation/json/visit.hpp>
#include <foundation/zorbaldata/array.hpp>

#include <map>
#include <string>
#include <vector>

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

    /// The array of value, by its alternative.
    Array operator()(foundation::json::Value const& value) const { return foundation::json::visit(*this, value); }

    Array operator()(foundation::json::Undefined) const { return empty(); }
    /// @throws NullNotSupported always.
    Array operator()(foundation::json::Null) const { throw NullNotSupported(); }
    Array operator()(bool value) const { return backend_->create_scalar(value); }
    Array operator()(double value) const { return backend_->create_scalar(value); }
    /// @throws yx::i18n::CvtInvalidCharacter for bytes that are not UTF-8.
    Array operator()(std::string const& value) const { return backend_->create_char_array(utf8_to_utf16(value)); }
    /// Nested JSON arrays in small notation, as read_small_notation says.
    /// @throws std::runtime_error when the document nests deeper than max_nesting_depth.
    Array operator()(std::vector<foundation::json::Value> const& value) const
    {
        auto const level = backend_->nesting().enter();
        return read_small_notation(value, *backend_);
    }
    /// A large form, a special float or a plain object, as read_large_notation says.
    /// @throws std::runtime_error when the document nests deeper than max_nesting_depth.
    Array operator()(std::map<std::string, foundation::json::Value> const& value) const
    {
        auto const level = backend_->nesting().enter();
        return read_large_notation(value, *backend_);
    }
    Array operator()(float) const { return empty(); }
    Array operator()(long long) const { return empty(); }
    Array operator()(unsigned long long) const { return empty(); }

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
    return [backend = &backend](foundation::json::Value const& value) {
        return json_value_to_zorbal_visitor<B>(*backend)(value);
    };
}

} // namespace foundation::zorbaljson::detail
