// Locating a syntax error in bytes and lines, and the three lines of its message.
#include <foundation/json/parser_exception.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

namespace fj = foundation::json;

fj::ParserException at(std::string const& text, std::size_t offset, fj::ParseResult code = fj::ExpectedQuote)
{
    return fj::ParserException(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), text.end(), code, "D");
}

TEST(ParserException, MessageHasThreeLinesWithTheCaretUnderThePosition)
{
    fj::ParserException const e = at("[1,\n2,,3]", 6);
    EXPECT_STREQ(e.what(), "JSON ParserException (E0008): D (Line 2, Column 2)\n\t2,,3]\n\t  ^");
    EXPECT_STREQ(at("", 0, fj::ParseOk).what(), "JSON ParserException (E0000): D (Line 1, Column 0)\n\t\n\t^");
    EXPECT_STREQ(at("x", 0, fj::NestingTooDeep).what(), "JSON ParserException (E0021): D (Line 1, Column 0)\n\tx\n\t^");
}

TEST(ParserException, FieldsCountBytesAndOnlyLineFeedsEndLines)
{
    std::string const long_line = std::string(150, 'a') + std::string(150, 'b');
    static const struct {
        char const* name;
        std::string text;
        std::size_t offset;
        unsigned long line;
        unsigned long column;
        std::string excerpt;
    } cases[] = {
        {"Start", "abc", 0, 1, 0, "abc"},
        {"OnALineEnd", "x\nab\ncd", 4, 2, 2, "ab"},
        {"AfterTheLastLineEnd", "1\n", 2, 2, 0, ""},
        {"ValueBeforeALineEnd", "1\n", 1, 1, 1, "1"},
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
        EXPECT_EQ(e.offset(), c.offset);
        EXPECT_EQ(e.line(), c.line);
        EXPECT_EQ(e.column(), c.column);
        EXPECT_EQ(e.caret_offset(), std::min(c.column, 80ul));
        EXPECT_EQ(e.excerpt(), c.excerpt);
        std::string const what = e.what();
        EXPECT_EQ(what.substr(what.find('\n')), "\n\t" + c.excerpt + "\n\t" + std::string(e.caret_offset(), ' ') + "^");
    }
}

} // namespace
