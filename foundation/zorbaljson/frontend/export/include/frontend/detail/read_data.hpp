// The guarded reads of "zqdata": the one place where a reader's data of the wrong JSON kind is logged.
#pragma once

#include <foundation/json/value.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// The Alternative (JSON array, object or string) that data holds, read in place: the readers only read
/// it, and it outlives them. key names the member that data is, where that is not "zqdata" itself.
/// @throws InvalidZQDataType(label, name of the alternative, key) when data holds another alternative,
/// after writing "Caught std::runtime_error while casting data: " and the cast's message to
/// JSONFrontendLogger. Instantiated for foundation::json::Array, foundation::json::Object and std::string.
template <typename Alternative>
Alternative const& read_data(foundation::json::Value const& data, std::string const& label, std::string const& key);

/// The JSON array at "zqdata" of an array of the kind named label ("double", "logical", "cell"...).
/// @throws InvalidZQDataType(label, "JSON array", "") as read_data.
inline foundation::json::Array const& read_data_array(foundation::json::Value const& data, std::string const& label)
{
    return read_data<foundation::json::Array>(data, label, {});
}

/// The JSON object at "zqdata" of an array of the kind named label ("struct"...).
/// @throws InvalidZQDataType(label, "JSON object", "") as read_data.
inline foundation::json::Object const& read_data_object(
    foundation::json::Value const& data, std::string const& label)
{
    return read_data<foundation::json::Object>(data, label, {});
}

} // namespace foundation::zorbaljson::detail
