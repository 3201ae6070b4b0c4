// Reading one JSON value: which alternative decides, where reading stops, the trees built, nesting.
#include "read_text.hpp"

#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/nesting_limit.hpp>

#include <algorithm>
#include <limits>
#include <string>
#include <utility>

namespace {

namespace fj = foundation::json;
using namespace std::string_literals;
using zq::test::StopCase;

TEST(ParseValue, FurthestAlternativeDecidesWithTiesToTheEarlier)
{
    static const StopCase cases[] = {
        {"Empty", "", fj::UnexpectedEnd, 0},
        {"CutLiteralIsNoString", "tru", fj::ExpectedQuote, 0},
        {"WrongLiteral", "nul1", fj::ExpectedQuote, 0},
        {"ByteThatStartsNoValue", "x", fj::ExpectedQuote, 0},
        {"NoSkippingAtTheTop", " 1", fj::ExpectedQuote, 0},
        {"MinusAlone", "-", fj::UnexpectedEnd, 1},
        {"MinusThenLetter", "-x", fj::ExpectedDigit, 1},
        {"LiteralEndsByLength", "nullx", fj::ParseOk, 4},
        {"LeadingZerosPass", "-007", fj::ParseOk, 4},
        {"NoFractionAfterLeadingZeros", "01.5", fj::ParseOk, 2},
        {"PointWithoutDigit", "[1.]", fj::ExpectedFractionDigit, 3},
        {"PointAtEnd", "1.", fj::UnexpectedEnd, 2},
        {"ExponentWithoutDigit", "[1e+]", fj::ExpectedExponentDigit, 4},
        {"ExponentAtEnd", "1e-", fj::UnexpectedEnd, 3},
        {"CommaBeforeBracket", "[1,]", fj::ExpectedQuote, 3},
        {"CommaBeforeBrace", R"({"a":1,})", fj::ExpectedQuote, 7},
        {"ElementsWithoutComma", "[1 2]", fj::ExpectedArrayEnd, 3},
        {"MembersWithoutComma", R"({"a":1 "b":2})", fj::ExpectedObjectEnd, 7},
        {"KeyWithoutColon", R"({"a" 1})", fj::ExpectedColon, 5},
        {"KeyThatIsNoString", "{1:1}", fj::ExpectedQuote, 1},
        {"UnclosedArray", "[1, [2]", fj::UnexpectedEnd, 7},
        {"UnclosedObject", R"({"a":)", fj::UnexpectedEnd, 5},
        {"StrayClose", "]", fj::ExpectedQuote, 0},
        {"NulByteIsNoToken", "[1,\0]"s, fj::ExpectedQuote, 3},
        {"SixWhiteSpaceBytes", "[ \t\n\v\f\r1 ]", fj::ParseOk, 10},
        {"CommentsOnlyUnderTheFlag", "[1/**/]", fj::ExpectedArrayEnd, 2},
    };
    zq::test::expect_stops(cases);
}

TEST(ParseValue, CommentsUnderFlagBitZero)
{
    static const StopCase cases[] = {
        {"Block", "[1/* x */,/**/2]", fj::ParseOk, 16},
        {"Line", "{\"a\"// x\n:1}", fj::ParseOk, 12},
        {"BlockClosesOnlyAfterItsOpening", "[1/*/ ]", fj::UnexpectedEnd, 7},
        {"UnclosedLineComment", "[1 // ]", fj::UnexpectedEnd, 7},
        {"SlashThatOpensNothing", "[1 /x]", fj::ExpectedArrayEnd, 3},
    };
    zq::test::expect_stops(cases, fj::allow_comments);
}

TEST(ParseValue, BuildsTheTree)
{
    double const infinity = std::numeric_limits<double>::infinity();
    static const struct {
        std::string text;
        fj::Value tree;
    } cases[] = {
        {"0123", fj::Value(123.0)},
        {"-1.25e2", fj::Value(-125.0)},
        {"-1e400", fj::Value(-infinity)},
        {"1" + std::string(100'000, '0'), fj::Value(infinity)},
        {"0." + std::string(100'000, '0') + "1e100000", fj::Value(0.1)},
        {"\"a\nb\"", fj::Value("a\nb")},
        {R"([true,false,null,"x",[],{}])", fj::Value(fj::Array{fj::Value(true), fj::Value(false), fj::Value(fj::Null{}),
                                                              fj::Value("x"), fj::Value(fj::Array{}), fj::Value(fj::Object{})})},
        {R"({"a":1,"b":{"a":[2]},"a":3})",
         fj::Value(fj::Object{{"a", fj::Value(1.0)}, {"b", fj::Value(fj::Object{{"a", fj::Value(fj::Array{fj::Value(2.0)})}})}})},
    };
    for (auto const& c : cases) {
        fj::Value out;
        EXPECT_EQ(zq::test::read_value(c.text, out).code, fj::ParseOk) << c.text.substr(0, 40);
        EXPECT_EQ(out, c.tree) << c.text.substr(0, 40);
    }
}

TEST(ParseValue, NestingStopsAtTheBracketBeyondTheLimit)
{
    auto const nest = [](std::string const& open, std::size_t depth, std::string const& close) {
        std::string text;
        for (std::size_t i = 0; i != depth; ++i)
            text += open;
        text += "1";
        for (std::size_t i = 0; i != depth; ++i)
            text += close;
        return text;
    };
    std::ptrdiff_t const limit = fj::max_nesting_depth;
    static const StopCase cases[] = {
        {"ArraysAtTheLimit", nest("[", limit, "]"), fj::ParseOk, 2 * limit + 1},
        {"ArraysBeyond", nest("[", limit + 1, "]"), fj::NestingTooDeep, limit},
        {"ObjectsBeyond", nest(R"({"a":)", limit + 1, "}"), fj::NestingTooDeep, 5 * limit},
        {"MillionOpenBrackets", std::string(1'000'000, '['), fj::NestingTooDeep, limit},
        {"MillionMixed", nest(R"([{"":)", 500'000, "}]"), fj::NestingTooDeep, 5 * limit / 2},
    };
    zq::test::expect_stops(cases);
}

// The codes of the bool step never reach a caller of parse_value, where the string alternative wins.
TEST(ParseValue, BoolStepTellsACutWordFromAWrongOne)
{
    static const StopCase cases[] = {
        {"True", "true", fj::ParseOk, 4},
        {"False", "false", fj::ParseOk, 5},
        {"Cut", "fals", fj::UnexpectedEnd, 0},
        {"Nothing", "", fj::UnexpectedEnd, 0},
        {"Wrong", "trux", fj::BadBool, 0},
    };
    fj::Value out;
    zq::test::expect_stops(cases, [&](auto& position, auto const& end) { return fj::parse_bool(out, position, end, 0); });
}

// Arrays longer than the reader keeps in its shared buffer of numbers move to blocks of their own; every
// number must come out in its place, typed or not, with siblings after them.
TEST(ParseValue, LongArraysKeepEveryNumberInPlace)
{
    constexpr long long count = 70000;
    auto const list = [](long long from, char const* suffix, char const* last = "") {
        std::string text = "[";
        for (long long i = from; i != from + count; ++i)
            text += std::to_string(i) + suffix + ",";
        text.back() = ']';
        return last[0] ? text.substr(0, text.size() - 1) + "," + last + "]" : text;
    };
    auto const tree = [](long long from, auto convert, fj::Array last = {}) {
        fj::Array elements;
        for (long long i = from; i != from + count; ++i)
            elements.push_back(convert(i));
        elements.insert(elements.end(), last.begin(), last.end());
        return fj::Value(std::move(elements));
    };
    auto const as_double = [](long long i) { return fj::Value(static_cast<double>(i)); };
    auto const as_half = [](long long i) { return fj::Value(static_cast<double>(i) + 0.5); };
    auto const as_int = [](long long i) { return fj::Value(i); };
    auto const as_uint = [](long long i) { return fj::Value(static_cast<unsigned long long>(std::max(i, 0LL))); };
    auto const typed = [](char const* type, fj::Value data) {
        return fj::Value(fj::Object{{"zqdata", std::move(data)}, {"zqtype", fj::Value(type)}});
    };
    const struct {
        std::string text;
        fj::Value tree;
    } cases[] = {
        {list(0, ""), tree(0, as_double)},
        {list(-count, ""), tree(-count, as_double)},
        {list(0, ".5"), tree(0, as_half)},
        {list(0, "", "0.5"), tree(0, as_double, {fj::Value(0.5)})},
        {list(0, "", "\"x\""), tree(0, as_double, {fj::Value("x")})},
        {"[" + list(0, "") + "," + list(count, "") + "]", fj::Value(fj::Array{tree(0, as_double), tree(count, as_double)})},
        {R"({"zqtype":"int64","zqdata":)" + list(-5, "") + "}", typed("int64", tree(-5, as_int))},
        {R"({"zqdata":)" + list(-5, "") + R"(,"zqtype":"int64"})", typed("int64", tree(-5, as_int))},
        {R"({"zqdata":)" + list(-5, "") + R"(,"zqtype":"uint32"})", typed("uint32", tree(-5, as_uint))},
    };
    for (auto const& c : cases) {
        fj::Value out;
        EXPECT_EQ(zq::test::read_value(c.text, out).code, fj::ParseOk) << c.text.substr(0, 40);
        EXPECT_TRUE(out == c.tree) << c.text.substr(0, 40);
    }
}

} // namespace
