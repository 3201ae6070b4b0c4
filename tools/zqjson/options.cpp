// Reading the command line of zqjson.
#include "options.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace zqjson {

namespace {

using foundation::zorbaldata::ObjectFilter;
using foundation::zorbaljson::NanType;
using foundation::zorbaljson::ToJsonMode;

// An option that takes a value: its name, a short name or none, the values it takes as messages
// list them, and how it stores one; store refuses a value it does not know by returning false.
struct ValueOption {
    std::string_view name;
    std::string_view short_name;
    std::string_view accepted;
    bool (*store)(std::string_view value, Options& options);
};

constexpr std::array value_options {
    ValueOption { "--format", "", "large or small",
        [](std::string_view value, Options& options) {
            if (value != "large" && value != "small")
                return false;
            options.notation.mode = value == "large" ? ToJsonMode::Large : ToJsonMode::Small;
            return true;
        } },
    ValueOption { "--nan", "", "string or object",
        [](std::string_view value, Options& options) {
            if (value != "string" && value != "object")
                return false;
            options.notation.nan = value == "string" ? NanType::String : NanType::Object;
            return true;
        } },
    ValueOption { "--filter", "", "0, 1 or 2",
        [](std::string_view value, Options& options) {
            if (value.size() != 1 || value[0] < '0' || value[0] > '2')
                return false;
            options.notation.filter = static_cast<ObjectFilter>(value[0] - '0');
            return true;
        } },
    ValueOption { "--output", "-o", "a file name or -",
        [](std::string_view value, Options& options) {
            if (value.empty())
                return false;
            options.output = value;
            return true;
        } },
};

ValueOption const* find_value_option(std::string_view name)
{
    auto const found = std::ranges::find_if(value_options,
        [name](ValueOption const& option) { return option.name == name || option.short_name == name; });
    return found == value_options.end() ? nullptr : &*found;
}

} // namespace

ParsedCommandLine parse_command_line(std::span<char const* const> arguments)
{
    Options options;
    bool input_given = false;
    bool options_ended = false;
    for (std::size_t next = 0; next < arguments.size(); ++next) {
        std::string_view const argument = arguments[next];
        bool const is_option = !options_ended && argument.size() > 1 && argument.front() == '-';
        if (!is_option) {
            if (input_given)
                return UsageError { "more than one input: " + options.input + " and "
                    + std::string(argument) };
            options.input = argument;
            input_given = true;
        } else if (argument == "--") {
            options_ended = true;
        } else if (argument == "-h" || argument == "--help") {
            return HelpRequest {};
        } else if (argument == "--version") {
            return VersionRequest {};
        } else if (argument == "--strict") {
            options.strict = true;
        } else if (argument == "--pretty") {
            options.notation.pretty = true;
        } else if (argument == "--describe") {
            options.describe = true;
        } else {
            std::size_t const equals = argument.find('=');
            ValueOption const* option = find_value_option(argument.substr(0, equals));
            if (option == nullptr)
                return UsageError { "unknown option " + std::string(argument) };
            std::string_view value;
            if (equals != std::string_view::npos)
                value = argument.substr(equals + 1);
            else if (next + 1 < arguments.size())
                value = arguments[++next];
            else
                return UsageError { std::string(option->name)
                    + " needs a value: " + std::string(option->accepted) };
            if (!option->store(value, options))
                return UsageError { std::string(option->name) + " takes " + std::string(option->accepted)
                    + ", not \"" + std::string(value) + '"' };
        }
    }
    return options;
}

std::string usage()
{
    return "usage: zqjson [--format large|small] [--nan string|object] [--pretty] [--filter 0|1|2]\n"
           "              [--describe] [--strict] [-o FILE] [FILE|-]\n"
           "Reads JSON text from FILE (standard input when FILE is - or absent), converts it to an\n"
           "array and writes the array back as JSON text.\n"
           "  --format large  every array as {\"zqdata\":...,\"zqsize\":...,\"zqtype\":...} (default)\n"
           "  --format small  double, logical, char and struct arrays as plain JSON where they can be\n"
           "  --nan string    NaN, Inf and -Inf in a large form as \"NaN\", \"Inf\", \"-Inf\" (default)\n"
           "  --nan object    ... as {\"zqdata\":\"NaN\"}; plain JSON always uses the object\n"
           "  --filter 0|1|2  object classes written: 0 all (default), 1 those listed (zqjson lists\n"
           "                  none), 2 none\n"
           "  --pretty        indented, one element or member a line, instead of compact\n"
           "  --describe      print only the array's size and class, such as \"1x2 int32\", and a line\n"
           "                  for each field, property or first few cell entries inside it\n"
           "  --strict        read the text exactly: no byte order mark, no white space around the value\n"
           "  -o, --output FILE  write to FILE, replacing it only once all is written (- is standard\n"
           "                  output, the default)\n"
           "  -h, --help      print this text\n"
           "  --version       print the version\n"
           "Exit status: 0 done, 1 the input, its conversion or the output failed, 2 usage error.\n";
}

} // namespace zqjson
