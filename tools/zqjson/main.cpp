// zqjson: converts JSON text to an array and writes it back as JSON, or tells what came out.
#include "describe.hpp"
#include "destination.hpp"
#include "document.hpp"
#include "failure.hpp"
#include "input.hpp"
#include "options.hpp"
#include "output.hpp"
#include "version.hpp"

#include <foundation/zorbaldata_json.hpp>

#include <cxxabi.h>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <string>
#include <typeinfo>
#include <utility>
#include <variant>

namespace {

// The class of what was thrown, as a reader writes it: "foundation::zorbaljson::MismatchedZQSize".
std::string class_name(std::exception const& e)
{
    int status = 0;
    std::unique_ptr<char, void (*)(void*)> name(
        abi::__cxa_demangle(typeid(e).name(), nullptr, nullptr, &status), std::free);
    return status == 0 ? name.get() : typeid(e).name();
}

int convert(zqjson::Options const& options)
{
    std::string const name = zqjson::input_name(options.input);
    try {
        std::string const text = zqjson::read_input(options.input);
        foundation::zorbaldata::ArrayFactory factory;
        foundation::zorbaldata::Array array = zqjson::read_document(text, name, options.strict, factory);
        zqjson::deliver(options.output,
            options.describe ? zqjson::describe(array) : zqjson::write_json(std::move(array), options.notation));
        return 0;
    } catch (zqjson::Failure const& e) {
        std::cerr << "zqjson: " << e.what() << '\n';
    } catch (foundation::json::ParserException const& e) {
        // The message already shows where: three lines with the excerpt and a caret.
        std::cerr << "zqjson: " << name << ": " << e.what() << '\n';
    } catch (std::exception const& e) {
        std::cerr << "zqjson: " << name << ": " << class_name(e) << ": " << e.what() << '\n';
    }
    return 1;
}

struct Run {
    int operator()(zqjson::Options const& options) const { return convert(options); }
    int operator()(zqjson::HelpRequest) const
    {
        std::cout << zqjson::usage();
        return 0;
    }
    int operator()(zqjson::VersionRequest) const
    {
        std::cout << "zqjson " << zqjson::package_version << '\n';
        return 0;
    }
    int operator()(zqjson::UsageError const& error) const
    {
        std::cerr << "zqjson: " << error.message << '\n' << zqjson::usage();
        return 2;
    }
};

} // namespace

int main(int argc, char** argv)
{
    return std::visit(Run {}, zqjson::parse_command_line({ argv + 1, argv + argc }));
}
