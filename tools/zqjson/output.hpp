// How zqjson writes an array back as JSON text.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/json/to_json_modes.hpp>
#include <foundation/zorbaldata/object_filter.hpp>

#include <string>

namespace zqjson {

/// The choices that shape the text written back.
struct Notation {
    foundation::zorbaljson::ToJsonMode mode = foundation::zorbaljson::ToJsonMode::Large;
    foundation::zorbaljson::NanType nan = foundation::zorbaljson::NanType::String;
    foundation::zorbaldata::ObjectFilter filter = foundation::zorbaldata::ObjectFilter::AllowAll;
    /// Indented, one element or member a line, instead of compact.
    bool pretty = false;
};

/// The JSON text of array in notation, without a line end.
/// @throws what the writers and the serialiser throw, such as std::runtime_error for an array they
/// cannot write or foundation::zorbaldata::ObjectNotSupportedException for a class the filter refuses.
std::string write_json(foundation::zorbaldata::Array array, Notation const& notation);

} // namespace zqjson
