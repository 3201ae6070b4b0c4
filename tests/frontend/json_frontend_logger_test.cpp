// The diagnostic channel: lines reach the installed sink unchanged, and nothing else.
#include "log_capture.hpp"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Logger = foundation::zorbaljson::detail::JSONFrontendLogger;
using Lines = std::vector<std::string>;

TEST(JSONFrontendLogger, SinkGetsEachLineUnchangedAndSetSinkReturnsThePrevious)
{
    zq::test::LogCapture const capture;
    Logger::write("Caught unknown error while casting data.");
    Logger::write(std::string_view("with\0nul", 8));
    Logger::write("");
    Lines other;
    auto mine = Logger::set_sink([&](std::string_view line) { other.emplace_back(line); });
    Logger::write("to the other");
    auto back = Logger::set_sink(std::move(mine));
    Logger::write("to mine");
    back("called directly");
    EXPECT_EQ(capture.lines(),
              (Lines{"Caught unknown error while casting data.", std::string("with\0nul", 8), "", "to mine"}));
    EXPECT_EQ(other, (Lines{"to the other", "called directly"}));
}

TEST(JSONFrontendLogger, EmptySinkDiscardsAndAThrowingSinkDoesNotReachTheWriter)
{
    zq::test::LogCapture const capture;
    auto mine = Logger::set_sink({});
    Logger::write("nobody hears this");
    EXPECT_FALSE(Logger::set_sink([](std::string_view) { throw std::runtime_error("sink failed"); }));
    EXPECT_NO_THROW(Logger::write("line"));
    Logger::set_sink(std::move(mine));
    EXPECT_TRUE(capture.lines().empty());
}

} // namespace
