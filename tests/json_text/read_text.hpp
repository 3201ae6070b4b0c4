// Runs steps of the JSON reader over whole texts and checks what they return and where they stop.
#pragma once

#include <foundation/json/parser.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <span>
#include <string>
#include <ostream>

namespace zq::test {

/// Where a step stopped and what it returned.
struct Stop {
    foundation::json::ParseResult code;
    std::ptrdiff_t offset;
    bool operator==(Stop const&) const = default;
    friend std::ostream& operator<<(std::ostream& out, Stop const& stop)
    {
        return out << "code " << stop.code << " at " << stop.offset;
    }
};

/// A text, what reading it should return and where it should stop.
struct StopCase {
    char const* name;
    std::string text;
    foundation::json::ParseResult code;
    std::ptrdiff_t offset;
};

/// step(position, end) on text from its start: the code it returned and the offset where it stopped.
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

/// Checks each case with step, parse_value when none is given.
template <typename Step>
void expect_stops(std::span<StopCase const> cases, Step step)
{
    for (StopCase const& c : cases)
        EXPECT_EQ(run_step(c.text, step), (Stop{c.code, c.offset})) << c.name;
}
inline void expect_stops(std::span<StopCase const> cases, unsigned flags = 0)
{
    foundation::json::Value out;
    expect_stops(cases, [&](auto& position, auto const& end) {
        return foundation::json::parse_value(out, position, end, flags);
    });
}

} // namespace zq::test
