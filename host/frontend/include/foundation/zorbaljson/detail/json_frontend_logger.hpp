// The one diagnostic channel of the notation readers: lines of text handed to a replaceable sink.
#pragma once

#include <foundation/zorbaljson/export.hpp>

#include <functional>
#include <string_view>

namespace foundation::zorbaljson::detail {

/// Where the notation readers write their diagnostic lines. By default lines are discarded, so the
/// library never prints on its own; a host installs a sink to see them. Writing and replacing the
/// sink may happen from any thread; a sink that is called from several threads must be safe for it.
class FOUNDATION_ZORBALJSON_FRONTEND_API JSONFrontendLogger {
public:
    /// Receives one line, without a line end.
    using Sink = std::function<void(std::string_view)>;

    /// Hands one line to the current sink. Nothing that happens in the sink changes a conversion:
    /// an exception thrown by the sink is swallowed.
    static void write(std::string_view const& line);

    /// Replaces the sink and returns the previous one. An empty sink discards lines.
    static Sink set_sink(Sink sink);
};

} // namespace foundation::zorbaljson::detail
