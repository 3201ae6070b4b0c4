// The reserved keys, the library's only statics: constant, and built at load in this order.
#include <frontend/detail/notation_keys.hpp>

namespace foundation::zorbaljson::detail {

std::string const zqdata_key = "zqdata";
std::string const zqsize_key = "zqsize";
std::string const zqtype_key = "zqtype";
std::string const zqcomplex_key = "zqcomplex";
std::string const zqsparse_key = "zqsparse";
std::string const zqhandle_key = "zqhandle";
std::string const zqmetadata_key = "zqmetadata";
std::string const zqkvxid_key = "zqkvxID";
std::string const zqobjectid_key = "zqobjectID";
std::string const zqclass_key = "zqclass";
std::string const heterogeneous_class_name = "zorbal.mixin.Heterogeneous";

} // namespace foundation::zorbaljson::detail
