// How zqjson writes an array back as JSON text.
#include "output.hpp"

#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

#include <utility>

namespace zqjson {

namespace {

// Two spaces a level keeps deep cell and struct trees readable in a terminal.
constexpr unsigned pretty_indent = 2;

} // namespace

std::string write_json(foundation::zorbaldata::Array array, Notation const& notation)
{
    return foundation::zorbaldata::json::zorbaldata_to_string(
        std::move(array), notation.mode, notation.nan, notation.filter, notation.pretty ? pretty_indent : 0);
}

} // namespace zqjson
