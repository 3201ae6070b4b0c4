// Reading the whole input of zqjson.
#pragma once

#include <string>

namespace zqjson {

/// How messages name the input: the file name, or "standard input" for "-".
std::string input_name(std::string const& name);

/// All bytes of the file, or of standard input for "-", read straight into the string that is
/// returned: a regular file's size is asked first, so its bytes are neither copied nor moved.
/// @throws Failure naming the file and the reason when it cannot be read, or is a directory.
std::string read_input(std::string const& name);

} // namespace zqjson
