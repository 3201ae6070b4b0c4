// The diagnostic channel: lines reach the installed sink, and nothing else.
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

using foundation::zorbaljson::detail::JSONFrontendLogger;

// Installs a capturing sink for the life of a test and puts the previous one back.
class JSONFrontendLoggerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        previous_
            = JSONFrontendLogger::set_sink([this](std::string_view line) { lines_.emplace_back(line); });
    }
    void TearDown() override { JSONFrontendLogger::set_sink(std::move(previous_)); }

    std::vector<std::string> lines_;

private:
    JSONFrontendLogger::Sink previous_;
};

TEST_F(JSONFrontendLoggerTest, HandsEachLineUnchanged)
{
    JSONFrontendLogger::write("Caught unknown error while casting data.");
    JSONFrontendLogger::write(std::string_view("with\0nul", 8));
    JSONFrontendLogger::write("");
    ASSERT_EQ(lines_.size(), 3u);
    EXPECT_EQ(lines_[0], "Caught unknown error while casting data.");
    EXPECT_EQ(lines_[1], std::string("with\0nul", 8));
    EXPECT_EQ(lines_[2], "");
}

TEST_F(JSONFrontendLoggerTest, SetSinkReturnsThePreviousSink)
{
    std::vector<std::string> other;
    auto mine = JSONFrontendLogger::set_sink([&](std::string_view line) { other.emplace_back(line); });
    JSONFrontendLogger::write("to the other");
    auto back = JSONFrontendLogger::set_sink(std::move(mine));
    JSONFrontendLogger::write("to mine");
    back("called directly");

    EXPECT_EQ(lines_, std::vector<std::string> { "to mine" });
    EXPECT_EQ(other, (std::vector<std::string> { "to the other", "called directly" }));
}

TEST_F(JSONFrontendLoggerTest, EmptySinkDiscards)
{
    auto mine = JSONFrontendLogger::set_sink({});
    JSONFrontendLogger::write("nobody hears this");
    EXPECT_FALSE(JSONFrontendLogger::set_sink(std::move(mine)));
    EXPECT_TRUE(lines_.empty());
}

TEST_F(JSONFrontendLoggerTest, ThrowingSinkDoesNotReachTheWriter)
{
    auto mine
        = JSONFrontendLogger::set_sink([](std::string_view) { throw std::runtime_error("sink failed"); });
    EXPECT_NO_THROW(JSONFrontendLogger::write("line"));
    JSONFrontendLogger::set_sink(std::move(mine));
}

TEST(JSONFrontendLogger, WritesAndReplacementsFromSeveralThreads)
{
    std::atomic<int> count { 0 };
    auto previous = JSONFrontendLogger::set_sink([&](std::string_view) { ++count; });
    std::vector<std::thread> writers;
    for (int t = 0; t < 4; ++t)
        writers.emplace_back([] {
            for (int i = 0; i < 1000; ++i)
                JSONFrontendLogger::write("line");
        });
    for (int i = 0; i < 100; ++i)
        JSONFrontendLogger::set_sink(JSONFrontendLogger::set_sink([&](std::string_view) { ++count; }));
    for (auto& w : writers)
        w.join();
    JSONFrontendLogger::set_sink(std::move(previous));
    EXPECT_EQ(count.load(), 4000);
}

} // namespace
