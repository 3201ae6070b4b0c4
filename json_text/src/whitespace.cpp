// Moving over comments: /* to the first */ after the opening pair, // to the first line end.
#include "whitespace.hpp"

#include <cstring>
#include <string_view>

namespace foundation::json::detail {

void skip_comments(char const*& p, char const* end) noexcept
{
    while (end - p >= 2 && *p == '/') {
        // The terminator is looked for after the opening pair only, so "/*/" stays open.
        std::string_view const rest(p + 2, static_cast<std::size_t>(end - p - 2));
        std::size_t after;
        if (p[1] == '*') {
            std::size_t const close = rest.find("*/");
            after = close == std::string_view::npos ? rest.size() : close + 2;
        } else if (p[1] == '/') {
            std::size_t const line_end = rest.find('\n');
            after = line_end == std::string_view::npos ? rest.size() : line_end + 1;
        } else {
            return;
        }
        p = rest.data() + after;
        while (p != end && is_space(*p))
            ++p;
    }
}

} // namespace foundation::json::detail
