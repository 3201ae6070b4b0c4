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

} // namespace foundation::zorbaljson::detail
