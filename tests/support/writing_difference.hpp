// The two roads from an array to JSON text, compared without a test framework: the value tree
// serialised, and the text written straight from the array.
#pragma once

#include <foundation/json/serialize.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>

#include <exception>
#include <string>
#include <typeinfo>

namespace zq::test {

// What one road gave: its text, or the class and the what() of what it threw.
struct RoadOutcome {
    std::string text;
    std::string thrown;
};

template <typename Write>
RoadOutcome outcome_of(Write const& write)
{
    try {
        return {write(), {}};
    } catch (std::exception const& e) {
        return {{}, std::string(typeid(e).name()) + ": " + e.what()};
    }
}

// Empty when both roads give the same bytes, or throw the same class with the same text; otherwise
// what each gave. indent 0 is the compact text, any other the indented one.
inline std::string writing_difference(foundation::zorbaldata::Array const& array,
    foundation::zorbaljson::ToJsonMode mode, foundation::zorbaljson::NanType nan,
    foundation::zorbaldata::ObjectFilter filter, unsigned indent = 0)
{
    namespace zj = foundation::zorbaldata::json;
    RoadOutcome const tree = outcome_of([&] {
        return foundation::json::serialize(zj::zorbaldata_to_json(array, mode, nan, filter), indent);
    });
    RoadOutcome const text
        = outcome_of([&] { return zj::zorbaldata_to_string(array, mode, nan, filter, indent); });
    if (tree.text == text.text && tree.thrown == text.thrown)
        return {};
    return "through the tree: " + (tree.thrown.empty() ? tree.text : tree.thrown)
        + "\nstraight: " + (text.thrown.empty() ? text.text : text.thrown);
}

} // namespace zq::test
