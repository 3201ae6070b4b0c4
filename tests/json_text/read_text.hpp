// Runs steps of the JSON reader over whole texts and checks what they return and where they stop.
#pragma once

#include <foundation/json/parser.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string>

namespace zq::test {

struct Stop {
    foundation::json::ParseResult code;
    std::ptrdiff_t offset;
};

/// step(position, end) on text, from its start.
template <typename Step>
Stop run_step(std::string const& text, Step step)
{
    foundation::json::TextPosition position = text.cbegin();
    foundation::json::ParseResult const code = step(position, text.cend());
    return {code, position - text.cbegin()};
}

/// parse_value on text into out.
inline Stop read_value(std::string const& text, foundation::json::Value& out, unsigned flags = 0)
{
    return run_step(text, [&](auto& position, auto const& end) {
        return foundation::json::parse_value(out, position, end, flags);
    });
}

/// A text, what reading it should return and where it should stop.
struct StopCase {
    char const* name;
    std::string text;
    foundation::json::ParseResult code;
    std::ptrdiff_t offset;
};

/// Checks each case with step.
template <typename Step>
void expect_stops(std::span<StopCase const> cases, Step step)
{
    for (StopCase const& c : cases) {
        Stop const stop = run_step(c.text, step);
        EXPECT_EQ(stop.code, c.code) << c.name;
        EXPECT_EQ(stop.offset, c.offset) << c.name;
    }
}

/// Checks each case with parse_value.
inline void expect_value_stops(std::span<StopCase const> cases, unsigned flags = 0)
{
    foundation::json::Value out;
    expect_stops(cases, [&](auto& position, auto const& end) {
        return foundation::json::parse_value(out, position, end, flags);
    });
}

} // namespace zq::test
