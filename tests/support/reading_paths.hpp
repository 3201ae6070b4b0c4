// The two roads from JSON text to an array, taken side by side: the text entry, and the tree that
// parse_value builds handed to the tree entry. Every text the reading tests use goes both ways.
#pragma once

#include <foundation/zorbaldata/array.hpp>
#include <foundation/zorbaldata/array_factory.hpp>

#include <string>

namespace zq::test {

/// string_to_zorbaldata(text, factory), after checking that the tree road gives the same: the same
/// array (type, dimensions, elements with their floating bits, field order, which elements share a
/// handle), or the same exception class and text, and the same log lines in the same order. A
/// difference is a test failure. The text road's lines reach the logger's sink as they would have.
/// @throws what string_to_zorbaldata throws.
foundation::zorbaldata::Array read_both_ways(
    std::string const& text, foundation::zorbaldata::ArrayFactory& factory);

/// The same with a factory of its own.
foundation::zorbaldata::Array read_both_ways(std::string const& text);

} // namespace zq::test
