// The command line of zqjson.
#pragma once

#include "output.hpp"

#include <span>
#include <string>
#include <variant>

namespace zqjson {

/// What a valid command line asks for.
struct Options {
    /// A file name, or "-" for standard input.
    std::string input = "-";
    /// A file name, or "-" for standard output.
    std::string output = "-";
    /// Print the array's size and class, and one level inside it, instead of writing it back.
    bool describe = false;
    /// Hand the input to the reader as it is, without taking off a byte order mark and white space.
    bool strict = false;
    Notation notation;
};

/// The command line asked for the usage text.
struct HelpRequest { };

/// The command line asked for the package version.
struct VersionRequest { };

/// The command line is wrong; the text says how.
struct UsageError {
    std::string message;
};

using ParsedCommandLine = std::variant<Options, HelpRequest, VersionRequest, UsageError>;

/// Reads the arguments that follow the program name. Options come in any order, before or after the
/// input; a later one overrides an earlier one. An option's value is the next argument or follows
/// "=" in the same one ("--format small", "--format=small", "-o out.json").
ParsedCommandLine parse_command_line(std::span<char const* const> arguments);

/// The usage text, ending in a line end.
std::string usage();

} // namespace zqjson
