// Long arrays: the tree parse_value builds holds every number in its place, and the text entry and the
// tree entry give the same array or failure (and log lines: the comparison is read_both_ways's, which
// every reading test goes through).
#include "reading_paths.hpp"

#include <foundation/json/json_cast.hpp>
#include <foundation/json/parser.hpp>

#include <gtest/gtest.h>

#include <algorithm>

namespace {

namespace fj = foundation::json;
using V = fj::Value;

constexpr long long count = 70000;

// n numbers from first on as text, each with suffix, without the closing bracket.
std::string list(long long first, char const* suffix = "", long long n = count)
{
    std::string text;
    for (long long i = first; i != first + n; ++i)
        text += (i == first ? "[" : ",") + std::to_string(i) + suffix;
    return text;
}

// The tree of the same numbers under convert, with last after them.
fj::Value tree(long long first, auto convert, std::vector<fj::Value> const& last = {})
{
    fj::Array elements;
    for (long long i = first; i != first + count; ++i)
        elements.push_back(fj::Value(convert(i)));
    elements.insert(elements.end(), last.begin(), last.end());
    return fj::Value(std::move(elements));
}

// A large form with "zqdata" first, so that the reader meets the data before their type.
std::string large(char const* type, long long size, std::string const& data, char const* more = "")
{
    return R"({"zqdata":)" + data + R"(,"zqsize":[1,)" + std::to_string(size) + R"(],"zqtype":")" + type + '"'
        + more + "}";
}

// Arrays longer than the text reader keeps in its shared buffer of numbers move to blocks of their own,
// which the array of a document's data takes over; typed data are read again from where they start.
TEST(ReadingRoads, LongArraysKeepEveryNumberInPlace)
{
    auto const real = [](long long i) { return static_cast<double>(i); };
    auto const same = [](long long i) { return i; };
    auto const unsigned_or_0 = [](long long i) { return static_cast<unsigned long long>(std::max(i, 0LL)); };
    // The tree of "zqdata", or of the whole text when it is no object; Undefined where not checked.
    const struct { std::string text; fj::Value data; bool reads; } cases[] = {
        {large("double", count, list(0) + "]"), tree(0, real), true},
        {list(-count) + "]", tree(-count, real), true},
        {large("double", count, list(0, ".5") + "]"), tree(0, [](long long i) { return i + 0.5; }), true},
        {large("double", count + 1, list(3) + ",0.5]"), tree(3, real, {fj::Value(0.5)}), true},
        {large("double", count + 1, list(0) + "]"), tree(0, real), false},
        {large("double", count / 2, list(0) + "]", R"(,"zqcomplex":true)"), tree(0, real), true},
        {list(0) + R"(,"x"])", tree(0, real, {fj::Value("x")}), false},
        {"[" + list(0) + "]," + list(count) + "]]", V(fj::Array {tree(0, real), tree(count, real)}), true},
        {R"({"zqtype":"int64","zqdata":)" + list(-5) + R"(],"zqsize":[1,70000]})", tree(-5, same), true},
        {large("int64", count, list(-5) + "]"), tree(-5, same), true},
        {large("uint64", count, list(-5) + "]"), tree(-5, unsigned_or_0), true},
        {large("uint32", count, list(-5) + "]"), tree(-5, unsigned_or_0), true},
        {large("int32", count, list(-5) + "]"), tree(-5, same), true},
        {large("int8", count, list(0) + "]"), tree(0, same), false},
        {large("int64", count, "[99999999999999999999," + list(1, "", count - 1).substr(1) + "]"), V(), true},
        {large("cell", 1, "[" + large("double", count, list(0) + "]") + "]"), fj::Value(), true},
        {large("cell", count + 1, list(0) + ",[3]]"), tree(0, real, {V(fj::Array {V(3.0)})}), true},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.text.substr(0, 60));
        fj::Value value;
        fj::TextPosition position = c.text.begin();
        ASSERT_EQ(fj::parse_value(value, position, c.text.end(), 0), fj::ParseOk);
        fj::Value const data = value.which() == 6 ? fj::json_cast<fj::Object>(value).at("zqdata") : value;
        EXPECT_TRUE(c.data == fj::Value() || data == c.data);
        // A failure is compared like an array.
        bool read = true;
        try {
            zq::test::read_both_ways(c.text);
        } catch (std::exception const&) {
            read = false;
        }
        EXPECT_EQ(read, c.reads);
    }
}

} // namespace
