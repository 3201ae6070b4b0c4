// Reading one JSON value: which alternative decides, where reading stops, the trees built, nesting;
// strings with their escapes; "zqdata" under an integer "zqtype", in either key order.
#include <foundation/json/detail/parser_steps.hpp>
#include <foundation/json/json_cast.hpp>
#include <foundation/json/nesting_limit.hpp>
#include <foundation/json/parser.hpp>

#include <gtest/gtest.h>

#include <span>

namespace {

namespace fj = foundation::json;
using namespace std::string_literals;
using enum fj::ParseResult;

using V = fj::Value;
// What a step returned and the offset where it stopped.
using Stop = std::pair<fj::ParseResult, std::ptrdiff_t>;

// A text, what reading it should return and where it should stop.
struct StopCase { char const* name; std::string text; fj::ParseResult code; std::ptrdiff_t offset; };

// step(position, end) on text from its start: the code it returned and the offset where it stopped.
template <typename Step>
Stop run_step(std::string const& text, Step step)
{
    fj::TextPosition position = text.cbegin();
    fj::ParseResult const code = step(position, text.cend());
    return {code, position - text.cbegin()};
}

Stop read_value(std::string const& text, V& out, unsigned flags = 0)
{
    return run_step(text, [&](auto& at, auto const& end) { return fj::parse_value(out, at, end, flags); });
}

// Checks each case with step, parse_value when none is given.
template <typename Step>
void expect_stops(std::span<StopCase const> cases, Step step)
{
    for (StopCase const& c : cases)
        EXPECT_EQ(run_step(c.text, step), Stop(c.code, c.offset)) << c.name;
}
void expect_stops(std::span<StopCase const> cases, unsigned flags = 0)
{
    V out;
    expect_stops(cases, [&](auto& at, auto const& end) { return fj::parse_value(out, at, end, flags); });
}

TEST(ParseValue, FurthestAlternativeDecidesWithTiesToTheEarlier)
{
    static const StopCase cases[] = {
        {"Empty", "", UnexpectedEnd, 0}, {"CutLiteralIsNoString", "tru", ExpectedQuote, 0},
        {"WrongLiteral", "nul1", ExpectedQuote, 0}, {"ByteThatStartsNoValue", "x", ExpectedQuote, 0},
        {"NoSkippingAtTheTop", " 1", ExpectedQuote, 0}, {"MinusAlone", "-", UnexpectedEnd, 1},
        {"MinusThenLetter", "-x", ExpectedDigit, 1}, {"LiteralEndsByLength", "nullx", ParseOk, 4},
        {"LeadingZerosPass", "-007", ParseOk, 4}, {"NoFractionAfterLeadingZeros", "01.5", ParseOk, 2},
        {"PointWithoutDigit", "[1.]", ExpectedFractionDigit, 3}, {"PointAtEnd", "1.", UnexpectedEnd, 2},
        {"ExponentWithoutDigit", "[1e+]", ExpectedExponentDigit, 4},
        {"ExponentAtEnd", "1e-", UnexpectedEnd, 3}, {"CommaBeforeBracket", "[1,]", ExpectedQuote, 3},
        {"CommaBeforeBrace", R"({"a":1,})", ExpectedQuote, 7},
        {"ElementsWithoutComma", "[1 2]", ExpectedArrayEnd, 3},
        {"MembersWithoutComma", R"({"a":1 "b":2})", ExpectedObjectEnd, 7},
        {"KeyWithoutColon", R"({"a" 1})", ExpectedColon, 5}, {"KeyThatIsNoString", "{1:1}", ExpectedQuote, 1},
        {"UnclosedArray", "[1, [2]", UnexpectedEnd, 7}, {"UnclosedObject", R"({"a":)", UnexpectedEnd, 5},
        {"StrayClose", "]", ExpectedQuote, 0}, {"NulByteIsNoToken", "[1,\0]"s, ExpectedQuote, 3},
        {"SixWhiteSpaceBytes", "[ \t\n\v\f\r1 ]", ParseOk, 10},
        {"CommentsOnlyUnderTheFlag", "[1/**/]", ExpectedArrayEnd, 2},
    };
    expect_stops(cases);
}

TEST(ParseValue, CommentsUnderFlagBitZero)
{
    static const StopCase cases[] = {
        {"Block", "[1/* x */,/**/2]", ParseOk, 16},
        {"Line", "{\"a\"// x\n:1}", ParseOk, 12},
        {"BlockClosesOnlyAfterItsOpening", "[1/*/ ]", UnexpectedEnd, 7},
        {"UnclosedLineComment", "[1 // ]", UnexpectedEnd, 7},
        {"SlashThatOpensNothing", "[1 /x]", ExpectedArrayEnd, 3},
        {"CommentsAndSpaceAlternate", "[1 /* a */ // b\n /**/ ,2]", ParseOk, 25},
    };
    expect_stops(cases, fj::allow_comments);
}

TEST(ParseValue, BuildsTheTree)
{
    double const infinity = std::numeric_limits<double>::infinity();
    static const struct { std::string text; V tree; } cases[] = {
        {"0123", V(123.0)}, {"-1.25e2", V(-125.0)}, {"-1e400", V(-infinity)},
        {"1" + std::string(100'000, '0'), V(infinity)},
        {"0." + std::string(100'000, '0') + "1e100000", V(0.1)}, {"\"a\nb\"", V("a\nb")},
        {R"([true,false,null,"x",[],{}])",
            V(fj::Array {V(true), V(false), V(fj::Null {}), V("x"), V(fj::Array {}), V(fj::Object {})})},
        {R"({"a":1,"b":{"a":[2]},"a":3})",
            V(fj::Object {{"a", V(1.0)}, {"b", V(fj::Object {{"a", V(fj::Array {V(2.0)})}})}})},
    };
    for (auto const& c : cases) {
        V out;
        EXPECT_EQ(read_value(c.text, out).first, ParseOk) << c.text.substr(0, 40);
        EXPECT_EQ(out, c.tree) << c.text.substr(0, 40);
    }
}

TEST(ParseValue, NestingStopsAtTheBracketBeyondTheLimit)
{
    auto const nest = [](std::string const& open, std::size_t depth, std::string const& close) {
        std::string opening, closing;
        for (std::size_t i = 0; i != depth; ++i) {
            opening += open;
            closing += close;
        }
        return opening + "1" + closing;
    };
    std::ptrdiff_t const limit = fj::max_nesting_depth;
    std::string const deep(static_cast<std::size_t>(limit - 1), '[');
    static const StopCase cases[] = {
        {"ArraysAtTheLimit", nest("[", limit, "]"), ParseOk, 2 * limit + 1},
        {"ArraysBeyond", nest("[", limit + 1, "]"), NestingTooDeep, limit},
        {"ObjectsBeyond", nest(R"({"a":)", limit + 1, "}"), NestingTooDeep, 5 * limit},
        {"MillionOpenBrackets", std::string(1'000'000, '['), NestingTooDeep, limit},
        {"MillionMixed", nest(R"([{"":)", 500'000, "}]"), NestingTooDeep, 5 * limit / 2},
        // Typed data count as a level, whichever key comes first.
        {"TypeFirst", deep + R"({"zqtype":"int8","zqdata":[1]})", NestingTooDeep, limit + 25},
        {"DataFirst", deep + R"({"zqdata":[1],"zqtype":"int8"})", NestingTooDeep, limit + 9},
    };
    expect_stops(cases);
}

// The codes of the bool step never reach a caller of parse_value, where the string alternative wins.
TEST(ParseValue, BoolStepTellsACutWordFromAWrongOne)
{
    static const StopCase cases[] = {
        {"True", "true", ParseOk, 4}, {"False", "false", ParseOk, 5}, {"Cut", "fals", UnexpectedEnd, 0},
        {"Nothing", "", UnexpectedEnd, 0}, {"Wrong", "trux", BadBool, 0},
    };
    V out;
    expect_stops(cases, [&](auto& at, auto const& end) { return fj::parse_bool(out, at, end, 0); });
}

// Strings: escapes, surrogate pairs, bytes taken as they are, and where failures point.
Stop read_string(std::string const& text, std::string& out)
{
    return run_step(text, [&](auto& at, auto const& end) { return fj::parse_string(out, at, end, 0); });
}

TEST(ParseString, FailuresPointAtTheEscapeAndKeepTheResult)
{
    static const StopCase cases[] = {
        {"NoOpeningQuote", "a", ExpectedQuote, 0}, {"Nothing", "", UnexpectedEnd, 0},
        {"NoClosingQuote", "\"ab", UnexpectedEnd, 3}, {"UnknownEscape", R"("a\x")", BadEscape, 2},
        {"BackslashLast", R"("a\)", UnexpectedEnd, 2}, {"NoHexDigit", R"("\u12g4")", BadUnicodeEscape, 1},
        {"FewerThanFourBytes", R"("\u12)", UnexpectedEnd, 1},
        {"HighSurrogateAtTheEnd", R"("\ud83d")", UnexpectedEnd, 1},
        {"HighSurrogateWithinSixBytesOfTheEnd", R"("\ud83dab")", UnexpectedEnd, 1},
        {"HighSurrogateWithoutEscape", R"("\ud83dxxxxxx")", BadUnicodeEscape, 1},
        {"HighSurrogateWithBadPartner", R"("\ud83d\u12g4")", BadUnicodeEscape, 1},
        {"BadEscapeAfterGoodOnes", R"("\n\"\u0041\q")", BadEscape, 11},
    };
    std::string out = "kept";
    expect_stops(cases, [&](auto& at, auto const& end) { return fj::parse_string(out, at, end, 0); });
    EXPECT_EQ(out, "kept");
}

TEST(ParseString, DecodesEscapesAndKeepsEveryOtherByte)
{
    static const struct { std::string text; std::string content; } cases[] = {
        {R"("\"\/\\\b\f\n\r\t")", "\"/\\\b\f\n\r\t"}, {R"("\u0041\u00e9\u20AC")", "A\xC3\xA9\xE2\x82\xAC"},
        {R"("\ud83d\ude00")", "\xF0\x9F\x98\x80"}, {R"("\u0000")", "\0"s},
        // A low surrogate alone, and a high one with a partner that is none, keep their own forms.
        {R"("\ude00\ud83d\u0041")", "\xED\xB8\x80\xED\xA0\xBD" "A"},
        {"\"a\0\n\t\x7f\xff\xc3\"x"s, "a\0\n\t\x7f\xff\xc3"s},
    };
    for (auto const& c : cases) {
        std::string out;
        EXPECT_EQ(read_string(c.text, out).first, ParseOk) << c.text;
        EXPECT_EQ(out, c.content) << c.text;
    }
}

TEST(ParseString, ManyEscapesInALongStringStayLinear)
{
    std::string text = "\"";
    for (int i = 0; i != 500'000; ++i)
        text += i % 2 ? R"(ab\n)" : R"(\"\u00e9)";
    std::string out;
    EXPECT_EQ(read_string(text + "\"", out).first, ParseOk);
    EXPECT_EQ(out.size(), 1'500'000u);
}

// Typed data: exact saturated integers, in either key order.
using UInt = unsigned long long;
constexpr long long int_max = std::numeric_limits<long long>::max();
constexpr long long int_min = std::numeric_limits<long long>::min();
constexpr UInt uint_max = std::numeric_limits<UInt>::max();

V data_of(std::string const& text)
{
    V out;
    EXPECT_EQ(read_value(text, out).first, ParseOk) << text;
    return out.which() == 6 ? fj::json_cast<fj::Object>(out).at("zqdata") : V();
}

V numbers(auto... elements)
{
    return V(fj::Array{V(elements)...});
}

TEST(TypedData, EitherKeyOrderGivesTheSameTree)
{
    static const struct { char const* type; char const* data; V expected; } cases[] = {
        {R"("int64")", "[9007199254740993, -0]", numbers(9007199254740993LL, 0LL)},
        {R"("int8")", "[99999999999999999999,-99999999999999999999]", numbers(int_max, int_min)},
        {R"("uint8")", "[-1,18446744073709551616]", numbers(0ULL, uint_max)},
        {R"("uint32")", "[ ]", numbers()}, {R"("double")", "[1.5,7]", numbers(1.5, 7.0)},
        {"5", "[1]", numbers(1.0)},
    };
    for (auto const& c : cases) {
        std::string const type = std::string(R"("zqtype":)") + c.type;
        std::string const data = std::string(R"("zqdata":)") + c.data;
        V type_first, data_first;
        read_value("{" + type + R"(,"zqsize":[1,1],)" + data + "}", type_first);
        read_value("{" + data + R"(,"zqsize":[1,1],)" + type + "}", data_first);
        EXPECT_EQ(type_first, data_first) << c.data;
        EXPECT_EQ(fj::json_cast<fj::Object>(type_first).at("zqdata"), c.expected) << c.data;
    }
}

TEST(TypedData, FailuresOfTheSecondReadingComeAfterTheType)
{
    // Plain JSON all, so that data before the type fail only when the type comes.
    static const StopCase cases[] = {
        {"Fraction", "[1.5]", BadInteger, 2}, {"Exponent", "[1e3]", BadInteger, 2},
        {"String", R"([1, "2"])", BadInteger, 4}, {"Object", "[{}]", BadInteger, 1},
        {"NestedArray", "[[1]]", BadInteger, 1}, {"LeadingZero", "[012]", ExpectedArrayEnd, 2},
        {"Bare", "99999999999999999999", ExpectedArrayStart, 0},
    };
    std::string const head = R"({"zqtype":"int32","zqdata":)";
    for (StopCase const& c : cases) {
        V out;
        Stop const type_first = read_value(head + c.text + "}", out);
        EXPECT_EQ(type_first, Stop(c.code, static_cast<std::ptrdiff_t>(head.size()) + c.offset)) << c.name;
        std::string const text = R"({"zqdata":)" + c.text + R"(,"zqtype":"int32","zqsize":[1,1]})";
        Stop const data_first = read_value(text, out);
        EXPECT_EQ(data_first, Stop(c.code, static_cast<std::ptrdiff_t>(text.find(",\"zqsize\"")))) << c.name;
    }
}

// The latest zqdata is read again, and becomes the entry although the first key won; each object has its
// own type.
TEST(TypedData, RepeatedKeysFollowTheOrderOfReading)
{
    static const struct { char const* text; V data; } cases[] = {
        {R"({"zqdata":[1],"zqdata":[2],"zqtype":"int8"})", numbers(2LL)},
        {R"({"zqtype":"double","zqdata":[1],"zqdata":[2],"zqtype":"int8"})", numbers(2LL)},
        {R"({"zqdata":[1],"zqtype":"double","zqtype":"int8"})", numbers(1LL)},
        {R"({"zqtype":"int8","zqtype":"double","zqdata":[1]})", numbers(1LL)},
        {R"({"zqtype":"int8","zqdata":[1],"zqtype":"uint8"})", numbers(1ULL)},
        {R"({"zqtype":"int8","zqdata":[1],"zqdata":[2]})", numbers(1LL)},
        {R"({"zqdata":[{"zqdata":[2],"zqtype":"uint8"}],"zqtype":"double"})",
            V(fj::Array {V(fj::Object {{"zqdata", numbers(2ULL)}, {"zqtype", V("uint8")}})})},
    };
    for (auto const& c : cases)
        EXPECT_EQ(data_of(c.text), c.data) << c.text;
    V outer;
    read_value(R"({"zqtype":"int8","a":{"zqdata":[1]}})", outer);
    EXPECT_EQ(fj::json_cast<fj::Object>(outer).at("a"), V(fj::Object{{"zqdata", numbers(1.0)}}));
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
            auto const step = [&](auto& at, auto const& end) { return fj::parse_uint(value, at, end); };
            ASSERT_EQ(run_step(text, step).second, static_cast<std::ptrdiff_t>(length)) << byte;
            ASSERT_EQ(value, expected) << length << " digits, then " << byte;
        }
    }
    std::string const digits(100'000, '7');
    std::string const text = R"({"zqdata":[-)" + digits + "," + digits + R"(],"zqtype":"int64"})";
    EXPECT_EQ(data_of(text), numbers(int_min, int_max));
}

} // namespace
