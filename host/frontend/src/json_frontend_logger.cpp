// The sink of the notation readers' diagnostic lines.
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <memory>
#include <mutex>
#include <utility>

namespace foundation::zorbaljson::detail {

namespace {

// The sink is shared so that a line being written keeps its sink alive while another thread
// replaces it; the lock guards only the exchange of the pointer, never the call.
struct SinkSlot {
    std::mutex mutex;
    std::shared_ptr<JSONFrontendLogger::Sink const> sink;
};

SinkSlot& slot()
{
    static SinkSlot s;
    return s;
}

std::shared_ptr<JSONFrontendLogger::Sink const> current_sink()
{
    SinkSlot& s = slot();
    std::lock_guard lock(s.mutex);
    return s.sink;
}

// A failing sink must not turn a conversion's diagnostic into a failure of the conversion.
void call_guarded(JSONFrontendLogger::Sink const& sink, std::string_view line) noexcept
{
    try {
        sink(line);
    } catch (...) {
    }
}

} // namespace

void JSONFrontendLogger::write(std::string_view const& line)
{
    if (auto sink = current_sink())
        call_guarded(*sink, line);
}

JSONFrontendLogger::Sink JSONFrontendLogger::set_sink(Sink sink)
{
    auto next = sink ? std::make_shared<Sink const>(std::move(sink)) : nullptr;
    SinkSlot& s = slot();
    std::shared_ptr<Sink const> previous;
    {
        std::lock_guard lock(s.mutex);
        previous = std::exchange(s.sink, std::move(next));
    }
    return previous ? *previous : Sink {};
}

} // namespace foundation::zorbaljson::detail
