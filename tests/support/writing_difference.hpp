// The two roads from an array to JSON text, compared without a test framework: the value tree
// serialised, and the text written straight from the array.
#pragma once

#include <foundation/json/serialize.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

#include <exception>
#include <string>
#include <typeinfo>

namespace zq::test {

// Empty when both roads give the same bytes, or throw the same class with the same text; otherwise
// what each gave. indent 0 is the compact text, any other the indented one.
inline std::string writing_difference(foundation::zorbaldata::Array const& array,
    foundation::zorbaljson::ToJsonMode mode, foundation::zorbaljson::NanType nan,
    foundation::zorbaldata::ObjectFilter filter, unsigned indent = 0)
{
    namespace zj = foundation::zorbaldata::json;
    // The text a road gave, or what it threw: no JSON text starts with "threw".
    auto const got = [](auto const& write) -> std::string {
        try {
            return write();
        } catch (std::exception const& e) {
            return std::string("threw ") + typeid(e).name() + ": " + e.what();
        }
    };
    std::string const tree = got([&] {
        return foundation::json::serialize(zj::zorbaldata_to_json(array, mode, nan, filter), indent);
    });
    std::string const text = got([&] { return zj::zorbaldata_to_string(array, mode, nan, filter, indent); });
    return tree == text ? std::string() : "through the tree: " + tree + "\nstraight: " + text;
}

} // namespace zq::test
