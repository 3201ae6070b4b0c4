// Moving over white space, and over comments when the flags allow them.
#pragma once

#include "byte_classes.hpp"

#include <foundation/json/parser.hpp>

namespace foundation::json::detail {

/// Moves p from a slash over comments and the white space between them; stops on a slash that
/// opens no comment.
void skip_comments(char const*& p, char const* end) noexcept;

/// Moves position over white space and, under allow_comments, over comments.
inline void skip_white_space(char const*& position, char const* end, unsigned flags) noexcept
{
    LocalPosition local{position};
    char const*& p = local.p;
    while (p != end && is_space(*p))
        ++p;
    if ((flags & allow_comments) && p != end && *p == '/')
        skip_comments(p, end);
}

} // namespace foundation::json::detail
