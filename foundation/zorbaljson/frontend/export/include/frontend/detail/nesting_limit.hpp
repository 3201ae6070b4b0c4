// How deep the readers may descend into a JSON tree before they refuse it instead of running out of stack.
#pragma once

#include <foundation/json/nesting_limit.hpp>

#include <cstddef>

namespace foundation::zorbaljson::detail {

/// Counts the JSON arrays and objects between the root of a document and the value being read. One
/// counter serves a whole conversion; readers enter a level before they descend into a container. The
/// limit is the text reader's foundation::json::max_nesting_depth, so every document it reads can be
/// converted, while a deeper tree that a caller built is refused before it can exhaust the stack.
class NestingDepth {
public:
    /// One or more levels entered; they are left when it is destroyed.
    class [[nodiscard]] Level {
    public:
        Level(Level const&) = delete;
        Level& operator=(Level const&) = delete;
        ~Level() { depth_->depth_ -= levels_; }

    private:
        friend class NestingDepth;
        Level(NestingDepth& depth, std::size_t levels) noexcept
            : depth_(&depth)
            , levels_(levels)
        {
            depth_->depth_ += levels_;
        }

        NestingDepth* depth_;
        std::size_t levels_;
    };

    /// Descends levels deeper for the life of the result.
    /// @throws NestingTooDeep "JSON nested deeper than 1000 levels cannot be read" (with the limit)
    /// when that would pass foundation::json::max_nesting_depth; the depth is then unchanged.
    Level enter(std::size_t levels = 1);

private:
    std::size_t depth_ = 0;
};

} // namespace foundation::zorbaljson::detail
