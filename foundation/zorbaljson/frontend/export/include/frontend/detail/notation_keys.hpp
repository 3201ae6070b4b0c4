// The reserved keys of the notation, made once so that lookups build no strings.
#pragma once

#include <string>

namespace foundation::zorbaljson::detail {

extern std::string const zqdata_key;
extern std::string const zqsize_key;
extern std::string const zqtype_key;
extern std::string const zqcomplex_key;
extern std::string const zqsparse_key;
extern std::string const zqhandle_key;
extern std::string const zqmetadata_key;
/// The members of "zqhandle".
extern std::string const zqkvxid_key;
extern std::string const zqobjectid_key;
/// A key of a heterogeneous element that names no property.
extern std::string const zqclass_key;
/// The "zqtype" of a value object array whose elements each name their own class.
extern std::string const heterogeneous_class_name;

} // namespace foundation::zorbaljson::detail
