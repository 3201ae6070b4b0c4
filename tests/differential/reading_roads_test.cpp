// Documents read by the text entry and by the tree entry must give the same arrays, the same failures
// and the same log lines: the comparison is read_both_ways's.
#include "document_generator.hpp"
#include "reading_paths.hpp"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

// Whether text reads; a failure is compared like an array.
bool reads(std::string const& text)
{
    try {
        zq::test::read_both_ways(text);
        return true;
    } catch (std::exception const&) {
        return false;
    }
}

TEST(ReadingRoads, AgreeOnEveryGeneratedDocument)
{
    static const struct {
        std::uint64_t seed;
        bool broken;
    } runs[] = {{1, false}, {20261125, false}, {2, true}};
    for (auto const& run : runs) {
        zq::test::DocumentGenerator generator(run.seed);
        int arrays = 0;
        for (int i = 0; i < 20000 && !HasFailure(); ++i) {
            std::string const text = run.broken ? generator.broken_document() : generator.document();
            SCOPED_TRACE(text);
            arrays += reads(text);
        }
        // A generator that only made refused documents would test little.
        EXPECT_GT(arrays, run.broken ? 0 : 20000 / 4) << run.seed;
    }
}

// Arrays long enough for the text reader to keep their numbers in blocks of their own, which the array
// of a document's data takes over; the same arrays read through a tree must come out alike.
std::string numbers(std::size_t count, char const* first, char const* rest, char const* last = "")
{
    std::string text = "[";
    text += first;
    for (std::size_t i = 1; i < count; ++i)
        text.append(",").append(rest);
    return text + last + "]";
}

std::string large(std::string const& type, std::string const& data, std::size_t count, char const* more = "")
{
    return "{\"zqdata\":" + data + ",\"zqsize\":[1," + std::to_string(count) + "],\"zqtype\":\"" + type + "\"" + more
        + "}";
}

TEST(ReadingRoads, AgreeOnLongArrays)
{
    constexpr std::size_t many = 70000;
    static const struct {
        char const* name;
        std::string text;
        bool reads;
    } cases[] = {
        {"Doubles", large("double", numbers(many, "-0.5", "1.25e3"), many), true},
        {"IntegersAsDoubles", large("double", numbers(many, "-7", "9007199254740993"), many), true},
        {"IntegersThenADouble", large("double", numbers(many, "3", "4", ",0.5"), many + 1), true},
        {"Int64", large("int64", numbers(many, "-9223372036854775808", "123"), many), true},
        {"Int64TypeFirst", "{\"zqtype\":\"int64\",\"zqdata\":" + numbers(many, "-1", "9223372036854775807") + ",\"zqsize\":[1,70000]}", true},
        {"Uint64NegativesReadAsZero", large("uint64", numbers(many, "-5", "18446744073709551615"), many), true},
        {"Int64BeyondItsRange", large("int64", numbers(many, "99999999999999999999", "1"), many), true},
        {"Int8OutOfRange", large("int8", numbers(many, "1", "300"), many), false},
        {"Int32", large("int32", numbers(many, "1", "-300"), many), true},
        {"TooFewForTheSize", large("double", numbers(many, "1", "2"), many + 1), false},
        {"Complex", large("double", numbers(many, "1", "2"), many / 2, ",\"zqcomplex\":true"), true},
        {"InACell", "{\"zqdata\":[" + large("double", numbers(many, "1", "2"), many) + "],\"zqsize\":[1,1],\"zqtype\":\"cell\"}", true},
        {"SmallForm", numbers(many, "1", "2.5"), true},
        {"ThenAString", numbers(many, "1", "2", ",\"x\""), false},
        {"ThenAnArray", large("cell", numbers(many, "1", "2", ",[3]"), many + 1), true},
        {"Rows", "[" + numbers(many, "1", "2") + "," + numbers(many, "3", "4") + "]", true},
    };
    for (auto const& c : cases)
        EXPECT_EQ(reads(c.text), c.reads) << c.name;
}

} // namespace
