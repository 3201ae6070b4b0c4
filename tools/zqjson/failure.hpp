// A failure of zqjson whose message is complete, naming the file it concerns.
#pragma once

#include <stdexcept>

namespace zqjson {

/// Reading the input or writing the output failed; what() is the whole message, such as
/// "cannot read data.json: No such file or directory".
class Failure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace zqjson
