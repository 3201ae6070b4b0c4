// Reading the whole input of zqjson.
#include "input.hpp"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <stdexcept>

namespace zqjson {

namespace {

std::string read_all(std::istream& in)
{
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return std::move(bytes).str();
}

} // namespace

std::string read_input(std::string const& name)
{
    if (name == "-")
        return read_all(std::cin);
    std::ifstream file(name, std::ios::binary);
    if (!file)
        throw std::runtime_error("cannot read " + name + ": " + std::strerror(errno));
    return read_all(file);
}

} // namespace zqjson
