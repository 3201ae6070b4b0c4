// The identities of a handle array: the "zqhandle" member of its large form.
#pragma once

#include <frontend/detail/json_node.hpp>

#include <string>

namespace foundation::zorbaljson::detail {

/// What "zqhandle" says: the virtual machine's id and the object ids, one for each element. The ids are
/// read in place from the JSON tree, which must outlive this.
struct HandleReference {
    std::string kvx_id;
    JsonNode object_ids;
};

/// The "zqhandle" member of the large form object of class class_name. Members of it other than
/// "zqkvxID" and "zqobjectID" are not read, nor are the texts in them.
/// @throws InvalidZQDataType(class_name, "handle reference", "zqhandle") when the object has no
/// "zqhandle"; InvalidZQDataType("handle", name of the alternative, key) for "zqhandle" that is no JSON
/// object, then "zqkvxID" that is missing or no string, then "zqobjectID" that is missing or no JSON
/// array, each after the log line of read_data.
HandleReference read_handle_reference(JsonNode object, std::string const& class_name);

} // namespace foundation::zorbaljson::detail
