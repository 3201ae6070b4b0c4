// The guarded reads of "zqdata": the one place where a reader's data of the wrong JSON kind is logged.
#pragma once

#include <foundation/json/value.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// The JSON array at "zqdata" of an array of the kind named label ("double", "logical", "cell"...),
/// read in place: the readers only read it, and it outlives them.
/// @throws InvalidZQDataType(label, "JSON array", "") when data is no JSON array, after writing
/// "Caught std::runtime_error while casting data: " and the cast's message to JSONFrontendLogger.
foundation::json::Array const& read_data_array(foundation::json::Value const& data, std::string const& label);

/// The JSON object at "zqdata" of an array of the kind named label ("struct"...), read in place.
/// @throws InvalidZQDataType(label, "JSON object", "") when data is no JSON object, after the same log
/// line as read_data_array.
foundation::json::Object const& read_data_object(
    foundation::json::Value const& data, std::string const& label);

} // namespace foundation::zorbaljson::detail
