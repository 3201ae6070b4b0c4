// The two roads from JSON text to an array, taken side by side and compared without a test framework:
// the unit tests turn a difference into a failure, the fuzz targets into an abort.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>

#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace zq::test {

/// What one road gave: an array or an exception, and the log lines on the way.
struct ReadingOutcome {
    std::optional<foundation::zorbaldata::Array> array;
    std::exception_ptr failure;
    std::vector<std::string> log;
};

/// One text read by string_to_zorbaldata, and by parse_value with its tree handed to json_to_zorbaldata.
struct BothReadings {
    ReadingOutcome by_text;
    ReadingOutcome by_tree;
    /// Empty when the roads agree: the same array (type, dimensions, elements with their floating bits,
    /// field order, which elements share a handle) or the same exception class and text, and the same
    /// log lines in the same order. Otherwise what differs, with both sides shown.
    std::string difference;
};

/// Reads text both ways with factory. Nothing reaches the logger's sink: the lines are in the outcomes.
BothReadings read_by_both_roads(std::string const& text, foundation::zorbaldata::ArrayFactory& factory);

/// The text for a message, cut short: the documents of some tests are megabytes long.
std::string shown(std::string const& text);

} // namespace zq::test
