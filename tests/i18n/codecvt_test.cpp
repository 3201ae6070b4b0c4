// The UTF-8 / UTF-16 converters and the failures they throw.
#include <yx/i18n/codecvt.hpp>

#include <yx/i18n/cvt_exception.hpp>

#include <expect_throw.hpp>

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

using namespace std::literals;
using namespace yx::i18n;

namespace {

constexpr bool bothFlags[] = {false, true};

// The converters read from exact-size heap copies, so that AddressSanitizer reports any read past
// the end; an empty copy has no buffer at all.
std::u16string decode(std::string_view utf8, bool allowSurrogates)
{
    std::vector<char> const copy(utf8.begin(), utf8.end());
    return codecvt_string_to_ustring("UTF-8", allowSurrogates).convert(copy.data(), copy.size());
}

std::string encode(std::u16string_view utf16, bool allowSurrogates)
{
    std::vector<char16_t> const copy(utf16.begin(), utf16.end());
    return codecvt_ustring_to_string("UTF-8", allowSurrogates).convert(copy.data(), copy.size());
}

auto const utf8Error = [](std::size_t at) {
    return "Invalid UTF-8 byte sequence at byte offset " + std::to_string(at);
};
auto const utf16Error = [](std::size_t at) {
    return "Invalid UTF-16 code unit at offset " + std::to_string(at);
};

// Well-formed text, converted alike under both flags: empty, ASCII, NULs, both sides of every length
// boundary and of the surrogate range, a byte order mark, mixed lengths and adjacent pairs.
std::pair<std::u16string_view, std::string_view> const wellFormed[] = {{u""sv, ""sv},
    {u"Hello, {\"k\": [1.5e3]}"sv, "Hello, {\"k\": [1.5e3]}"sv}, {u"a\0b\0"sv, "a\0b\0"sv},
    {u"\u007F"sv, "\x7F"sv}, {u"\u0080"sv, "\xC2\x80"sv}, {u"\u07FF"sv, "\xDF\xBF"sv},
    {u"\u0800"sv, "\xE0\xA0\x80"sv}, {u"\uD7FF"sv, "\xED\x9F\xBF"sv}, {u"\uE000"sv, "\xEE\x80\x80"sv},
    {u"\uFEFF"sv, "\xEF\xBB\xBF"sv}, {u"\uFFFF"sv, "\xEF\xBF\xBF"sv}, {u"\U00010000"sv, "\xF0\x90\x80\x80"sv},
    {u"\U0010FFFF"sv, "\xF4\x8F\xBF\xBF"sv},
    {u"a\u00E9\u20AC\U0001F600z"sv, "a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80z"sv},
    {u"\U0001F600\U00010000"sv, "\xF0\x9F\x98\x80\xF0\x90\x80\x80"sv}};

// Surrogates, refused at the offset unless allowed, and then converted to the last column: the ends of
// both halves, a high then a low (which make a pair), a low then a high, and one after a four-byte form.
std::tuple<std::string_view, std::size_t, std::u16string_view> const surrogateBytes[] = {
    {"\xED\xA0\x80"sv, 0, u"\xD800"sv}, {"\xED\xAF\xBF"sv, 0, u"\xDBFF"sv},
    {"x\xED\xB0\x80"sv, 1, u"x\xDC00"sv},
    {"xy\xED\xBF\xBF"sv, 2, u"xy\xDFFF"sv}, {"\xED\xA0\xBD\xED\xB8\x80"sv, 0, u"\xD83D\xDE00"sv},
    {"\xED\xB8\x80\xED\xA0\xBD"sv, 0, u"\xDE00\xD83D"sv},
    {"\xF0\x9F\x98\x80\xED\xA0\x80"sv, 4, u"\xD83D\xDE00\xD800"sv}};

// Refused under both flags, at the first byte of the sequence that cannot be taken: leads that begin
// nothing, stray continuations, sequences cut by the end or by another byte, overlong forms, a value
// above U+10FFFF, and an offset counted in bytes after multibyte forms.
std::pair<std::string_view, std::size_t> const illFormed[] = {{"\xC0\x80"sv, 0}, {"ab\xC1\xBF"sv, 2},
    {"\xF5\x80\x80\x80"sv, 0}, {"abc\xFF"sv, 3}, {"a\x80"sv, 1}, {"\xC3\xA9\xBF"sv, 2}, {"abc\xC3"sv, 3},
    {"ab\xE2\x82"sv, 2}, {"\xF0\x9F\x98"sv, 0}, {"\xED\xA0"sv, 0}, {"\xE2\x82" "A"sv, 0},
    {"x\xC3\xC3\xA9"sv, 1}, {"\xF0\x9F\x98" "A"sv, 0}, {"\xED\xA0\xC0"sv, 0}, {"\xE0\x80\x80"sv, 0},
    {"\xE0\x9F\xBF"sv, 0}, {"\xF0\x80\x80\x80"sv, 0}, {"z\xF0\x8F\xBF\xBF"sv, 1}, {"\xF4\x90\x80\x80"sv, 0},
    {"\xE2\x82\xAC\xF0\x9F\x98\x80\xC0"sv, 7}};

// Lone surrogate units, refused at the offset unless allowed, and then written as the last column: highs
// and lows at the start, middle and end, a high before a pair, a low then a high, two lows, a low after
// a pair, and one after a run of ASCII.
std::tuple<std::u16string_view, std::size_t, std::string_view> const loneSurrogates[] = {
    {u"\xD800" u"ab"sv, 0, "\xED\xA0\x80" "ab"sv}, {u"a\xDBFF" u"b"sv, 1, "a\xED\xAF\xBF" "b"sv},
    {u"ab\xD83D"sv, 2, "ab\xED\xA0\xBD"sv}, {u"\xDC00" u"ab"sv, 0, "\xED\xB0\x80" "ab"sv},
    {u"a\xDFFF" u"b"sv, 1, "a\xED\xBF\xBF" "b"sv}, {u"ab\xDE00"sv, 2, "ab\xED\xB8\x80"sv},
    {u"\xD800\xD83D\xDE00"sv, 0, "\xED\xA0\x80\xF0\x9F\x98\x80"sv},
    {u"\xDC00\xD800"sv, 0, "\xED\xB0\x80\xED\xA0\x80"sv},
    {u"\xDC00\xDFFF"sv, 0, "\xED\xB0\x80\xED\xBF\xBF"sv},
    {u"\xD83D\xDE00\xDC00"sv, 2, "\xF0\x9F\x98\x80\xED\xB0\x80"sv},
    {u"0123456789\xDC00"sv, 10, "0123456789\xED\xB0\x80"sv}};

// Every name but these four is refused, however close.
static const std::string_view acceptedNames[] = {"UTF-8", "utf-8", "UTF8", "utf8"};
static const std::string_view refusedNames[] = {
    "", "UTF-16", "utf-16", "Utf-8", "UTF_8", "utf 8", "UTF-8 ", " utf8", "latin1", "ASCII",
};

// 65536 copies of a 16-byte sample with every sequence length: exactly 1 MiB of UTF-8.
TEST(Utf8AndUtf16, ConvertOneMebibyteBothWays)
{
    std::u16string utf16;
    std::string utf8;
    for (int i = 0; i < 65536; ++i) {
        utf16 += u"ab\u00E9\u20AC\U0001F600wxyz!";
        utf8 += "ab\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80wxyz!";
    }
    for (bool flag : bothFlags) {
        EXPECT_TRUE(decode(utf8, flag) == utf16);
        EXPECT_TRUE(encode(utf16, flag) == utf8);
    }
    EXPECT_THROW_WHAT(decode(utf8 + '\xFF', false), CvtInvalidCharacter, utf8Error(1048576));
    EXPECT_THROW_WHAT(encode(utf16 + u'\xDC00', false), CvtInvalidCharacter, utf16Error(720896));
}

TEST(Utf8AndUtf16, RefuseUnknownEncodingNames)
{
    for (std::string_view name : acceptedNames) {
        EXPECT_NO_THROW(codecvt_string_to_ustring(std::string(name), false));
        EXPECT_NO_THROW(codecvt_ustring_to_string(std::string(name), true));
    }
    for (std::string_view name : refusedNames) {
        std::string const text = "Unsupported encoding: " + std::string(name);
        EXPECT_THROW_WHAT(codecvt_string_to_ustring(std::string(name), true), CvtUnsupportedEncoding, text);
        EXPECT_THROW_WHAT(codecvt_ustring_to_string(std::string(name), false), CvtUnsupportedEncoding, text);
    }
}

// The ASCII fast paths test whole words; a non-ASCII unit must be seen wherever it lies in one, and
// the text must end where it ends.
TEST(Utf8AndUtf16, ConvertWellFormedTextAtEveryPositionInAWord)
{
    for (std::size_t before = 0; before <= 17; ++before) {
        SCOPED_TRACE(testing::Message() << "after " << before << " ASCII characters");
        for (auto const& [units, bytes] : wellFormed)
            for (bool flag : bothFlags) {
                std::u16string const utf16 = std::u16string(before, u'a') + std::u16string(units);
                std::string const utf8 = std::string(before, 'a') + std::string(bytes);
                EXPECT_EQ(encode(utf16, flag), utf8);
                EXPECT_EQ(decode(utf8, flag), utf16);
                EXPECT_EQ(encode(utf16 + u"bcdefghijk", flag), utf8 + "bcdefghijk");
                EXPECT_EQ(decode(utf8 + "bcdefghijk", flag), utf16 + u"bcdefghijk");
            }
        std::u16string const lone = std::u16string(before, u'a') + u"\xDC00" u"bcdefghijk";
        EXPECT_THROW_WHAT(encode(lone, false), CvtInvalidCharacter, utf16Error(before));
        for (char bad : {'\x80', '\xC3', '\xFF'})
            EXPECT_THROW_WHAT(decode(std::string(before, 'a') + bad + "bcdefghijk", false),
                CvtInvalidCharacter, utf8Error(before));
    }
}

// Ill-formed bytes are refused under both flags, surrogates only without the flag.
TEST(Utf8AndUtf16, RefuseIllFormedTextAndSurrogatesWithoutTheFlag)
{
    int row = 0;
    // The statements read the rows' members, not bindings: Clang 15 cannot capture a binding.
    for (auto const& c : illFormed)
        for (bool flag : bothFlags)
            EXPECT_THROW_WHAT(decode(c.first, flag), CvtInvalidCharacter, utf8Error(c.second)) << c.second;
    for (auto const& c : surrogateBytes) {
        auto const& [bytes, offset, units] = c;
        EXPECT_THROW_WHAT(decode(std::get<0>(c), false), CvtInvalidCharacter, utf8Error(offset)) << row;
        EXPECT_EQ(decode(bytes, true), units) << "row " << row++;
    }
    for (auto const& c : loneSurrogates) {
        auto const& [units, offset, bytes] = c;
        EXPECT_THROW_WHAT(encode(std::get<0>(c), false), CvtInvalidCharacter, utf16Error(offset)) << row;
        EXPECT_EQ(encode(units, true), bytes) << "row " << row;
        EXPECT_EQ(decode(bytes, true), units) << "row " << row++;
    }
}

} // namespace
