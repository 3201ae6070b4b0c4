// The guarded reads of "zqdata": the one place where a reader's data of the wrong JSON kind is logged.
#pragma once

#include <frontend/detail/json_node.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// data itself, once it is known to hold the alternative kind (a JSON array, object or string). key
/// names the member that data is, where that is not "zqdata" itself.
/// @throws InvalidZQDataType(label, json_kind_name(kind), key) when data holds another alternative,
/// after writing "Caught std::runtime_error while casting data: " and the cast's message to
/// JSONFrontendLogger.
JsonNode read_data(JsonNode data, int kind, std::string const& label, std::string const& key);

/// The JSON array at "zqdata" of an array of the kind named label ("double", "logical", "cell"...).
/// @throws InvalidZQDataType(label, "JSON array", "") as read_data.
inline JsonNode read_data_array(JsonNode data, std::string const& label)
{
    return read_data(data, json_kind::array, label, {});
}

/// The JSON object at "zqdata" of an array of the kind named label ("struct"...).
/// @throws InvalidZQDataType(label, "JSON object", "") as read_data.
inline JsonNode read_data_object(JsonNode data, std::string const& label)
{
    return read_data(data, json_kind::object, label, {});
}

} // namespace foundation::zorbaljson::detail
