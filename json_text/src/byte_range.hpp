// Running a reader of bytes between two positions of a string, and moving the position as far.
#pragma once

#include <foundation/json/parser.hpp>

#include <memory>

namespace foundation::json::detail {

/// Calls step(p, end) with p and end as pointers to the bytes of [position, end), and moves
/// position as far as step moved p, on failure too, and also when step returns nothing.
template <typename Step>
auto on_bytes(TextPosition& position, TextPosition const& end, Step&& step)
{
    char const* const first = std::to_address(position);
    char const* p = first;
    struct Advance {
        TextPosition& position;
        char const* const& p;
        char const* first;
        ~Advance() { position += p - first; }
    } const advance{position, p, first};
    return step(p, first + (end - position));
}

} // namespace foundation::json::detail
