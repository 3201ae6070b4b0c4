// Collects the lines that the notation readers write to JSONFrontendLogger while it lives.
#pragma once

#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zq::test {

// Installs a collecting sink on construction and puts the previous sink back on destruction.
class LogCapture {
public:
    using Logger = foundation::zorbaljson::detail::JSONFrontendLogger;

    LogCapture()
        : previous_(Logger::set_sink([this](std::string_view line) { lines_.emplace_back(line); }))
    {
    }
    LogCapture(LogCapture const&) = delete;
    LogCapture& operator=(LogCapture const&) = delete;
    ~LogCapture() { Logger::set_sink(std::move(previous_)); }

    std::vector<std::string> const& lines() const noexcept { return lines_; }

private:
    std::vector<std::string> lines_;
    Logger::Sink previous_;
};

} // namespace zq::test
