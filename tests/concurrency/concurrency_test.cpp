// Conversions run side by side: each thread with its own factory, one array read by all while each
// writes its own copy, and the log sink replaced while other threads write lines. Under the tsan
// preset, a data race in any of these fails the test.
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>
#include <foundation/zorbaldata/json/zorbaldata_to_json.hpp>
#include <foundation/zorbaljson/detail/json_frontend_logger.hpp>

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace zd = foundation::zorbaldata;
namespace zj = foundation::zorbaljson;
using Logger = zj::detail::JSONFrontendLogger;

namespace {

constexpr int threadCount = 6;
constexpr int rounds = 50;

std::string write(zd::Array const& array)
{
    return zd::json::zorbaldata_to_string(array, zj::ToJsonMode::Large, zj::NanType::String,
        zd::ObjectFilter::AllowAll);
}

// Starts threadCount threads running body(index) and waits for all of them.
template <typename Body>
void onThreads(Body body)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < threadCount; ++t)
        threads.emplace_back(body, t);
    for (std::thread& thread : threads)
        thread.join();
}

// Documents of different kinds, so the threads pass through different readers and writers at once.
std::array<std::string, threadCount> const documents = {
    R"({"zqtype":"shop.Item","zqsize":[1,2],"zqdata":[{"name":"pen","price":1.5},{"name":"ink","price":4}]})",
    R"({"name":"Ada","born":1815,"scores":[[90,85,77]]})", R"([[1,2,3],[4,5,6]])", R"("h\u00e9llo")",
    R"({"zqtype":"cell","zqsize":[1,3],"zqdata":[1.5,"text",[true,false]]})",
    R"({"zqtype":"double","zqsize":[3,2],"zqsparse":true,"zqdata":[[0,2],[1,1],[7,8]]})",
};

} // namespace

// Each thread converts its own document with its own factory, and reads one shared array while it
// writes its own copy of it; the texts written alone are what every thread must write meanwhile.
TEST(Concurrency, ThreadsConvertTheirOwnDocumentsAndShareOneArray)
{
    std::array<std::string, threadCount> expected;
    zd::ArrayFactory alone;
    for (int t = 0; t < threadCount; ++t)
        expected[t] = write(zd::json::string_to_zorbaldata(documents[t], alone));
    zd::TypedArray<double> const shared = zd::ArrayFactory().createArray<double>({1, 4}, {1, 2, 3, 4});
    std::string const written = write(shared);
    std::array<int, threadCount> mismatches{};
    onThreads([&](int t) {
        zd::ArrayFactory factory;
        for (int r = 0; r < rounds; ++r) {
            zd::TypedArray<double> copy = shared;
            copy[0] = t + r;
            mismatches[t] += write(zd::json::string_to_zorbaldata(documents[t], factory)) != expected[t]
                || copy[0] != t + r || shared[0] != 1 || write(shared) != written;
        }
    });
    for (int t = 0; t < threadCount; ++t)
        EXPECT_EQ(mismatches[t], 0) << documents[t];
}

// No line is lost while sinks are swapped: every swap puts in a sink that counts into the same total.
TEST(Concurrency, SinkIsReplacedWhileOtherThreadsLog)
{
    std::string const document = documents[0];
    std::atomic<std::size_t> lines{0};
    Logger::Sink const counting = [&lines](std::string_view) { lines.fetch_add(1); };
    Logger::Sink const previous = Logger::set_sink(counting);
    zd::ArrayFactory alone;
    zd::json::string_to_zorbaldata(document, alone);
    std::size_t const linesPerRead = lines.exchange(0);
    ASSERT_GT(linesPerRead, 0U);
    onThreads([&](int t) {
        zd::ArrayFactory factory;
        for (int r = 0; r < rounds; ++r) {
            // Half the threads swap sinks; the rest read an object document, whose reader writes lines.
            if (t % 2 == 0)
                Logger::set_sink(Logger::Sink(counting));
            else
                EXPECT_EQ(zd::json::string_to_zorbaldata(document, factory).getNumberOfElements(), 2U);
        }
    });
    Logger::set_sink(previous);
    EXPECT_EQ(lines.load(), threadCount / 2 * rounds * linesPerRead);
}
