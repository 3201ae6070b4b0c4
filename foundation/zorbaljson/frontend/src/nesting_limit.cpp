// The refusal of documents nested too deep to read.
#include <frontend/detail/nesting_limit.hpp>

#include <frontend/detail/parse_error.hpp>

namespace foundation::zorbaljson::detail {

NestingDepth::Level NestingDepth::enter(std::size_t levels)
{
    // Compared as a difference, so that a huge count of levels cannot wrap around.
    if (levels > foundation::json::max_nesting_depth - depth_)
        throw NestingTooDeep(foundation::json::max_nesting_depth);
    return Level(*this, levels);
}

} // namespace foundation::zorbaljson::detail
