// How zqjson writes an array back as JSON text.
#include "output.hpp"

#include <foundation/json/serialize.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

#include <utility>

namespace zqjson {

namespace {

// Two spaces a level keeps deep cell and struct trees readable in a terminal.
constexpr unsigned pretty_indent = 2;

} // namespace

std::string write_json(foundation::zorbaldata::Array array, Notation const& notation)
{
    using namespace foundation::zorbaldata::json;
    if (!notation.pretty)
        return zorbaldata_to_string(std::move(array), notation.mode, notation.nan, notation.filter);
    return foundation::json::serialize(
        zorbaldata_to_json(std::move(array), notation.mode, notation.nan, notation.filter), pretty_indent);
}

} // namespace zqjson
