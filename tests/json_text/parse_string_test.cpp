// Reading strings: escapes, surrogate pairs, bytes taken as they are, and where failures point.
#include "read_text.hpp"

#include <foundation/json/detail/parser_steps.hpp>

#include <string>

namespace {

namespace fj = foundation::json;
using namespace std::string_literals;
using zq::test::StopCase;

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

} // namespace
