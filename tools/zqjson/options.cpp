// Reading the command line of zqjson.
#include "options.hpp"

#include <string_view>

namespace zqjson {

ParsedCommandLine parse_command_line(std::span<char const* const> arguments)
{
    Options options;
    bool input_given = false;
    bool options_ended = false;
    for (std::string_view argument : arguments) {
        if (!options_ended && (argument == "-h" || argument == "--help"))
            return HelpRequest{};
        if (!options_ended && argument == "--") {
            options_ended = true;
            continue;
        }
        if (!options_ended && argument.size() > 1 && argument.front() == '-')
            return UsageError{"unknown option " + std::string(argument)};
        if (input_given)
            return UsageError{"more than one input: " + options.input + " and " + std::string(argument)};
        options.input = argument;
        input_given = true;
    }
    return options;
}

std::string usage()
{
    return "usage: zqjson [FILE|-]\n"
           "Reads JSON text from FILE (standard input when FILE is - or absent), converts it to an\n"
           "array and prints the array's size and class, such as \"1x2 int32\".\n"
           "Exit status: 0 converted, 1 the text or its conversion failed, 2 usage error.\n";
}

} // namespace zqjson
