// The front end's own pieces: the lookup from a "zqtype" name to its array kind, and the diagnostic
// channel, whose lines reach the installed sink unchanged, and nothing else.
#include <foundation/zorbaljson/detail/zorbal_type.hpp>

#include "expect_throw.hpp"
#include "log_capture.hpp"

#include <stdexcept>
#include <string>
#include <tuple>
#include <vector>

using namespace foundation::zorbaljson::detail;
using Logger = JSONFrontendLogger;
using Lines = std::vector<std::string>;

// The numeric value of each kind is part of the table: dispatch switches on it.
static_assert(ZorbalValueObject == 14 && ZorbalEnum == 15 && ZorbalHandleObject == 17);

TEST(ZorbalTypeForName, ResolvesEveryTypeNameAndRefusesEverythingElse)
{
    std::tuple<std::string, ZorbalType, int> const named[] = {{"int8", ZorbalInt8, 0},
        {"int16", ZorbalInt16, 1}, {"int32", ZorbalInt32, 2}, {"int64", ZorbalInt64, 3},
        {"uint8", ZorbalUInt8, 4}, {"uint16", ZorbalUInt16, 5}, {"uint32", ZorbalUInt32, 6},
        {"uint64", ZorbalUInt64, 7},
        {"single", ZorbalSingle, 8}, {"double", ZorbalDouble, 9}, {"logical", ZorbalLogical, 10},
        {"char", ZorbalChar, 11}, {"cell", ZorbalCell, 12}, {"struct", ZorbalStruct, 13},
        {"string", ZorbalString, 16}};
    for (auto const& [name, type, value] : named) {
        EXPECT_EQ(zorbal_type_for_name(name), type) << name;
        EXPECT_EQ(static_cast<int>(type), value) << name;
    }
    // Near misses of real names, and the words of the kinds that only a class name selects.
    std::string const others[] = {"", "Double", "DOUBLE", "double ", " double", "int", "float", "bool",
        "boolean", "complex", "sparse", "object", "handle", "enum", "My.Class", std::string("int8\0", 5)};
    for (std::string const& other : others)
        EXPECT_THROW_WHAT(zorbal_type_for_name(other), std::invalid_argument,
            std::string(("Unknown zqtype name: " + other).c_str()));
}

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
