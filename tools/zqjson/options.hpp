// The command line of zqjson.
#pragma once

#include <span>
#include <string>
#include <variant>

namespace zqjson {

/// What a valid command line asks for.
struct Options {
    /// A file name, or "-" for standard input.
    std::string input = "-";
};

/// The command line asked for the usage text.
struct HelpRequest { };

/// The command line is wrong; the text says how.
struct UsageError {
    std::string message;
};

using ParsedCommandLine = std::variant<Options, HelpRequest, UsageError>;

/// Reads the arguments that follow the program name.
ParsedCommandLine parse_command_line(std::span<char const* const> arguments);

/// The usage text, ending in a line end.
std::string usage();

} // namespace zqjson
