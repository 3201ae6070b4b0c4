// The UTF-8 helpers: byte ranges and UTF-16 code units, surrogates included.
#include <foundation/json/detail/utf8.hpp>

#include <gtest/gtest.h>

#include <string>

using namespace foundation::json::detail;

namespace {

TEST(Utf8, GetUtf8StringCopiesTheRangeExactly)
{
    std::string const text("ab\0\xC3\xA9z", 6);
    EXPECT_EQ(get_utf8_string(text.begin() + 1, text.end() - 1), std::string("b\0\xC3\xA9", 4));
    EXPECT_EQ(get_utf8_string(text.begin(), text.begin()), "");
}

TEST(Utf8, U16ToU8)
{
    struct Case {
        char const* what;
        std::u16string units;
        int count;
        std::string bytes;
    };
    static const Case cases[] = {
        {"ASCII", u"A", 1, "A"}, {"NUL", std::u16string(1, u'\0'), 1, std::string(1, '\0')},
        {"last one-byte", u"\u007F", 1, "\x7F"}, {"first two-byte", u"\u0080", 1, "\xC2\x80"},
        {"two-byte", u"\u00E9", 1, "\xC3\xA9"}, {"last two-byte", u"\u07FF", 1, "\xDF\xBF"},
        {"three-byte", u"\u20AC", 1, "\xE2\x82\xAC"}, {"last unit", u"\uFFFF", 1, "\xEF\xBF\xBF"},
        {"pair", u"\U0001F600", 2, "\xF0\x9F\x98\x80"}, {"highest pair", u"\U0010FFFF", 2, "\xF4\x8F\xBF\xBF"},
        {"lone high", {char16_t(0xD800)}, 1, "\xED\xA0\x80"}, {"lone low", {char16_t(0xDFFF)}, 1, "\xED\xBF\xBF"},
        {"high then non-low", {char16_t(0xDBFF), u'A'}, 2, "\xED\xAF\xBF" "A"},
        {"high then U+E000", {char16_t(0xD800), char16_t(0xE000)}, 2, "\xED\xA0\x80\xEE\x80\x80"},
        {"low then high", {char16_t(0xDC00), char16_t(0xD800)}, 2, "\xED\xB0\x80\xED\xA0\x80"},
        {"pair cut by count", u"\U0001F600", 1, "\xED\xA0\xBD"}, {"no units", u"A", 0, ""},
        {"negative count", u"A", -1, ""},
    };
    for (Case const& c : cases)
        EXPECT_EQ(u16_to_u8(c.units.data(), c.count), c.bytes) << c.what;
}

} // namespace
