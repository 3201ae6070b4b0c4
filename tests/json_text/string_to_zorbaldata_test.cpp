// The entry from JSON text to an array: syntax errors and text left over refused, conversion failures
// passed on (deep nesting is among the hostile inputs); and locating a syntax error in bytes and lines,
// with the three lines of its message.
#include <foundation/zorbaldata/json/string_to_zorbaldata.hpp>

#include "expect_throw.hpp"

#include <foundation/json/parser_exception.hpp>
#include <foundation/zorbaldata.hpp>
#include <foundation/zorbaldata/json/convert_error.hpp>
#include <yx/i18n/cvt_exception.hpp>

#include <algorithm>

namespace {

namespace fj = foundation::json;
namespace zd = foundation::zorbaldata;

// A caller that skips bytes of its own around the value, as the command-line tool does, gets the
// positions of the whole text back.
TEST(StringToZorbaldata, RefusesTextThatIsNotExactlyOneValue)
{
    std::string const end = "(E0019): Unexpected end of text (Line 1, Column ";
    std::string const quote = "(E0008): Expected a string (opening quote) (Line ";
    std::string const rest = "(E0000): Parse incomplete (Line 1, Column ";
    const struct { std::string text; long skipped_before, skipped_after; std::string message; } cases[] = {
        {"", 0, 0, end + "0)\n\t\n\t^"}, {" 1", 0, 0, quote + "1, Column 0)\n\t 1\n\t^"},
        {"1 ", 0, 0, rest + "1)\n\t1 \n\t ^"}, {"1\n", 0, 0, rest + "1)\n\t1\n\t ^"},
        {"[][]", 0, 0, rest + "2)\n\t[][]\n\t  ^"},
        {"{\"a\":[tr", 0, 0, quote + "1, Column 6)\n\t{\"a\":[tr\n\t      ^"},
        {"\n [1,\n x]\n", 2, 1, quote + "3, Column 1)\n\t x]\n\t ^"},
        {" 1 2 ", 1, 1, rest + "2)\n\t 1 2 \n\t  ^"}, {"   ", 3, 0, end + "3)\n\t   \n\t   ^"},
    };
    zd::ArrayFactory factory;
    for (auto const& c : cases) {
        auto const first = c.text.begin() + c.skipped_before;
        auto const last = c.text.end() - c.skipped_after;
        std::string const message = "JSON ParserException " + c.message;
        if (c.skipped_before + c.skipped_after == 0) {
            EXPECT_THROW_WHAT(zd::json::string_to_zorbaldata(c.text, factory), fj::ParserException, message);
        }
        EXPECT_THROW_WHAT(
            zd::json::string_to_zorbaldata(c.text, first, last, factory), fj::ParserException, message);
    }
    std::string const good = "  [1,2]\n";
    zd::Array const array = zd::json::string_to_zorbaldata(good, good.begin() + 2, good.end() - 1, factory);
    EXPECT_EQ(array.getDimensions(), (std::vector<unsigned long> {2, 1}));
}

TEST(StringToZorbaldata, ConversionFailuresPassThrough)
{
    zd::ArrayFactory factory;
    EXPECT_THROW_WHAT(zd::json::string_to_zorbaldata("null", factory), zd::json::InvalidInputJSONValue,
                      "Input value is either foundation::json::Undefined or foundation::json::Null. "
                      "The value cannot be converted to ZORBAL Data Array.");
    EXPECT_THROW(zd::json::string_to_zorbaldata("\"\xC0\xAF\"", factory), yx::i18n::CvtInvalidCharacter);
}

fj::ParserException at(std::string const& text, std::size_t offset, fj::ParseResult code = fj::ExpectedQuote)
{
    auto const position = text.begin() + static_cast<std::ptrdiff_t>(offset);
    return fj::ParserException(text.begin(), position, text.end(), code, "D");
}

TEST(ParserException, MessageHasThreeLinesWithTheCaretUnderThePosition)
{
    std::string const head = "JSON ParserException (E00";
    EXPECT_EQ(at("[1,\n2,,3]", 6).what(), head + "08): D (Line 2, Column 2)\n\t2,,3]\n\t  ^");
    EXPECT_EQ(at("", 0, fj::ParseOk).what(), head + "00): D (Line 1, Column 0)\n\t\n\t^");
    EXPECT_EQ(at("x", 0, fj::NestingTooDeep).what(), head + "21): D (Line 1, Column 0)\n\tx\n\t^");
}

TEST(ParserException, FieldsCountBytesAndOnlyLineFeedsEndLines)
{
    std::string const long_line = std::string(150, 'a') + std::string(150, 'b');
    static const struct { char const* name; std::string text; std::size_t offset; unsigned long line;
        unsigned long column; std::string excerpt; } cases[] = {
        {"Start", "abc", 0, 1, 0, "abc"}, {"OnALineEnd", "x\nab\ncd", 4, 2, 2, "ab"},
        {"AfterTheLastLineEnd", "1\n", 2, 2, 0, ""}, {"ValueBeforeALineEnd", "1\n", 1, 1, 1, "1"},
        {"CarriageReturnIsAByte", "a\r\rb", 3, 1, 3, "a\r\rb"},
        {"MultiByteCharacter", "\xC3\xA9x", 2, 1, 2, "\xC3\xA9x"},
        {"LongLine", long_line, 150, 1, 150, long_line.substr(70, 160)},
        {"LongLineNearItsEnd", long_line, 290, 1, 290, long_line.substr(210)},
        {"ExcerptStopsAtTheLineStart", "ab\n" + long_line, 53, 2, 50, long_line.substr(0, 130)},
    };
    for (auto const& c : cases) {
        SCOPED_TRACE(c.name);
        fj::ParserException const e = at(c.text, c.offset);
        EXPECT_EQ(e.code(), fj::ExpectedQuote);
        EXPECT_EQ(std::tuple(e.offset(), e.line(), e.column()), std::tuple(c.offset, c.line, c.column));
        EXPECT_EQ(e.caret_offset(), std::min(c.column, 80ul));
        EXPECT_EQ(e.excerpt(), c.excerpt);
        std::string const what = e.what();
        std::string const caret(e.caret_offset(), ' ');
        EXPECT_EQ(what.substr(what.find('\n')), "\n\t" + c.excerpt + "\n\t" + caret + "^");
    }
}

} // namespace
