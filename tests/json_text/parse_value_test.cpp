// Reading one JSON value: which alternative decides, where reading stops, the trees built, nesting;
// strings with their escapes; "zqdata" under an integer "zqtype", in either key order.
#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/json_cast.hpp>
#include <foundation/json/nesting_limit.hpp>
#include <foundation/json/parser.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <ostream>
#include <span>
#include <string>
#include <utility>

namespace zq::test {

/// Where a step stopped and what it returned.
struct Stop {
    foundation::json::ParseResult code;
    std::ptrdiff_t offset;
    bool operator==(Stop const&) const = default;
    friend std::ostream& operator<<(std::ostream& out, Stop const& stop)
    {
        return out << "code " << stop.code << " at " << stop.offset;
    }
};

/// A text, what reading it should return and where it should stop.
struct StopCase {
    char const* name;
    std::string text;
    foundation::json::ParseResult code;
    std::ptrdiff_t offset;
};

/// step(position, end) on text from its start: the code it returned and the offset where it stopped.
template <typename Step>
Stop run_step(std::string const& text, Step step)
{
    foundation::json::TextPosition position = text.cbegin();
    foundation::json::ParseResult const code = step(position, text.cend());
    return {code, position - text.cbegin()};
}

/// parse_value on text into out.
inline Stop read_value(std::string const& text, foundation::json::Value& out, unsigned flags = 0)
{
    return run_step(text, [&](auto& position, auto const& end) {
        return foundation::json::parse_value(out, position, end, flags);
    });
}

/// Checks each case with step, parse_value when none is given.
template <typename Step>
void expect_stops(std::span<StopCase const> cases, Step step)
{
    for (StopCase const& c : cases)
        EXPECT_EQ(run_step(c.text, step), (Stop{c.code, c.offset})) << c.name;
}
inline void expect_stops(std::span<StopCase const> cases, unsigned flags = 0)
{
    foundation::json::Value out;
    expect_stops(cases, [&](auto& position, auto const& end) {
        return foundation::json::parse_value(out, position, end, flags);
    });
}

} // namespace zq::test

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
    std::string const deep(static_cast<std::size_t>(limit - 1), '[');
    static const StopCase cases[] = {
        {"ArraysAtTheLimit", nest("[", limit, "]"), fj::ParseOk, 2 * limit + 1},
        {"ArraysBeyond", nest("[", limit + 1, "]"), fj::NestingTooDeep, limit},
        {"ObjectsBeyond", nest(R"({"a":)", limit + 1, "}"), fj::NestingTooDeep, 5 * limit},
        {"MillionOpenBrackets", std::string(1'000'000, '['), fj::NestingTooDeep, limit},
        {"MillionMixed", nest(R"([{"":)", 500'000, "}]"), fj::NestingTooDeep, 5 * limit / 2},
        // Typed data count as a level, whichever key comes first.
        {"TypeFirst", deep + R"({"zqtype":"int8","zqdata":[1]})", fj::NestingTooDeep, limit + 25},
        {"DataFirst", deep + R"({"zqdata":[1],"zqtype":"int8"})", fj::NestingTooDeep, limit + 9},
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

// Strings: escapes, surrogate pairs, bytes taken as they are, and where failures point.
zq::test::Stop read_string(std::string const& text, std::string& out)
{
    return zq::test::run_step(text, [&](auto& position, auto const& end) { return fj::parse_string(out, position, end, 0); });
}

TEST(ParseString, FailuresPointAtTheEscapeAndKeepTheResult)
{
    static const StopCase cases[] = {
        {"NoOpeningQuote", "a", fj::ExpectedQuote, 0},
        {"Nothing", "", fj::UnexpectedEnd, 0},
        {"NoClosingQuote", "\"ab", fj::UnexpectedEnd, 3},
        {"UnknownEscape", R"("a\x")", fj::BadEscape, 2},
        {"BackslashLast", R"("a\)", fj::UnexpectedEnd, 2},
        {"NoHexDigit", R"("\u12g4")", fj::BadUnicodeEscape, 1},
        {"FewerThanFourBytes", R"("\u12)", fj::UnexpectedEnd, 1},
        {"HighSurrogateAtTheEnd", R"("\ud83d")", fj::UnexpectedEnd, 1},
        {"HighSurrogateWithinSixBytesOfTheEnd", R"("\ud83dab")", fj::UnexpectedEnd, 1},
        {"HighSurrogateWithoutEscape", R"("\ud83dxxxxxx")", fj::BadUnicodeEscape, 1},
        {"HighSurrogateWithBadPartner", R"("\ud83d\u12g4")", fj::BadUnicodeEscape, 1},
        {"BadEscapeAfterGoodOnes", R"("\n\"\u0041\q")", fj::BadEscape, 11},
    };
    std::string out = "kept";
    zq::test::expect_stops(cases, [&](auto& position, auto const& end) { return fj::parse_string(out, position, end, 0); });
    EXPECT_EQ(out, "kept");
}

TEST(ParseString, DecodesEscapesAndKeepsEveryOtherByte)
{
    static const struct {
        std::string text;
        std::string content;
    } cases[] = {
        {R"("\"\/\\\b\f\n\r\t")", "\"/\\\b\f\n\r\t"},
        {R"("\u0041\u00e9\u20AC")", "A\xC3\xA9\xE2\x82\xAC"},
        {R"("\ud83d\ude00")", "\xF0\x9F\x98\x80"},
        {R"("\u0000")", "\0"s},
        // A low surrogate alone, and a high one with a partner that is none, keep their own forms.
        {R"("\ude00\ud83d\u0041")", "\xED\xB8\x80\xED\xA0\xBD" "A"},
        {"\"a\0\n\t\x7f\xff\xc3\"x"s, "a\0\n\t\x7f\xff\xc3"s},
    };
    for (auto const& c : cases) {
        std::string out;
        EXPECT_EQ(read_string(c.text, out).code, fj::ParseOk) << c.text;
        EXPECT_EQ(out, c.content) << c.text;
    }
}

TEST(ParseString, ManyEscapesInALongStringStayLinear)
{
    std::string text = "\"";
    for (int i = 0; i != 500'000; ++i)
        text += i % 2 ? R"(ab\n)" : R"(\"\u00e9)";
    std::string out;
    EXPECT_EQ(read_string(text + "\"", out).code, fj::ParseOk);
    EXPECT_EQ(out.size(), 1'500'000u);
}

// Typed data: exact saturated integers, in either key order.
using UInt = unsigned long long;
constexpr long long int_max = std::numeric_limits<long long>::max();
constexpr long long int_min = std::numeric_limits<long long>::min();
constexpr UInt uint_max = std::numeric_limits<UInt>::max();

fj::Value data_of(std::string const& text)
{
    fj::Value out;
    EXPECT_EQ(zq::test::read_value(text, out).code, fj::ParseOk) << text;
    return out.which() == 6 ? fj::json_cast<fj::Object>(out).at("zqdata") : fj::Value();
}

fj::Value numbers(auto... elements)
{
    return fj::Value(fj::Array{fj::Value(elements)...});
}

TEST(TypedData, EitherKeyOrderGivesTheSameTree)
{
    static const struct {
        char const* type;
        char const* data;
        fj::Value expected;
    } cases[] = {
        {R"("int64")", "[9007199254740993, -0]", numbers(9007199254740993LL, 0LL)},
        {R"("int8")", "[99999999999999999999,-99999999999999999999]", numbers(int_max, int_min)},
        {R"("uint8")", "[-1,18446744073709551616]", numbers(0ULL, uint_max)},
        {R"("uint32")", "[ ]", numbers()},
        {R"("double")", "[1.5,7]", numbers(1.5, 7.0)},
        {"5", "[1]", numbers(1.0)},
    };
    for (auto const& c : cases) {
        std::string const type = std::string(R"("zqtype":)") + c.type;
        std::string const data = std::string(R"("zqdata":)") + c.data;
        fj::Value type_first, data_first;
        zq::test::read_value("{" + type + R"(,"zqsize":[1,1],)" + data + "}", type_first);
        zq::test::read_value("{" + data + R"(,"zqsize":[1,1],)" + type + "}", data_first);
        EXPECT_EQ(type_first, data_first) << c.data;
        EXPECT_EQ(fj::json_cast<fj::Object>(type_first).at("zqdata"), c.expected) << c.data;
    }
}

TEST(TypedData, FailuresOfTheSecondReadingComeAfterTheType)
{
    // Plain JSON all, so that data before the type fail only when the type comes.
    static const StopCase cases[] = {
        {"Fraction", "[1.5]", fj::BadInteger, 2},
        {"Exponent", "[1e3]", fj::BadInteger, 2},
        {"String", R"([1, "2"])", fj::BadInteger, 4},
        {"Object", "[{}]", fj::BadInteger, 1},
        {"NestedArray", "[[1]]", fj::BadInteger, 1},
        {"LeadingZero", "[012]", fj::ExpectedArrayEnd, 2},
        {"Bare", "99999999999999999999", fj::ExpectedArrayStart, 0},
    };
    std::string const head = R"({"zqtype":"int32","zqdata":)";
    for (StopCase const& c : cases) {
        fj::Value out;
        zq::test::Stop const type_first = zq::test::read_value(head + c.text + "}", out);
        EXPECT_EQ(type_first.code, c.code) << c.name;
        EXPECT_EQ(type_first.offset, static_cast<std::ptrdiff_t>(head.size()) + c.offset) << c.name;
        std::string const text = R"({"zqdata":)" + c.text + R"(,"zqtype":"int32","zqsize":[1,1]})";
        zq::test::Stop const data_first = zq::test::read_value(text, out);
        EXPECT_EQ(data_first.code, c.code) << c.name;
        EXPECT_EQ(data_first.offset, static_cast<std::ptrdiff_t>(text.find(",\"zqsize\""))) << c.name;
    }
}

// The latest zqdata is read again, and becomes the entry although the first key won; each object has its
// own type.
TEST(TypedData, RepeatedKeysFollowTheOrderOfReading)
{
    static const struct {
        char const* text;
        fj::Value data;
    } cases[] = {
        {R"({"zqdata":[1],"zqdata":[2],"zqtype":"int8"})", numbers(2LL)},
        {R"({"zqtype":"double","zqdata":[1],"zqdata":[2],"zqtype":"int8"})", numbers(2LL)},
        {R"({"zqdata":[1],"zqtype":"double","zqtype":"int8"})", numbers(1LL)},
        {R"({"zqtype":"int8","zqtype":"double","zqdata":[1]})", numbers(1LL)},
        {R"({"zqtype":"int8","zqdata":[1],"zqtype":"uint8"})", numbers(1ULL)},
        {R"({"zqtype":"int8","zqdata":[1],"zqdata":[2]})", numbers(1LL)},
        {R"({"zqdata":[{"zqdata":[2],"zqtype":"uint8"}],"zqtype":"double"})",
         fj::Value(fj::Array{fj::Value(fj::Object{{"zqdata", numbers(2ULL)}, {"zqtype", fj::Value("uint8")}})})},
    };
    for (auto const& c : cases)
        EXPECT_EQ(data_of(c.text), c.data) << c.text;
    fj::Value outer;
    zq::test::read_value(R"({"zqtype":"int8","a":{"zqdata":[1]}})", outer);
    EXPECT_EQ(fj::json_cast<fj::Object>(outer).at("a"), fj::Value(fj::Object{{"zqdata", numbers(1.0)}}));
}

TEST(TypedData, IntegersEndAtTheFirstNonDigitAndSaturate)
{
    for (std::size_t length = 1; length != 27; ++length) {
        UInt const expected = length > 19 ? uint_max : std::stoull(std::string(length, '9'));
        for (int byte = 0; byte != 256; ++byte) {
            if (byte >= '0' && byte <= '9')
                continue;
            std::string const text = std::string(length, '9') + static_cast<char>(byte) + "99999999";
            UInt value = 0;
            zq::test::Stop const stop = zq::test::run_step(text, [&](auto& position, auto const& end) {
                return fj::parse_uint(value, position, end);
            });
            ASSERT_EQ(stop.offset, static_cast<std::ptrdiff_t>(length)) << length << " digits, then " << byte;
            ASSERT_EQ(value, expected) << length << " digits, then " << byte;
        }
    }
    std::string const digits(100'000, '7');
    EXPECT_EQ(data_of(R"({"zqdata":[-)" + digits + "," + digits + R"(],"zqtype":"int64"})"), numbers(int_min, int_max));
}

} // namespace
