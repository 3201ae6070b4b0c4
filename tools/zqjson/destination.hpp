// Where zqjson puts its result: standard output, or a file that is replaced only when all is written.
#pragma once

#include <string>
#include <string_view>

namespace zqjson {

/// Writes text and a line end to standard output for "-", or else to the file at path: into a new
/// file beside it first, which is then renamed over path, so that readers of path see the old
/// content or the whole new one and a failure leaves no part of the new one behind. A file that is
/// replaced keeps its permissions; a new one gets those the umask allows.
/// @throws Failure naming path and the reason, such as a directory that does not exist.
void deliver(std::string const& path, std::string_view text);

} // namespace zqjson
