// Reading the whole input of zqjson.
#pragma once

#include <string>

namespace zqjson {

/// All bytes of the file, or of standard input for "-".
/// @throws std::runtime_error naming the file and the reason when it cannot be read.
std::string read_input(std::string const& name);

} // namespace zqjson
