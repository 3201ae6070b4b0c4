// The first step of reading: a JSON value taken apart by its alternative.
#pragma once

#include <frontend/detail/parse_error.hpp>
#include <frontend/detail/utf8_to_utf16.hpp>

#include <foundation/json/value.hpp>
#include <foundation/json/visit.hpp>
#include <foundation/zorbaldata/array.hpp>

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace foundation::zorbaljson::detail {

/// Makes the array of one JSON value through the backend B: scalars here, nested arrays and objects
/// by the notation's readers. Every nested value of a document passes through it again with the same
/// backend. Bare float and integer alternatives, which only the data of a typed array should hold,
/// give the empty array where an array is expected, like Undefined.
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
    Array operator()(bool value) const { return backend_->create_logical_array({1, 1}, {value}); }
    Array operator()(double value) const { return backend_->create_double_array({1, 1}, {value}); }
    /// @throws yx::i18n::CvtInvalidCharacter for bytes that are not UTF-8.
    Array operator()(std::string const& value) const { return backend_->create_char_array(utf8_to_utf16(value)); }
    Array operator()(std::vector<foundation::json::Value> const&) const
    {
        throw std::runtime_error("JSON arrays are not read as arrays yet");
    }
    Array operator()(std::map<std::string, foundation::json::Value> const&) const
    {
        throw std::runtime_error("JSON objects are not read as arrays yet");
    }
    Array operator()(float) const { return empty(); }
    Array operator()(long long) const { return empty(); }
    Array operator()(unsigned long long) const { return empty(); }

    B& backend() const noexcept { return *backend_; }

private:
    Array empty() const { return backend_->create_double_array({0, 0}, {}); }

    B* backend_;
};

} // namespace foundation::zorbaljson::detail
